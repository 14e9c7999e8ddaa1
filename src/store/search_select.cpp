// Searching the index.
#include <algorithm>
#include <string>
#include <unordered_set>

#include "store/search_index.h"
#include "store/search_words.h"

namespace jotlets {
namespace {

constexpr std::size_t kSnippetLength = 160;
// Notes that were changed in the same second may stand some days after it.
constexpr std::int64_t kSpilledRows = std::int64_t{1} << 24;

// What of a query is asked of the record of a note, as conditions of SQL.
std::string RecordConditions(const SearchQuery& query, const SearchSpan& span) {
  std::string sql;
  if (query.places != kAllPlaces) sql += " AND (" + std::to_string(query.places) + " >> notes.place) & 1";
  if (query.image) sql += std::string(" AND notes.image = ") + (*query.image ? "1" : "0");
  if (span.first > 0) sql += " AND notes.changed >= " + std::to_string(span.first);
  if (span.end != INT64_MAX) sql += " AND notes.changed < " + std::to_string(span.end);
  return sql;
}

std::string RowConditions(const std::string& row, const SearchSpan& span) {
  std::string sql;
  if (span.first > 0) sql += " AND " + row + " >= " + std::to_string(span.first << kSearchRowBits);
  if (span.end != INT64_MAX) {
    const std::int64_t end = std::max<std::int64_t>(span.end, 0);
    sql += " AND " + row + " < " + std::to_string((end << kSearchRowBits) + kSpilledRows);
  }
  return sql;
}

// A pattern for LIKE that lets through whatever holds the words: letters beyond ASCII, whose case it does not
// know, and signs between words stand for anything.
Text Pattern(const SearchTerm& term) {
  const bool isWord = std::ranges::any_of(term.words, IsWordUnit);
  Text pattern = u"%";
  for (const char16_t unit : term.words) {
    const bool wild = unit >= 0x80 || (isWord && !IsWordUnit(unit));
    if (!wild && (unit == u'%' || unit == u'_' || unit == u'\\')) pattern += u'\\';
    if (!wild) {
      pattern += unit;
    } else if (pattern.back() != u'%' || pattern.ends_with(u"\\%")) {
      pattern += u'%';
    }
  }
  return pattern + u"%";
}

std::string ScanSql(const SearchQuery& query, const SearchSpan& span, std::vector<Text>& patterns) {
  std::string sql =
      "SELECT notes.key, notes.title, notes.category, texts.text FROM notes CROSS JOIN texts"
      " ON texts.key = notes.key WHERE 1" +
      RecordConditions(query, span) + RowConditions("notes.key", span);
  for (const SearchTerm& term : query.terms) {
    if (term.excluded) continue;
    patterns.push_back(Pattern(term));
    const std::string like = " LIKE ?" + std::to_string(patterns.size()) + " ESCAPE '\\'";
    sql.append(" AND (notes.title").append(like).append(" OR texts.text").append(like);
    sql.append(" OR notes.category").append(like).append(")");
  }
  return sql + " ORDER BY notes.key DESC";
}

}  // namespace

SearchSpan SpanOf(const SearchQuery& query, const Clock& clock) {
  SearchSpan span;
  if (query.after) span.first = clock.ToUtc(*query.after);
  if (query.before) span.end = clock.ToUtc(*query.before);
  return span;
}

SearchIndex::Rows SearchIndex::Select(const SearchQuery& query, const SearchSpan& span, std::size_t maximum,
                                      bool titles) {
  Rows rows;
  const std::string expression = FullTextExpression(query, titles);
  const auto needsAll = [](const SearchTerm& term) {
    return term.excluded || term.in == SearchIn::kCategory || term.in == SearchIn::kTag;
  };
  // The index of the titles alone is small, and fast for what is rare in titles and common in texts.
  const std::string table = titles && std::ranges::none_of(query.terms, needsAll) ? "titles" : "words";
  const std::string conditions = RecordConditions(query, span);
  std::string sql = "SELECT " + table + ".rowid FROM " + table;
  if (!conditions.empty()) sql += " CROSS JOIN notes ON notes.key = " + table + ".rowid";
  sql += " WHERE " + table + " MATCH ?" + conditions + RowConditions(table + ".rowid", span);
  sql += " ORDER BY " + table + ".rowid DESC LIMIT ?";
  Statement select = database_.Prepare(sql.c_str());
  select.Bind(FromUtf8(expression)).Bind(static_cast<std::int64_t>(maximum));
  DatabaseResult result = select.Step();
  for (; result == DatabaseResult::kRow; result = select.Step()) rows.push_back(select.NumberAt(0));
  Done(result);
  return rows;
}

void SearchIndex::AddResults(const Rows& rows, const SearchQuery& query, std::vector<SearchResult>& results) {
  const SearchHits hits(query);
  Statement id = database_.Prepare("SELECT folded FROM notes WHERE key = ?");
  for (const std::int64_t row : rows) {
    id.Reset();
    id.Bind(row);
    if (id.Step() != DatabaseResult::kRow) continue;
    auto known = FindRow(id.TextAt(0));
    if (!known) continue;
    SearchResult result;
    result.titleHits = hits.InTitle(known->note.title);
    const Text text = TextOf(row);
    result.snippet = hits.Snippet(text, kSnippetLength);
    result.beginning = text.substr(0, kSnippetLength);
    result.note = std::move(known->note);
    results.push_back(std::move(result));
  }
}

std::vector<SearchResult> SearchIndex::Search(const SearchQuery& query, const SearchSpan& span,
                                              std::size_t maximum) {
  if (query.IsEmpty()) return {};
  if (FullTextExpression(query, false).empty()) return Scan(query, span, maximum);
  Rows rows = Select(query, span, maximum, true);
  if (rows.size() < maximum) {
    const std::unordered_set<std::int64_t> known(rows.begin(), rows.end());
    for (const std::int64_t row : Select(query, span, maximum, false))
      if (rows.size() < maximum && !known.contains(row)) rows.push_back(row);
  }
  std::vector<SearchResult> results;
  AddResults(rows, query, results);
  return results;
}

std::vector<SearchResult> SearchIndex::Scan(const SearchQuery& query, const SearchSpan& span,
                                            std::size_t maximum) {
  if (query.IsEmpty()) return {};
  std::vector<Text> patterns;
  Statement select = database_.Prepare(ScanSql(query, span, patterns).c_str());
  for (const Text& pattern : patterns) select.Bind(pattern);
  const SearchHits hits(query);
  Rows rows;
  while (rows.size() < maximum && select.Step() == DatabaseResult::kRow) {
    const Text title = select.TextAt(1);
    const Text category = select.TextAt(2);
    const Text text = query.terms.empty() ? Text() : select.TextAt(3);
    if (hits.Match({title, text, category})) rows.push_back(select.NumberAt(0));
  }
  std::vector<SearchResult> results;
  AddResults(rows, query, results);
  return results;
}

std::vector<Text> SearchIndex::Names(const SearchQuery& query, const SearchSpan& span, std::size_t maximum) {
  std::vector<Text> names;
  const auto add = [&names](const IndexedNote& note) {
    names.push_back(note.place == SearchPlace::kStored ? IntText(note.key) : note.id);
  };
  if (FullTextExpression(query, false).empty()) {
    for (const SearchResult& result : Scan(query, span, maximum)) add(result.note);
    return names;
  }
  Statement name = database_.Prepare("SELECT id, place, stored FROM notes WHERE key = ?");
  for (const std::int64_t row : Select(query, span, maximum, false)) {
    name.Reset();
    name.Bind(row);
    if (name.Step() != DatabaseResult::kRow) continue;
    IndexedNote note;
    note.id = name.TextAt(0);
    note.place = static_cast<SearchPlace>(name.NumberAt(1));
    note.key = name.NumberAt(2);
    add(note);
  }
  return names;
}

}  // namespace jotlets

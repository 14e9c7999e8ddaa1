// Searching the index.
#include <algorithm>
#include <string>
#include <unordered_set>

#include "store/search_index.h"
#include "store/search_words.h"

namespace jotlets {
namespace {

constexpr std::size_t kSnippetLength = 160;
constexpr std::size_t kMaximumCounted = 20'000;
constexpr std::size_t kMaximumNamed = 500;
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

// Each note, with what its words are looked for in. The database itself cannot look for them: to it an accent
// makes another letter.
std::string ScanSql(const SearchQuery& query, const SearchSpan& span) {
  const auto looksAtText = [](const SearchTerm& term) {
    return term.in == SearchIn::kAnywhere || term.in == SearchIn::kTag;
  };
  const bool withText = std::ranges::any_of(query.terms, looksAtText);
  std::string sql = "SELECT notes.key, notes.title, notes.category, ";
  sql += withText ? "texts.text FROM notes CROSS JOIN texts ON texts.key = notes.key" : "'' FROM notes";
  sql += " WHERE 1" + RecordConditions(query, span) + RowConditions("notes.key", span);
  return sql + " ORDER BY notes.key DESC";
}

}  // namespace

SearchSpan SpanOf(const SearchQuery& query, const Clock& clock) {
  SearchSpan span;
  if (query.after) span.first = clock.ToUtc(*query.after);
  if (query.before) span.end = clock.ToUtc(*query.before);
  return span;
}

void SearchIndex::Interrupt() {
  interrupted_ = true;
  database_.Interrupt();
}

std::optional<SearchIndex::Rows> SearchIndex::Select(const SearchQuery& query, const SearchSpan& span,
                                                     std::size_t maximum, bool titles) {
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
  return Done(result) ? std::optional(std::move(rows)) : std::nullopt;
}

std::optional<SearchIndex::Rows> SearchIndex::ScanRows(const SearchQuery& query, const SearchSpan& span,
                                                       std::size_t maximum) {
  Rows rows;
  Statement select = database_.Prepare(ScanSql(query, span).c_str());
  const SearchHits hits(query);
  while (rows.size() < maximum) {
    const DatabaseResult result = select.Step();
    if (result == DatabaseResult::kDone) break;
    if (result != DatabaseResult::kRow) Done(result);
    if (result != DatabaseResult::kRow || interrupted_) return std::nullopt;
    const bool matches =
        query.terms.empty() || hits.Match({select.TextAt(1), select.TextAt(3), select.TextAt(2)});
    if (matches) rows.push_back(select.NumberAt(0));
  }
  return rows;
}

SearchIndex::Results SearchIndex::ResultsOf(const std::optional<Rows>& rows, const SearchQuery& query) {
  if (!rows) return std::nullopt;
  std::vector<SearchResult> results;
  const SearchHits hits(query);
  for (const std::int64_t row : *rows) {
    if (interrupted_) return std::nullopt;
    findRow_.Reset();
    findRow_.Bind(row);
    auto known = KnownAt(findRow_);
    if (!known) continue;
    SearchResult result;
    result.titleHits = hits.InTitle(known->note.title);
    const Text text = TextOf(row);
    result.snippet = hits.Snippet(text, kSnippetLength);
    result.beginning = text.substr(0, kSnippetLength);
    result.note = std::move(known->note);
    results.push_back(std::move(result));
  }
  return results;
}

SearchIndex::Results SearchIndex::Search(const SearchQuery& query, const SearchSpan& span,
                                         std::size_t maximum) {
  if (query.IsEmpty()) return std::vector<SearchResult>();
  if (FullTextExpression(query, false).empty()) return Scan(query, span, maximum);
  std::optional<Rows> rows = Select(query, span, maximum, true);
  if (rows && rows->size() < maximum) {
    const std::optional<Rows> others = Select(query, span, maximum, false);
    if (!others) return std::nullopt;
    const std::unordered_set<std::int64_t> known(rows->begin(), rows->end());
    for (const std::int64_t row : *others)
      if (rows->size() < maximum && !known.contains(row)) rows->push_back(row);
  }
  return ResultsOf(rows, query);
}

SearchIndex::Results SearchIndex::Scan(const SearchQuery& query, const SearchSpan& span,
                                       std::size_t maximum) {
  if (query.IsEmpty()) return std::vector<SearchResult>();
  return ResultsOf(ScanRows(query, span, maximum), query);
}

std::optional<std::vector<Text>> SearchIndex::Names(const SearchQuery& query, const SearchSpan& span,
                                                    std::size_t maximum) {
  std::vector<Text> names;
  if (query.IsEmpty()) return names;
  const bool hasWords = !FullTextExpression(query, false).empty();
  const std::optional<Rows> rows =
      hasWords ? Select(query, span, maximum, false) : ScanRows(query, span, maximum);
  if (!rows) return std::nullopt;
  Statement name = database_.Prepare("SELECT id, place, stored FROM notes WHERE key = ?");
  for (const std::int64_t row : *rows) {
    if (interrupted_) return std::nullopt;
    name.Reset();
    name.Bind(row);
    if (name.Step() != DatabaseResult::kRow) continue;
    const bool isStored = static_cast<SearchPlace>(name.NumberAt(1)) == SearchPlace::kStored;
    names.push_back(isStored ? IntText(name.NumberAt(2)) : name.TextAt(0));
  }
  return names;
}

std::optional<SearchSurvey> SearchIndex::Survey(const SurveyQuestion& question, const Clock& clock) {
  SearchQuery query = ParseSearchQuery(question.typed);
  for (SearchTerm& term : query.terms)
    if (question.titles && term.in == SearchIn::kAnywhere) term.in = SearchIn::kTitle;
  const SearchSpan span = SpanOf(query, clock);
  SearchSurvey survey;
  survey.question = question;
  if (query.IsEmpty()) return survey;
  const bool hasWords = !FullTextExpression(query, false).empty();
  const std::optional<Rows> rows =
      hasWords ? Select(query, span, kMaximumCounted, false) : ScanRows(query, span, kMaximumCounted);
  if (!rows) return std::nullopt;
  survey.more = rows->size() >= kMaximumCounted;
  Statement select = database_.Prepare("SELECT id, place, stored, category FROM notes WHERE key = ?");
  for (const std::int64_t row : *rows) {
    if (interrupted_) return std::nullopt;
    select.Reset();
    select.Bind(row);
    const auto place = static_cast<std::uint64_t>(
        select.Step() == DatabaseResult::kRow ? select.NumberAt(1) : std::int64_t{kSearchPlaces});
    if (place >= kSearchPlaces) continue;
    ++survey.places[place];
    const bool isStored = place == static_cast<std::uint64_t>(SearchPlace::kStored);
    const Text category = isStored ? select.TextAt(3) : Text();
    if (isStored) ++survey.categories[category];
    const bool isNamed = ((question.places >> place) & 1) != 0 &&
                         (!isStored || !question.category || *question.category == category);
    if (isNamed && survey.hits.size() < kMaximumNamed)
      survey.hits.push_back({select.TextAt(0), isStored ? select.NumberAt(2) : 0});
  }
  return survey;
}

}  // namespace jotlets

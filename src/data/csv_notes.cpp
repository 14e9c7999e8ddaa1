#include "data/csv_notes.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "data/written_time.h"

namespace jotlets {
namespace {

constexpr std::size_t kMaximumUnits = kLargestCollectedNote / sizeof(char16_t);
// A row of nothing but separators takes memory too.
constexpr std::size_t kMaximumColumns = 1000;

constexpr TextView kTooLarge = u"the row is over 4 MB, or has more than 1,000 columns";
constexpr TextView kUnclosed = u"a quotation mark is not closed, and the rest of the file is inside it";

struct Name {
  TextView word;
  int CsvColumns::*column;
};
constexpr Name kNames[] = {{u"title", &CsvColumns::title},
                           {u"name", &CsvColumns::title},
                           {u"subject", &CsvColumns::title},
                           {u"heading", &CsvColumns::title},
                           {u"titel", &CsvColumns::title},
                           {u"betreff", &CsvColumns::title},
                           {u"text", &CsvColumns::text},
                           {u"note", &CsvColumns::text},
                           {u"notes", &CsvColumns::text},
                           {u"content", &CsvColumns::text},
                           {u"body", &CsvColumns::text},
                           {u"description", &CsvColumns::text},
                           {u"inhalt", &CsvColumns::text},
                           {u"notiz", &CsvColumns::text},
                           {u"category", &CsvColumns::category},
                           {u"folder", &CsvColumns::category},
                           {u"notebook", &CsvColumns::category},
                           {u"group", &CsvColumns::category},
                           {u"kategorie", &CsvColumns::category},
                           {u"ordner", &CsvColumns::category},
                           {u"created", &CsvColumns::created},
                           {u"created at", &CsvColumns::created},
                           {u"creation date", &CsvColumns::created},
                           {u"date", &CsvColumns::created},
                           {u"erstellt", &CsvColumns::created},
                           {u"datum", &CsvColumns::created}};

// Of two columns that could be the same part, the first is.
CsvColumns ColumnsOf(const CsvRow& first) {
  CsvColumns columns;
  for (std::size_t at = 0; at < first.size(); ++at) {
    const Text word = ReplaceAll(FoldCase(TrimBlanks(first[at])), u"_", u" ");
    const auto* name = std::ranges::find(kNames, word, &Name::word);
    if (name != std::end(kNames) && columns.*(name->column) < 0)
      columns.*(name->column) = static_cast<int>(at);
  }
  columns.header = columns.title >= 0 || columns.text >= 0;
  if (columns.header) return columns;
  // Without names: a title and a text, or nothing but a text.
  return first.size() > 1 ? CsvColumns{.title = 0, .text = 1} : CsvColumns{.text = 0};
}

// Some programs say in a line of its own what parts the columns.
TextView WithoutSeparatorLine(TextView text, char16_t& separator) {
  if (!StartsWithIgnoreCase(text, u"sep=") || text.size() < 5) return text;
  const std::size_t end = text.find_first_of(u"\r\n");
  if (end != 5) return text;
  separator = text[4];
  text.remove_prefix(end);
  text.remove_prefix(std::min(text.find_first_not_of(u"\r\n"), text.size()));
  return text;
}

// The separator that gives most of the first rows as many columns as the first, and more than one.
char16_t SeparatorOf(TextView text) {
  constexpr std::size_t kLookedAt = 1 << 16;
  constexpr int kRows = 20;
  char16_t best = u',';
  std::pair<int, std::size_t> bestFit;
  for (const char16_t separator : {u',', u';', u'\t'}) {
    CsvReader reader(text.substr(0, kLookedAt), separator);
    CsvRow first;
    if (reader.Next(first) != CsvReader::State::kRow || first.size() < 2) continue;
    std::pair<int, std::size_t> fit{1, first.size()};
    CsvRow row;
    for (int at = 1; at < kRows && reader.Next(row) == CsvReader::State::kRow; ++at)
      fit.first += row.size() == first.size() ? 1 : -1;
    if (bestFit.second == 0 || fit > bestFit) {
      best = separator;
      bestFit = fit;
    }
  }
  return best;
}

class CsvNotes final : public NoteCollection {
 public:
  CsvNotes(Text text, const std::optional<CsvColumns>& columns) : text_(std::move(text)) {
    const CsvPreview preview = PreviewOfCsv(text_);
    columns_ = columns.value_or(preview.columns);
    char16_t ignored = 0;
    reader_.emplace(WithoutSeparatorLine(text_, ignored), preview.separator);
    if (columns_.header) reader_->Next(names_);
  }

  State Next(CollectedNote& note) override {
    CsvRow row;
    note = {};
    switch (reader_->Next(row)) {
      case CsvReader::State::kEnd: return State::kEnd;
      case CsvReader::State::kTooLarge: note.fault = kTooLarge; break;
      case CsvReader::State::kUnclosed: note.fault = kUnclosed; break;
      case CsvReader::State::kRow: note = NoteOf(row); break;
    }
    return State::kNote;
  }
  const Text& Fault() const override { return none_; }
  int Percent() const override {
    return text_.empty() ? 100 : static_cast<int>(reader_->At() * 100 / text_.size());
  }

 private:
  CollectedNote NoteOf(const CsvRow& row) const {
    const auto cell = [&row](int column) {
      const bool has = column >= 0 && static_cast<std::size_t>(column) < row.size();
      return has ? TextView(row[static_cast<std::size_t>(column)]) : TextView();
    };
    CollectedNote note;
    note.title = OneLine(TrimBlanks(cell(columns_.title)));
    note.category = OneLine(TrimBlanks(cell(columns_.category)));
    note.created = ParseWrittenTime(cell(columns_.created));
    AddLines(note, cell(columns_.text));
    for (std::size_t at = 0; at < row.size(); ++at) {
      const int column = static_cast<int>(at);
      const bool unreadTime = column == columns_.created && !note.created;
      const bool known = column == columns_.title || column == columns_.text || column == columns_.category ||
                         (column == columns_.created && !unreadTime);
      if (known || row[at].empty()) continue;
      AddLines(note, at < names_.size() && !names_[at].empty() ? names_[at] + u": " + row[at] : row[at]);
    }
    return note;
  }

  static void AddLines(CollectedNote& note, TextView lines) {
    while (!lines.empty()) {
      Split split = SplitAtFirst(lines, u'\n');
      if (split.head.ends_with(u'\r')) split.head.remove_suffix(1);
      note.paragraphs.emplace_back().runs.emplace_back().text = split.head;
      lines = split.tail;
    }
  }

  const Text text_;
  std::optional<CsvReader> reader_;
  CsvColumns columns_;
  CsvRow names_;
  Text none_;
};

}  // namespace

CsvReader::State CsvReader::Next(CsvRow& row) {
  State state = State::kRow;
  do {
    row.clear();
    if (at_ >= text_.size()) return State::kEnd;
    state = ReadRow(row);
  } while (state == State::kRow && std::ranges::all_of(row, &Text::empty));
  return state;
}

CsvReader::State CsvReader::ReadRow(CsvRow& row) {
  const char16_t ends[] = {separator_, u'\r', u'\n'};
  std::size_t size = 0;
  for (;;) {
    Text cell;
    if (at_ < text_.size() && text_[at_] == u'"' && !ReadQuoted(cell)) return State::kUnclosed;
    // What stands behind a closed quotation mark belongs to the cell too.
    const std::size_t end = std::min(text_.find_first_of(TextView(ends, std::size(ends)), at_), text_.size());
    cell += text_.substr(at_, end - at_);
    at_ = end;
    size += cell.size();
    if (size <= kMaximumUnits && row.size() <= kMaximumColumns) row.push_back(std::move(cell));
    if (at_ == text_.size() || text_[at_] != separator_) break;
    ++at_;
  }
  if (at_ < text_.size() && text_[at_] == u'\r') ++at_;
  if (at_ < text_.size() && text_[at_] == u'\n') ++at_;
  return size > kMaximumUnits || row.size() > kMaximumColumns ? State::kTooLarge : State::kRow;
}

bool CsvReader::ReadQuoted(Text& cell) {
  for (++at_;;) {
    const std::size_t end = text_.find(u'"', at_);
    if (end == TextView::npos) return at_ = text_.size(), false;
    cell += text_.substr(at_, end - at_);
    at_ = end + 1;
    if (at_ >= text_.size() || text_[at_] != u'"') return true;
    cell.push_back(text_[at_++]);
  }
}

CsvPreview PreviewOfCsv(TextView text) {
  constexpr std::size_t kShown = 6;
  CsvPreview preview;
  preview.separator = 0;
  text = WithoutSeparatorLine(text, preview.separator);
  if (preview.separator == 0) preview.separator = SeparatorOf(text);
  CsvReader reader(text, preview.separator);
  CsvRow row;
  for (CsvReader::State state = CsvReader::State::kRow;
       state != CsvReader::State::kEnd && preview.rows.size() < kShown;) {
    state = reader.Next(row);
    if (state == CsvReader::State::kRow) preview.rows.push_back(std::move(row));
    if (state == CsvReader::State::kTooLarge) preview.fault = kTooLarge;
    if (state == CsvReader::State::kUnclosed) preview.fault = kUnclosed;
  }
  if (!preview.rows.empty()) {
    preview.columns = ColumnsOf(preview.rows.front());
    preview.fault.clear();
  } else if (preview.fault.empty()) {
    preview.fault = u"the table is empty";
  }
  return preview;
}

std::vector<Text> NamesOfColumns(const CsvPreview& table, bool header, TextView numbered) {
  std::size_t columns = 0;
  for (const CsvRow& row : table.rows) columns = std::max(columns, row.size());
  std::vector<Text> names;
  for (std::size_t at = 0; at < columns; ++at) {
    const bool named = header && at < table.rows.front().size();
    Text name = named ? OneLine(TrimBlanks(table.rows.front()[at])) : Text();
    names.push_back(name.empty() ? ReplaceAll(numbered, u"%n", IntText(static_cast<std::int64_t>(at) + 1))
                                 : std::move(name));
  }
  return names;
}

std::vector<Text> ColumnsLeft(const CsvPreview& table, const CsvColumns& columns, TextView numbered) {
  std::vector<Text> left = NamesOfColumns(table, columns.header, numbered);
  std::vector<int> used{columns.title, columns.text, columns.category, columns.created};
  std::ranges::sort(used, std::greater<>());
  used.erase(std::unique(used.begin(), used.end()), used.end());
  for (const int column : used)
    if (column >= 0 && static_cast<std::size_t>(column) < left.size()) left.erase(left.begin() + column);
  return left;
}

std::unique_ptr<NoteCollection> NotesOfCsv(Text text, const std::optional<CsvColumns>& columns) {
  return std::make_unique<CsvNotes>(std::move(text), columns);
}

}  // namespace jotlets

// A table as text (CSV), with a note in each row: what parts its columns, and which of them are the parts of
// a note, are found out by looking, and can be chosen.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "data/note_collection.h"

namespace jotlets {

/// Which columns are what, counted from 0; -1 for none. The others become lines at the end of the text, each
/// with its name.
struct CsvColumns {
  int title = -1;
  int text = -1;
  int category = -1;
  int created = -1;
  bool header = false;  // the first row says what the columns are

  friend bool operator==(const CsvColumns&, const CsvColumns&) = default;
};

using CsvRow = std::vector<Text>;

/// The rows of a table: cells may stand in quotation marks, with line ends and doubled quotation marks
/// inside.
class CsvReader {
 public:
  enum class State {
    kRow,
    kTooLarge,  // the row is larger than a note may be: it was passed over
    kUnclosed,  // a quotation mark is not closed: all behind it was passed over
    kEnd,
  };

  explicit CsvReader(TextView text, char16_t separator) : text_(text), separator_(separator) {}
  /// The next row that is not empty.
  State Next(CsvRow& row);
  /// How much of the text has been read, in code units.
  std::size_t At() const { return at_; }

 private:
  State ReadRow(CsvRow& row);
  bool ReadQuoted(Text& cell);

  TextView text_;
  char16_t separator_;
  std::size_t at_ = 0;
};

/// What a dialog shows of a table before it becomes notes.
struct CsvPreview {
  char16_t separator = u',';
  std::vector<CsvRow> rows;  // the first ones, that with the names among them
  CsvColumns columns;        // as far as the names tell
  Text fault;                // why there are none
};
CsvPreview PreviewOfCsv(TextView text);

/// What the columns are called: by their names in the first row when that has names, else by `numbered`, in
/// which their numbers take the place of "%n".
std::vector<Text> NamesOfColumns(const CsvPreview& table, bool header, TextView numbered);
/// Those of them that are no part of a note, and become lines of its text.
std::vector<Text> ColumnsLeft(const CsvPreview& table, const CsvColumns& columns, TextView numbered);

/// The notes of a table with these columns, its own where none are chosen.
std::unique_ptr<NoteCollection> NotesOfCsv(Text text, const std::optional<CsvColumns>& columns);

}  // namespace jotlets

// The data file "jotlets.ini" as a value: parsed from text, composed to text, no file and no window involved.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "base/clock.h"
#include "base/text.h"
#include "data/jotlet_data.h"
#include "data/jotlet_line.h"
#include "data/options.h"
#include "data/stack_record.h"

namespace jotlets {

/// The newest version of the file format, and the one that is written.
inline constexpr std::int32_t kDataFileVersion = 3;
/// The program's version text.
inline constexpr TextView kVersionText = u"Jotlets v8.0c";

/// One note as the file has it. Older files held the content in the line, as rich text after "<RTF>".
struct FiledJotlet {
  JotletData record;
  std::optional<Text> inlineContent;
};

struct DataFile {
  std::int32_t version = kDataFileVersion;
  /// At least one section header of ours was found: the text is a data file.
  bool recognised = false;
  /// The file ends before its end: it was cut.
  bool cut = false;
  /// The header of a section was lost: [Jotlets] of a file of ours, or the one above lines that are records.
  bool headerLost = false;
  /// The line of its last record, if it ends within that.
  Text cutRecord;
  Text installId;
  std::vector<Text> friendLines;  // of a [Friends] section, as they stand
  std::vector<StackRecord> stacks;
  std::vector<FiledJotlet> jotlets;  // in file order: desktop, attached and sleeping ones
  std::vector<Text> verbatim;        // lines of [Jotlets] that are no records, to be written back as they are
  std::vector<FiledJotlet> deleted;  // all of them; the caller applies `KeepDeleted`

  /// A data file without any sign of damage.
  bool IsWhole() const { return recognised && !cut && !headerLost; }
};

/// What reading the file needs beside its text.
struct DataFileContext {
  Options& options;  // takes the settings of older files; gives the records their defaults
  FreshId freshId;
  std::int32_t now = 0;  // seconds since 1970 UTC: `created` of a record that does not say
};

/// Reads any text. Reading stops at a version above `kDataFileVersion`, which is then found in `version`.
/// A stack number that an earlier stack has is replaced by a fresh one, which no note of the file names then.
DataFile ParseDataFile(TextView text, const DataFileContext& context);

/// Lowest positive number that no stack of the list carries.
std::int32_t NewStackNumber(std::span<const StackRecord> stacks);

/// What the data file is composed from. The notes are borrowed from whoever holds them.
struct DataFileView {
  TextView installId;
  std::span<const StackRecord> stacks;
  std::vector<const JotletData*> jotlets;  // desktop, then attached, then sleeping
  std::span<const Text> verbatim;
  std::vector<const JotletData*> deleted;
  bool rolledHasAltPosition = false;
};

/// The lines of records as they were written last. Most records are the same in the next save, and comparing
/// one costs a tenth of writing its line.
class RecordLines {
 public:
  /// The first record of a file comes next. Lines that the last file did not need are dropped.
  void Rewind() {
    lines_.resize(next_);
    next_ = 0;
  }
  /// Appends the line of the next record.
  void Append(Text& out, const JotletData& record, bool rolledHasAltPosition);

 private:
  struct Line {
    JotletData record;
    bool rolledHasAltPosition = false;
    Text line;
  };
  std::vector<Line> lines_;
  std::size_t next_ = 0;
};

/// Appends the text of the file.
void AppendDataFile(Text& text, const DataFileView& view, RecordLines& lines);
Text ComposeDataFile(const DataFileView& view);

/// A note as it travels in one line: the record line, and the marker "<RTF>" with the rich text behind it,
/// line breaks written as "^M". `content` is empty for a note without a rich-text file.
Text MakeEncodedJotlet(const JotletData& record, bool rolledHasAltPosition, TextView content);

/// The inverse, for lines of older files and notes from other programs: the content, when the line holds
/// "<RTF>{\rtf1", with "^M" turned into line breaks.
FiledJotlet ParseEncodedJotlet(TextView line, const JotletData& blank, const FreshId& freshId);

}  // namespace jotlets

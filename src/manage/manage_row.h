// A note, or a stack, as a row of the manage window; and the texts of notes, which are read one at a time.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "base/text.h"
#include "data/jotlet_data.h"
#include "data/stack_record.h"

namespace jotlets {

/// Times are seconds since 1970 UTC, 0 for none.
struct ManageRow {
  enum class Type { kText, kPicture, kStack };

  Text id;                  // of a stack its number
  std::int64_t stored = 0;  // the key of a stored one
  Text title;               // as shown: the record's, or the beginning of the text once that is known
  std::string key;          // the title folded, in UTF-8, for sorting
  std::string more;         // what else is searched beside the text, likewise
  Type type = Type::kText;
  Colour colour;  // of its paper
  bool attached = false;
  bool untitled = false;  // `title` comes from the text
  bool unsaved = false;   // the text may change without notice
  std::int32_t created = 0;
  std::int32_t modified = 0;
  std::int32_t nextWake = 0;
  Text category;  // of a stored note; among all notes, what its place is called
  // How the text goes on below the title, once it is read.
  enum class Snippet : std::uint8_t { kUnknown, kWanted, kRead } known = Snippet::kUnknown;
  Text snippet;
};

/// Where the texts of notes come from.
class NoteTexts {
 public:
  virtual ~NoteTexts() = default;
  /// The plain text of the note of a row, empty when it has none or none can be had. Only as much of a very
  /// long one as is worth searching.
  virtual Text TextOf(const ManageRow& row) = 0;
};

/// The texts that have been read, in the form in which they are searched. Remembers no more than a limit;
/// what goes beyond is read again whenever it is asked for.
class ManageTexts {
 public:
  struct Known {
    std::int32_t modified = 0;
    std::string folded;
    Text beginning;  // as a title, when the note has none of its own
    Text snippet;
  };

  explicit ManageTexts(NoteTexts& source, std::size_t mostBytes = std::size_t{96} << 20)
      : source_(source), mostBytes_(mostBytes) {}

  /// What is known of the text of a row as it is now; nullptr when it has to be read.
  const Known* Find(const ManageRow& row) const;
  /// Reads it. Good until the next call.
  const Known& Read(const ManageRow& row);
  void Clear();

 private:
  NoteTexts& source_;
  std::size_t mostBytes_;
  std::size_t bytes_ = 0;
  std::unordered_map<Text, Known> known_;  // by folded id
  Known passing_;
};

/// One of all notes, and what the place is called where it is.
struct PlacedNote {
  const JotletData* record = nullptr;
  Text place;
  std::int64_t stored = 0;  // the key of a stored one
};

/// What names a row among all that are shown.
Text NameOf(const ManageRow& row);
Text NameOfStored(std::int64_t key);
/// The key in the name of a stored note; nothing in any other name.
std::optional<std::int64_t> StoredKeyIn(TextView name);

ManageRow RowOf(const PlacedNote& note, bool unsaved);
ManageRow RowOf(const StackRecord& stack);
/// Whether the row of a note would be this one again. One with unsaved content never is.
bool IsSame(const ManageRow& row, const PlacedNote& note);
/// Shows what is known of the text; true when the title comes from that, and is another one now.
bool ApplyText(ManageRow& row, const ManageTexts::Known& known);

}  // namespace jotlets

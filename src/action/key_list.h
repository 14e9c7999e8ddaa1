// All keys in words, as the window of the shortcuts and the help page list them. The texts, which are
// resources, come from outside.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "action/action_table.h"
#include "base/text.h"

namespace jotlets {

/// Where a key counts, in the order of the list.
enum class KeyPlace { kNote, kText, kPicture, kProgram, kManage, kEverywhere };
inline constexpr std::size_t kKeyPlaces = 6;

struct KeyRow {
  KeyPlace place = KeyPlace::kNote;
  Text key;   // "Ctrl+Shift+F"
  Text what;  // "Friends"
  friend bool operator==(const KeyRow&, const KeyRow&) = default;
};

/// A menu's text as plain words: without the mark of its letter, its key and the dots of a dialog.
Text PlainMenuText(TextView menuText);

/// A text of the resources by its number.
using TextOfResource = std::function<Text(std::uint32_t id)>;

/// What a command is called by itself, by its menu text; empty for one that has none.
Text ActionWords(const NoteAction& action, const TextOfResource& textOf);

/// Rows of all keys in a note: of the commands that are carried out, by their menu texts, and of what else
/// the resources list as `IDS_KEY_ROW`, each "place tab key tab words" with the number of the place.
std::vector<KeyRow> NoteKeyRows(const TextOfResource& textOf);

/// In the order of the places, and within each as they came. A key that is there twice is listed as the
/// first; pictures and the manage window have keys of their own.
std::vector<KeyRow> Arranged(std::vector<KeyRow> rows);

/// Whether each word of the search is in the key or in what it does, in large or small letters.
bool IsFound(const KeyRow& row, TextView search);

}  // namespace jotlets

// The keys of the text editor that are no commands of a note: one row each, for the editor and for whoever
// lists the keys. Keys of commands are in their own rows, `kNoteActions`.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "base/shortcut.h"

namespace jotlets {

/// What such a key does. Its description is the text IDS_EDITOR_KEY + this.
enum class EditorKey : std::uint8_t {
  kNothing,
  kPaste,
  kPastePlain,
  kIndent,  // list items; elsewhere the key belongs to the text, as the next two
  kOutdent,
  kNewItem,
  kTick,
  kCheckList,
  kFindBack,
  kCopy,
  kCut,
};

struct EditorKeyRow {
  EditorKey does = EditorKey::kNothing;
  Shortcut key;
};

inline constexpr EditorKeyRow kEditorKeys[] = {
    {EditorKey::kPaste, {kInsertKey, false, true, false}},
    {EditorKey::kPastePlain, {'V', true, true, false}},
    {EditorKey::kIndent, {kTabKey, false, false, false}},
    {EditorKey::kOutdent, {kTabKey, false, true, false}},
    {EditorKey::kNewItem, {kEnterKey, false, false, false}},
    {EditorKey::kTick, {kEnterKey, true, false, false}},
    {EditorKey::kTick, {kSpaceKey, true, true, false}},
    {EditorKey::kCheckList, {'X', true, true, false}},
    {EditorKey::kFindBack, {kF3Key, false, true, false}},
    {EditorKey::kCopy, {kInsertKey, true, false, false}},
    {EditorKey::kCut, {kDeleteKey, false, true, false}},
};

/// The first key of a row.
constexpr Shortcut KeyOf(EditorKey does) {
  return std::ranges::find(kEditorKeys, does, &EditorKeyRow::does)->key;
}

/// The key of the command that pastes. The editor serves it, too: the control's own way brings objects along.
inline constexpr Shortcut kPasteKey{'V', true, false, false};

/// What a key does in the editor; nothing for keys that have no row.
constexpr EditorKey EditorKeyFrom(const Shortcut& pressed) {
  const auto row = std::ranges::find(kEditorKeys, pressed, &EditorKeyRow::key);
  return row == std::end(kEditorKeys) ? EditorKey::kNothing : row->does;
}

}  // namespace jotlets

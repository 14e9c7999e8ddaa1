// The note commands, one row each: what a command is called, needs, changes and shows, who carries it out,
// its key and its place in the menus. Names, keys, menus, states and the handlers all go by these rows. What
// a command does is written where it is done, in a table of handlers by code.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "action/actions.h"
#include "action/shortcuts.h"
#include "base/text.h"
#include "editor/editor_keys.h"
#include "looks/icon.h"

namespace jotlets {

/// Who has the handler of a command. Without one, for features that are not there yet and for what only
/// stacks do, it is never enabled.
enum class ActionBy : std::uint8_t { kNobody, kEditor, kNote, kProgram, kPicture };

/// What has to be there.
enum class ActionNeeds : std::uint8_t {
  kNothing,
  kText,
  kPicture,
  kSelection,
  kCopyable,   // a selection, or a picture, which is copied as a whole else
  kClipboard,  // with something that the text takes
  kUndoStep,
  kRedoStep,
  kFreeSkin,  // skins are not fixed by policy
  kStack,     // the note is in one
};

/// What becomes of the text. A locked note enables only what keeps it. An editor, which can be read-only for
/// other reasons, refuses what edits; what may edit, as a command that opens a link or else makes one, it
/// leaves to the handler.
enum class ActionOnText : std::uint8_t { kKeeps, kEdits, kMayEdit };

/// What of a note a command sets and shows with a check mark, if anything. Commands that set the same to
/// different values are a family, and the handler of the one with the lowest code is theirs.
enum class ActionSets : std::uint8_t {
  kNothing,
  kOnTop,
  kRolled,
  kLocked,
  kUser1,
  kUser2,
  kUser3,
  kStang,
  kBold,
  kItalic,
  kUnderline,
  kStrikethrough,
  kRightToLeft,
  kBulletList,
  kAlignment,  // these by the values of their enumerations
  kBullets,
  kHighlight,
  kStyle,    // a number of the saved styles; shown by nothing
  kOpacity,  // percent, as the record has it
  kTool,     // of pictures, by the code of its command
  kPenWidth,
  kZoom,  // percent, 0 for as large as fits
};

struct ActionSetting {
  ActionSets what = ActionSets::kNothing;
  std::int32_t value = 0;
  friend constexpr bool operator==(const ActionSetting&, const ActionSetting&) = default;
};

/// The menus of a note and the menus in them.
enum class NoteMenu : std::uint8_t {
  kNoMenu,
  kJotletMenu,
  kLookMenu,
  kOpacityMenu,
  kMarksMenu,
  kArrangeMenu,
  kRemindMenu,
  kStacksMenu,
  kPictureMenu,
  kDrawMenu,
  kPenWidthMenu,
  kZoomMenu,
  kFileMenu,
  kStoreMenu,
  kTextMenu,
  kFontMenu,
  kFormatMenu,
  kAlignMenu,
  kBulletsMenu,
  kStylesMenu,
};

/// Entries stand in the order of `at`. Where its hundreds change, there is a separator.
struct MenuPlace {
  NoteMenu menu = NoteMenu::kNoMenu;
  std::int32_t at = 0;
  friend constexpr bool operator==(const MenuPlace&, const MenuPlace&) = default;
};

struct NoteAction {
  ActionCode code = kActionNone;
  TextView name;
  ActionBy by = ActionBy::kNobody;
  ActionNeeds needs = ActionNeeds::kNothing;
  ActionOnText onText = ActionOnText::kKeeps;
  ActionSetting sets;
  Shortcut key;
  MenuPlace menu;  // its text is the resource IDS_ACTION + code
  Icon icon = Icon::kNothing;
};

inline constexpr std::array kNoteActions = [] {
  using enum ActionSets;
  using enum NoteMenu;
  constexpr auto Plain = [](std::uint16_t key) { return Shortcut{key, false, false, false}; };
  constexpr auto Ctrl = [](std::uint16_t key) { return Shortcut{key, true, false, false}; };
  constexpr auto CtrlShift = [](std::uint16_t key) { return Shortcut{key, true, true, false}; };
  constexpr auto Alt = [](std::uint16_t key) { return Shortcut{key, false, false, true}; };
  return std::array{
#define X(number, spelled, who, need, text, ...) \
  NoteAction{.code = kAction##spelled,           \
             .name = u"" #spelled,               \
             .by = ActionBy::k##who,             \
             .needs = ActionNeeds::k##need,      \
             .onText = ActionOnText::k##text,    \
             __VA_ARGS__},
#include "action/action_rows.inc"
#undef X
  };
}();

inline constexpr NoteAction kNoAction;

/// The row of a code; one without a name, that nobody carries out, for what is no action.
constexpr const NoteAction& RowOf(std::int32_t code) {
  return code > kActionNone && code < kActionEnd ? kNoteActions[static_cast<std::size_t>(code - 1)]
                                                 : kNoAction;
}

/// The command whose handler carries out this one: the first of its family, or itself.
constexpr ActionCode HandledAs(const NoteAction& row) {
  if (row.sets.what == ActionSets::kNothing) return row.code;
  return std::ranges::find(kNoteActions, row.sets.what, [](const NoteAction& r) { return r.sets.what; })
      ->code;
}

/// The handler of a command in a table of handlers that each have a `code`; nullptr when it is not there.
template <typename Handler, std::size_t count>
constexpr const Handler* HandlerOf(const Handler (&handlers)[count], const NoteAction& row) {
  const auto found = std::ranges::find(handlers, HandledAs(row), &Handler::code);
  return found == std::end(handlers) ? nullptr : found;
}

/// Whether a table of handlers has one for each command that is carried out there, and no other.
template <typename Handler, std::size_t count>
constexpr bool AreHandlersBy(ActionBy by, const Handler (&handlers)[count]) {
  return std::ranges::all_of(kNoteActions, [&](const NoteAction& row) {
    const bool isOurs = row.by == by && HandledAs(row) == row.code;
    return std::ranges::count(handlers, row.code, &Handler::code) == (isOurs ? 1 : 0);
  });
}

}  // namespace jotlets

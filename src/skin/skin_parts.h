// The parts of a window that a skin draws, as somebody meets them who does not see it: one list of names,
// roles, states, places and commands, for screen readers and for the keyboard.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "action/action_state.h"
#include "action/key_list.h"
#include "editor/editor_keys.h"
#include "skin/skin_layout.h"

namespace jotlets {

enum class PartRole : std::uint8_t {
  kTitle,
  kState,  // a mark of something that holds for the note
  kButton,
  kToggle,  // a button that stays pressed
  kMenuButton,
  kText,
  kPicture,
};

/// What a button without an action does: its `type`.
enum class PartUse : std::uint8_t {
  kNothing,
  kCheckList,  // makes check lists, and plain text of them
  kDismiss,    // quietens a note that sounds
  kSnooze,     // lets it sound again later
};

struct SkinPart {
  PartRole role = PartRole::kButton;
  Text name;
  Text value;  // of a title its words, of a state more about it; often empty
  Text key;    // that does the same: "Ctrl+B"
  Rect area;   // in client pixels, within the window; empty for what has no place in it now
  ActionCode action = kActionNone;
  PartUse use = PartUse::kNothing;  // instead of an action
  bool atFoot = false;              // in the bar for formatting, or the foot of a note that sounds
  bool pressed = false;
  bool unavailable = false;
  bool invisible =
      false;  // not drawn now, since the window is too small or neither active nor under the mouse
  friend bool operator==(const SkinPart&, const SkinPart&) = default;
};

/// What the list needs to know of a window besides its view.
struct PartFacts {
  Text title;
  ActionCode titleAction = kActionNone;  // what a press on the title offers
  std::span<const SkinState> states;     // those that are told of when they hold
  std::optional<PartRole> content;       // what the text area holds, if that is a part of its own
  std::function<ActionState(ActionCode)> stateOf;
  std::function<Text(SkinState)> valueOf;
  TextOfResource textOf;
};

/// What a button does: `type=checklist`, "dismiss" or "snooze". Nothing for one with an action.
PartUse UseOf(const SkinElement& button);

/// The states of a note that are told of, and those of a stack.
std::span<const SkinState> StatesOfNotes();
std::span<const SkinState> StatesOfStacks();

/// The title, the states that hold, the buttons from the top left on, the content. A button that the skin
/// draws in several ways is one part; one that comes with the focus or the mouse is there, but invisible.
std::vector<SkinPart> PartsOf(const SkinData& skin, const SkinView& view, const PartFacts& facts);

/// The part under a point; nothing beside all of them.
std::optional<std::size_t> PartAt(std::span<const SkinPart> parts, Point at);

}  // namespace jotlets

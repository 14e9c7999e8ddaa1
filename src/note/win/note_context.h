// What the windows on the desktop, notes and stacks, need from outside besides their owner.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "action/key_list.h"
#include "base/clock.h"
#include "base/log.h"
#include "data/options.h"
#include "editor/text_search.h"
#include "note/monitors.h"
#include "note/win/edit_actions.h"
#include "skin/win/program_skins.h"
#include "ui/theme.h"

namespace jotlets {

/// The title of the stack of a number; nothing when there is no such stack.
using StackNames = std::function<std::optional<Text>(std::int32_t number)>;

/// All of it outlives the windows.
struct NoteContext {
  const Options& options;
  const Theme& theme;
  const MonitorSetup& screens;  // those of this moment
  ProgramSkins& skins;
  const Clock& clock;
  Log& log;
  StackNames stackName;
  std::function<EditContext()> editing;  // what the commands of an editor need to know
  /// The line above the beginning of a text that cannot be shown as it is.
  std::function<Text()> beginningNotice;
  Text& searched;  // what was looked for last, in any note
  /// What is said of what was found.
  std::function<Text(const FoundText& found)> foundWords;
  /// Follows a link that the user has clicked on in a note, which may be gone when the call returns.
  std::function<void(HWND note, const Text& target, bool noteFromOutside)> openLink;
  TextOfResource textOf;
};

}  // namespace jotlets

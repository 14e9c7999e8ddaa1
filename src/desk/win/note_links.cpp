#include "desk/win/note_links.h"

#include <shellapi.h>

#include "base/win/wide.h"
#include "editor/link_text.h"
#include "res/resource.h"
#include "ui/system_programs.h"
#include "ui/user_messages.h"

namespace jotlets {
namespace {

bool Open(HWND note, const Text& address) {
  constexpr INT_PTR kLastError = 32;  // of those that stand for failures
  return reinterpret_cast<INT_PTR>(
             ShellExecuteW(note, L"open", Wide(address), nullptr, nullptr, SW_SHOWNORMAL)) > kLastError;
}

bool Reveal(HWND note, const Resources& resources, const Text& target) {
  if (!AskFirst(note, resources, IDS_LINK_TO_FILE, target)) return true;
  return ShowInExplorer(IsWindow(note) ? note : nullptr, PathOfLink(target));
}

}  // namespace

void FollowLink(HWND note, const Resources& resources, Log& log, const Text& target, bool noteFromOutside) {
  switch (UseOfLink(target, noteFromOutside)) {
    case LinkUse::kNothing: return;
    case LinkUse::kOpened:
      if (!Open(note, target)) log.Write(kLogLifecycle, u"Unable to open '", target, u"'");
      return;
    case LinkUse::kRevealed:
      if (!Reveal(note, resources, target)) log.Write(kLogLifecycle, u"Unable to show '", target, u"'");
      return;
    case LinkUse::kRefused:
      log.Write(kLogLifecycle, u"Not followed from a note from outside: '", target, u"'");
      return Tell(note, resources, IDS_LINK_REFUSED, target);
  }
}

}  // namespace jotlets

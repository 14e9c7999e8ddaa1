// The parts of a window that a skin draws: the keyboard among them, and what screen readers are told of them.
#include <initguid.h>

#include <oleacc.h>

#include <algorithm>

#include "note/win/skinned_window.h"
#include "res/part_texts.h"

namespace jotlets {
namespace {

// Parts are known by what they do; what does nothing, by its place.
constexpr LPARAM kTitleCommand = 1000;
constexpr LPARAM kContentCommand = 1001;
constexpr LPARAM kFirstUse = 1010;
constexpr LPARAM kFirstState = 1100;

bool IsContent(PartRole role) { return role == PartRole::kText || role == PartRole::kPicture; }

LPARAM CommandOf(const std::vector<SkinPart>& parts, std::size_t index) {
  const SkinPart& part = parts[index];
  if (part.role == PartRole::kTitle) return kTitleCommand;
  if (part.role == PartRole::kState) return kFirstState + static_cast<LPARAM>(index);
  if (part.use != PartUse::kNothing) return kFirstUse + static_cast<LPARAM>(part.use);
  return IsContent(part.role) ? kContentCommand : LPARAM{part.action};
}

LONG RoleOf(PartRole role) {
  switch (role) {
    case PartRole::kTitle: return ROLE_SYSTEM_TITLEBAR;
    case PartRole::kState: return ROLE_SYSTEM_GRAPHIC;
    case PartRole::kMenuButton: return ROLE_SYSTEM_BUTTONMENU;
    case PartRole::kText: return ROLE_SYSTEM_TEXT;
    case PartRole::kPicture: return ROLE_SYSTEM_GRAPHIC;
    default: return ROLE_SYSTEM_PUSHBUTTON;
  }
}

LONG SpokenState(const SkinPart& part) {
  LONG state = part.role == PartRole::kState ? STATE_SYSTEM_READONLY : STATE_SYSTEM_FOCUSABLE;
  if (part.pressed) state |= STATE_SYSTEM_PRESSED;
  if (part.unavailable) state |= STATE_SYSTEM_UNAVAILABLE;
  if (part.invisible) state |= STATE_SYSTEM_INVISIBLE;
  if (part.role == PartRole::kMenuButton) state |= STATE_SYSTEM_HASPOPUP;
  return state;
}

std::uint32_t VerbOf(const SkinPart& part) {
  if (part.action == kActionNone && part.use == PartUse::kNothing) return 0;
  if (part.role == PartRole::kTitle) return IDS_PART_EDIT;
  return part.role == PartRole::kMenuButton ? IDS_PART_OPEN : IDS_PART_PRESS;
}

}  // namespace

std::vector<AccessiblePart> SkinnedWindow::Parts() const {
  const std::vector<SkinPart> parts = SkinParts();
  std::vector<AccessiblePart> spoken;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const SkinPart& part = parts[i];
    AccessiblePart& made = spoken.emplace_back();
    made.role = RoleOf(part.role);
    made.state = SpokenState(part);
    made.name = part.name;
    made.value = part.value;
    made.key = part.key;
    if (const std::uint32_t verb = VerbOf(part); verb != 0) made.action = context_.textOf(verb);
    made.area = part.area;
    made.command = CommandOf(parts, i);
    if (made.command == focusedPart_) made.state |= STATE_SYSTEM_FOCUSED;
    if (!IsContent(part.role)) continue;
    made.window = ContentWindow();
    if (made.window != nullptr && GetFocus() == made.window) made.state |= STATE_SYSTEM_FOCUSED;
  }
  return spoken;
}

AccessiblePart SkinnedWindow::SelfPart() const {
  AccessiblePart self;
  self.role = ROLE_SYSTEM_PANE;
  self.state = STATE_SYSTEM_FOCUSABLE;
  if (GetFocus() == Handle() && focusedPart_ == 0) self.state |= STATE_SYSTEM_FOCUSED;
  if (IsWindowVisible(Handle()) == 0) self.state |= STATE_SYSTEM_INVISIBLE;
  self.area = {0, 0, view_.window.width, view_.window.height};
  for (const SkinPart& part : SkinParts()) {
    if (part.role == PartRole::kTitle) self.name = part.value;
    if (part.role != PartRole::kState) continue;
    if (!self.description.empty()) self.description += u", ";
    self.description += part.value.empty() ? part.name : part.name + u": " + part.value;
  }
  return self;
}

void SkinnedWindow::UsePart(AccessibleWindow::Use use, LPARAM command) {
  const std::vector<SkinPart> parts = SkinParts();
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (CommandOf(parts, i) != command) continue;
    if (use == kTakeFocus) return IsContent(parts[i].role) ? LeaveParts() : FocusPart(command);
    if (!parts[i].unavailable) DoButton(parts[i].action, parts[i].use, {});
    return;
  }
}

void SkinnedWindow::DoButton(ActionCode action, PartUse use, Point at) {
  if (action != kActionNone) {
    DoSkinAction(action, at);
  } else if (use != PartUse::kNothing) {
    DoPart(use);
  }
}

// Those that the keyboard goes to.
std::vector<LPARAM> SkinnedWindow::PartsForKeys(bool atFoot) const {
  const std::vector<SkinPart> parts = SkinParts();
  std::vector<LPARAM> found;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const SkinPart& part = parts[i];
    const bool acts = part.action != kActionNone || part.use != PartUse::kNothing;
    if (acts && part.atFoot == atFoot && !part.invisible && !part.unavailable)
      found.push_back(CommandOf(parts, i));
  }
  return found;
}

bool SkinnedWindow::IsAtFoot() const {
  const std::vector<LPARAM> parts = PartsForKeys(true);
  return std::ranges::find(parts, focusedPart_) != parts.end();
}

// With the keyboard at one of its parts the window looks as under the mouse, so that all of them are seen.
void SkinnedWindow::GoToParts(bool backwards) {
  const bool toFoot = (focusedPart_ != 0) == backwards;
  const bool leaves = focusedPart_ != 0 && IsAtFoot() == toFoot;
  if (leaves) return LeaveParts();
  const bool came = focusedPart_ == 0;
  if (came) SetForegroundWindow(Handle());
  focusedPart_ = kTitleCommand;
  UpdateView();
  std::vector<LPARAM> parts = PartsForKeys(toFoot);
  // Without a bar at the foot the way is shorter.
  if (parts.empty() && came) parts = PartsForKeys(false);
  if (parts.empty()) return LeaveParts();
  FocusPart(parts.front());
}

void SkinnedWindow::FocusPart(LPARAM command) {
  focusedPart_ = command;
  if (GetFocus() != Handle()) SetFocus(Handle());
  UpdateView();
  const std::vector<SkinPart> parts = SkinParts();
  for (std::size_t i = 0; i < parts.size(); ++i)
    if (CommandOf(parts, i) == command) Accessibility::TellFocus(Handle(), i);
}

void SkinnedWindow::LeaveParts() {
  focusedPart_ = 0;
  UpdateView();
  FocusContent();
}

Rect SkinnedWindow::FocusedPlace() const {
  if (focusedPart_ == 0) return {};
  const std::vector<SkinPart> parts = SkinParts();
  for (std::size_t i = 0; i < parts.size(); ++i)
    if (CommandOf(parts, i) == focusedPart_) return parts[i].area;
  return {};
}

bool SkinnedWindow::OnPartKey(WPARAM key) {
  if (key == VK_F6) return GoToParts(GetKeyState(VK_SHIFT) < 0), true;
  if (focusedPart_ == 0) return false;
  const std::vector<LPARAM> parts = PartsForKeys(IsAtFoot());
  const auto at = std::ranges::find(parts, focusedPart_);
  // What has gone meanwhile, as a button that the window has become too narrow for, leaves the keyboard
  // behind.
  if (parts.empty() || (at == parts.end() && key != VK_ESCAPE)) return LeaveParts(), true;
  const auto last = static_cast<std::ptrdiff_t>(parts.size()) - 1;
  std::ptrdiff_t to = at - parts.begin();
  switch (key) {
    case VK_RIGHT:
    case VK_DOWN: to = to < last ? to + 1 : 0; break;
    case VK_LEFT:
    case VK_UP: to = to > 0 ? to - 1 : last; break;
    case VK_HOME: to = 0; break;
    case VK_END: to = last; break;
    case VK_RETURN:
    case VK_SPACE: UsePart(kDoCommand, focusedPart_); return true;
    case VK_TAB:
    case VK_ESCAPE: LeaveParts(); return true;
    default: return false;
  }
  FocusPart(parts[static_cast<std::size_t>(to)]);
  return true;
}

}  // namespace jotlets

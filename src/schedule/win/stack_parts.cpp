// What screen readers are told of a stack: what its skin draws, and a row for each of its notes.
#include <initguid.h>

#include <oleacc.h>

#include "res/part_texts.h"
#include "schedule/win/stack_window.h"

namespace jotlets {
namespace {

constexpr LPARAM kFirstRow = 10000;

}  // namespace

std::vector<SkinPart> BStackDlg::SkinParts() const {
  const ActionFacts actions{.rolled = view_.rolled, .onTop = record_.onTop};
  PartFacts facts{.title = record_.title, .titleAction = kActionEditTitle, .states = StatesOfStacks()};
  facts.stateOf = [&actions](ActionCode action) {
    return ActionState{true, StateOf(action, actions).checked};
  };
  facts.valueOf = [](SkinState) { return Text(); };
  facts.textOf = context_.textOf;
  return PartsOf(skin_->data, view_, facts);
}

std::vector<AccessiblePart> BStackDlg::Parts() const {
  std::vector<AccessiblePart> parts = SkinnedWindow::Parts();
  const StackList list = List();
  for (std::size_t row = 0; row < members_.size(); ++row) {
    const StackMember& member = members_[row];
    AccessiblePart& part = parts.emplace_back();
    part.role = ROLE_SYSTEM_LISTITEM;
    part.state = STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
    if (selectedRow_ == row) part.state |= STATE_SYSTEM_SELECTED;
    if (selectedRow_ == row && hasFocus_ && !IsAtParts()) part.state |= STATE_SYSTEM_FOCUSED;
    part.name = OneLine(member.title);
    if (part.name.empty()) part.name = context_.textOf(IDS_PART_UNTITLED);
    part.value = context_.textOf(IDS_PART_MEMBER + static_cast<std::uint32_t>(member.state));
    if (member.alarm)
      part.description = context_.textOf(IDS_PART_STATE + static_cast<std::uint32_t>(SkinState::kAlarm));
    part.action = context_.textOf(IDS_PART_SHOW_OR_HIDE);
    part.area = list.RowRect(row);
    if (!Overlap(part.area, list.area)) part.state |= STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;
    part.command = kFirstRow + static_cast<LPARAM>(row);
  }
  return parts;
}

void BStackDlg::UsePart(AccessibleWindow::Use use, LPARAM command) {
  if (command < kFirstRow) return SkinnedWindow::UsePart(use, command);
  const auto row = static_cast<std::size_t>(command - kFirstRow);
  const auto member = MemberAt(row);
  if (!member) return;
  if (use == kDoCommand) return owner_.OnMemberClicked(*this, *member);
  SetForegroundWindow(Handle());
  SetFocus(Handle());
  SelectRow(row);
}

void BStackDlg::TellRow() {
  TellChanges();
  if (!selectedRow_ || !hasFocus_) return;
  Accessibility::TellFocus(Handle(), SkinParts().size() + *selectedRow_);
}

}  // namespace jotlets

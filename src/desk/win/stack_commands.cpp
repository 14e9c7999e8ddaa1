// What the user does with a stack: its buttons, its menu and the rows of its list.
#include <algorithm>
#include <utility>

#include "base/win/wide.h"
#include "desk/win/open_stacks.h"
#include "note/win/colour_menu.h"
#include "res/resource.h"
#include "ui/drawn_menu.h"
#include "ui/popup_menu.h"
#include "ui/text_dialog.h"

namespace jotlets {
namespace {

constexpr std::pair<UINT, Icon> kIcons[] = {
    {ID_STACK_SHOW_MEMBER, Icon::kEye}, {ID_STACK_TAKE_OUT, Icon::kUp},  {ID_STACK_SPREAD, Icon::kSpread},
    {ID_STACK_GATHER, Icon::kGather},   {ID_STACK_TITLE, Icon::kPencil}, {ID_STACK_COLOUR, Icon::kPalette},
    {ID_STACK_ON_TOP, Icon::kPin},      {ID_STACK_ROLL, Icon::kRoll},    {ID_STACK_CLOSE, Icon::kClose}};

// At the mouse, or on the stack when the mouse is elsewhere.
Point PlaceOfMenu(const BStackDlg& stack) {
  const Point mouse = MousePosition();
  const Rect bounds = stack.Bounds();
  return bounds.Contains(mouse) ? mouse : Point{bounds.left + 16, bounds.top + 24};
}

}  // namespace

bool OpenStacks::OnStackAction(BStackDlg& stack, ActionCode action) {
  switch (action) {
    case kActionClose: Close(stack.Number()); return true;
    case kActionStack: WouldGather(stack.Members()) ? Gather(stack) : Spread(stack); return true;
    case kActionEditTitle: EditTitle(stack.Number()); return true;
    case kActionColour: ChooseColour(stack.Number()); return true;
    case kActionNewJotlet: owner_.DoProgramCommand(ID_NEW_JOTLET); return true;
    case kActionRescue: owner_.DoProgramCommand(ID_RESCUE); return true;
    default: return false;
  }
}

void OpenStacks::OnStackMenu(BStackDlg& stack, const std::optional<Text>& member) {
  const std::int32_t number = stack.Number();
  const UniqueMenu resource = resources_.Menu(IDM_STACK);
  const HMENU menu = GetSubMenu(resource.get(), 0);
  const auto check = [menu](UINT command, bool on) {
    CheckMenuItem(menu, command, MF_BYCOMMAND | (on ? MF_CHECKED : MF_UNCHECKED));
  };
  check(ID_STACK_KEEP_COLOUR, stack.Record().keepColour);
  check(ID_STACK_ON_TOP, stack.Record().onTop);
  check(ID_STACK_ROLL, stack.IsRolled());
  const bool isOpen = member && desktop_.Find(*member) != nullptr;
  for (const UINT ofRow : {UINT{ID_STACK_SHOW_MEMBER}, UINT{ID_STACK_TAKE_OUT}})
    EnableMenuItem(menu, ofRow, MF_BYCOMMAND | (isOpen ? MF_ENABLED : MF_GRAYED));
  for (const auto& [command, icon] : kIcons) SetMenuIcon(menu, command, icon);
  SetForegroundWindow(stack.Handle());
  const UINT chosen = ChooseFromMenu(resources_.Look(), menu, PlaceOfMenu(stack), stack.Handle());
  // The menu runs a message loop of its own, in which the stack may go.
  if (BStackDlg* still = Find(number)) DoMenuCommand(*still, chosen, member);
}

bool OpenStacks::DoMenuCommand(BStackDlg& stack, UINT command, const std::optional<Text>& member) {
  switch (command) {
    case ID_STACK_SHOW_MEMBER:
      if (member) OnMemberClicked(stack, *member);
      break;
    case ID_STACK_TAKE_OUT:
      if (member) OnMemberTakenOut(stack, *member);
      break;
    case ID_STACK_TITLE: EditTitle(stack.Number()); break;
    case ID_STACK_COLOUR: ChooseColour(stack.Number()); break;
    case ID_STACK_KEEP_COLOUR: stack.SetKeepColour(!stack.Record().keepColour); break;
    case ID_STACK_SPREAD: Spread(stack); break;
    case ID_STACK_GATHER: Gather(stack); break;
    case ID_STACK_ON_TOP: stack.DoAction(kActionOnTop); break;
    case ID_STACK_ROLL: stack.DoAction(kActionRoll); break;
    case ID_STACK_CLOSE: Close(stack.Number()); break;
    default: return false;
  }
  return true;
}

void OpenStacks::EditTitle(std::int32_t number) {
  BStackDlg* stack = Find(number);
  if (stack == nullptr) return;
  const auto title =
      BTextDlg(resources_, IDS_EDIT_TITLE, IDS_LABEL_TITLE, stack->Record().title).Ask(stack->Handle());
  // A dialog lets everything else go on: the stack may be gone when it ends. So below.
  stack = Find(number);
  if (title && stack != nullptr) stack->SetTitle(*title);
}

void OpenStacks::ChooseColour(std::int32_t number) {
  BStackDlg* stack = Find(number);
  if (stack == nullptr) return;
  const auto colour =
      jotlets::ChooseColour(resources_, desktop_.NoteOptions(), stack->Handle(), PlaceOfMenu(*stack),
                            StackColour(stack->Record(), stack->Members()));
  stack = Find(number);
  if (!colour || stack == nullptr) return;
  owner_.RememberColour(*colour);
  stack->SetColour(*colour);
}

void OpenStacks::OnMemberClicked(BStackDlg& stack, const Text& id) {
  BJotlet* note = desktop_.Find(id);
  if (note == nullptr) return;
  if (note->StoredRecord().hidden) {
    MoveOut(stack, {note}, true);
  } else {
    MoveIn(stack, *note);
  }
  RefreshSoon();
}

void OpenStacks::OnMemberDraggedOut(BStackDlg&, const Text& id) {
  BJotlet* note = desktop_.Find(id);
  if (note == nullptr) return;
  note->SetStack(kNone);
  note->BeginDragAtMouse();
  Refresh();
}

void OpenStacks::OnMemberTakenOut(BStackDlg& stack, const Text& id) {
  BJotlet* note = desktop_.Find(id);
  if (note == nullptr) return;
  MoveOut(stack, {note}, true);
  note->SetStack(kNone);
  Refresh();
}

}  // namespace jotlets

#include "desk/win/open_stacks.h"

#include <algorithm>
#include <map>
#include <ranges>

#include "base/win/shown_time.h"
#include "base/win/wide.h"
#include "data/data_file.h"
#include "note/snapping.h"
#include "res/part_texts.h"
#include "res/resource.h"
#include "ui/choice_dialog.h"

namespace jotlets {
namespace {

constexpr Size kNewStack{280, 160};

StackMember MemberOf(const JotletData& record, const Text& title, MemberState state) {
  return {record.id, title, record.colour, record.alarm > 0, state};
}

}  // namespace

BStackDlg* OpenStacks::Open(const StackRecord& record) {
  auto stack = std::make_unique<BStackDlg>(*this, desktop_.Context(), record);
  if (!stack->CreateWindowFor()) {
    log_.Write(kLogLifecycle, u"No window for stack ", record.number, u": ",
               LastErrorText(u"CreateWindowEx"));
    return nullptr;
  }
  stacks_.push_back(std::move(stack));
  return stacks_.back().get();
}

void OpenStacks::OpenAll() {
  desktop_.FollowMonitors();
  for (const StackRecord& record : desk_.Lists().stacks) Open(record);
  Refresh();
}

BStackDlg* OpenStacks::Find(std::int32_t number) {
  const auto at = std::find_if(stacks_.begin(), stacks_.end(),
                               [number](const auto& stack) { return stack->Number() == number; });
  return at == stacks_.end() ? nullptr : at->get();
}

std::vector<Rect> OpenStacks::Bounds() const {
  std::vector<Rect> bounds;
  for (const auto& stack : stacks_) {
    if (IsWindowVisible(stack->Handle())) bounds.push_back(stack->Bounds());
  }
  return bounds;
}

BStackDlg* OpenStacks::Create(const BJotlet& beside) {
  StackRecord record;
  record.number = NewStackNumber(desk_.Lists().stacks);
  // Notes may still name a stack of this number that is no longer there.
  for (BJotlet* note : NotesOf(record.number)) note->SetStack(kNone);
  record.title = ReplaceAll(resources_.String(IDS_STACK_TITLE), u"%s", IntText(record.number));
  record.width = kNewStack.width;
  record.height = kNewStack.height;
  const Rect note = beside.Bounds();
  const Rect area = WorkAreaAt(desktop_.Screens().monitors, note);
  const Point place = SpreadPlaces(note, std::vector<Size>{kNewStack}, area, 2).front();
  record.x = place.x;
  record.y = place.y;
  BStackDlg* stack = Open(record);
  if (stack == nullptr) return nullptr;
  desk_.AddStack(record);
  if (desktop_.NoteOptions().hidden != 1) stack->Show();
  return stack;
}

std::vector<BJotlet*> OpenStacks::NotesOf(std::int32_t number) {
  std::vector<BJotlet*> notes;
  for (const auto& jotlet : desktop_.All()) {
    if (jotlet->StoredRecord().stack == number) notes.push_back(jotlet.get());
  }
  return notes;
}

void OpenStacks::Add(std::int32_t number, BJotlet& jotlet) { AddNotes(number, desktop_.GroupOf(jotlet)); }

void OpenStacks::AddNotes(std::int32_t number, const std::vector<BJotlet*>& group) {
  BStackDlg* stack = Find(number);
  if (stack == nullptr) return;
  for (BJotlet* note : group) note->SetStack(number);
  if (stack->Record().unp) {
    MoveOut(*stack, group, false);
  } else {
    for (BJotlet* note : group) MoveIn(*stack, *note);
  }
  Refresh();
}

void OpenStacks::RemoveMember(BJotlet& jotlet) {
  for (BJotlet* note : desktop_.GroupOf(jotlet)) {
    BStackDlg* stack = Find(note->StoredRecord().stack);
    if (stack != nullptr) MoveOut(*stack, {note}, true);
    note->SetStack(kNone);
  }
  Refresh();
}

Rect OpenStacks::AreaOf(const BStackDlg& stack) {
  return WorkAreaAt(desktop_.Screens().monitors, stack.Bounds());
}

// A note that is still on its way into the stack would be hidden when it gets there, and one that jiggles has
// no place to begin from.
void OpenStacks::Settle(BJotlet& jotlet) {
  jotlet.FinishAnimation();
  if (jotlet.IsSounding()) jotlet.StopAlarm();
}

// Each note goes to the place that it has among all of the stack, so that one that is shown by itself does
// not cover another. A hidden one comes out of the stack, unless it was put away at a place of its own.
void OpenStacks::MoveOut(BStackDlg& stack, const std::vector<BJotlet*>& notes, bool onlyHidden) {
  const std::vector<BJotlet*> all = NotesOf(stack.Number());
  for (BJotlet* note : notes) Settle(*note);
  std::vector<Size> sizes;
  sizes.reserve(all.size());
  for (const BJotlet* note : all) sizes.push_back({note->Bounds().Width(), note->Bounds().Height()});
  const Rect from = stack.Bounds();
  const std::vector<Point> places =
      SpreadPlaces(from, sizes, AreaOf(stack), SnapSettingsFrom(desktop_.NoteOptions(), stack.Dpi()).gap);
  for (std::size_t index = 0; index < all.size(); ++index) {
    BJotlet* note = all[index];
    if (std::find(notes.begin(), notes.end(), note) == notes.end()) continue;
    const bool hidden = note->StoredRecord().hidden;
    const bool stays = note->StoredRecord().attachment.posType == 1 && note->StoredRecord().IsAttached();
    const bool keepsPlace = onlyHidden && (!hidden || !Overlap(note->Bounds(), from));
    if (!stays && !keepsPlace) {
      const Rect at = note->Bounds();
      if (hidden) note->PlaceAt(from.TopLeft());
      note->StartAnimation(hidden ? from.TopLeft() : at.TopLeft(), places[index], AnimationKind::kMove);
    }
    note->SetHidden(false);
    note->BringForward();
  }
}

// The note goes back to its place while it is hidden: shown by itself, it is where it was.
void OpenStacks::MoveIn(BStackDlg& stack, BJotlet& jotlet) {
  Settle(jotlet);
  if (jotlet.StoredRecord().hidden) return;
  jotlet.StartAnimation(jotlet.Bounds().TopLeft(), stack.Bounds().TopLeft(), AnimationKind::kHide);
}

void OpenStacks::Spread(BStackDlg& stack) {
  MoveOut(stack, NotesOf(stack.Number()), false);
  stack.SetUnpacked(true);
}

void OpenStacks::Gather(BStackDlg& stack) {
  for (BJotlet* note : NotesOf(stack.Number())) MoveIn(stack, *note);
  stack.SetUnpacked(false);
}

void OpenStacks::Close(std::int32_t number) {
  BStackDlg* stack = Find(number);
  if (stack == nullptr) return;
  log_.Write(kLogLifecycle, u"BStackDlg::OnClose()");
  bool closesNotes = false;
  if (!stack->Members().empty()) {
    const Text count = IntText(static_cast<std::int64_t>(stack->Members().size()));
    const Text question = ReplaceAll(resources_.String(IDS_STACK_CLOSING), u"%s", count);
    const Choice choice = BChoiceDlg(IDD_CLOSE_STACK, question).Ask(resources_, stack->Handle());
    // The dialog lets everything else go on.
    stack = Find(number);
    if (choice == Choice::kNeither || stack == nullptr) return;
    closesNotes = choice == Choice::kSecond;
  }
  if (!closesNotes) MoveOut(*stack, NotesOf(number), true);
  std::vector<Text> ids;
  for (const BJotlet* note : NotesOf(number)) ids.push_back(note->StoredRecord().id);
  for (const Text& id : ids) {
    if (closesNotes) owner_.CloseForUser(id);
    BJotlet* note = desktop_.Find(id);
    if (note == nullptr) continue;
    // Hidden in a stack that is gone, one that could not be closed would be out of reach.
    note->SetStack(kNone);
    note->SetHidden(false);
  }
  stack = Find(number);
  if (stack == nullptr) return;
  Remove(*stack);
  log_.Write(kLogLifecycle, u"stack deleted");
}

void OpenStacks::Remove(BStackDlg& stack) {
  desk_.RemoveStack(stack.Number());
  const auto at =
      std::find_if(stacks_.begin(), stacks_.end(), [&](const auto& s) { return s.get() == &stack; });
  removed_.push_back(std::move(*at));
  stacks_.erase(at);
  stack.DestroyWindowNow();
  owner_.PurgeSoon();
}

// The uppermost stack under the mouse; the note that is being dragged lies over it.
BStackDlg* OpenStacks::UnderMouse() {
  const Point mouse = MousePosition();
  if (stacks_.empty()) return nullptr;
  for (HWND window = GetTopWindow(nullptr); window != nullptr; window = GetWindow(window, GW_HWNDNEXT)) {
    const auto at =
        std::find_if(stacks_.begin(), stacks_.end(), [&](const auto& s) { return s->Handle() == window; });
    if (at != stacks_.end() && IsWindowVisible(window) && (*at)->Bounds().Contains(mouse)) return at->get();
  }
  return nullptr;
}

void OpenStacks::OnNoteDragged(bool shift) {
  const BStackDlg* target = shift ? UnderMouse() : nullptr;
  // NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage): a stack that was moved out of the list has left it
  for (const auto& stack : stacks_) stack->SetDropTarget(stack.get() == target);
}

void OpenStacks::OnNoteDropped(BJotlet& jotlet, bool shift) {
  BStackDlg* target = shift ? UnderMouse() : nullptr;
  OnNoteDragged(false);
  if (target != nullptr) Add(target->Number(), jotlet);
}

void OpenStacks::RefreshSoon() {
  if (stacks_.empty() || refreshComes_) return;
  refreshComes_ = true;
  owner_.RefreshStacksSoon();
}

void OpenStacks::Refresh() {
  refreshComes_ = false;
  if (stacks_.empty()) return;
  std::map<std::int32_t, std::vector<StackMember>> members;
  for (const auto& stack : stacks_) members[stack->Number()];
  const auto add = [this, &members](const JotletData& record, const Text& title, MemberState state) {
    const auto at = members.find(record.stack);
    if (at == members.end()) return;
    StackMember& member = at->second.emplace_back(MemberOf(record, title, state));
    if (state == MemberState::kAsleep)
      member.until = record.sleep.nextWake > 0
                         ? ShownNear(desktop_.Context().clock, record.sleep.nextWake, ShownDate)
                         : Text();
    if (state == MemberState::kWaiting) member.until = resources_.String(IDS_PART_WAITS);
  };
  for (const auto& jotlet : desktop_.All()) {
    const JotletData& record = jotlet->StoredRecord();
    add(record, jotlet->TitleShown(), record.hidden ? MemberState::kHidden : MemberState::kShown);
  }
  for (const JotletData& record : desk_.Lists().attached) add(record, record.title, MemberState::kWaiting);
  for (const JotletData& record : desk_.Lists().sleeping) add(record, record.title, MemberState::kAsleep);
  for (const auto& stack : stacks_) stack->SetMembers(std::move(members[stack->Number()]));
}

// From the topmost down, as the notes are shown.
void OpenStacks::ShowAll() {
  for (const auto& stack : stacks_ | std::views::reverse) stack->Show();
}

void OpenStacks::HideAll() {
  for (const auto& stack : stacks_) stack->Hide();
}

void OpenStacks::BringForward() {
  for (const auto& stack : stacks_) stack->BringForward();
}

void OpenStacks::Rescue() {
  for (const auto& stack : stacks_) {
    if (stack->Rescue()) log_.Write(kLogLifecycle, u"Rescued a stack");
  }
}

void OpenStacks::FollowMonitors() {
  for (const auto& stack : stacks_) stack->ShowOnScreens(desktop_.Screens());
}

void OpenStacks::RefreshSkins() {
  for (const auto& stack : stacks_) stack->RefreshSkin();
}

void OpenStacks::FollowOptions() {
  for (const auto& stack : stacks_) stack->FollowOptions();
}

void OpenStacks::Enable(bool enabled) {
  for (const auto& stack : stacks_) EnableWindow(stack->Handle(), enabled);
}

void OpenStacks::CloseAll() {
  for (auto& stack : stacks_) {
    stack->DestroyWindowNow();
    removed_.push_back(std::move(stack));
  }
  stacks_.clear();
}

void OpenStacks::Purge() {
  std::erase_if(removed_, [](const auto& stack) { return !stack->IsBusy(); });
}

void OpenStacks::OnStackChanged(BStackDlg& stack) {
  const StackRecord* record = desk_.Lists().FindStack(stack.Number());
  if (record == nullptr) return;
  const bool renamed = record->title != stack.Record().title;
  desk_.ChangeStack(stack.Record());
  if (renamed) {
    // Notes show the name of their stack.
    for (BJotlet* note : NotesOf(stack.Number())) InvalidateRect(note->Handle(), nullptr, FALSE);
  }
}

std::vector<Rect> OpenStacks::WindowsToSnapTo(const BStackDlg& stack) {
  std::vector<Rect> windows;
  for (const auto& jotlet : desktop_.All()) {
    if (!jotlet->StoredRecord().hidden) windows.push_back(jotlet->Bounds());
  }
  for (const auto& other : stacks_) {
    if (other.get() != &stack) windows.push_back(other->Bounds());
  }
  return windows;
}

Text OpenStacks::EmptyHint() const { return resources_.String(IDS_STACK_EMPTY); }

}  // namespace jotlets

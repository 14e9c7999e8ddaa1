#include "desk/win/open_notes.h"

#include <algorithm>
#include <utility>

#include "base/win/shown_time.h"
#include "base/win/wide.h"
#include "editor/text_style.h"
#include "note/win/monitor_setup.h"
#include "res/resource.h"
#include "schedule/win/alarm_sound.h"
#include "ui/foreground_keeper.h"
#include "ui/screen.h"

namespace jotlets {

bool OpenNotes::Open(std::shared_ptr<JotletData> record) {
  const Text id = record->id;
  // How large a note may become depends on them.
  if (screens_ == MonitorSetup{}) screens_ = ReadMonitors();
  const FileContent content = files_.Read(folder_ + ContentPath(*record));
  auto jotlet = std::make_unique<BJotlet>(*this, context_, std::move(record));
  if (!jotlet->CreateWindowFor()) {
    log_.Write(kLogLifecycle, u"No window for jotlet ", id, u": ", LastErrorText(u"CreateWindowEx"));
    return false;
  }
  if (content.state == FileContent::State::kRead) {
    Load(*jotlet, content.bytes);
  } else {
    if (content.state == FileContent::State::kUnreadable)
      log_.Write(kLogLifecycle, u"Unable to read the content of jotlet ", id, u": ", content.reason);
    // A missing one may come later, from another machine.
    jotlet->KeepOldContent();
  }
  jotlets_.push_back(std::move(jotlet));
  BJotlet* opened = jotlets_.back().get();
  ShowOnScreens(*opened);
  byId_[FoldCase(id)] = opened;
  return true;
}

void OpenNotes::Load(BJotlet& jotlet, std::string_view content) {
  TextView fault = u"its loading has ended Jotlets before, it is not tried again";
  if (trials_.HasFailed(content)) {
    jotlet.LoadWords(content, resources_.String(IDS_LOADING_ENDED));
  } else {
    trials_.Begin(content);
    fault = jotlet.LoadContent(content);
    trials_.End();
  }
  if (!fault.empty())
    log_.Write(kLogLifecycle, u"The content of jotlet ", jotlet.StoredRecord().id, u": ", fault);
}

BJotlet* OpenNotes::Find(TextView id) const {
  const auto found = byId_.find(FoldCase(id));
  return found == byId_.end() ? nullptr : found->second;
}

void OpenNotes::Close(TextView id) {
  BJotlet* jotlet = Find(id);
  if (jotlet == nullptr) return;
  // Off the lists first: what follows is told of, and a listener may open the note anew under the same id.
  byId_.erase(FoldCase(id));
  const auto at = std::ranges::find(jotlets_, jotlet, [](const auto& open) { return open.get(); });
  removed_.push_back(std::move(*at));
  jotlets_.erase(at);
  jotlet->StopAlarm();
  jotlet->DestroyWindowNow();
  owner_.PurgeSoon();
}

void OpenNotes::Show(TextView id, Showing showing) {
  BJotlet* jotlet = Find(id);
  if (jotlet == nullptr) return;
  jotlet->Show();
  if (showing == Showing::kQuietly) return;
  // Showing tells of the focus that it takes, and a listener may take the note away.
  jotlet = Find(id);
  if (jotlet != nullptr) jotlet->FocusNow();
}

void OpenNotes::Sync(TextView id) {
  if (BJotlet* jotlet = Find(id)) jotlet->Record();
}

void OpenNotes::Rename(TextView id, TextView newId) {
  BJotlet* jotlet = Find(id);
  if (jotlet == nullptr) return;
  for (Text& moving : animating_) {
    if (EqualIgnoreCase(moving, id)) moving = newId;
  }
  byId_.erase(FoldCase(id));
  byId_[FoldCase(newId)] = jotlet;
}

FileStatus OpenNotes::SaveContent(TextView id) {
  BJotlet* jotlet = Find(id);
  return jotlet == nullptr ? FileStatus() : jotlet->SaveContent(files_, folder_, clock_.Now());
}

NoteContent& OpenNotes::ContentOf(TextView id) { return Find(id)->Content(); }

void OpenNotes::StyleNewText(TextView id) {
  BJotlet* jotlet = Find(id);
  if (jotlet == nullptr || jotlet->Editor() == nullptr) return;
  if (options_.rtl) SetDirectionOfAll(*jotlet->Editor(), true);
  ApplyStyleToAll(*jotlet->Editor(), EditStyleOf(ParseTextStyle(jotlet->Skin().data.defaultStyle)));
}

NoteWindowState OpenNotes::StateOf(TextView id) const {
  const BJotlet* jotlet = Find(id);
  if (jotlet == nullptr) return {};
  return {jotlet->Bounds(), jotlet->IsMoving(), jotlet->IsSounding(), jotlet->WaitsForWindow()};
}

void OpenNotes::PlaceAt(TextView id, Point position) {
  if (BJotlet* jotlet = Find(id)) jotlet->PlaceAt(position);
}

void OpenNotes::SetOnTop(TextView id) {
  if (BJotlet* jotlet = Find(id)) jotlet->SetOnTop(true);
}

void OpenNotes::Attach(TextView id, const Attachment& attachment) {
  if (BJotlet* jotlet = Find(id)) jotlet->SetAttachment(attachment);
}

void OpenNotes::StartAlarm(TextView id) {
  const ForegroundKeeper keeper;
  if (BJotlet* jotlet = Find(id)) jotlet->StartAlarm();
}

void OpenNotes::EndWaitForWindow(TextView id) {
  const ForegroundKeeper keeper;
  if (BJotlet* jotlet = Find(id)) jotlet->EndWaitForWindow();
}

ScreenFacts OpenNotes::Screen() const {
  return {PrimaryScreenSize(), VirtualScreen(), ReadMonitors().monitors, DpiAt({})};
}

// From the topmost down: each window then finds its place among shown ones. From the bottom up, it is looked
// for past every window that is still hidden, which a thousand notes make felt.
void OpenNotes::ShowAll() {
  std::vector<Text> ids = Ids();
  std::reverse(ids.begin(), ids.end());
  ForEachOf(ids, [](BJotlet& jotlet) {
    if (!jotlet.StoredRecord().hidden) jotlet.Show();
  });
}

// Showing, hiding and making an editor anew move the focus, which is told of, and a listener may take notes
// away.
template <typename Do>
void OpenNotes::ForEachOf(const std::vector<Text>& ids, Do act) {
  for (const Text& id : ids) {
    if (BJotlet* jotlet = Find(id)) act(*jotlet);
  }
}

void OpenNotes::UnhideAll() {
  for (const auto& jotlet : jotlets_) {
    if (!std::exchange(jotlet->Record().hidden, false)) continue;
    owner_.OnNoteChanged(jotlet->StoredRecord().id);
  }
  ShowAll();
}

void OpenNotes::HideAll() {
  ForEachOf(Ids(), [](BJotlet& jotlet) { jotlet.Hide(); });
}

void OpenNotes::BringForward() {
  for (const auto& jotlet : jotlets_) jotlet->BringForward();
}

BJotlet* OpenNotes::Neighbour(const BJotlet& jotlet, int step) {
  const std::size_t count = jotlets_.size();
  std::size_t at = 0;
  while (at < count && jotlets_[at].get() != &jotlet) ++at;
  for (std::size_t i = 0; i < count; ++i) {
    at = (at + (step > 0 ? 1 : count - 1)) % count;
    if (IsWindowVisible(jotlets_[at]->Handle())) return jotlets_[at].get();
  }
  return nullptr;
}

void OpenNotes::HideOthers(const BJotlet& shown) {
  ForEachOf(Ids(), [&shown](BJotlet& jotlet) {
    if (&jotlet != &shown) jotlet.SetHidden(true);
  });
}

BJotlet* OpenNotes::FindWindowOwner(HWND window) {
  const HWND root = GetAncestor(window, GA_ROOT);
  const auto at = std::find_if(jotlets_.begin(), jotlets_.end(),
                               [root](const auto& jotlet) { return jotlet->Handle() == root; });
  return at == jotlets_.end() ? nullptr : at->get();
}

void OpenNotes::Rescue() {
  screens_ = ReadMonitors();
  for (const auto& jotlet : jotlets_) {
    const std::optional<Point> from = jotlet->Rescue();
    if (!from) continue;
    LogRescue(*jotlet, *from);
    jotlet->SetGhost(false);
  }
}

void OpenNotes::LogRescue(const BJotlet& jotlet, Point from) {
  const Rect to = jotlet.Bounds();
  log_.Write(kLogLifecycle, u"Saved jotlet ", jotlet.StoredRecord().id,
             u" from appearing off screen (moved from ", from.x, u",", from.y, u" to ", to.left, u",", to.top,
             u")");
}

void OpenNotes::FollowMonitors() {
  const MonitorSetup current = ReadMonitors();
  if (current == screens_) return;
  screens_ = current;
  for (const auto& jotlet : jotlets_) ShowOnScreens(*jotlet);
}

void OpenNotes::ShowOnScreens(BJotlet& jotlet) {
  const Rect from = jotlet.Bounds();
  if (jotlet.ShowOnScreens(screens_)) LogRescue(jotlet, from.TopLeft());
}

bool OpenNotes::Animate() {
  // The end of a move may take notes away and begin other moves.
  for (const Text& id : std::exchange(animating_, {})) {
    BJotlet* jotlet = Find(id);
    if (jotlet != nullptr && jotlet->TickAnimation()) animating_.push_back(id);
  }
  return !animating_.empty();
}

void OpenNotes::OnAnimationEnded(BJotlet& jotlet, AnimationKind kind) {
  if (kind == AnimationKind::kHide) owner_.OnNoteHidden(jotlet);
  if (kind == AnimationKind::kClose) owner_.OnAnimationClosed(Text(jotlet.StoredRecord().id), false);
  if (kind == AnimationKind::kDelete) owner_.OnAnimationClosed(Text(jotlet.StoredRecord().id), true);
}

HighlightColours OpenNotes::Highlights() const {
  HighlightColours colours;
  std::transform(options_.hilites.begin(), options_.hilites.end(), colours.begin(), ColourOfNumber);
  return colours;
}

Text OpenNotes::FoundWords(const Resources& resources, const FoundText& found) {
  if (found.count == 0) return resources.String(IDS_FIND_NONE);
  const Text number = ReplaceAll(resources.String(IDS_FIND_COUNT), u"%n", IntText(found.number));
  return ReplaceAll(number, u"%m", IntText(found.count));
}

EditContext OpenNotes::EditingContext() {
  styles_.clear();
  TypingSettings typing{options_.typingAids, options_.bulletIndent, {}};
  for (std::size_t number = 0; number < kTextStyles; ++number) {
    const TextStyle style = SavedTextStyle(options_, number);
    styles_.push_back(EditStyleOf(style));
    const bool named = style.IsSet() && EqualIgnoreCase(style.name, resources_.String(IDS_STYLE_FIRST));
    if (named && !typing.heading) typing.heading = styles_.back();
  }
  return {.dateText = [this] { return ShownTime(ToLocal(0)); },
          .styles = styles_,
          .bulletIndent = options_.bulletIndent,
          .highlights = Highlights(),
          .lifted = lifted_,
          .typing = std::move(typing),
          .searched = searched_};
}

std::vector<BJotlet*> OpenNotes::GroupOf(BJotlet& jotlet) {
  std::vector<BJotlet*> group = {&jotlet};
  if (!jotlet.IsSelected()) return group;
  for (const auto& other : jotlets_) {
    if (other.get() != &jotlet && other->IsSelected()) group.push_back(other.get());
  }
  return group;
}

void OpenNotes::OnJotletPressed(BJotlet& jotlet, bool ctrl) {
  if (ctrl) return jotlet.SetSelected(!jotlet.IsSelected());
  if (jotlet.IsSelected()) return;
  for (const auto& other : jotlets_) {
    if (other->IsSelected()) other->SetSelected(false);
  }
}

std::vector<Rect> OpenNotes::WindowsToSnapTo(const BJotlet& jotlet) {
  std::vector<Rect> windows;
  for (const auto& other : jotlets_) {
    // What moves along is nothing to snap to.
    const bool along = jotlet.IsSelected() && other->IsSelected();
    if (other.get() != &jotlet && !along && !other->StoredRecord().hidden) windows.push_back(other->Bounds());
  }
  const std::vector<Rect> stacks = owner_.StackBounds();
  windows.insert(windows.end(), stacks.begin(), stacks.end());
  return windows;
}

void OpenNotes::Enable(bool enabled) {
  for (const auto& jotlet : jotlets_) EnableWindow(jotlet->Handle(), enabled);
}

void OpenNotes::OnJotletEvent(BJotlet& jotlet, JotletEvent event) {
  switch (event) {
    case JotletEvent::kChanged: return owner_.OnNoteChanged(jotlet.StoredRecord().id);
    case JotletEvent::kMoved: return OnJotletMoved(jotlet);
    case JotletEvent::kSized: return OnJotletSized(jotlet);
    case JotletEvent::kClicked: return OnJotletClicked(jotlet);
    case JotletEvent::kDeserted: now_.deserted = true; return;
    case JotletEvent::kFocused: return OnJotletFocus(jotlet, true);
    case JotletEvent::kUnfocused: return OnJotletFocus(jotlet, false);
    case JotletEvent::kSounding: return OnAlarm(jotlet, true);
    case JotletEvent::kSilent: return OnAlarm(jotlet, false);
    case JotletEvent::kHeightUnknown: return owner_.TellUnknownHeightSoon();
    case JotletEvent::kAnimated:
      if (animating_.empty()) owner_.BeginAnimations();
      animating_.push_back(jotlet.StoredRecord().id);
      return;
  }
}

// The notes lie behind other windows, perhaps, only when another program was worked with since.
void OpenNotes::OnJotletClicked(BJotlet& jotlet) {
  if (!std::exchange(now_.deserted, false) || options_.makeAllVisible != 1) return;
  BringForward();
  jotlet.BringForward();
}

void OpenNotes::OnJotletMouse(BJotlet& jotlet, JotletMouse mouse, bool key) {
  switch (mouse) {
    case JotletMouse::kPressed: return OnJotletPressed(jotlet, key);
    case JotletMouse::kDragged: return owner_.OnNoteDragged(key);
    case JotletMouse::kDropped: return owner_.OnNoteDropped(jotlet, key);
  }
}

std::optional<Text> OpenNotes::StackName(std::int32_t number) const {
  const StackRecord* stack = owner_.FindStack(number);
  return stack == nullptr ? std::nullopt : std::optional(stack->title);
}

// Notes that were moved together are told of in one line.
void OpenNotes::OnJotletMoved(BJotlet& jotlet) {
  NoteEvent moved{EventKind::kMoved};
  for (BJotlet* each : GroupOf(jotlet)) {
    // Before anybody is told: that takes its time, in which the window may go on.
    owner_.OnNoteMoved(each->StoredRecord());
    moved.ids.push_back(each->StoredRecord().id);
  }
  events_.Send(moved);
}

void OpenNotes::OnAlarm(BJotlet& jotlet, bool sounding) {
  now_.sounding += sounding ? 1 : -1;
  log_.Write(kLogDetail, TextView(sounding ? u"Starting alarm for: " : u"Stopping alarm for: "),
             jotlet.TitleShown());
  if (!sounding) {
    StopSounds();
  } else if (options_.soundAlarm == 1) {
    PlayAlarmSound(options_, log_, kAlarmSound);
  }
}

void OpenNotes::StopAlarms() {
  for (const auto& jotlet : jotlets_) jotlet->StopAlarm();
}

void OpenNotes::OnJotletSized(BJotlet& jotlet) {
  events_.Send({EventKind::kSized, Reason::kNotGiven, {jotlet.StoredRecord().id}, {}});
}

void OpenNotes::OnJotletFocus(BJotlet& jotlet, bool gained) {
  events_.Send({gained ? EventKind::kFocus : EventKind::kLostFocus,
                Reason::kNotGiven,
                {jotlet.StoredRecord().id},
                {}});
}

LocalTime OpenNotes::ToLocal(std::int32_t utc) { return utc == 0 ? clock_.Now().local : clock_.ToLocal(utc); }

void OpenNotes::SetSkin(BJotlet& jotlet, TextView name) {
  log_.Write(kLogDetail, u"Setting skin:", name);
  jotlet.SetSkin(name);
}

void OpenNotes::FollowOptions() {
  ForEachOf(Ids(), [](BJotlet& jotlet) { jotlet.FollowOptions(); });
}

void OpenNotes::RefreshSkins() {
  ForEachOf(Ids(), [](BJotlet& jotlet) { jotlet.RefreshSkin(); });
}

}  // namespace jotlets

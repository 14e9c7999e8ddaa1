#include "note/win/jotlet.h"

#include <shellapi.h>

#include <algorithm>
#include <utility>

#include "base/win/wide.h"
#include "note/rolled.h"
#include "note/win/find_strip.h"
#include "note/win/picture_content.h"
#include "note/win/text_content.h"
#include "ui/dialog_look.h"
#include "ui/screen.h"

namespace jotlets {
namespace {

std::unique_ptr<ShownContent> MakeContent(const JotletData& record, ContentWatcher& watcher) {
  if (record.IsImage()) return std::make_unique<PictureContent>();
  return std::make_unique<TextContent>(watcher);
}

}  // namespace

BJotlet::BJotlet(JotletOwner& owner, const NoteContext& context, std::shared_ptr<JotletData> record)
    : SkinnedWindow(context, kNoteShadowClass),
      owner_(owner),
      shared_(std::move(record)),
      record_(*shared_),
      content_(MakeContent(record_, *this)) {}

BJotlet::~BJotlet() = default;

bool BJotlet::CreateWindowFor() {
  const std::int32_t dpi = DpiAt(BoundsFor(record_, {}).TopLeft());
  skin_ = context_.skins.OfNote(record_.skin, dpi);
  if (record_.height == kNone && !IsShownRolled(record_, Rolling()))
    record_.height = context_.options.defaultHeight;
  place_ = NotePlace(BoundsFor(record_, Rolling()), dpi);
  WindowStyle style{WS_POPUP | WS_CLIPCHILDREN, WS_EX_TOOLWINDOW | WS_EX_LAYERED};
  if (record_.onTop) style.extended |= WS_EX_TOPMOST;
  if (record_.ghost) style.extended |= WS_EX_TRANSPARENT;
  shownTitle_ = ShownTitle(record_.title, {});
  view_.colour = ShownColour();
  PrepareShadow();
  if (!Create(kJotletClass, Wide(shownTitle_), place_.Shown(), style)) return false;
  content_->CreateIn(Handle(), ContentLook());
  if (record_.IsImage()) DragAcceptFiles(Handle(), TRUE);
  if (Dpi() != dpi && place_.ScaleChanged(Dpi())) skin_ = context_.skins.OfNote(record_.skin, Dpi());
  ApplySkin();
  return true;
}

// The window where its record says, no smaller than its skin allows, and where it can be seen: what the
// record says stays as it is also when that monitor is gone.
void BJotlet::PlaceByRecord() {
  if (record_.height == kNone && !IsShownRolled(record_, Rolling())) record_.height = HeightOfContent();
  const Rect bounds = BoundsFor(record_, Rolling());
  Size size{bounds.Width(), bounds.Height()};
  const Size minimum = SmallestUsualSize();
  size.width = std::max(size.width, minimum.width);
  if (!IsShownRolled(record_, Rolling())) size.height = std::max(size.height, minimum.height);
  place_ = NotePlace(RectAt(bounds.TopLeft(), size), place_.Dpi());
  place_.MonitorsChanged(context_.screens);
  Place(place_.Shown());
}

RollSettings BJotlet::Rolling() const { return {UsualRolledHeight(), context_.options.rolledHasAltPosition}; }

TextView BJotlet::LoadContent(std::string_view bytes) {
  const TextView fault = content_->Load(bytes);
  if (!fault.empty()) KeepOldContent();
  if (record_.scroll != Point{}) content_->SetScrollPosition(record_.scroll);
  TitleChanged();
  return fault;
}

void BJotlet::LoadWords(std::string_view bytes, TextView notice) {
  content_->LoadWords(bytes, notice);
  KeepOldContent();
  TitleChanged();
}

void BJotlet::Show() {
  ShowWindow(Handle(), SW_SHOWNOACTIVATE);
  StartPendingAlarm();
}

// What nobody can see, nobody could quieten.
void BJotlet::Hide() {
  if (IsSounding()) StopAlarm();
  ShowWindow(Handle(), SW_HIDE);
}

JotletData& BJotlet::Record() {
  SyncPlace();
  if (Handle() != nullptr) record_.scroll = content_->ScrollPosition().value_or(record_.scroll);
  return record_;
}

// Where the window is counts as the user's choice, unless it is where a rescue or a scale has put it. A
// minimised window has a place far off every screen. One that moves by itself belongs where it will arrive,
// also when the program ends before; one that goes away, where it came from.
void BJotlet::SyncPlace() {
  if (Handle() == nullptr || IsIconic(Handle())) return;
  if (animation_.running && animation_.kind != AnimationKind::kMove) return;
  Rect bounds = SettledBounds();
  if (animation_.running) bounds = RectAt(animation_.end, {bounds.Width(), bounds.Height()});
  if (bounds != place_.Shown()) place_.Choose(bounds);
  StoreBounds(record_, place_.Chosen(), Rolling());
}

bool BJotlet::ShowOnScreens(const MonitorSetup& screens) {
  SyncPlace();
  return PlaceOnScreens(screens);
}

std::optional<Point> BJotlet::Rescue() {
  SyncPlace();
  const Point from = place_.Chosen().TopLeft();
  PlaceOnScreens(context_.screens);
  if (place_.Shown().TopLeft() == from) return std::nullopt;
  place_.Choose(place_.Shown());
  if (IsSounding()) alarmOrigin_ = place_.Shown().TopLeft();
  Record();
  Tell(JotletEvent::kChanged);
  return from;
}

FileStatus BJotlet::SaveContent(Files& files, TextView dataFolder, const Moment& now) {
  if (Handle() == nullptr) return {};
  const ContentSaved saved =
      SaveContentFile(*content_, keepOldContent_, files, Text(dataFolder) + ContentPath(record_), now.local);
  if (saved.written) record_.modified = RecordTime(now.utc);
  if (!saved.fault.empty())
    context_.log.Write(kLogLifecycle, u"What is drawn on jotlet ", record_.id,
                       u" can only be changed until it is closed: ", saved.fault);
  return saved.status;
}

void BJotlet::SetTitle(TextView title) {
  record_.title = title;
  TitleChanged();
  Tell(JotletEvent::kChanged);
}

void BJotlet::MoveTo(Point position) {
  if (IsSounding()) alarmOrigin_ = position;
  SetWindowPos(Handle(), nullptr, position.x, position.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  Tell(JotletEvent::kChanged);
}

void BJotlet::PlaceAt(Point position) {
  const Rect bounds = Bounds();
  Place(RectAt(position, {bounds.Width(), bounds.Height()}));
}

void BJotlet::SetSizeSafe(Size size) {
  const Size safe = LogSafeSize(size, SmallestSize());
  SetWindowPos(Handle(), nullptr, 0, 0, safe.width, safe.height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  Tell(JotletEvent::kChanged);
}

void BJotlet::BringForward() {
  if (!record_.hidden) Raise(record_.onTop);
}

void BJotlet::FocusNow() {
  SetForegroundWindow(Handle());
  SetFocus(FocusWindow());
}

HWND BJotlet::FocusWindow() const {
  const HWND window = content_->ContentWindow();
  return window == nullptr ? Handle() : window;
}

LRESULT BJotlet::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NOTIFY: content_->OnNotify(*reinterpret_cast<const NMHDR*>(lParam)); return 0;
    case WM_COMMAND: return OnControl(LOWORD(wParam), HIWORD(wParam));
    case WM_CTLCOLOREDIT:
      if (const HBRUSH brush = ControlColours(message, reinterpret_cast<HDC>(wParam),
                                              reinterpret_cast<HWND>(lParam), context_.theme, {}))
        return reinterpret_cast<LRESULT>(brush);
      break;
    case WM_PARENTNOTIFY:
      // A click into the editor.
      if (LOWORD(wParam) != WM_LBUTTONDOWN) return 0;
      StopAlarm();
      Tell(JotletEvent::kClicked);
      return 0;
    case WM_RBUTTONUP: OnMenuAsked(nullptr, MousePosition()); return 0;
    case WM_CONTEXTMENU:
      // Keys have no place.
      OnMenuAsked(reinterpret_cast<HWND>(wParam),
                  lParam == -1 ? std::nullopt : std::optional(MousePosition()));
      return 0;
    case WM_TIMER:
      if (wParam == kFadeTimer) FadeStep();
      if (wParam == kAlarmTimer) TickAlarm();
      break;
    case kLaterMessage:
      if (const auto asked = std::exchange(press_.asked, std::nullopt)) {
        owner_.OnPictureAnswer(*this, *asked);
        return 0;
      }
      if (const BEdit* edit = Editor())
        context_.openLink(Handle(), Text(edit->FollowedLink()), !record_.source.empty());
      return 0;
    case WM_ACTIVATEAPP:
      if (wParam == FALSE) Tell(JotletEvent::kDeserted);
      return 0;
    case WM_KEYDOWN:
      if (OnPartKey(wParam)) return 0;
      if (PressInPicture(static_cast<std::uint16_t>(wParam)) || OnScrollKey(wParam)) return 0;
      return SkinnedWindow::OnMessage(message, wParam, lParam);
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
      if (OnWheel(message, wParam)) return 0;
      break;
    case WM_DROPFILES: OnFilesDropped(wParam); return 0;
    // A tip that is due would come over the dialog or the menu.
    case WM_ENABLE:
    case WM_ENTERMENULOOP: title_.tooltip.Forget(); break;
    case WM_CLOSE: owner_.OnJotletAction(*this, kActionClose); return 0;
    default: break;
  }
  return SkinnedWindow::OnMessage(message, wParam, lParam);
}

void BJotlet::OnMenuAsked(HWND window, std::optional<Point> mouse) {
  menuAsked_ = mouse;
  const bool ofText = window != nullptr && window == content_->ContentWindow();
  owner_.OnJotletAction(*this, ofText ? kActionOpenTextContext : kActionOpenJotletContext);
}

Point BJotlet::MenuPlace(bool ofText) const {
  if (menuAsked_) return *menuAsked_;
  GUITHREADINFO focus{};
  focus.cbSize = sizeof focus;
  const HWND text = content_->ContentWindow();
  if (ofText && text != nullptr && GetGUIThreadInfo(GetCurrentThreadId(), &focus) &&
      focus.hwndCaret == text) {
    POINT below{focus.rcCaret.left, focus.rcCaret.bottom};
    ClientToScreen(text, &below);
    return {static_cast<std::int32_t>(below.x), static_cast<std::int32_t>(below.y)};
  }
  constexpr std::int32_t kUnknownTitle = 24;
  const Rect bounds = Bounds();
  return {bounds.left + 8, bounds.top + (RolledHeight() > 0 ? RolledHeight() : kUnknownTitle)};
}

LRESULT BJotlet::OnControl(UINT control, UINT notification) {
  if (control != BEdit::kControlId && control != FindStrip::kControlId) return 0;
  if (notification == EN_CHANGE) {
    content_->SetUnsavedChanges(true);
    content_->OnTextChanged();
    OnContentChanged();
  }
  if (notification == EN_SETFOCUS) OnFocus(true);
  // From the text to the words that are looked for or to the buttons, and back, the focus stays in the note.
  const bool within = IsChild(Handle(), GetFocus()) != 0 || (IsAtParts() && GetFocus() == Handle());
  if (notification == EN_KILLFOCUS && !within) OnFocus(false);
  return 0;
}

void BJotlet::Place(const Rect& bounds) {
  if (IsSounding()) alarmOrigin_ = bounds.TopLeft();
  SkinnedWindow::Place(bounds);
}

void BJotlet::OnFocus(bool gained) {
  // The editor tells of its own focus; the frame only passes the focus on to it, unless the keyboard is at
  // one of its parts.
  if (gained && content_->ContentWindow() != nullptr && !view_.rolled && !IsAtParts() &&
      GetFocus() == Handle()) {
    SetFocus(content_->ContentWindow());
    return;
  }
  if (!gained && IsAtParts()) {
    ForgetPart();
    UpdateView();
    if (IsChild(Handle(), GetFocus()) != 0) return;
  }
  // The title is part of the note.
  if (hasFocus_ == gained || (!gained && title_.edit.IsOpen())) return;
  hasFocus_ = gained;
  if (gained) {
    KillTimer(Handle(), kFadeTimer);
    ApplyOpacity();
  } else {
    BeginFade();
  }
  UpdateView();
  Tell(gained ? JotletEvent::kFocused : JotletEvent::kUnfocused);
}

// Posted: a question about the link may bring about the end of the editor that tells of it.
void BJotlet::OnEditLink(const Text&) { PostMessageW(Handle(), kLaterMessage, 0, 0); }

void BJotlet::OnContentChanged() {
  if (record_.title.empty()) TitleChanged();
  Tell(JotletEvent::kChanged);
}

// The window text follows the title, for other programs and for accessibility.
void BJotlet::TitleChanged() {
  Text title = ShownTitle(record_.title, record_.title.empty() ? content_->TitleWords() : Text());
  if (title == shownTitle_) return;
  shownTitle_ = std::move(title);
  SetWindowTextW(Handle(), Wide(shownTitle_));
  TellChanges();
  // Skins may hide a title that the text begins with.
  UpdateView();
  Repaint();
}

}  // namespace jotlets

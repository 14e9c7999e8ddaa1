#include "note/win/jotlet.h"

#include <windowsx.h>

#include <algorithm>

#include "base/win/wide.h"
#include "data/loading.h"
#include "data/rtf_bytes.h"
#include "note/opacity.h"
#include "note/placement.h"
#include "note/win/note_words.h"

namespace jotlets {
namespace {

// How far into the text the first line that can serve as a title is looked for.
constexpr std::int32_t kTitleSearch = 256;
constexpr UINT_PTR kFadeTimer = 1226;

LPCWSTR CursorOf(FramePart part) {
  const DraggedEdges edges = EdgesOf(part);
  if (edges.horizontal == 0 && edges.vertical == 0) return IDC_ARROW;
  if (edges.vertical == 0) return IDC_SIZEWE;
  if (edges.horizontal == 0) return IDC_SIZENS;
  return edges.horizontal == edges.vertical ? IDC_SIZENWSE : IDC_SIZENESW;
}

// As the keyboard is now: the state that a thread is told of lags behind while another window has the focus.
bool IsHeld(int key) { return GetAsyncKeyState(key) < 0; }

Point MousePosition() {
  POINT at{};
  GetCursorPos(&at);
  return {static_cast<std::int32_t>(at.x), static_cast<std::int32_t>(at.y)};
}

}  // namespace

bool BJotlet::CreateWindowFor() {
  skin_ = owner_.SkinOf(record_.skin);
  const Rect bounds = BoundsFor(record_, Rolling());
  WindowStyle style{WS_POPUP | WS_CLIPCHILDREN, WS_EX_TOOLWINDOW | WS_EX_LAYERED};
  if (record_.onTop) style.extended |= WS_EX_TOPMOST;
  if (record_.ghost) style.extended |= WS_EX_TRANSPARENT;
  shownTitle_ = ShownTitle(record_.title, {});
  if (!Create(kJotletClass, Wide(shownTitle_), bounds, style)) return false;
  if (!record_.IsImage()) edit_.Create(Handle(), {}, EditLook(), *this);
  place_ = NotePlace(bounds, Dpi());
  ApplySkin();
  return true;
}

BEdit::Look BJotlet::EditLook() const {
  return {PaperColour(skin_->data, record_.colour), record_.readOnly, !skin_->data.useScrollbar,
          skin_->data.drawOnRtfBg};
}

// Everything that follows from the skin anew.
void BJotlet::ApplySkin() {
  // What the skin draws under the text must not be clipped away there.
  const LONG_PTR style = GetWindowLongPtrW(Handle(), GWL_STYLE);
  SetWindowLongPtrW(Handle(), GWL_STYLE,
                    skin_->data.drawOnRtfBg ? style & ~WS_CLIPCHILDREN : style | WS_CLIPCHILDREN);
  tooltip_.Forget();
  ApplyOpacity();
  if (edit_.Handle() != nullptr) {
    const BEdit::Look look = EditLook();
    const BEdit::Look& made = edit_.MadeWith();
    if (made.scrollbar != look.scrollbar || made.seeThrough != look.seeThrough) edit_.Recreate(look);
    edit_.SetBackground(look.background);
  }
  OnSize();
}

void BJotlet::SetSkin(TextView name) {
  record_.skin = name;
  RefreshSkin();
  owner_.OnJotletChanged();
}

void BJotlet::RefreshSkin() {
  Record();
  skin_ = owner_.SkinOf(record_.skin);
  PlaceByRecord();
  ApplySkin();
}

// The window where its record says, no smaller than its skin allows, and where it can be seen: what the
// record says stays as it is also when that monitor is gone.
void BJotlet::PlaceByRecord() {
  const Rect bounds = BoundsFor(record_, Rolling());
  Size size{bounds.Width(), bounds.Height()};
  const Size least = SmallestSize();
  size.width = std::max(size.width, least.width);
  if (!IsShownRolled(record_, Rolling())) size.height = std::max(size.height, least.height);
  place_ = NotePlace(RectAt(bounds.TopLeft(), size), Dpi());
  place_.MonitorsChanged(owner_.Screens());
  Place(place_.Shown());
}

RollSettings BJotlet::Rolling() const {
  return {std::min(skin_->data.rolledHeight, owner_.Screens().virtualScreen.Height()),
          owner_.NoteOptions().rolledHasAltPosition};
}

Size BJotlet::SmallestSize() const {
  const Rect& screen = owner_.Screens().virtualScreen;
  return SmallestNoteSize(MinimumSize(skin_->data), {screen.Width(), screen.Height()});
}

void BJotlet::ApplyOpacity() {
  ApplyAlpha(IsOpaqueInFocus(record_.transparency, owner_.NoteOptions().opaqueEdit) && hasFocus_
                 ? 0
                 : record_.transparency);
}

void BJotlet::ApplyAlpha(std::int32_t percent) {
  const std::optional<Colour>& key = skin_->data.transparent;
  SetLayeredWindowAttributes(Handle(), key ? RGB(key->r, key->g, key->b) : 0, AlphaOfOpacity(percent),
                             key ? LWA_ALPHA | LWA_COLORKEY : LWA_ALPHA);
  FollowWithShadow();
}

void BJotlet::FollowWithShadow() {
  const bool wanted = owner_.NoteOptions().shadows;
  if (!wanted && shadow_.Handle() == nullptr) return;
  BYTE alpha = 255;
  GetLayeredWindowAttributes(Handle(), nullptr, &alpha, nullptr);
  shadow_.Follow(Handle(), wanted && IsWindowVisible(Handle()), alpha);
}

void BJotlet::LoadContent(std::string_view bytes) {
  if (record_.IsImage()) {
    if (const auto picture = DecodePng(bytes)) picture_.Load(*picture);
  } else {
    if (!bytes.empty() && !bytes.starts_with("{\\rtf")) {
      edit_.SetPlainText(FromUtf8(bytes));
      KeepOldContent();
    } else if (bytes.size() > BEdit::kLargestRtf) {
      edit_.LoadBeginning(bytes, owner_.BeginningNotice());
      KeepOldContent();
    } else if (!edit_.SetRtf(bytes)) {
      KeepOldContent();
    }
    if (record_.scroll != Point{}) edit_.SetScrollPosition(record_.scroll);
  }
  TitleChanged();
}

void BJotlet::Show() { ShowWindow(Handle(), SW_SHOWNOACTIVATE); }

void BJotlet::Hide() { ShowWindow(Handle(), SW_HIDE); }

JotletData& BJotlet::Record() {
  SyncPlace();
  if (Handle() != nullptr && !record_.IsImage()) record_.scroll = edit_.ScrollPosition();
  return record_;
}

// Where the window is counts as the user's choice, unless it is where a rescue or a scale has put it. A
// minimised window has a place far off every screen, and an animated one is on its way.
void BJotlet::SyncPlace() {
  if (Handle() == nullptr || IsIconic(Handle()) || animation_.running) return;
  const Rect bounds = Bounds();
  if (bounds != place_.Shown()) place_.Choose(bounds);
  TakeBounds(record_, place_.Chosen(), Rolling());
}

bool BJotlet::ShowOnScreens(const MonitorSetup& screens) {
  SyncPlace();
  if (!place_.MonitorsChanged(screens)) return false;
  Place(place_.Shown());
  return true;
}

bool BJotlet::Rescue(const Rect& screen) {
  const Rect bounds = Bounds();
  const Point to = RescuedPosition({bounds.left, bounds.top}, screen);
  if (to == Point{bounds.left, bounds.top}) return false;
  MoveTo(to);
  return true;
}

FileStatus BJotlet::SaveContent(Files& files, TextView dataFolder, const Moment& now) {
  if (!contentChanged_ || record_.IsImage() || Handle() == nullptr || edit_.ShowsBeginning()) return {};
  const Text path = Text(dataFolder) + ContentPath(record_);
  if (keepOldContent_ && files.Exists(path)) {
    const FileStatus kept = files.Copy(path, DatedName(files, path, kDamagedMark, now.local));
    if (!kept) return kept;
  }
  keepOldContent_ = false;
  // Taken back first: typing that arrives while the file is written must count as a change again.
  contentChanged_ = false;
  const FileStatus written = files.Write(path, edit_.Rtf());
  if (written) {
    record_.modified = RecordTime(now.utc);
  } else {
    contentChanged_ = true;
  }
  return written;
}

Text BJotlet::PlainText() const { return record_.IsImage() ? Text() : edit_.PlainText(); }

Text BJotlet::Rtf() const { return record_.IsImage() ? Text() : FromAscii(edit_.Rtf()); }

void BJotlet::SetTitle(TextView title) {
  record_.title = title;
  TitleChanged();
  owner_.OnJotletChanged();
}

void BJotlet::SetColour(Colour colour) {
  record_.colour = colour;
  if (edit_.Handle() != nullptr) edit_.SetBackground(PaperColour(skin_->data, colour));
  UpdateView();
  owner_.OnJotletChanged();
}

bool BJotlet::SetPlainText(TextView text) {
  if (record_.IsImage()) return false;
  edit_.SetPlainText(text);
  ContentChanged();
  return true;
}

bool BJotlet::SetRtf(TextView rtf) {
  if (record_.IsImage()) return false;
  edit_.SetRtf(RtfBytes(rtf));
  ContentChanged();
  return true;
}

void BJotlet::MoveTo(Point position) {
  SetWindowPos(Handle(), nullptr, position.x, position.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  owner_.OnJotletChanged();
}

void BJotlet::SetSizeSafe(Size size) {
  const Size safe = SafeSize(size, SmallestSize());
  SetWindowPos(Handle(), nullptr, 0, 0, safe.width, safe.height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  owner_.OnJotletChanged();
}

void BJotlet::PasteClipboard() {
  edit_.Paste();
  ContentChanged();
}

void BJotlet::BringForward() {
  if (record_.hidden) return;
  SetWindowPos(Handle(), record_.onTop ? HWND_TOPMOST : HWND_TOP, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void BJotlet::TakeFocus() {
  SetForegroundWindow(Handle());
  SetFocus(record_.IsImage() ? Handle() : edit_.Handle());
}

LRESULT BJotlet::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND: return 1;
    case WM_PAINT: return OnPaint();
    case WM_SETCURSOR:
      if (LOWORD(lParam) != HTCLIENT || reinterpret_cast<HWND>(wParam) != Handle()) break;
      return OnSetCursor();
    case WM_NOTIFY: {
      const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
      if (header.hwndFrom != nullptr && header.hwndFrom == edit_.Handle()) edit_.OnNotify(header);
      return 0;
    }
    case WM_COMMAND: return OnControl(LOWORD(wParam), HIWORD(wParam));
    case WM_LBUTTONDOWN: OnButtonDown(PointOf(lParam)); return 0;
    case WM_LBUTTONDBLCLK: OnDoubleClick(PointOf(lParam)); return 0;
    case WM_MOUSEMOVE: OnMouseMove(PointOf(lParam)); return 0;
    case WM_MOUSELEAVE: OnMouseLeave(); return 0;
    case WM_LBUTTONUP: OnButtonUp(PointOf(lParam)); return 0;
    case WM_CAPTURECHANGED: EndDrag(); return 0;
    case WM_RBUTTONUP: OnContextMenu(); return 0;
    case WM_CONTEXTMENU: {
      const bool ofText = edit_.Handle() != nullptr && reinterpret_cast<HWND>(wParam) == edit_.Handle();
      owner_.OnJotletAction(*this, ofText ? kActionOpenTextContext : kActionOpenJotletContext);
      return 0;
    }
    case WM_WINDOWPOSCHANGED: {
      // The default turns it into WM_SIZE.
      const LRESULT result = Default(message, wParam, lParam);
      FollowWithShadow();
      return result;
    }
    case WM_SIZE: OnSize(); return 0;
    case WM_SETFOCUS: OnFocus(true); return 0;
    case WM_KILLFOCUS: OnFocus(false); return 0;
    case WM_TIMER:
      if (wParam == kFadeTimer) FadeStep();
      return 0;
    case WM_CLOSE: owner_.OnJotletClose(*this); return 0;
    case WM_DPICHANGED: OnDpiChanged(HIWORD(wParam)); return 0;
    default: break;
  }
  return Default(message, wParam, lParam);
}

LRESULT BJotlet::OnPaint() {
  PAINTSTRUCT paint{};
  const HDC dc = BeginPaint(Handle(), &paint);
  const NoteWords words(owner_, record_, shownTitle_, view_.window);
  PictureInlay inlay;
  if (picture_.IsLoaded()) inlay = {&picture_, TextArea(skin_->data, view_)};
  owner_.Renderer().Paint(dc, FromRECT(paint.rcPaint), *skin_, view_, words, inlay);
  EndPaint(Handle(), &paint);
  return 0;
}

FramePart BJotlet::PartAt(Point at) const {
  return HitTestFrame(at, view_.window, TextArea(skin_->data, view_), view_.rolled);
}

LRESULT BJotlet::OnSetCursor() {
  POINT at{};
  GetCursorPos(&at);
  ScreenToClient(Handle(), &at);
  const Point point{static_cast<std::int32_t>(at.x), static_cast<std::int32_t>(at.y)};
  const bool button = ButtonAt(skin_->data, view_, point) != kNoElement;
  SetCursor(LoadCursorW(nullptr, button ? IDC_ARROW : CursorOf(PartAt(point))));
  return TRUE;
}

LRESULT BJotlet::OnControl(UINT control, UINT notification) {
  if (control != BEdit::kControlId) return 0;
  if (notification == EN_CHANGE) ContentChanged();
  if (notification == EN_SETFOCUS) OnFocus(true);
  if (notification == EN_KILLFOCUS) OnFocus(false);
  return 0;
}

void BJotlet::OnButtonDown(Point at) {
  const bool ctrl = IsHeld(VK_CONTROL);
  SetFocus(edit_.Handle() == nullptr || view_.rolled ? Handle() : edit_.Handle());
  pressedButton_ = ButtonAt(skin_->data, view_, at);
  dragPart_ = PartAt(at);
  dragStart_ = MousePosition();
  dragBounds_ = Bounds();
  if (pressedButton_ != kNoElement) {
    drag_ = Drag::kButton;
  } else if (BeginScrolling(at)) {
    drag_ = Drag::kThumb;
  } else if (dragPart_ == FramePart::kContent && !record_.IsImage()) {
    return;
  } else {
    owner_.OnJotletPressed(*this, ctrl);
    // A locked note can be frozen to its place.
    if (record_.readOnly && owner_.NoteOptions().lockingFreezes) return;
    drag_ = EdgesOf(dragPart_) == DraggedEdges{} ? Drag::kMoving : Drag::kSizing;
    snapWindows_ = owner_.WindowsToSnapTo(*this);
  }
  SetCapture(Handle());
}

// On the title bar it rolls the note up; elsewhere it is a second press.
void BJotlet::OnDoubleClick(Point at) {
  const auto& titlebar = skin_->data.titlebar;
  const bool onTitle = titlebar && ResolveCorners(*titlebar, {view_.window, {}}).Contains(at) &&
                       ButtonAt(skin_->data, view_, at) == kNoElement;
  if (!onTitle || !DoAction(kActionRoll, at)) OnButtonDown(at);
}

// A press on the track beside the thumb turns a page.
bool BJotlet::BeginScrolling(Point at) {
  if (!view_.states.Has(SkinState::kScrollbarRequired)) return false;
  if (!ScrollTrack(skin_->data, view_.window).Contains(at)) return false;
  if (at.y < view_.thumb.top) ScrollBy(-Scrolled().page);
  if (at.y >= view_.thumb.bottom) ScrollBy(Scrolled().page);
  dragBounds_ = view_.thumb;
  return true;
}

void BJotlet::OnMouseMove(Point at) {
  if (!trackingMouse_) {
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Handle(), 0};
    trackingMouse_ = TrackMouseEvent(&track) != 0;
  }
  mouseOver_ = true;
  hotButton_ = ButtonAt(skin_->data, view_, at);
  UpdateView();
  OfferTooltip(at);
  const Point mouse = MousePosition();
  const Point offset{mouse.x - dragStart_.x, mouse.y - dragStart_.y};
  switch (drag_) {
    case Drag::kIdle:
    case Drag::kButton: break;
    case Drag::kThumb:
      edit_.SetScrollPosition(
          {edit_.ScrollPosition().x,
           ScrollPositionAt(dragBounds_.top + offset.y, ScrollTrack(skin_->data, view_.window),
                            skin_->data.minimumThumbTrackHeight, Scrolled())});
      break;
    case Drag::kMoving:
    case Drag::kSizing: DragTo(offset); break;
  }
}

void BJotlet::DragTo(Point offset) {
  const bool alt = IsHeld(VK_MENU);
  const SnapSettings snap = SnapSettingsFrom(owner_.NoteOptions());
  const SnapTargets targets{snapWindows_, owner_.Screens().monitors.Rects()};
  if (drag_ == Drag::kMoving) {
    const Rect moved{dragBounds_.left + offset.x, dragBounds_.top + offset.y, dragBounds_.right + offset.x,
                     dragBounds_.bottom + offset.y};
    const Rect before = Bounds();
    const Rect snapped = SnappedMove(moved, snap, alt, targets);
    const Point by{snapped.left - before.left, snapped.top - before.top};
    if (by == Point{}) return;
    for (BJotlet* jotlet : owner_.GroupOf(*this)) jotlet->MoveBy(by);
    return;
  }
  Size least = SmallestSize();
  // Its height is not the user's to change while it is rolled up.
  if (view_.rolled) least.height = dragBounds_.Height();
  const DraggedEdges edges = EdgesOf(dragPart_);
  const Rect dragged = DraggedBounds(dragBounds_, edges, offset);
  Place(SafeBounds(SnappedSizing(dragged, edges, snap, alt, targets), edges, least));
}

void BJotlet::MoveBy(Point offset) {
  const Rect bounds = Bounds();
  Place({bounds.left + offset.x, bounds.top + offset.y, bounds.right + offset.x, bounds.bottom + offset.y});
}

void BJotlet::Place(const Rect& bounds) {
  if (bounds == Bounds()) return;
  SetWindowPos(Handle(), nullptr, bounds.left, bounds.top, bounds.Width(), bounds.Height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void BJotlet::OfferTooltip(Point at) {
  const SkinData& skin = skin_->data;
  if (!skin.titleTooltip || !skin.titlebar || shownTitle_.empty()) return;
  const Rect area = ResolveCorners(*skin.titlebar, {view_.window, {}});
  if (area.Contains(at)) tooltip_.Offer(Handle(), skin, area, shownTitle_);
}

void BJotlet::OnMouseLeave() {
  trackingMouse_ = false;
  hotButton_ = kNoElement;
  OnEditMouse();
}

// The mouse leaves the frame when it comes over the editor, but is still over the note.
void BJotlet::OnEditMouse() {
  const Point mouse = MousePosition();
  const HWND under = WindowFromPoint({mouse.x, mouse.y});
  mouseOver_ = under != nullptr && (under == Handle() || under == edit_.Handle());
  UpdateView();
}

void BJotlet::OnButtonUp(Point at) {
  const std::size_t button = drag_ == Drag::kButton ? pressedButton_ : kNoElement;
  ReleaseCapture();
  if (button != kNoElement && ButtonAt(skin_->data, view_, at) == button)
    DoAction(skin_->data.elements[button].action, at);
}

// Also reached when the capture is taken away in the middle of a drag.
void BJotlet::EndDrag() {
  const Drag ended = std::exchange(drag_, Drag::kIdle);
  const bool placed = ended == Drag::kMoving || ended == Drag::kSizing;
  if (!placed || Bounds() == dragBounds_) return;
  owner_.OnJotletChanged();
  if (ended == Drag::kMoving) {
    owner_.OnJotletMoved(*this);
  } else {
    owner_.OnJotletSized(*this);
  }
}

void BJotlet::OnSize() {
  UpdateView();
  if (edit_.Handle() != nullptr) {
    edit_.Show(!view_.rolled);
    if (!view_.rolled) edit_.SetBounds(TextArea(skin_->data, view_));
  }
  UpdateView();
  ApplyRegion();
  InvalidateRect(Handle(), nullptr, FALSE);
}

void BJotlet::ApplyRegion() {
  const HRGN region = MakeSkinRegion(skin_->data, view_.window);
  // The window takes the region over.
  if (region != nullptr || hasRegion_) SetWindowRgn(Handle(), region, TRUE);
  hasRegion_ = region != nullptr;
}

void BJotlet::OnFocus(bool gained) {
  // The editor tells of its own focus; the frame only passes the focus on to it.
  if (gained && edit_.Handle() != nullptr && !view_.rolled && GetFocus() == Handle()) {
    SetFocus(edit_.Handle());
    return;
  }
  if (hasFocus_ == gained) return;
  hasFocus_ = gained;
  if (gained) {
    KillTimer(Handle(), kFadeTimer);
    ApplyOpacity();
  } else {
    BeginFade();
  }
  UpdateView();
  owner_.OnJotletFocus(*this, gained);
}

void BJotlet::BeginFade() {
  const Options& options = owner_.NoteOptions();
  const FocusLoss loss = OnFocusLoss(record_.transparency, options.opaqueEdit, options.dontFadeToTransparent);
  if (loss == FocusLoss::kReturnsAtOnce) ApplyAlpha(record_.transparency);
  if (loss != FocusLoss::kFades) return;
  fadeStep_ = 0;
  SetTimer(Handle(), kFadeTimer, kFadePeriod, nullptr);
}

void BJotlet::FadeStep() {
  const auto opacity = FadeOpacity(++fadeStep_, record_.transparency);
  if (opacity) {
    ApplyAlpha(*opacity);
  } else {
    KillTimer(Handle(), kFadeTimer);
  }
}

void BJotlet::OnContextMenu() { owner_.OnJotletMenu(*this, MousePosition()); }

// The place that the system suggests is passed over: computed from sizes that were rounded before, it would
// creep with every change.
void BJotlet::OnDpiChanged(std::int32_t dpi) {
  SyncPlace();
  if (place_.ScaleChanged(dpi)) Place(place_.Shown());
}

Size BJotlet::ClientSize() const {
  RECT client{};
  GetClientRect(Handle(), &client);
  return {static_cast<std::int32_t>(client.right), static_cast<std::int32_t>(client.bottom)};
}

ScrollState BJotlet::Scrolled() const {
  if (edit_.Handle() == nullptr) return {};
  return {edit_.ScrollPosition().y, TextArea(skin_->data, view_).Height(), edit_.TextHeight()};
}

void BJotlet::ScrollBy(std::int32_t pixels) {
  const ScrollState scroll = Scrolled();
  const std::int32_t last = std::max(scroll.range - scroll.page, 0);
  edit_.SetScrollPosition({edit_.ScrollPosition().x, std::clamp(scroll.position + pixels, 0, last)});
  UpdateView();
}

void BJotlet::OnEditScrolled() {
  // Without a scroll bar of the skin's own, nothing that it shows follows the text.
  if (skin_->data.useScrollbar && Handle() != nullptr) UpdateView();
}

SkinStates BJotlet::States() const {
  SkinStates states;
  states.Set(SkinState::kOnTop, record_.onTop);
  states.Set(SkinState::kReadOnly, record_.readOnly);
  states.Set(SkinState::kAlarm, record_.alarm > 0);
  states.Set(SkinState::kAttached, record_.IsAttached());
  states.Set(SkinState::kTransmit, !record_.lastSend.empty());
  states.Set(SkinState::kInStack, record_.stack >= 0);
  states.Set(SkinState::kSleeping, record_.sleeping);
  states.Set(SkinState::kRecurring, record_.recurring);
  states.Set(SkinState::kGhost, record_.ghost);
  states.Set(SkinState::kTitle, !shownTitle_.empty());
  states.Set(SkinState::kImage, record_.IsImage());
  states.Set(SkinState::kStang, record_.stang);
  states.Set(SkinState::kUser1, record_.user1);
  states.Set(SkinState::kUser2, record_.user2);
  states.Set(SkinState::kUser3, record_.user3);
  return states;
}

void BJotlet::UpdateView() {
  const SkinData& skin = skin_->data;
  const SkinView before = view_;
  view_.window = ClientSize();
  view_.colour = record_.colour;
  view_.rolled = IsShownRolled(record_, Rolling());
  // A note that is selected with others looks like the one that has the focus.
  view_.focus = hasFocus_ || selected_;
  view_.mouseOver = mouseOver_;
  view_.hotButton = hotButton_;
  view_.states = States();
  view_.thumb = {};
  if (IsScrollbarRequired(skin, view_, Scrolled())) {
    view_.states.Set(SkinState::kScrollbarRequired, true);
    view_.thumb = ScrollThumb(ScrollTrack(skin, view_.window), skin.minimumThumbTrackHeight, Scrolled());
  }
  if (view_ != before) Invalidate(before);
}

// What changes most often, the button under the mouse and the thumb, changes little of the window.
void BJotlet::Invalidate(const SkinView& before) {
  SkinView rest = before;
  rest.hotButton = view_.hotButton;
  rest.thumb = view_.thumb;
  if (rest != view_) {
    InvalidateRect(Handle(), nullptr, FALSE);
    return;
  }
  for (const std::size_t button : {before.hotButton, view_.hotButton}) {
    if (button >= skin_->data.elements.size()) continue;
    const RECT area = ToRECT(ElementRect(skin_->data.elements[button], view_));
    InvalidateRect(Handle(), &area, FALSE);
  }
  if (before.thumb == view_.thumb) return;
  const RECT beside{TextArea(skin_->data, view_).right, 0, view_.window.width, view_.window.height};
  InvalidateRect(Handle(), &beside, FALSE);
}

void BJotlet::ContentChanged() {
  contentChanged_ = true;
  if (record_.title.empty()) TitleChanged();
  owner_.OnJotletChanged();
}

// The window text follows the title, for other programs and for accessibility.
void BJotlet::TitleChanged() {
  const bool fromText = record_.title.empty() && edit_.Handle() != nullptr;
  Text title = ShownTitle(record_.title, fromText ? edit_.TextStart(kTitleSearch) : Text());
  if (title == shownTitle_) return;
  shownTitle_ = std::move(title);
  SetWindowTextW(Handle(), Wide(shownTitle_));
  InvalidateRect(Handle(), nullptr, FALSE);
}

}  // namespace jotlets

#include "note/win/skinned_window.h"

#include <algorithm>
#include <utility>

#include "note/papers.h"
#include "note/snapping.h"
#include "note/win/frame_cursor.h"
#include "skin/skin_drawing.h"
#include "ui/screen.h"

namespace jotlets {
namespace {

constexpr UINT_PTR kHoverTimer = 1;

}  // namespace

LRESULT SkinnedWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND: return 1;
    case WM_GETOBJECT:
      if (const LRESULT object = access_.OnGetObject(Handle(), wParam, lParam)) return object;
      break;
    case kUseMessage: UsePart(static_cast<Use>(wParam), lParam); return 0;
    case WM_PAINT: return OnPaint();
    case WM_SETCURSOR:
      if (LOWORD(lParam) != HTCLIENT || reinterpret_cast<HWND>(wParam) != Handle()) break;
      SetCursor(LoadCursorW(nullptr, CursorAt(ToClient(MousePosition()))));
      return TRUE;
    case WM_LBUTTONDOWN: OnButtonDown(PointOf(lParam)); return 0;
    case WM_LBUTTONDBLCLK:
      if (!RollsAt(PointOf(lParam)) || !DoSkinAction(kActionRoll, PointOf(lParam)))
        OnButtonDown(PointOf(lParam));
      return 0;
    case WM_MOUSEMOVE: OnMouseMove(PointOf(lParam)); return 0;
    case WM_MOUSELEAVE: OnMouseLeave(); return 0;
    case WM_ENABLE:
      if (wParam == FALSE) ForgetMouse();
      break;
    case WM_LBUTTONUP: OnButtonUp(PointOf(lParam)); return 0;
    case WM_CAPTURECHANGED: EndDrag(); return 0;
    case WM_WINDOWPOSCHANGED: {
      // The default turns it into WM_SIZE.
      const LRESULT result = Default(message, wParam, lParam);
      FollowWithShadow((reinterpret_cast<const WINDOWPOS*>(lParam)->flags & SWP_NOZORDER) == 0);
      return result;
    }
    case WM_SIZE: OnSize(); return 0;
    case WM_SETFOCUS: OnFocus(true); return 0;
    case WM_KILLFOCUS: OnFocus(false); return 0;
    case WM_DPICHANGED: FollowScale(HIWORD(wParam)); return 0;
    case WM_TIMER:
      if (wParam != kHoverTimer) break;
      UpdateView();
      // Buttons that came under a mouse that rests are lit as well.
      if (mouse_.tracked && drag_ == Drag::kIdle) OnMouseMove(ToClient(MousePosition()));
      return 0;
    default: break;
  }
  return Default(message, wParam, lParam);
}

// The place that the system suggests is passed over: computed from sizes that were rounded before, it would
// creep with every change.
void SkinnedWindow::FollowScale(std::int32_t dpi) {
  // With its new size it may be another monitor's after all: it would go to and fro, and keeps this scale.
  if (followsScale_) return;
  SyncPlace();
  const Rect before = Bounds();
  const bool resized = place_.ScaleChanged(dpi);
  OnScaleChanged();
  if (!resized) return;
  Rect bounds = place_.Shown();
  // The rest of a drag that has brought it here goes on with the new size, held at the same spot.
  if (drag_ == Drag::kMoving) {
    const Point grip{dragStart_.x - dragBounds_.left, dragStart_.y - dragBounds_.top};
    const Point held{before.left + grip.x, before.top + grip.y};
    const Size size{bounds.Width(), bounds.Height()};
    bounds = ResizedOn(WorkAreaOf(Handle()), before, held, size);
    dragBounds_ = RectAt({dragStart_.x - held.x + bounds.left, dragStart_.y - held.y + bounds.top}, size);
  }
  followsScale_ = true;
  Place(bounds);
  followsScale_ = false;
}

LRESULT SkinnedWindow::OnPaint() {
  PAINTSTRUCT paint{};
  const HDC dc = BeginPaint(Handle(), &paint);
  Draw(dc, FromRECT(paint.rcPaint));
  EndPaint(Handle(), &paint);
  return 0;
}

LPCWSTR SkinnedWindow::CursorAt(Point at) const {
  return ButtonAt(skin_->data, view_, at) != kNoElement ? IDC_ARROW : CursorOf(PartAt(at));
}

void SkinnedWindow::OnButtonDown(Point at) {
  const bool ctrl = IsHeld(VK_CONTROL);
  BeginPress();
  mouse_.pressedButton = ButtonAt(skin_->data, view_, at);
  dragPart_ = PartAt(at);
  dragStart_ = MousePosition();
  dragBounds_ = Bounds();
  if (mouse_.pressedButton != kNoElement) {
    drag_ = Drag::kButton;
  } else {
    const Press press = PressAt(at, ctrl);
    if (press == Press::kPassedOver) return;
    if (press == Press::kOfContent) {
      drag_ = Drag::kContent;
    } else {
      drag_ = EdgesOf(dragPart_) == DraggedEdges{} ? Drag::kMoving : Drag::kSizing;
      snapWindows_ = WindowsToSnapTo();
    }
  }
  SetCapture(Handle());
}

void SkinnedWindow::OnMouseMove(Point at) {
  if (!mouse_.tracked) {
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Handle(), 0};
    mouse_.tracked = TrackMouseEvent(&track) != 0;
  }
  mouseOver_ = true;
  mouse_.hotButton = ButtonAt(skin_->data, view_, at);
  UpdateView();
  OnHover(at);
  const Point mouse = MousePosition();
  if (drag_ == Drag::kContent) return DragContent(mouse);
  if (drag_ == Drag::kMoving || drag_ == Drag::kSizing)
    DragTo({mouse.x - dragStart_.x, mouse.y - dragStart_.y});
}

void SkinnedWindow::DragTo(Point offset) {
  const bool alt = IsHeld(VK_MENU);
  const SnapSettings snap = SnapSettingsFrom(context_.options, place_.Dpi());
  const SnapTargets targets{snapWindows_, context_.screens.monitors.Rects()};
  if (drag_ == Drag::kMoving) {
    const Rect moved = RectAt({dragBounds_.left + offset.x, dragBounds_.top + offset.y},
                              {dragBounds_.Width(), dragBounds_.Height()});
    return DragFrame(SnappedMove(moved, snap, alt, targets));
  }
  Size minimum = SmallestSize();
  // Its height is not the user's to change while it is rolled up.
  if (view_.rolled) minimum.height = dragBounds_.Height();
  const DraggedEdges edges = EdgesOf(dragPart_);
  const Rect dragged = DraggedBounds(dragBounds_, edges, offset);
  const Rect snapped = SnappedSizing(dragged, edges, snap, alt, targets);
  const Rect safe = SafeBounds(snapped, edges, minimum);
  // Once, not for every move of the mouse beyond the smallest size.
  if (safe != Bounds()) LogSafeSize({snapped.Width(), snapped.Height()}, minimum);
  Place(safe);
}

Size SkinnedWindow::LogSafeSize(Size size, Size minimum) const {
  const Size safe = SafeSize(size, minimum);
  if (safe != size) {
    context_.log.Write(kLogDetail, u"Set size safe to: ", safe.width, u" ", safe.height, u", minimums: ",
                       minimum.width, u" ", minimum.height);
  }
  return safe;
}

void SkinnedWindow::OnMouseLeave() {
  mouse_.tracked = false;
  mouse_.hotButton = kNoElement;
  OnMouseGone();
}

// A window that a dialog has disabled is not told when the mouse leaves it.
void SkinnedWindow::ForgetMouse() {
  mouse_.tracked = false;
  mouse_.hotButton = kNoElement;
  mouseOver_ = false;
  UpdateView();
}

void SkinnedWindow::OnButtonUp(Point at) {
  const std::size_t button = drag_ == Drag::kButton ? mouse_.pressedButton : kNoElement;
  const bool ofContent = drag_ == Drag::kContent;
  dropping_ = drag_ == Drag::kMoving && IsHeld(VK_SHIFT);
  ReleaseCapture();
  if (ofContent) return DropContent(at);
  if (button != kNoElement && ButtonAt(skin_->data, view_, at) == button)
    DoButton(skin_->data.elements[button].action, UseOf(skin_->data.elements[button]), at);
}

void SkinnedWindow::EndDrag() {
  const Drag ended = std::exchange(drag_, Drag::kIdle);
  OnDragEnded(ended, std::exchange(dropping_, false));
}

bool SkinnedWindow::WasPlaced(Drag ended) const {
  return (ended == Drag::kMoving || ended == Drag::kSizing) && Bounds() != dragBounds_;
}

void SkinnedWindow::BeginMove(Point mouse) {
  dragStart_ = mouse;
  dragBounds_ = Bounds();
  dragPart_ = FramePart::kMove;
  drag_ = Drag::kMoving;
  snapWindows_ = WindowsToSnapTo();
  SetCapture(Handle());
}

void SkinnedWindow::Place(const Rect& bounds) {
  if (bounds == Bounds()) return;
  SetWindowPos(Handle(), nullptr, bounds.left, bounds.top, bounds.Width(), bounds.Height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

bool SkinnedWindow::PlaceOnScreens(const MonitorSetup& screens) {
  if (!place_.MonitorsChanged(screens)) return false;
  Place(place_.Shown());
  return true;
}

void SkinnedWindow::Raise(bool onTop) {
  SetWindowPos(Handle(), onTop ? HWND_TOPMOST : HWND_TOP, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void SkinnedWindow::KeepOnTop(bool onTop) {
  SetWindowPos(Handle(), onTop ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

Size SkinnedWindow::SmallestSize(const SkinData& skin) const {
  const Rect& screen = context_.screens.virtualScreen;
  return SmallestNoteSize(MinimumSize(skin), {screen.Width(), screen.Height()});
}

std::int32_t SkinnedWindow::RolledHeight(const SkinData& skin) const {
  return std::min(skin.rolledHeight, context_.screens.virtualScreen.Height());
}

void SkinnedWindow::UpdateView() {
  RECT client{};
  GetClientRect(Handle(), &client);
  const SkinView before = view_;
  view_.window = {static_cast<std::int32_t>(client.right), static_cast<std::int32_t>(client.bottom)};
  const auto now = static_cast<std::int64_t>(GetTickCount64());
  mouse_.hover.Set(mouseOver_, context_.theme.Now().moves, now);
  view_.mouseOver = mouse_.hover.IsShown(now) || IsAtParts();
  view_.hover = IsAtParts() ? kOpaque : mouse_.hover.Strength(now);
  if (const bool moves = mouse_.hover.IsMoving(now); moves != mouse_.fading) {
    mouse_.fading = moves;
    if (moves) SetTimer(Handle(), kHoverTimer, UINT{kHoverStep}, nullptr);
    if (!moves) KillTimer(Handle(), kHoverTimer);
  }
  view_.hotButton = mouse_.hotButton;
  view_.clearPaper = context_.options.allowTransparentBackgrounds;
  view_.contrast = context_.theme.Now().contrast;
  view_.rightToLeft = context_.theme.IsRightToLeft();
  view_.sampling = context_.options.alternateGetPixel ? Sampling::kMixed : Sampling::kNearest;
  FillView();
  const SkinData& skin = skin_->data;
  const ScrollState scroll = Scrolled();
  const bool scrollbar = IsScrollbarRequired(skin, view_, scroll);
  view_.states.Set(SkinState::kScrollbarRequired, scrollbar);
  view_.thumb = {};
  if (scrollbar)
    view_.thumb = ScrollThumb(ScrollTrack(skin, view_.window), skin.minimumThumbTrackHeight, scroll);
  view_.focused = FocusedPlace();
  if (view_ == before) return;
  Invalidate(before);
  TellChanges();
  const bool sounds = view_.states.Has(SkinState::kSounding);
  if (view_.focus != before.focus || view_.colour != before.colour ||
      sounds != before.states.Has(SkinState::kSounding))
    FollowWithShadow();
}

Colour SkinnedWindow::DrawnColour(Colour chosen) const {
  const Appearance& look = context_.theme.Now();
  if (look.contrast) return look.contrast->paper;
  return look.dark && skin_->data.darkPapers ? DarkPaper(chosen) : chosen;
}

Colour SkinnedWindow::PaperOf(Colour colour) const {
  return PaperColour(skin_->data, colour, context_.options.allowTransparentBackgrounds);
}

void SkinnedWindow::ApplyRegion() {
  const HRGN region = MakeSkinRegion(skin_->data, view_.window);
  // The window takes the region over.
  if (region != nullptr || hasRegion_) SetWindowRgn(Handle(), region, TRUE);
  hasRegion_ = region != nullptr;
}

void SkinnedWindow::ApplyAlpha(BYTE alpha) {
  const std::optional<Colour>& key = skin_->data.transparent;
  SetLayeredWindowAttributes(Handle(), key ? ToCOLORREF(*key) : 0, alpha,
                             key ? LWA_ALPHA | LWA_COLORKEY : LWA_ALPHA);
  FollowWithShadow();
}

void SkinnedWindow::PrepareShadow() {
  // Records may say anything, and no window becomes larger than all screens.
  const Rect& screen = context_.screens.virtualScreen;
  const Rect& bounds = place_.Shown();
  const bool fits = bounds.Width() <= screen.Width() && bounds.Height() <= screen.Height();
  if (HasShadow() && fits) shadow_.Prepare(bounds.TopLeft(), Caster({bounds.Width(), bounds.Height()}));
}

ShadowCaster SkinnedWindow::Caster(Size window) const {
  const SkinData& skin = skin_->data;
  const std::int32_t radius = skin.region.size() == 1 ? skin.region[0].value : 0;
  return {window,
          radius,
          EdgeColour(skin, view_),
          view_.focus || view_.states.Has(SkinState::kSounding),
          place_.Dpi(),
          SheetsBelow()};
}

void SkinnedWindow::FollowWithShadow(bool orderChanged) {
  if (!HasShadow() && shadow_.Handle() == nullptr) return;
  if (!HasShadow() || IsWindowVisible(Handle()) == 0) return shadow_.Hide();
  BYTE alpha = 255;
  GetLayeredWindowAttributes(Handle(), nullptr, &alpha, nullptr);
  const Rect bounds = Bounds();
  shadow_.Follow(Handle(), Caster({bounds.Width(), bounds.Height()}), alpha, orderChanged);
}

Point SkinnedWindow::ToClient(Point screen) const {
  POINT at{screen.x, screen.y};
  ScreenToClient(Handle(), &at);
  return {static_cast<std::int32_t>(at.x), static_cast<std::int32_t>(at.y)};
}

}  // namespace jotlets

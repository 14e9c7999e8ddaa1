// The mouse on a note's frame: moving, sizing, buttons, the scroll bar and the tooltip.
#include "note/placement.h"
#include "note/win/frame_cursor.h"
#include "note/win/jotlet.h"

namespace jotlets {
namespace {

// As the keyboard is now: the state that a thread is told of lags behind while another window has the focus.
bool IsHeld(int key) { return GetAsyncKeyState(key) < 0; }

}  // namespace

FramePart BJotlet::PartAt(Point at) const {
  return HitTestFrame(at, view_.window, TextArea(skin_->data, view_), view_.rolled);
}

LRESULT BJotlet::OnSetCursor() {
  const Point mouse = MousePosition();
  POINT at{mouse.x, mouse.y};
  ScreenToClient(Handle(), &at);
  const Point point{static_cast<std::int32_t>(at.x), static_cast<std::int32_t>(at.y)};
  const bool button = ButtonAt(skin_->data, view_, point) != kNoElement;
  SetCursor(LoadCursorW(nullptr, button ? IDC_ARROW : CursorOf(PartAt(point))));
  return TRUE;
}

void BJotlet::OnButtonDown(Point at) {
  StopAlarm();
  const bool ctrl = IsHeld(VK_CONTROL);
  SetFocus(view_.rolled ? Handle() : FocusWindow());
  pressedButton_ = ButtonAt(skin_->data, view_, at);
  dragPart_ = PartAt(at);
  dragStart_ = MousePosition();
  dragBounds_ = Bounds();
  if (pressedButton_ != kNoElement) {
    drag_ = Drag::kButton;
  } else if (BeginScrolling(at)) {
    drag_ = Drag::kThumb;
  } else if (dragPart_ == FramePart::kContent && content_->TakesPresses()) {
    return;
  } else {
    owner_.OnJotletPressed(*this, ctrl);
    if (IsFrozen()) return;
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
  if (at.y < view_.thumb.top) content_->ScrollPages(-1);
  if (at.y >= view_.thumb.bottom) content_->ScrollPages(1);
  UpdateView();
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
      content_->ScrollDownTo(ScrollPositionAt(dragBounds_.top + offset.y,
                                              ScrollTrack(skin_->data, view_.window),
                                              skin_->data.minimumThumbTrackHeight, Scrolled()));
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
    const Rect moved = RectAt({dragBounds_.left + offset.x, dragBounds_.top + offset.y},
                              {dragBounds_.Width(), dragBounds_.Height()});
    // An alarm may begin in the middle of it.
    const Rect before = SettledBounds();
    const Rect snapped = SnappedMove(moved, snap, alt, targets);
    const Point by{snapped.left - before.left, snapped.top - before.top};
    owner_.OnJotletDragged(*this, IsHeld(VK_SHIFT));
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
  const Rect bounds = SettledBounds();
  Place(RectAt({bounds.left + offset.x, bounds.top + offset.y}, {bounds.Width(), bounds.Height()}));
}

void BJotlet::MoveByKey(Point offset) {
  if (IsFrozen()) return;
  for (BJotlet* jotlet : owner_.GroupOf(*this)) jotlet->MoveBy(offset);
  owner_.OnJotletChanged();
  owner_.OnJotletMoved(*this);
}

void BJotlet::GrowByKey(Size growth) {
  if (IsFrozen() || (view_.rolled && growth.height != 0)) return;
  Size least = SmallestSize();
  const Rect before = Bounds();
  if (view_.rolled) least.height = before.Height();
  const DraggedEdges edges{growth.width != 0 ? 1 : 0, growth.height != 0 ? 1 : 0};
  Place(SafeBounds(DraggedBounds(before, edges, {growth.width, growth.height}), edges, least));
  if (Bounds() == before) return;
  owner_.OnJotletChanged();
  owner_.OnJotletSized(*this);
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
  mouseOver_ = under != nullptr && (under == Handle() || under == content_->ContentWindow());
  UpdateView();
}

void BJotlet::OnButtonUp(Point at) {
  const std::size_t button = drag_ == Drag::kButton ? pressedButton_ : kNoElement;
  dropping_ = drag_ == Drag::kMoving && IsHeld(VK_SHIFT);
  ReleaseCapture();
  if (button != kNoElement && ButtonAt(skin_->data, view_, at) == button)
    DoAction(skin_->data.elements[button].action, at);
}

void BJotlet::TakeDrag() {
  constexpr std::int32_t kGrip = 8;  // below the top edge, where every skin has its title
  const Point mouse = MousePosition();
  FinishAnimation();
  PlaceAt({mouse.x - Bounds().Width() / 2, mouse.y - kGrip});
  SetHidden(false);
  BringForward();
  dragStart_ = mouse;
  dragBounds_ = Bounds();
  dragPart_ = FramePart::kMove;
  drag_ = Drag::kMoving;
  snapWindows_ = owner_.WindowsToSnapTo(*this);
  SetCapture(Handle());
}

// Also reached when the capture is taken away in the middle of a drag.
void BJotlet::EndDrag() {
  const Drag ended = std::exchange(drag_, Drag::kIdle);
  const bool dropped = std::exchange(dropping_, false);
  const bool placed = ended == Drag::kMoving || ended == Drag::kSizing;
  if (ended == Drag::kMoving) owner_.OnJotletDropped(*this, dropped);
  if (!placed || Bounds() == dragBounds_) return;
  owner_.OnJotletChanged();
  if (ended == Drag::kMoving) {
    owner_.OnJotletMoved(*this);
  } else {
    owner_.OnJotletSized(*this);
  }
}

}  // namespace jotlets

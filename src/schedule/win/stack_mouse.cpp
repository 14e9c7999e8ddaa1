// The mouse and the keyboard on a stack: its frame, its buttons and the rows of its list.
#include <algorithm>

#include "note/shortcuts.h"
#include "note/snapping.h"
#include "note/win/frame_cursor.h"
#include "schedule/win/stack_window.h"

namespace jotlets {
namespace {

constexpr std::int32_t kRowsPerNotch = 3;
bool IsHeld(int key) { return GetAsyncKeyState(key) < 0; }

}  // namespace

// What of the list is no row takes hold of the stack, like its frame.
FramePart BStackDlg::PartAt(Point at) const {
  if (List().RowAt(at)) return FramePart::kContent;
  const FramePart part = HitTestFrame(at, view_.window, {}, view_.rolled);
  return part == FramePart::kContent ? FramePart::kMove : part;
}

LRESULT BStackDlg::OnSetCursor() {
  POINT at{MousePosition().x, MousePosition().y};
  ScreenToClient(Handle(), &at);
  const Point point{static_cast<std::int32_t>(at.x), static_cast<std::int32_t>(at.y)};
  const bool button = ButtonAt(skin_->data, view_, point) != kNoElement;
  const bool row = List().RowAt(point).has_value();
  SetCursor(LoadCursorW(nullptr, button ? IDC_ARROW : row ? IDC_HAND : CursorOf(PartAt(point))));
  return TRUE;
}

void BStackDlg::OnButtonDown(Point at) {
  SetFocus(Handle());
  BringForward();
  pressedButton_ = ButtonAt(skin_->data, view_, at);
  dragPart_ = PartAt(at);
  dragStart_ = MousePosition();
  dragBounds_ = Bounds();
  pressedMember_.reset();
  if (pressedButton_ != kNoElement) {
    drag_ = Drag::kButton;
  } else if (const auto row = List().RowAt(at)) {
    drag_ = Drag::kRow;
    pressedMember_ = MemberAt(row);
    selectedRow_ = row;
    Repaint();
  } else {
    drag_ = EdgesOf(dragPart_) == DraggedEdges{} ? Drag::kMoving : Drag::kSizing;
    snapWindows_ = owner_.WindowsToSnapTo(*this);
  }
  SetCapture(Handle());
}

void BStackDlg::OnDoubleClick(Point at) {
  const bool onFrame = ButtonAt(skin_->data, view_, at) == kNoElement && !List().RowAt(at);
  if (!onFrame || !DoAction(kActionRoll)) OnButtonDown(at);
}

void BStackDlg::OnMouseMove(Point at) {
  if (!trackingMouse_) {
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Handle(), 0};
    trackingMouse_ = TrackMouseEvent(&track) != 0;
  }
  mouseOver_ = true;
  hotButton_ = ButtonAt(skin_->data, view_, at);
  const auto row = hotButton_ == kNoElement ? List().RowAt(at) : std::nullopt;
  if (row != hotRow_) {
    hotRow_ = row;
    Repaint();
  }
  UpdateView();
  const Point mouse = MousePosition();
  if (drag_ == Drag::kRow && !Bounds().Contains(mouse)) return DragOut();
  if (drag_ == Drag::kMoving || drag_ == Drag::kSizing)
    DragTo({mouse.x - dragStart_.x, mouse.y - dragStart_.y});
}

void BStackDlg::OnMouseLeave() {
  trackingMouse_ = false;
  mouseOver_ = false;
  hotButton_ = kNoElement;
  hotRow_.reset();
  UpdateView();
  Repaint();
}

void BStackDlg::DragTo(Point offset) {
  const bool alt = IsHeld(VK_MENU);
  const SnapSettings snap = SnapSettingsFrom(owner_.NoteOptions());
  const SnapTargets targets{snapWindows_, owner_.Screens().monitors.Rects()};
  if (drag_ == Drag::kMoving) {
    const Rect moved = RectAt({dragBounds_.left + offset.x, dragBounds_.top + offset.y},
                              {dragBounds_.Width(), dragBounds_.Height()});
    return Place(SnappedMove(moved, snap, alt, targets));
  }
  Size least = SmallestSize();
  // Its height is not the user's to change while it is rolled up.
  if (view_.rolled) least.height = dragBounds_.Height();
  const DraggedEdges edges = EdgesOf(dragPart_);
  const Rect dragged = DraggedBounds(dragBounds_, edges, offset);
  Place(SafeBounds(SnappedSizing(dragged, edges, snap, alt, targets), edges, least));
}

void BStackDlg::DragOut() {
  const auto member = std::exchange(pressedMember_, std::nullopt);
  drag_ = Drag::kIdle;
  ReleaseCapture();
  if (member) owner_.OnMemberDraggedOut(*this, *member);
}

void BStackDlg::OnButtonUp(Point at) {
  const std::size_t button = drag_ == Drag::kButton ? pressedButton_ : kNoElement;
  const auto member = drag_ == Drag::kRow ? pressedMember_ : std::nullopt;
  ReleaseCapture();
  if (button != kNoElement && ButtonAt(skin_->data, view_, at) == button) {
    DoAction(skin_->data.elements[button].action);
  } else if (member && MemberAt(List().RowAt(at)) == member) {
    owner_.OnMemberClicked(*this, *member);
  }
}

// Also reached when the capture is taken away in the middle of a drag.
void BStackDlg::EndDrag() {
  const Drag ended = std::exchange(drag_, Drag::kIdle);
  if ((ended == Drag::kMoving || ended == Drag::kSizing) && Bounds() != dragBounds_) Changed();
}

void BStackDlg::OnWheel(int delta) { ScrollTo(scroll_ - delta * kRowsPerNotch * rowHeight_ / WHEEL_DELTA); }

void BStackDlg::ScrollTo(std::int32_t position) {
  const std::int32_t safe = List().SafeScroll(position);
  if (safe == scroll_) return;
  scroll_ = safe;
  UpdateView();
  Repaint();
}

void BStackDlg::SelectRow(std::optional<std::size_t> row) {
  if (!row || members_.empty()) return;
  selectedRow_ = std::min(*row, members_.size() - 1);
  const StackList list = List();
  const Rect rect = list.RowRect(*selectedRow_);
  if (rect.top < list.area.top) ScrollTo(scroll_ - (list.area.top - rect.top));
  if (rect.bottom > list.area.bottom) ScrollTo(scroll_ + (rect.bottom - list.area.bottom));
  Repaint();
}

bool BStackDlg::OnKey(WPARAM key) {
  const std::size_t row = selectedRow_.value_or(0);
  const auto member = MemberAt(selectedRow_);
  switch (key) {
    case VK_UP: SelectRow(row > 0 ? row - 1 : 0); return true;
    case VK_DOWN: SelectRow(selectedRow_ ? row + 1 : 0); return true;
    case VK_HOME: SelectRow(0); return true;
    case VK_END: SelectRow(members_.size()); return true;
    case VK_RETURN:
    case VK_SPACE:
      if (member) owner_.OnMemberClicked(*this, *member);
      return true;
    case VK_DELETE:
      if (member) owner_.OnMemberTakenOut(*this, *member);
      return true;
    default: break;
  }
  const auto held = [](int modifier) { return GetKeyState(modifier) < 0; };
  const ActionCode action =
      ActionFromKey({static_cast<std::uint16_t>(key), held(VK_CONTROL), held(VK_SHIFT), held(VK_MENU)});
  return action != kActionNone && DoAction(action);
}

void BStackDlg::OnMenu(bool byMouse) {
  POINT at{MousePosition().x, MousePosition().y};
  ScreenToClient(Handle(), &at);
  const auto row = byMouse ? List().RowAt({static_cast<std::int32_t>(at.x), static_cast<std::int32_t>(at.y)})
                           : selectedRow_;
  owner_.OnStackMenu(*this, MemberAt(row));
}

}  // namespace jotlets

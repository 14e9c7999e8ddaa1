// The mouse and the keyboard on a stack: its frame, its buttons and the rows of its list.
#include <algorithm>

#include "action/shortcuts.h"
#include "base/win/pressed_key.h"
#include "schedule/win/stack_window.h"

namespace jotlets {
namespace {

constexpr std::int32_t kRowsPerNotch = 3;

}  // namespace

// What of the list is no row takes hold of the stack, like its frame.
FramePart BStackDlg::PartAt(Point at) const {
  if (List().RowAt(at)) return FramePart::kContent;
  const FramePart part = HitTestFrame(at, view_.window, {}, view_.rolled, place_.Dpi());
  return part == FramePart::kContent ? FramePart::kMove : part;
}

LPCWSTR BStackDlg::CursorAt(Point at) const {
  const bool row = ButtonAt(skin_->data, view_, at) == kNoElement && List().RowAt(at);
  return row ? IDC_HAND : SkinnedWindow::CursorAt(at);
}

void BStackDlg::BeginPress() {
  SetFocus(Handle());
  BringForward();
  pressedMember_.reset();
}

SkinnedWindow::Press BStackDlg::PressAt(Point at, bool) {
  const auto row = List().RowAt(at);
  if (!row) return Press::kOfFrame;
  pressedMember_ = MemberAt(row);
  selectedRow_ = row;
  Repaint();
  return Press::kOfContent;
}

bool BStackDlg::RollsAt(Point at) const {
  return ButtonAt(skin_->data, view_, at) == kNoElement && !List().RowAt(at);
}

void BStackDlg::OnHover(Point at) {
  const auto row = view_.hotButton == kNoElement ? List().RowAt(at) : std::nullopt;
  if (row == hotRow_) return;
  hotRow_ = row;
  Repaint();
}

void BStackDlg::OnMouseGone() {
  mouseOver_ = false;
  hotRow_.reset();
  UpdateView();
  Repaint();
}

// Out of the window the member is a note that follows the mouse.
void BStackDlg::DragContent(Point mouse) {
  if (Bounds().Contains(mouse)) return;
  const auto member = std::exchange(pressedMember_, std::nullopt);
  drag_ = Drag::kIdle;
  ReleaseCapture();
  if (member) owner_.OnMemberDraggedOut(*this, *member);
}

void BStackDlg::DropContent(Point at) {
  const auto member = pressedMember_;
  if (member && MemberAt(List().RowAt(at)) == member) owner_.OnMemberClicked(*this, *member);
}

void BStackDlg::OnDragEnded(Drag ended, bool) {
  if (WasPlaced(ended)) Changed();
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
  TellRow();
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
  const ActionCode action = ActionFromKey(PressedShortcut(key));
  return action != kActionNone && DoAction(action);
}

void BStackDlg::OnMenu(bool byMouse) {
  const auto row = byMouse ? List().RowAt(ToClient(MousePosition())) : selectedRow_;
  owner_.OnStackMenu(*this, MemberAt(row));
}

}  // namespace jotlets

// The mouse on a note's frame: moving, sizing, buttons, the scroll bar and the tooltip.
#include <shellapi.h>

#include "base/win/wide.h"
#include "note/win/jotlet.h"
#include "note/win/picture_work.h"

namespace jotlets {

FramePart BJotlet::PartAt(Point at) const {
  Rect content = TextArea(skin_->data, view_);
  // A picture may fill the note, which can be sized all the same.
  if (record_.IsImage()) content = WithinResizeMargin(content, view_.window, place_.Dpi());
  const FramePart part = HitTestFrame(at, view_.window, content, view_.rolled, place_.Dpi());
  return context_.options.allowFixedSizing != 0 ? WithoutSizing(part) : part;
}

void BJotlet::BeginPress() {
  // The button that lets it sound again later is pressed on a note that sounds.
  const std::size_t button = ButtonAt(skin_->data, view_, ToClient(MousePosition()));
  const bool snoozes = button != kNoElement && UseOf(skin_->data.elements[button]) == PartUse::kSnooze;
  if (!snoozes) StopAlarm();
  Tell(JotletEvent::kClicked);
  SetFocus(view_.rolled ? Handle() : FocusWindow());
}

SkinnedWindow::Press BJotlet::PressAt(Point at, bool ctrl) {
  press_.scrolls = BeginScrolling(at);
  if (press_.scrolls) return Press::kOfContent;
  if (dragPart_ == FramePart::kContent && !record_.readOnly && DragInPicture(PointerStep::kDown, at))
    return Press::kOfContent;
  if (dragPart_ == FramePart::kContent && content_->TakesPresses()) return Press::kPassedOver;
  owner_.OnJotletMouse(*this, JotletMouse::kPressed, ctrl);
  return IsFrozen() ? Press::kPassedOver : Press::kOfFrame;
}

bool BJotlet::RollsAt(Point at) const {
  const auto& titlebar = skin_->data.titlebar;
  return titlebar && ResolveCorners(*titlebar, {view_.window, {}}).Contains(at) &&
         ButtonAt(skin_->data, view_, at) == kNoElement;
}

// A press on the track beside the thumb turns a page.
bool BJotlet::BeginScrolling(Point at) {
  if (!view_.states.Has(SkinState::kScrollbarRequired)) return false;
  if (!ScrollTrack(skin_->data, view_.window).Contains(at)) return false;
  if (at.y < view_.thumb.top) ScrollPages(-1);
  if (at.y >= view_.thumb.bottom) ScrollPages(1);
  UpdateView();
  press_.draggedThumb = view_.thumb;
  return true;
}

// False for a note without a picture, and while no tool is in hand.
bool BJotlet::DragInPicture(PointerStep step, Point at) {
  PictureWork* picture = content_->Drawing();
  if (picture == nullptr) return false;
  const std::uint64_t before = picture->Version();
  const PictureAnswer answer =
      picture->Drag(step, at, ContentPlace(), ToolSettingsFrom(context_.options, place_.Dpi()));
  if (!answer.used) return false;
  PictureChanged(*picture, before);
  return Serve(answer);
}

bool BJotlet::PressInPicture(std::uint16_t key) {
  PictureWork* picture = content_->Drawing();
  if (picture == nullptr || record_.readOnly) return false;
  const std::uint64_t before = picture->Version();
  const PictureAnswer answer = picture->Press(key, GetKeyState(VK_SHIFT) < 0);
  PictureChanged(*picture, before);
  return Serve(answer);
}

bool BJotlet::Serve(const PictureAnswer& answer) {
  if (!answer.used) return false;
  if (!answer.picked && !answer.write && answer.widthSteps == 0) return true;
  // A press is still being served, and words are asked for in a dialog, in which the note may go.
  press_.asked = answer;
  PostMessageW(Handle(), kLaterMessage, 0, 0);
  return true;
}

// Of several the first.
void BJotlet::OnFilesDropped(WPARAM drop) {
  const auto files = reinterpret_cast<HDROP>(drop);
  Text path(static_cast<std::size_t>(DragQueryFileW(files, 0, nullptr, 0)), u'\0');
  const auto room = static_cast<UINT>(path.size() + 1);
  const bool any = !path.empty() && DragQueryFileW(files, 0, WideBuffer(path), room) != 0;
  DragFinish(files);
  if (any) owner_.OnPictureAnswer(*this, {.used = true, .load = path});
}

// A line that is being drawn changes what is shown, and is no change of the note before it is done.
void BJotlet::PictureChanged(PictureWork& picture, std::uint64_t versionBefore) {
  const Rect place = ContentPlace();
  const Rect changed = picture.ConsumeChanged(place);
  // A picture of another size was shown elsewhere before.
  const Rect seen = TextArea(skin_->data, view_);
  const RECT area = ToRECT(changed == place ? seen : CommonPart(changed, seen));
  InvalidateRect(Handle(), &area, FALSE);
  UpdateView();
  if (picture.Version() == versionBefore) return;
  TellChanges();
  OnContentChanged();
}

bool BJotlet::GiveUpDrawing() {
  PictureWork* picture = content_->Drawing();
  if (picture == nullptr || !picture->GiveUpDrag()) return false;
  PictureChanged(*picture, picture->Version());
  return true;
}

void BJotlet::DropContent(Point at) {
  if (!press_.scrolls) DragInPicture(PointerStep::kUp, at);
}

LPCWSTR BJotlet::CursorAt(Point at) const {
  const bool draws = Drawing().tool != kActionNone && PartAt(at) == FramePart::kContent;
  return draws ? IDC_CROSS : SkinnedWindow::CursorAt(at);
}

void BJotlet::DragContent(Point mouse) {
  if (!press_.scrolls) {
    DragInPicture(PointerStep::kMove, ToClient(mouse));
    return;
  }
  const std::int32_t top = press_.draggedThumb.top + mouse.y - dragStart_.y;
  ScrollDownTo(ScrollPositionAt(top, ScrollTrack(skin_->data, view_.window),
                                skin_->data.minimumThumbTrackHeight, Scrolled()));
}

void BJotlet::DragFrame(const Rect& bounds) {
  // An alarm may begin in the middle of it.
  const Rect before = SettledBounds();
  const Point by{bounds.left - before.left, bounds.top - before.top};
  owner_.OnJotletMouse(*this, JotletMouse::kDragged, IsHeld(VK_SHIFT));
  if (by == Point{}) return;
  for (BJotlet* jotlet : owner_.GroupOf(*this)) jotlet->MoveBy(by);
}

void BJotlet::MoveBy(Point offset) {
  const Rect bounds = SettledBounds();
  Place(RectAt({bounds.left + offset.x, bounds.top + offset.y}, {bounds.Width(), bounds.Height()}));
}

void BJotlet::MoveByKey(Point offset) {
  if (IsFrozen()) return;
  for (BJotlet* jotlet : owner_.GroupOf(*this)) jotlet->MoveBy(offset);
  Tell(JotletEvent::kChanged);
  Tell(JotletEvent::kMoved);
}

void BJotlet::GrowByKey(Size growth) {
  if (IsFrozen() || (view_.rolled && growth.height != 0) || context_.options.allowFixedSizing != 0) return;
  Size minimum = SmallestSize();
  const Rect before = Bounds();
  if (view_.rolled) minimum.height = before.Height();
  const DraggedEdges edges{growth.width != 0 ? 1 : 0, growth.height != 0 ? 1 : 0};
  Place(SafeBounds(DraggedBounds(before, edges, {growth.width, growth.height}), edges, minimum));
  if (Bounds() == before) return;
  Tell(JotletEvent::kChanged);
  Tell(JotletEvent::kSized);
}

void BJotlet::OnHover(Point at) {
  const SkinData& skin = skin_->data;
  if (!skin.titleTooltip) return;
  if (view_.hotButton != kNoElement) return OfferButtonTip(at);
  if (!skin.titlebar || shownTitle_.empty()) return;
  const Rect area = ResolveCorners(*skin.titlebar, {view_.window, {}});
  if (area.Contains(at)) title_.tooltip.Offer(Handle(), skin, area, shownTitle_, context_.theme);
}

void BJotlet::OfferButtonTip(Point at) {
  const std::vector<SkinPart> parts = SkinParts();
  const std::optional<std::size_t> found = jotlets::PartAt(parts, at);
  if (!found) return;
  const SkinPart& part = parts[*found];
  if (part.role < PartRole::kButton || part.role > PartRole::kMenuButton) return;
  const Text tip = part.key.empty() ? part.name : part.name + u"  " + part.key;
  title_.tooltip.Offer(Handle(), skin_->data, part.area, tip, context_.theme);
}

// The mouse leaves the frame when it comes over the editor, but is still over the note.
void BJotlet::OnEditMouse() {
  const Point mouse = MousePosition();
  const HWND under = WindowFromPoint({mouse.x, mouse.y});
  mouseOver_ = under != nullptr && (under == Handle() || under == content_->ContentWindow());
  UpdateView();
}

void BJotlet::BeginDragAtMouse() {
  constexpr std::int32_t kGrip = 8;  // below the top edge, where every skin has its title
  const Point mouse = MousePosition();
  FinishAnimation();
  PlaceAt({mouse.x - Bounds().Width() / 2, mouse.y - kGrip});
  SetHidden(false);
  BringForward();
  BeginMove(mouse);
}

void BJotlet::OnDragEnded(Drag ended, bool shift) {
  // The mouse was taken away, by a menu or another program.
  if (ended == Drag::kContent && IsHeld(VK_LBUTTON)) GiveUpDrawing();
  if (WasPlaced(ended)) {
    Tell(JotletEvent::kChanged);
    Tell(ended == Drag::kMoving ? JotletEvent::kMoved : JotletEvent::kSized);
  }
  // Last: what takes the note may close it.
  if (ended == Drag::kMoving) owner_.OnJotletMouse(*this, JotletMouse::kDropped, shift);
}

}  // namespace jotlets

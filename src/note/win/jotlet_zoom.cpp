// How much of its picture a note shows.
#include "base/beside.h"
#include "note/win/jotlet.h"

namespace jotlets {
namespace {

constexpr std::int32_t kWheelStep = 48;  // pixels at the usual scale
constexpr std::int32_t kKeyStep = 32;

}  // namespace

// Beside the scroll bar of the skin, which stands on what texts leave free.
Rect BJotlet::ContentArea() const {
  Rect area = TextArea(skin_->data, view_);
  if (record_.IsImage() && view_.states.Has(SkinState::kScrollbarRequired))
    area.right = std::max(std::min(area.right, ScrollTrack(skin_->data, view_.window).left), area.left);
  return area;
}

PictureFrame BJotlet::FrameOfPicture() const {
  return {content_->PictureSize(), ContentArea(), place_.Dpi()};
}

bool BJotlet::ZoomPicture(ActionCode action) {
  PictureZoom* const zoom = content_->Zoom();
  const PictureFrame frame = FrameOfPicture();
  if (zoom == nullptr || IsEmptyRect(frame.area)) return false;
  const Point mouse = ToClient(MousePosition());
  const Rect& area = frame.area;
  const Point middle{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
  const Point at = area.Contains(mouse) ? mouse : middle;
  if (action == kActionZoomIn) zoom->Step(1, at, frame);
  if (action == kActionZoomOut) zoom->Step(-1, at, frame);
  if (action == kActionZoomWhole) zoom->Set(PictureZoom::kWhole, at, frame);
  if (action == kActionZoomFit) zoom->Fit();
  ShowPictureAnew();
  return true;
}

void BJotlet::ShowPictureAnew() {
  const RECT area = ToRECT(TextArea(skin_->data, view_));
  InvalidateRect(Handle(), &area, FALSE);
  UpdateView();
}

bool BJotlet::ScrollPicture(Point by) {
  PictureZoom* const zoom = content_->Zoom();
  if (zoom == nullptr || !zoom->Scroll(by, FrameOfPicture())) return false;
  ShowPictureAnew();
  return true;
}

bool BJotlet::OnWheel(UINT message, WPARAM wParam) {
  if (!record_.IsImage() || view_.rolled) return false;
  const std::int32_t turned = GET_WHEEL_DELTA_WPARAM(wParam);
  if ((GET_KEYSTATE_WPARAM(wParam) & MK_CONTROL) != 0) {
    owner_.OnJotletAction(*this, turned > 0 ? kActionZoomIn : kActionZoomOut);
    return true;
  }
  const std::int32_t by = ScaledLength(kWheelStep, place_.Dpi()) * turned / WHEEL_DELTA;
  if (message == WM_MOUSEHWHEEL) return ScrollPicture({by, 0});
  const bool across = (GET_KEYSTATE_WPARAM(wParam) & MK_SHIFT) != 0;
  return ScrollPicture(across ? Point{-by, 0} : Point{0, -by});
}

bool BJotlet::OnScrollKey(WPARAM key) {
  const PictureZoom* const zoom = content_->Zoom();
  if (zoom == nullptr) return false;
  // The signs as other keys have them; the first is typed with Shift on many keyboards.
  if (key == VK_ADD || key == VK_OEM_PLUS) return owner_.OnJotletAction(*this, kActionZoomIn);
  if (key == VK_SUBTRACT) return owner_.OnJotletAction(*this, kActionZoomOut);
  if (zoom->IsFitted()) return false;
  const Rect area = ContentArea();
  const std::int32_t step = ScaledLength(kKeyStep, place_.Dpi());
  const std::int32_t page = std::max(area.Height() - step, step);
  switch (key) {
    case VK_LEFT: return ScrollPicture({-step, 0});
    case VK_RIGHT: return ScrollPicture({step, 0});
    case VK_UP: return ScrollPicture({0, -step});
    case VK_DOWN: return ScrollPicture({0, step});
    case VK_PRIOR: return ScrollPicture({0, -page});
    case VK_NEXT: return ScrollPicture({0, page});
    default: return false;
  }
}

ScrollState BJotlet::Scrolled() const {
  const Rect area = TextArea(skin_->data, view_);
  const PictureZoom* const zoom = content_->Zoom();
  if (zoom == nullptr) return content_->Scrolled(area.Height());
  if (zoom->IsFitted()) return {};
  const Rect place = ContentPlace();
  return {area.top - place.top, area.Height(), place.Height()};
}

void BJotlet::ScrollDownTo(std::int32_t position) {
  if (!record_.IsImage()) return content_->ScrollDownTo(position);
  ScrollPicture({0, position - Scrolled().position});
}

void BJotlet::ScrollPages(std::int32_t pages) {
  if (!record_.IsImage()) return content_->ScrollPages(pages);
  ScrollPicture({0, pages * TextArea(skin_->data, view_).Height()});
}

void BJotlet::FitToPicture() {
  if (!record_.IsImage() || view_.rolled || IsFrozen()) return;
  const PictureFrame frame = FrameOfPicture();
  PictureZoom whole;
  whole.Set(PictureZoom::kWhole, {}, frame);
  const Rect picture = whole.Place(frame);
  const Rect bounds = Bounds();
  const Rect room = WorkAreaAt(context_.screens.monitors, bounds);
  const Size edge{bounds.Width() - frame.area.Width(), bounds.Height() - frame.area.Height()};
  SetSizeSafe({std::min(picture.Width() + edge.width, room.Width()),
               std::min(picture.Height() + edge.height, room.Height())});
  const Rect sized = Bounds();
  const Point at = PlaceWithin(sized.TopLeft(), {sized.Width(), sized.Height()}, room);
  if (at != sized.TopLeft()) MoveTo(at);
  if (Bounds() != bounds) Tell(JotletEvent::kSized);
}

}  // namespace jotlets

#include "picture/picture_tool.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace jotlets {
namespace {

// Pixels that a hand moves in a click, never being quite still; what is larger is dragged.
constexpr std::int32_t kClick = 2;

constexpr double kHighlighterWidths = 4;  // it is drawn so much wider than a pen
constexpr std::uint16_t kEscKey = 0x1B;

std::optional<ObjectKind> DrawnKind(Tool tool) {
  switch (tool) {
    case Tool::kPen: return ObjectKind::kPen;
    case Tool::kEraser: return ObjectKind::kEraser;
    case Tool::kHighlighter: return ObjectKind::kHighlighter;
    case Tool::kLine: return ObjectKind::kLine;
    case Tool::kArrow: return ObjectKind::kArrow;
    case Tool::kRectangle: return ObjectKind::kRectangle;
    case Tool::kEllipse: return ObjectKind::kEllipse;
    case Tool::kRedaction: return ObjectKind::kRedaction;
    default: return std::nullopt;
  }
}

bool IsLine(ObjectKind kind) { return kind == ObjectKind::kLine || kind == ObjectKind::kArrow; }

Point PixelOf(Spot place) {
  const auto whole = [](double at) {
    return static_cast<std::int32_t>(std::floor(std::clamp(at, -1e9, 1e9)));
  };
  return {whole(place.x), whole(place.y)};
}

// The end of a line of the same length in one of 24 directions.
Spot InStepsOfDirection(Spot from, Spot to) {
  const double step = std::numbers::pi / 12;
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  const double angle = std::round(std::atan2(to.y - from.y, to.x - from.x) / step) * step;
  return {from.x + length * std::cos(angle), from.y + length * std::sin(angle)};
}

// The corner of a square as large as the longer side.
Spot AsSquare(Spot from, Spot to) {
  const double side = std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
  return {from.x + std::copysign(side, to.x - from.x), from.y + std::copysign(side, to.y - from.y)};
}

Rect FrameBetween(Spot a, Spot b) {
  return {PixelOf({std::min(a.x, b.x), 0}).x, PixelOf({0, std::min(a.y, b.y)}).y,
          PixelOf({std::ceil(std::max(a.x, b.x)), 0}).x, PixelOf({0, std::ceil(std::max(a.y, b.y))}).y};
}

DrawnObject AsObject(const Rect& frame) {
  DrawnObject object;
  object.kind = ObjectKind::kRectangle;
  object.points = {{{frame.left * 1.0, frame.top * 1.0}}, {{frame.right * 1.0, frame.bottom * 1.0}}};
  return object;
}

}  // namespace

ToolAnswer PictureTool::Choose(Tool tool) {
  ToolAnswer answer = Cancel();
  answer.changed = Enclosing(answer.changed, ReplaceFrame({}).changed);
  tool_ = tool;
  return answer;
}

ToolAnswer PictureTool::Down(const Pointer& pointer) {
  ToolAnswer given = Cancel();
  version_ = document_.Version();
  start_ = pointer.place;
  ToolAnswer answer = Begin(pointer);
  answer.changed = Enclosing(given.changed, answer.changed);
  answer.used = true;
  return answer;
}

ToolAnswer PictureTool::Begin(const Pointer& pointer) {
  if (const auto kind = DrawnKind(tool_)) {
    drag_ = Drag::kDraw;
    preview_ = NewObject(*kind);
    preview_->points = {{pointer.place, pointer.pressure}};
    if (!IsStroke(*kind)) preview_->points = {{pointer.place}, {pointer.place}};
    return {PreviewBounds()};
  }
  switch (tool_) {
    case Tool::kDropper: drag_ = Drag::kPick; return Move(pointer);
    case Tool::kCrop: return BeginCropping(pointer);
    case Tool::kText: return BeginText(pointer);
    case Tool::kStep: return AddStep(pointer);
    case Tool::kFill: return Fill(pointer);
    default: return BeginSelecting(pointer);
  }
}

ToolAnswer PictureTool::BeginSelecting(const Pointer& pointer) {
  ToolAnswer answer;
  const DrawnObject* selected = document_.Find(document_.SelectedObject());
  const auto handle = selected ? HandleAt(*selected, pointer.place, settings_.pointerReach) : std::nullopt;
  if (!handle) {
    if (selected) answer.changed = BoundsOf(*selected);
    document_.SelectObject(document_.ObjectAt(pointer.place, settings_.pointerReach / 2));
    selected = document_.Find(document_.SelectedObject());
  }
  answer.changed = Enclosing(answer.changed, document_.Selection());
  if (!handle) document_.SelectArea({});
  if (!selected) {
    drag_ = Drag::kFrame;
    frameBefore_ = {};
    return answer;
  }
  drag_ = handle ? Drag::kResize : Drag::kMove;
  handle_ = handle.value_or(Handle{});
  original_ = preview_ = *selected;
  answer.changed = Enclosing(answer.changed, BoundsOf(*selected));
  return answer;
}

// The frame that is there is moved or resized; elsewhere a new one begins.
ToolAnswer PictureTool::BeginCropping(const Pointer& pointer) {
  frameBefore_ = frame_;
  drag_ = Drag::kFrame;
  if (IsEmptyRect(frame_)) return {};
  const DrawnObject frame = AsObject(frame_);
  if (const auto handle = HandleAt(frame, pointer.place, settings_.pointerReach)) {
    drag_ = Drag::kResize;
    handle_ = *handle;
  } else if (frame_.Contains(PixelOf(pointer.place))) {
    drag_ = Drag::kMove;
  }
  return {};
}

ToolAnswer PictureTool::BeginText(const Pointer& pointer) {
  ToolAnswer answer;
  const DrawnObject* text = document_.Find(document_.ObjectAt(pointer.place, 0));
  if (text && text->kind == ObjectKind::kText) {
    document_.SelectObject(text->id);
    answer.write = *text;
  } else {
    answer.write = NewObject(ObjectKind::kText);
    answer.write->points = {{pointer.place}, {pointer.place}};
  }
  return answer;
}

ToolAnswer PictureTool::Fill(const Pointer& pointer) {
  const Point place = PixelOf(pointer.place);
  const Size size = document_.PictureSize();
  ToolAnswer answer;
  if (std::int64_t{size.width} * size.height > kMaxPixelsAtOnce)
    answer.flood = place;
  else
    answer.changed = document_.Fill(place, settings_.colour, settings_.tolerance);
  return answer;
}

ToolAnswer PictureTool::AddStep(const Pointer& pointer) {
  DrawnObject step = NewObject(ObjectKind::kStep);
  for (const DrawnObject& object : document_.Objects())
    if (object.kind == ObjectKind::kStep) step.number = std::max(step.number, object.number + 1);
  // The disc lies around the pointer, as near as its size is known.
  const double half = settings_.textSize * 0.75;
  const Spot corner{pointer.place.x - half, pointer.place.y - half};
  step.points = {{corner}, {corner}};
  return {document_.Add(std::move(step))};
}

DrawnObject PictureTool::NewObject(ObjectKind kind) const {
  DrawnObject object;
  object.kind = kind;
  object.colour = kind == ObjectKind::kHighlighter ? settings_.highlighter : settings_.colour;
  if (kind == ObjectKind::kRedaction) object.colour = {};
  object.width = settings_.width * (kind == ObjectKind::kHighlighter ? kHighlighterWidths : 1);
  object.filled = settings_.filled;
  object.font = settings_.font;
  object.textSize = settings_.textSize;
  return object;
}

Spot PictureTool::Constrained(const Pointer& pointer) const {
  if (!pointer.shift) return pointer.place;
  const bool isLine = preview_ && (IsLine(preview_->kind) || IsStroke(preview_->kind));
  return isLine ? InStepsOfDirection(start_, pointer.place) : AsSquare(start_, pointer.place);
}

ToolAnswer PictureTool::Move(const Pointer& pointer) {
  if (drag_ == Drag::kIdle) return {};
  if (IsStale()) return Cancel();
  ToolAnswer answer{EndOfPreview()};
  switch (drag_) {
    case Drag::kPick: {
      const Point at = PixelOf(pointer.place);
      answer.picked = ColourAt(document_.Composed(RectAt(at, {1, 1})), {0, 0});
      return answer;
    }
    case Drag::kDraw: DrawOn(pointer); break;
    case Drag::kMove: MoveOn(pointer); break;
    case Drag::kResize: ResizeOn(pointer); break;
    default: {
      const Spot to = Constrained(pointer);
      const Spot from = pointer.ctrl ? Spot{2 * start_.x - to.x, 2 * start_.y - to.y} : start_;
      return ReplaceFrame(FrameBetween(from, to));
    }
  }
  answer.changed = Enclosing(answer.changed, EndOfPreview());
  return tool_ == Tool::kCrop ? ToolAnswer{WholeOf(document_.PictureSize())} : answer;
}

Rect PictureTool::EndOfPreview() const {
  constexpr std::ptrdiff_t kChanging = 4;  // points at the end, of which the line is not final yet
  if (drag_ != Drag::kDraw || !IsStroke(preview_->kind)) return PreviewBounds();
  DrawnObject end = NewObject(preview_->kind);
  const auto count = std::min(kChanging, static_cast<std::ptrdiff_t>(preview_->points.size()));
  end.points.assign(preview_->points.end() - count, preview_->points.end());
  return BoundsOf(end);
}

void PictureTool::DrawOn(const Pointer& pointer) {
  if (IsStroke(preview_->kind)) {
    if (pointer.shift && preview_->points.size() <= 2)
      preview_->points = {preview_->points.front(), {Constrained(pointer), pointer.pressure}};
    else if (preview_->points.size() < kMaxPoints && preview_->points.back().place != pointer.place)
      preview_->points.push_back({pointer.place, pointer.pressure});
    return;
  }
  const Spot to = Constrained(pointer);
  const Spot from = pointer.ctrl ? Spot{2 * start_.x - to.x, 2 * start_.y - to.y} : start_;
  preview_->points = {{from}, {to}};
}

void PictureTool::MoveOn(const Pointer& pointer) {
  Spot distance{pointer.place.x - start_.x, pointer.place.y - start_.y};
  if (pointer.shift) (std::abs(distance.x) > std::abs(distance.y) ? distance.y : distance.x) = 0;
  if (tool_ == Tool::kCrop) {
    const Size size = document_.PictureSize();
    const Point by = PixelOf({distance.x + 0.5, distance.y + 0.5});
    const Point at{std::clamp(frameBefore_.left + by.x, 0, size.width - frameBefore_.Width()),
                   std::clamp(frameBefore_.top + by.y, 0, size.height - frameBefore_.Height())};
    frame_ = RectAt(at, {frameBefore_.Width(), frameBefore_.Height()});
    return;
  }
  preview_ = original_;
  MoveBy(*preview_, distance);
}

void PictureTool::ResizeOn(const Pointer& pointer) {
  if (tool_ == Tool::kCrop) {
    DrawnObject frame = AsObject(frameBefore_);
    DragHandle(frame, handle_, pointer.place);
    frame_ = CommonPart(FrameBetween(frame.points[0].place, frame.points[1].place),
                        WholeOf(document_.PictureSize()));
    return;
  }
  preview_ = original_;
  Spot to = pointer.place;
  const bool isLine = IsLine(original_->kind);
  const auto opposite =
      isLine ? (handle_ == Handle::kTopLeft ? Handle::kLeft : Handle::kTopLeft)
             : static_cast<Handle>((static_cast<std::size_t>(handle_) + kHandles / 2) % kHandles);
  const Spot fixed = PlaceOf(*original_, opposite);
  if (pointer.shift) to = isLine ? InStepsOfDirection(fixed, to) : AsSquare(fixed, to);
  if (pointer.ctrl) {
    const Spot own = PlaceOf(*original_, handle_);
    DragHandle(*preview_, opposite, {fixed.x + own.x - to.x, fixed.y + own.y - to.y});
  }
  DragHandle(*preview_, handle_, to);
}

ToolAnswer PictureTool::ReplaceFrame(const Rect& frame) {
  const Rect before = std::exchange(frame_, CommonPart(frame, WholeOf(document_.PictureSize())));
  return {Enclosing(before, frame_)};
}

ToolAnswer PictureTool::Up(const Pointer& pointer) {
  if (drag_ == Drag::kIdle) return {};
  if (IsStale()) return Cancel();
  ToolAnswer answer = Move(pointer);
  const ToolAnswer end = Finish();
  answer.changed = Enclosing(answer.changed, end.changed);
  return answer;
}

// The one command of the drag.
ToolAnswer PictureTool::Finish() {
  const Drag drag = drag_;
  ToolAnswer answer;
  if (drag == Drag::kDraw) {
    const Box box = BoxOf(*preview_);
    const bool isDrag = std::max(box.right - box.left, box.bottom - box.top) > kClick;
    if (isDrag || IsStroke(preview_->kind)) answer.changed = document_.Add(*preview_);
  } else if ((drag == Drag::kMove || drag == Drag::kResize) && preview_) {
    answer.changed = document_.Change(*preview_);
  } else if (drag == Drag::kFrame && (frame_.Width() <= kClick || frame_.Height() <= kClick)) {
    // A click, and no frame.
    answer.changed = ReplaceFrame({}).changed;
    if (tool_ == Tool::kSelect) document_.SelectArea({});
  } else if (drag == Drag::kFrame && tool_ == Tool::kSelect) {
    document_.SelectArea(frame_);
    frame_ = {};
  }
  frameBefore_ = frame_;
  answer.changed = Enclosing(answer.changed, End().changed);
  return answer;
}

ToolAnswer PictureTool::End() {
  ToolAnswer answer{PreviewBounds()};
  drag_ = Drag::kIdle;
  preview_.reset();
  original_.reset();
  return answer;
}

ToolAnswer PictureTool::Cancel() {
  if (drag_ == Drag::kIdle) return {};
  ToolAnswer answer{Enclosing(PreviewBounds(), original_ ? BoundsOf(*original_) : Rect{})};
  const bool isOther = IsStale();
  answer.changed = Enclosing(answer.changed, ReplaceFrame(isOther ? Rect{} : frameBefore_).changed);
  End();
  return answer;
}

ToolAnswer PictureTool::Press(std::uint16_t key, bool shift) {
  const double by = shift ? 10 : 1;
  ToolAnswer answer;
  switch (key) {
    case kLeftKey: answer = MoveSelected({-by, 0}); break;
    case kRightKey: answer = MoveSelected({by, 0}); break;
    case kUpKey: answer = MoveSelected({0, -by}); break;
    case kDownKey: answer = MoveSelected({0, by}); break;
    case kDeleteKey: answer = DeleteSelected(); break;
    case kEnterKey: {
      if (tool_ == Tool::kCrop) return CropNow();
      const DrawnObject* selected = document_.Find(document_.SelectedObject());
      answer.used = selected && selected->kind == ObjectKind::kText;
      if (answer.used) answer.write = *selected;
      break;
    }
    case kEscKey: {
      const DrawnObject* selected = document_.Find(document_.SelectedObject());
      answer.used = true;
      if (IsDragging()) {
        answer.changed = Cancel().changed;
      } else if (!IsEmptyRect(frame_)) {
        answer.changed = ReplaceFrame({}).changed;
      } else if (selected || !IsEmptyRect(document_.Selection())) {
        answer.changed = Enclosing(selected ? BoundsOf(*selected) : Rect{}, document_.Selection());
        document_.SelectObject(0);
        document_.SelectArea({});
      } else {
        answer.used = false;
      }
      break;
    }
    default: break;
  }
  return answer;
}

ToolAnswer PictureTool::MoveSelected(Spot distance) {
  if (document_.SelectedObject() == 0 || IsDragging()) return {};
  ToolAnswer answer{document_.Nudge(document_.SelectedObject(), distance)};
  answer.used = true;
  return answer;
}

ToolAnswer PictureTool::DeleteSelected() {
  if (IsDragging()) return {};
  ToolAnswer answer;
  answer.used = document_.SelectedObject() != 0 || !IsEmptyRect(document_.Selection());
  if (document_.SelectedObject() != 0)
    answer.changed = document_.Delete(document_.SelectedObject());
  else if (answer.used)
    answer.changed = document_.Clear(document_.Selection());
  return answer;
}

ToolAnswer PictureTool::CropNow() {
  Cancel();
  ToolAnswer answer;
  answer.used = !IsEmptyRect(frame_);
  answer.changed = document_.Crop(std::exchange(frame_, {}));
  return answer;
}

ToolAnswer PictureTool::PutText(DrawnObject object) {
  if (object.text.empty()) return {document_.Delete(object.id)};
  return {document_.Find(object.id) ? document_.Change(std::move(object)) : document_.Add(std::move(object))};
}

}  // namespace jotlets

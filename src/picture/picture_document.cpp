#include "picture/picture_document.h"

#include <algorithm>
#include <utility>

#include "picture/resizing.h"

namespace jotlets {
namespace {

// Marks those that lie below a marked one and have something in common with it: whoever draws that into the
// pixels has to draw them before.
void MarkBelow(const std::vector<DrawnObject>& objects, std::vector<bool>& marked) {
  std::vector<Rect> bounds;
  for (std::size_t at = objects.size(); at-- > 0;) {
    const Rect own = BoundsOf(objects[at]);
    const bool isBelow =
        std::any_of(bounds.begin(), bounds.end(), [&](const Rect& b) { return Overlap(b, own); });
    if (isBelow) marked[at] = true;
    if (marked[at]) bounds.push_back(own);
  }
}

// The objects in the area and those below them.
std::vector<bool> Met(const std::vector<DrawnObject>& objects, const Rect& area) {
  std::vector<bool> met(objects.size());
  for (std::size_t at = 0; at < met.size(); ++at) met[at] = Overlap(BoundsOf(objects[at]), area);
  MarkBelow(objects, met);
  return met;
}

Rect BoundsOfMarked(const std::vector<DrawnObject>& objects, const std::vector<bool>& marked) {
  Rect bounds;
  for (std::size_t at = 0; at < marked.size(); ++at)
    if (marked[at]) bounds = Enclosing(bounds, BoundsOf(objects[at]));
  return bounds;
}

// Draws the marked objects into the pixels and takes them out of the list.
void DrawIn(Picture& base, std::vector<DrawnObject>& objects, const std::vector<bool>& marked,
            const LetterPainter& letters) {
  std::vector<DrawnObject> others;
  for (std::size_t at = 0; at < objects.size(); ++at) {
    if (marked[at])
      Draw(objects[at], letters, base);
    else
      others.push_back(std::move(objects[at]));
  }
  objects = std::move(others);
}

// Whether both sides change by the same factor, as near as whole pixels can be to that.
bool KeepsProportions(Size from, Size to) {
  const std::int64_t difference = std::int64_t{to.width} * from.height - std::int64_t{to.height} * from.width;
  return std::abs(difference) <= std::max(from.width, from.height);
}

}  // namespace

PictureDocument::PictureDocument(PictureParts parts, const LetterPainter& letters, std::int32_t undoSteps)
    : base_(std::move(parts.base)),
      objects_(std::move(parts.objects)),
      letters_(letters),
      steps_(static_cast<std::size_t>(std::max(undoSteps, 0))) {
  std::erase_if(objects_, [](const DrawnObject& object) { return !IsDrawable(object); });
  for (DrawnObject& object : objects_) {
    object.id = ++lastId_;
    FitLetters(object, letters_);  // another system may have other fonts
  }
}

std::vector<DrawnObject>::iterator PictureDocument::Place(ObjectId id) {
  return std::find_if(objects_.begin(), objects_.end(),
                      [id](const DrawnObject& object) { return object.id == id; });
}

const DrawnObject* PictureDocument::Find(ObjectId id) const {
  for (const DrawnObject& object : objects_)
    if (object.id == id) return &object;
  return nullptr;
}

ObjectId PictureDocument::ObjectAt(Spot place, double tolerance) const {
  for (auto object = objects_.rbegin(); object != objects_.rend(); ++object)
    if (IsHit(*object, place, tolerance)) return object->id;
  return 0;
}

Picture PictureDocument::Composed(const Rect& area, const DrawnObject* preview) const {
  const Rect part = Shown(area);
  Picture pixels = PartOf(base_, part);
  bool isDrawn = preview == nullptr;
  for (const DrawnObject& object : objects_) {
    const bool isPreviewed = preview && object.id == preview->id;
    Draw(isPreviewed ? *preview : object, letters_, pixels, part.TopLeft());
    isDrawn |= isPreviewed;
  }
  if (!isDrawn) Draw(*preview, letters_, pixels, part.TopLeft());
  return pixels;
}

void PictureDocument::SelectArea(const Rect& area) { selection_ = Shown(area); }

void PictureDocument::SelectObject(ObjectId id) { selectedObject_ = Find(id) ? id : 0; }

Rect PictureDocument::EffectArea() const {
  return IsEmptyRect(selection_) ? WholeOf(base_.size) : selection_;
}

Rect PictureDocument::Finish(PictureStep step) {
  ++version_;
  const Rect changed = step.changed;
  steps_.Add(std::move(step));
  SelectNothingGone();
  return changed;
}

void PictureDocument::SelectNothingGone() {
  selection_ = Shown(selection_);
  SelectObject(selectedObject_);
}

Rect PictureDocument::Add(DrawnObject object) {
  object.id = lastId_ + 1;
  FitLetters(object, letters_);
  if (!IsDrawable(object)) return {};
  PictureStep step{objects_, {}, Shown(BoundsOf(object))};
  selectedObject_ = ++lastId_;
  objects_.push_back(std::move(object));
  return Finish(std::move(step));
}

Rect PictureDocument::Change(DrawnObject object) {
  const auto place = Place(object.id);
  FitLetters(object, letters_);
  if (place == objects_.end() || *place == object || !IsDrawable(object)) return {};
  PictureStep step{objects_, {}, Shown(Enclosing(BoundsOf(*place), BoundsOf(object)))};
  *place = std::move(object);
  return Finish(std::move(step));
}

Rect PictureDocument::Nudge(ObjectId id, Spot distance) {
  const auto place = Place(id);
  if (place == objects_.end()) return {};
  DrawnObject moved = *place;
  MoveBy(moved, distance);
  const bool goesOn = nudged_ == id && nudgedVersion_ == version_;
  Rect changed = Shown(Enclosing(BoundsOf(*place), BoundsOf(moved)));
  if (goesOn && IsDrawable(moved) && steps_.Continue(changed)) {
    *place = std::move(moved);
    ++version_;
  } else {
    changed = Change(std::move(moved));
  }
  nudged_ = id;
  nudgedVersion_ = version_;
  return changed;
}

Rect PictureDocument::Delete(ObjectId id) {
  const auto place = Place(id);
  if (place == objects_.end()) return {};
  PictureStep step{objects_, {}, Shown(BoundsOf(*place))};
  objects_.erase(place);
  return Finish(std::move(step));
}

Rect PictureDocument::Raise(ObjectId id) {
  const auto place = Place(id);
  if (place == objects_.end() || place + 1 == objects_.end()) return {};
  PictureStep step{objects_, {}, Shown(BoundsOf(*place))};
  std::rotate(place, place + 1, objects_.end());
  return Finish(std::move(step));
}

Rect PictureDocument::ReplaceAll(Picture picture, std::vector<DrawnObject> objects) {
  if (!IsPictureSize(picture.size)) return {};
  PictureStep step{std::exchange(objects_, std::move(objects)), std::exchange(base_, std::move(picture)), {}};
  step.changed = WholeOf(base_.size);
  return Finish(std::move(step));
}

Rect PictureDocument::Apply(const Effect& effect, const Cancelled& cancelled) {
  const bool isWhole = IsEmptyRect(selection_);
  if (isWhole && effect.kind == EffectKind::kMirror) return Turn(Orientation::kMirrored);
  if (isWhole && effect.kind == EffectKind::kFlip) return Turn(Orientation::kFlipped);
  const Rect area = EffectArea();
  Picture pixels = Composed(area);
  if (!ApplyEffect(pixels, WholeOf(pixels.size), effect, cancelled)) return {};
  return isWhole ? ReplaceAll(std::move(pixels), {}) : ReplaceArea(area, pixels);
}

Rect PictureDocument::ReplaceArea(const Rect& area, const Picture& pixels) {
  const Rect target = Shown(area);
  if (IsEmptyRect(target) || pixels.size != Size{target.Width(), target.Height()}) return {};
  if (target == WholeOf(base_.size)) return ReplaceAll(pixels, {});
  const std::vector<bool> met = Met(objects_, target);
  PixelPatch patch(base_, Enclosing(target, BoundsOfMarked(objects_, met)));
  PictureStep step{objects_, {}, target};
  DrawIn(base_, objects_, met, letters_);
  PutPart(base_, target.TopLeft(), pixels);
  patch.DropUnchanged(base_);
  step.pixels = std::move(patch);
  return Finish(std::move(step));
}

Rect PictureDocument::Turn(Orientation orientation) {
  if (orientation == Orientation::kAsItIs) return {};
  if (IsEmptyRect(selection_)) {
    PictureStep step{objects_, Inverse(orientation), {}};
    for (DrawnObject& object : objects_) jotlets::Orient(object, base_.size, orientation);
    jotlets::Orient(base_, orientation);
    step.changed = WholeOf(base_.size);
    return Finish(std::move(step));
  }
  const Rect from = selection_;
  const Picture turned = Oriented(Composed(from), orientation);
  const Point corner{from.left + (from.Width() - turned.size.width) / 2,
                     from.top + (from.Height() - turned.size.height) / 2};
  const Rect to = RectAt(corner, turned.size);
  const Rect area = Shown(Enclosing(from, to));
  Picture pixels = Composed(area);
  ClearArea(pixels, RectAt({from.left - area.left, from.top - area.top}, {from.Width(), from.Height()}));
  PutPart(pixels, {corner.x - area.left, corner.y - area.top}, turned);
  const Rect changed = ReplaceArea(area, pixels);
  SelectArea(to);
  return changed;
}

Rect PictureDocument::Crop(const Rect& area) {
  const Rect part = Shown(area);
  if (IsEmptyRect(part) || part == WholeOf(base_.size)) return {};
  std::vector<DrawnObject> objects;
  for (const DrawnObject& object : objects_) {
    if (!Overlap(BoundsOf(object), part)) continue;
    objects.push_back(object);
    MoveBy(objects.back(), {-1.0 * part.left, -1.0 * part.top});
  }
  selection_ = {};
  return ReplaceAll(PartOf(base_, part), std::move(objects));
}

Picture PictureDocument::PixelsToResize(Size size) const {
  return KeepsProportions(base_.size, size) ? base_ : Composed();
}

Rect PictureDocument::Resize(Size size, const Cancelled& cancelled) {
  if (!IsPictureSize(size)) return {};
  return PutResized(Resized(PixelsToResize(size), size, cancelled));
}

Rect PictureDocument::PutResized(Picture resized) {
  if (resized.size == base_.size || !IsPictureSize(resized.size)) return {};
  std::vector<DrawnObject> objects;
  if (KeepsProportions(base_.size, resized.size)) objects = objects_;
  for (DrawnObject& object : objects) {
    Scale(object, static_cast<double>(resized.size.width) / base_.size.width);
    FitLetters(object, letters_);
  }
  selection_ = {};
  return ReplaceAll(std::move(resized), std::move(objects));
}

Rect PictureDocument::Fill(Point place, Colour colour, std::int32_t tolerance, const Cancelled& cancelled) {
  return Fill(FloodedPixels(Composed(), place, tolerance, cancelled), place, colour);
}

Rect PictureDocument::Fill(const PixelSet& filled, Point place, Colour colour) {
  if (filled.size != base_.size || IsEmptyRect(filled.bounds)) return {};
  std::vector<bool> met(objects_.size());
  for (std::size_t at = 0; at < met.size(); ++at)
    met[at] = IsHit(objects_[at], {place.x + 0.5, place.y + 0.5}, 0.5);
  MarkBelow(objects_, met);
  PictureStep step{objects_, {}, filled.bounds};
  PixelPatch patch(base_, Enclosing(filled.bounds, BoundsOfMarked(objects_, met)));
  DrawIn(base_, objects_, met, letters_);
  FillPixels(base_, filled, colour);
  patch.DropUnchanged(base_);
  step.pixels = std::move(patch);
  return Finish(std::move(step));
}

Rect PictureDocument::Clear(const Rect& area) {
  const Rect part = Shown(area);
  return ReplaceArea(part, BlankPicture({part.Width(), part.Height()}));
}

Rect PictureDocument::Paste(const Picture& pixels, Point at) {
  const Rect area = Shown(RectAt(at, pixels.size));
  if (IsEmptyRect(area)) return {};
  Picture below = Composed(area);
  for (std::int32_t y = 0; y < below.size.height; ++y) {
    std::uint8_t* to = PixelPlace(below, 0, y);
    const std::uint8_t* from = PixelPlace(pixels, area.left - at.x, area.top - at.y + y);
    for (std::int32_t x = 0; x < below.size.width; ++x, to += 4, from += 4)
      StorePixel(to, Blended(LoadPixel(to), LoadPixel(from), 255));
  }
  const Rect changed = ReplaceArea(area, below);
  SelectArea(area);
  return changed;
}

Rect PictureDocument::Load(Picture picture) {
  selection_ = {};
  return ReplaceAll(std::move(picture), {});
}

Rect PictureDocument::Exchange(PictureStep& step) {
  std::swap(objects_, step.objects);
  const Size before = base_.size;
  if (auto* patch = std::get_if<PixelPatch>(&step.pixels)) {
    patch->Exchange(base_);
  } else if (auto* picture = std::get_if<Picture>(&step.pixels)) {
    std::swap(base_, *picture);
  } else if (auto* orientation = std::get_if<Orientation>(&step.pixels)) {
    jotlets::Orient(base_, *orientation);
    *orientation = Inverse(*orientation);
  }
  const bool isWhole = base_.size != before || step.pixels.index() > 1;
  ++version_;
  SelectNothingGone();
  return isWhole ? WholeOf(base_.size) : step.changed;
}

Rect PictureDocument::Undo() {
  if (!CanUndo()) return {};
  const Rect changed = Exchange(steps_.Undo());
  steps_.KeepBounds();
  return changed;
}

Rect PictureDocument::Redo() {
  if (!CanRedo()) return {};
  const Rect changed = Exchange(steps_.Redo());
  steps_.KeepBounds();
  return changed;
}

PictureParts PictureDocument::PartsToSave() const {
  PictureParts parts{base_, objects_};
  std::vector<bool> hidden(objects_.size());
  for (std::size_t at = 0; at < hidden.size(); ++at) hidden[at] = objects_[at].kind == ObjectKind::kRedaction;
  MarkBelow(objects_, hidden);
  DrawIn(parts.base, parts.objects, hidden, letters_);
  ObjectId id = 0;
  for (DrawnObject& object : parts.objects) object.id = ++id;
  return parts;
}

}  // namespace jotlets

// A picture that is worked on: its pixels, the objects drawn over them, what is selected, and the commands
// that change it, each of which can be undone. Knows no windows, files or tools.
//
// Objects can be changed until their pixels are: what turns, mirrors, crops or scales the whole picture does
// the same to them; every other change of pixels first draws those that it meets into the pixels, and those
// below them.
#pragma once

#include <cstdint>
#include <vector>

#include "picture/effects.h"
#include "picture/flood_fill.h"
#include "picture/picture_undo.h"

namespace jotlets {

/// What is written to files.
struct PictureParts {
  Picture base;
  std::vector<DrawnObject> objects;  // from below; their ids count from 1
};

/// Every command answers the rectangle of the picture that looks different now: an empty one when nothing was
/// done. A command that changes the size answers the whole.
class PictureDocument {
 public:
  /// `letters` stays with the caller. `parts.base` has at least one pixel; objects that cannot be drawn are
  /// left out.
  PictureDocument(PictureParts parts, const LetterPainter& letters, std::int32_t undoSteps);

  Size PictureSize() const { return base_.size; }
  /// From below.
  const std::vector<DrawnObject>& Objects() const { return objects_; }
  const DrawnObject* Find(ObjectId id) const;
  /// The uppermost object at a place; 0 for none.
  ObjectId ObjectAt(Spot place, double tolerance) const;

  /// The pixels as they are shown. `preview`, an object that is being drawn or changed, is drawn in the place
  /// of the one of its id, or above all others.
  Picture Composed(const Rect& area, const DrawnObject* preview = nullptr) const;
  Picture Composed() const { return Composed(WholeOf(base_.size)); }

  /// The selected rectangle, empty when there is none, and the selected object, 0 for none. Selecting is no
  /// step.
  const Rect& Selection() const { return selection_; }
  ObjectId SelectedObject() const { return selectedObject_; }
  void SelectArea(const Rect& area);
  void SelectObject(ObjectId id);
  /// What effects change: the selection, or all of it.
  Rect EffectArea() const;

  /// Adds an object above all others and gives it its id, by which it is then selected.
  Rect Add(DrawnObject object);
  /// Gives the object of that id all that `object` has.
  Rect Change(DrawnObject object);
  /// Moves an object. Moving it again, with nothing else in between, is one step with that.
  Rect Nudge(ObjectId id, Spot distance);
  Rect Delete(ObjectId id);
  /// Above all others.
  Rect Raise(ObjectId id);

  /// Changes `EffectArea`. Larger areas are better changed elsewhere: `Composed` gives the pixels,
  /// `ApplyEffect` changes them on any thread, and `ReplaceArea` puts them in when `Version` is still the
  /// same.
  Rect Apply(const Effect& effect, const Cancelled& cancelled = {});
  Rect ReplaceArea(const Rect& area, const Picture& pixels);
  /// Turns or mirrors the whole, or what is selected around its middle; what gets out of the picture is lost
  /// then.
  Rect Turn(Orientation orientation);
  /// Leaves the part of the picture inside `area`.
  Rect Crop(const Rect& area);
  /// Where the proportions change, the objects are drawn into the pixels first.
  Rect Resize(Size size, const Cancelled& cancelled = {});
  /// The same in parts, to be done elsewhere: what `Resized` makes that size of, and what it answered.
  /// Nothing happens when that is empty.
  Picture PixelsToResize(Size size) const;
  Rect PutResized(Picture resized);
  /// Gives the area of one colour around a place another one. An object that is there is drawn into the
  /// pixels first; others stay above.
  Rect Fill(Point place, Colour colour, std::int32_t tolerance, const Cancelled& cancelled = {});
  /// The same for what `FloodedPixels` answered for all that is shown.
  Rect Fill(const PixelSet& filled, Point place, Colour colour);
  /// Makes an area transparent.
  Rect Clear(const Rect& area);
  /// Lays pixels over what is there, and selects where they are.
  Rect Paste(const Picture& pixels, Point at);
  /// Another picture in the place of this one.
  Rect Load(Picture picture);

  bool CanUndo() const { return steps_.CanUndo(); }
  bool CanRedo() const { return steps_.CanRedo(); }
  Rect Undo();
  Rect Redo();
  std::size_t UndoBytes() const { return steps_.Bytes(); }

  /// Another number after every change.
  std::uint64_t Version() const { return version_; }
  /// What is to be saved. Redactions are drawn into the pixels there, with all that lies below them: no file
  /// has what they hide. As long as the document is open they can still be moved and undone in it.
  PictureParts PartsToSave() const;

 private:
  Rect Shown(const Rect& area) const { return CommonPart(area, WholeOf(base_.size)); }
  std::vector<DrawnObject>::iterator Place(ObjectId id);
  // Ends a command: `changed` was, and the step that undoes it has the objects of before.
  Rect Finish(PictureStep step);
  // Pixels for all others.
  Rect ReplaceAll(Picture picture, std::vector<DrawnObject> objects);
  Rect Exchange(PictureStep& step);
  void SelectNothingGone();

  Picture base_;
  std::vector<DrawnObject> objects_;
  const LetterPainter& letters_;
  PictureSteps steps_;
  Rect selection_;
  ObjectId selectedObject_ = 0;
  ObjectId lastId_ = 0;
  ObjectId nudged_ = 0;              // by the last command
  std::uint64_t nudgedVersion_ = 0;  // that it left
  std::uint64_t version_ = 1;
};

}  // namespace jotlets

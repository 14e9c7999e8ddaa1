// What brings a picture back to how it was, and forward again, within bounds.
#pragma once

#include <cstddef>
#include <deque>
#include <variant>
#include <vector>

#include "picture/drawn_object.h"

namespace jotlets {

/// The pixels of an area as they were, in squares of which only those are kept that have changed.
class PixelPatch {
 public:
  /// Remembers the squares that `area` touches.
  PixelPatch(const Picture& picture, const Rect& area);
  /// Drops those that are the same in `picture`.
  void DropUnchanged(const Picture& picture);
  /// Exchanges what is remembered with what the picture has there.
  void Exchange(Picture& picture);
  std::size_t Bytes() const;

 private:
  struct Square {
    Point at;
    Picture pixels;
  };
  std::vector<Square> squares_;
};

/// What one command has changed: the objects before it, and of the pixels nothing, squares, all of them, or
/// how they were turned. Exchanged once it undoes the command, and again it does it anew.
struct PictureStep {
  std::vector<DrawnObject> objects;
  std::variant<std::monostate, PixelPatch, Picture, Orientation> pixels;
  Rect changed;

  std::size_t Bytes() const;
};

/// The steps that can be undone and those that were. What is over a bound goes: the oldest steps, and those
/// that were undone before any that were not.
class PictureSteps {
 public:
  static constexpr std::size_t kMaxBytes = std::size_t{64} * 1024 * 1024;

  explicit PictureSteps(std::size_t maximum) : maximum_(maximum) {}

  /// What was undone can no longer be done anew.
  void Add(PictureStep step);
  bool CanUndo() const { return done_ > 0; }
  bool CanRedo() const { return done_ < steps_.size(); }
  /// The step that is to be exchanged next, which has to be done at once; one of them has to be there.
  PictureStep& Undo() { return steps_[--done_]; }
  PictureStep& Redo() { return steps_[done_++]; }
  /// The last command went on: its step tells of more that has changed. False when that step is not there any
  /// more.
  bool Continue(const Rect& changed);
  /// After an exchange: steps may have become larger.
  void KeepBounds();
  std::size_t Bytes() const;

 private:
  std::deque<PictureStep> steps_;
  std::size_t done_ = 0;
  std::size_t maximum_;
};

}  // namespace jotlets

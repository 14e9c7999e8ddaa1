// One tool in use: what the pointer and the keys do to a picture. Places are those of the picture; the window
// turns its own into them. Knows no windows.
#pragma once

#include <cstdint>
#include <optional>

#include "base/shortcut.h"
#include "picture/picture_document.h"

namespace jotlets {

enum class Tool : std::uint8_t {
  kSelect,  // an object is selected, moved and resized; beside them an area
  kPen,
  kEraser,
  kDropper,
  kCrop,
  kLine,
  kRectangle,
  kEllipse,
  kArrow,
  kText,
  kFill,
  kHighlighter,
  kStep,
  kRedaction,
};

/// What new objects are drawn with.
struct ToolSettings {
  Colour colour;
  double width = 3;
  bool filled = false;
  Text font;
  double textSize = 20;
  std::int32_t tolerance = 32;  // of the fill
  double pointerReach = 6;      // how far from an object or a handle the pointer still means it, in pixels
  Colour highlighter{254, 255, 68};
};

/// The pointer at one moment.
struct Pointer {
  Spot place;
  double pressure = 1;  // 1 for a mouse
  bool shift = false;   // squares, circles, steps of 15 degrees; of a pen from the start of its line on
  bool ctrl = false;    // from the middle
};

/// What the window has to do after it told the tool something.
struct ToolAnswer {
  Rect changed;                      // of the picture: to be drawn anew
  std::optional<Colour> picked;      // the colour that the dropper is at
  std::optional<DrawnObject> write;  // a text begins or is changed here: asks for its words, then `PutText`
  std::optional<Point> flood;        // to be filled from here, which takes long: see `kMaxPixelsAtOnce`
  bool used = false;                 // the key was the tool's
};

/// Everything goes to one document. When that was changed by somebody else since a drag began, by an undo or
/// another picture, the drag is given up.
class PictureTool {
 public:
  /// The document stays with the caller.
  explicit PictureTool(PictureDocument& document) : document_(document) {}

  /// Another tool, which gives up a drag and the area to crop.
  ToolAnswer Choose(Tool tool);
  Tool Chosen() const { return tool_; }
  void Set(const ToolSettings& settings) { settings_ = settings; }
  const ToolSettings& Settings() const { return settings_; }

  ToolAnswer Down(const Pointer& pointer);
  ToolAnswer Move(const Pointer& pointer);
  ToolAnswer Up(const Pointer& pointer);
  /// The pointer was lost: nothing of the drag remains.
  ToolAnswer Cancel();
  /// Arrows move what is selected by 1, with Shift by 10; Delete deletes it; Enter crops or asks for the
  /// words of the selected text; Esc gives up, step by step: the drag, the area to crop, the selection.
  ToolAnswer Press(std::uint16_t key, bool shift);

  bool IsDragging() const { return drag_ != Drag::kIdle; }
  /// What is to be drawn instead of, or above, the document's objects; nothing when that shows it all.
  const DrawnObject* Preview() const { return preview_ ? &*preview_ : nullptr; }
  /// The rectangle that is being dragged for a selection, or that Enter crops to; empty when there is none.
  const Rect& Frame() const { return frame_; }
  /// Crops to `Frame`.
  ToolAnswer CropNow();
  /// The words of the text that was asked for; an empty text deletes it. Of a text of no id a new one is
  /// made.
  ToolAnswer PutText(DrawnObject object);

 private:
  enum class Drag : std::uint8_t { kIdle, kDraw, kMove, kResize, kFrame, kPick };

  ToolAnswer Begin(const Pointer& pointer);
  ToolAnswer BeginSelecting(const Pointer& pointer);
  ToolAnswer BeginCropping(const Pointer& pointer);
  ToolAnswer BeginText(const Pointer& pointer);
  ToolAnswer Fill(const Pointer& pointer);
  ToolAnswer AddStep(const Pointer& pointer);
  DrawnObject NewObject(ObjectKind kind) const;
  void DrawOn(const Pointer& pointer);
  void MoveOn(const Pointer& pointer);
  void ResizeOn(const Pointer& pointer);
  ToolAnswer ReplaceFrame(const Rect& frame);
  ToolAnswer Finish();
  ToolAnswer End();
  ToolAnswer DeleteSelected();
  ToolAnswer MoveSelected(Spot distance);
  Spot Constrained(const Pointer& pointer) const;
  Rect PreviewBounds() const { return preview_ ? BoundsOf(*preview_) : Rect{}; }
  // What a further point may change of it.
  Rect EndOfPreview() const;
  bool IsStale() const { return version_ != document_.Version(); }

  PictureDocument& document_;
  Tool tool_ = Tool::kSelect;
  ToolSettings settings_;
  Drag drag_ = Drag::kIdle;
  std::uint64_t version_ = 0;  // of the document when the drag began
  Spot start_;
  std::optional<DrawnObject> original_;  // what is moved or resized, as it was
  std::optional<DrawnObject> preview_;
  Handle handle_{};
  Rect frame_;
  Rect frameBefore_;
};

}  // namespace jotlets

// A picture that is drawn on in its note: the document, the tool in hand, and where on the note it is shown.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "action/actions.h"
#include "data/options.h"
#include "picture/object_file.h"
#include "picture/picture_tool.h"
#include "picture/picture_zoom.h"
#include "picture/win/letters.h"
#include "skin/win/picture_bitmap.h"

namespace jotlets {

/// What can be done with a picture now.
struct PictureFacts {
  bool canUndo = false;
  bool canRedo = false;
  bool hasSelection = false;
  ActionCode tool = kActionNone;  // that chose the tool in hand
  std::int32_t zoom = 0;          // percent, 0 as long as it is made to fit
};

enum class PointerStep : std::uint8_t { kDown, kMove, kUp };

/// What came of the mouse or a key on a picture.
struct PictureAnswer {
  bool used = false;
  std::optional<Colour> picked = {};
  std::int32_t widthSteps = 0;            // the pen is to become so much thicker
  Text load = {};                         // the file that was dropped on it
  std::optional<DrawnObject> write = {};  // words are asked for, and given back by `PutText`
};

class PictureWork {
 public:
  PictureWork(PictureParts parts, std::int32_t undoSteps) : document_(std::move(parts), letters_, undoSteps) {
    shown_.Load(document_.Composed());
  }

  PictureFacts Facts() const;
  /// Carries out a command; false for one that is none of a picture's.
  bool Do(ActionCode action, const ToolSettings& settings);
  /// Changes what is selected, or all.
  void Apply(const Effect& effect);
  /// The pixels that an effect changes, to be changed elsewhere.
  Picture PixelsForEffect() const { return document_.Composed(document_.EffectArea()); }
  /// Puts them back, unless the picture is of another `version` now.
  void PutEffect(const Picture& pixels, std::uint64_t version);
  /// Shows them, and nothing more, until `EndPreview`.
  void Preview(const Picture& pixels);
  void EndPreview() { ShowAll(); }
  /// As long as there are words it works elsewhere, says so at a scale in dots per inch, and is not drawn on.
  void SetWorking(const Text& words, std::int32_t dpi = kUsualDpi);
  bool IsWorking() const { return !working_.empty(); }
  /// Lays a picture over this one and selects it.
  void Paste(const Picture& picture);
  /// Puts another picture in its place.
  void Load(Picture picture);
  Size PixelSize() const { return document_.PictureSize(); }
  void Resize(Size size);
  /// What the mouse does at a place of the note, whose picture is shown in `area`.
  PictureAnswer Drag(PointerStep step, Point at, const Rect& area, const ToolSettings& settings);
  PictureAnswer Press(std::uint16_t key, bool shift);
  /// Nothing of what is being drawn remains; whether anything was.
  bool GiveUpDrag();
  void PutText(const DrawnObject& object) { Show(tool_.PutText(object)); }
  /// The part that is selected as a PNG, or all of it.
  std::string SelectedPng() const;

  Size PictureSize() const { return document_.PictureSize(); }
  /// What is `seen` of the picture, which is as large as `area`, and what is dragged on it or selected.
  void Draw(HDC dc, const Rect& area, const Rect& seen) const;
  /// What is to be drawn anew of the picture shown in `area`, since this was asked the last time.
  Rect ConsumeChanged(const Rect& area);
  /// Another number after every change.
  std::uint64_t Version() const { return document_.Version(); }
  /// What its files are to hold; made once for each version.
  const PictureFiles& Files() const;
  /// Whether making them takes longer than anybody should wait, and they are not made yet.
  bool WantsFiles() const;
  /// They begin to be made elsewhere, of `Parts`; false when they already have.
  bool BeginFiles() { return std::exchange(beginsFiles_, Version()) != Version(); }
  PictureParts Parts() const { return document_.PartsToSave(); }
  void PutFiles(PictureFiles files, std::uint64_t version);

 private:
  bool DoWhole(ActionCode action);
  std::optional<DrawnObject> Show(const ToolAnswer& answer);
  void ShowAll();
  void ClearSelected();
  // What is seen to be selected: what was drawn last is, too, for the document.
  bool HasSelection() const { return !IsEmptyRect(document_.Selection()) || Selected() != nullptr; }
  const DrawnObject* Selected() const;
  Rect FramesOf() const;
  Rect Placed(const Rect& ofPicture, const Rect& area) const {
    return PlacedIn(document_.PictureSize(), ofPicture, area);
  }

  SystemLetters letters_;
  PictureDocument document_;
  PictureTool tool_{document_};
  Text working_;
  std::int32_t workingDpi_ = kUsualDpi;
  bool inHand_ = false;  // a tool is: else the mouse moves the note
  PictureBitmap shown_;
  Size shownSize_;
  Rect changed_;  // of the picture, and not drawn yet
  Rect framed_;   // what the frames drawn on it enclose
  mutable std::uint64_t writtenVersion_ = 0;
  mutable PictureFiles written_;
  std::uint64_t beginsFiles_ = 0;
};

/// Something to be done to a picture, with what new objects are drawn with.
using PictureTask = std::function<void(PictureWork& picture, const ToolSettings& settings)>;

/// The effect of a command; nothing for one that is none.
std::optional<Effect> EffectOf(ActionCode action);

/// The tool of a command; nothing for a command that chooses none.
std::optional<Tool> ToolOf(ActionCode action);

/// What new objects are drawn with, by the options.
ToolSettings ToolSettingsFrom(const Options& options, std::int32_t dpi);

}  // namespace jotlets

// A picture that is drawn on in its note: the document, the tool in hand, and where on the note it is shown.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "action/actions.h"
#include "data/options.h"
#include "note/win/shown_content.h"
#include "picture/picture_tool.h"
#include "picture/win/letters.h"
#include "skin/win/picture_bitmap.h"

namespace jotlets {

class PictureWork {
 public:
  PictureWork(Picture picture, std::int32_t undoSteps)
      : document_({std::move(picture), {}}, letters_, undoSteps) {
    shown_.Load(document_.Composed());
  }

  PictureFacts Facts() const;
  /// Carries out a command; false for one that is none of a picture's.
  bool Do(ActionCode action, const ToolSettings& settings);
  /// Lays a picture over this one and selects it, or puts it in its place.
  void Put(const Picture& picture, bool instead);
  Size PixelSize() const { return document_.PictureSize(); }
  void Resize(Size size);
  /// What the mouse does at a place of the note, whose picture is shown in `area`.
  PictureAnswer Drag(PointerStep step, Point at, const Rect& area, const ToolSettings& settings);
  PictureAnswer Press(std::uint16_t key, bool shift);
  bool GiveUpDrag();
  void PutText(const DrawnObject& object) { Show(tool_.PutText(object)); }

  /// The picture and what is dragged on it or selected.
  void Draw(HDC dc, const Rect& area) const;
  /// Another number after every change.
  std::uint64_t Version() const { return document_.Version(); }
  /// The picture as its file is to hold it; made once for each version.
  const std::string& Png() const;

 private:
  bool DoWhole(ActionCode action);
  std::optional<DrawnObject> Show(const ToolAnswer& answer);
  void ShowAll() { shown_.Load(document_.Composed()); }
  Rect Placed(const Rect& ofPicture, const Rect& area) const;

  SystemLetters letters_;
  PictureDocument document_;
  PictureTool tool_{document_};
  bool inHand_ = false;  // a tool is: else the mouse moves the note
  PictureBitmap shown_;
  mutable std::uint64_t writtenVersion_ = 0;
  mutable std::string written_;
};

/// The tool of a command; nothing for a command that chooses none.
std::optional<Tool> ToolOf(ActionCode action);

/// What new objects are drawn with, by the options.
ToolSettings ToolSettingsFrom(const Options& options, std::int32_t dpi);

}  // namespace jotlets

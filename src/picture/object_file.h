// The file beside a picture that keeps the objects drawn on it, so that they can still be changed: "<id>.jdr"
// beside "<id>.png". The PNG shows everything and is the truth; this file belongs to exactly that one, and
// holds besides the objects the pixels below them. A file that is damaged, or belongs to other bytes, counts
// as none.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "picture/picture_document.h"

namespace jotlets {

/// The two files of a picture; `objects` is empty when none are drawn: then there is to be no such file.
struct PictureFiles {
  std::string png;
  std::string objects;
};

/// The files of what a document hands out for saving; `png` is empty when it cannot be made.
PictureFiles FilesOf(const PictureParts& parts, const LetterPainter& letters);

/// The parts of a picture and its objects; without objects where the second file is missing or does not
/// belong to the first; nothing when the PNG is none.
std::optional<PictureParts> PartsOf(std::string_view png, std::string_view objects);

/// Reads the objects alone, whatever picture they belong to; nothing for bytes that are no such file.
std::optional<std::vector<DrawnObject>> ObjectsOfFile(std::string_view objects);

}  // namespace jotlets

// The note message that hands a note to this instance: read back from the form that `note_file.h` describes.
#pragma once

#include <optional>

#include "base/geometry.h"
#include "base/text.h"

namespace jotlets {

struct NoteMessage {
  std::optional<Colour> colour;  // "COL=": a decimal number, red in the low byte, then green, then blue
  std::int32_t width = 0;        // 0: not said
  Text source;
  Text title;
  Text content;
  bool isRtf = false;
};

/// Reads a note message (its "#jotlet " already taken off); nothing for a text that has no content field and
/// so is no note message.
std::optional<NoteMessage> ParseNoteMessage(TextView text);

}  // namespace jotlets

// What is known of a note that is to be made; what is not said takes its default.
#pragma once

#include <optional>
#include <string>

#include "base/geometry.h"
#include "base/text.h"
#include "desk/note_event.h"
#include "desk/note_message.h"

namespace jotlets {

struct NewNote {
  Reason reason = Reason::kUser;
  Text text;  // plain text
  Text rtf;   // rich text, in place of `text`
  Text title;
  Text source;
  std::optional<Colour> colour;
  std::int32_t width = 0;
  std::optional<std::int64_t> created;   // seconds since 1970 UTC; now, if nothing is said
  std::optional<std::int64_t> modified;  // likewise; never
  Text id;                               // an existing identity, whose content file is there already
  bool isImage = false;
  std::string content;  // the bytes of its content file, in place of the template
  bool fromClipboard = false;
  bool plainClipboard = false;  // without its formatting
};

/// The note that a note message asks for, no wider than `maximumWidth`.
NewNote FromNoteMessage(const NoteMessage& message, std::int32_t maximumWidth);

}  // namespace jotlets

// The keyboard in a note: commands, the keys of its window, and what typing does to a sounding alarm.
#pragma once

#include <windows.h>

namespace jotlets {

class OpenNotes;

/// Serves a key that was pressed in a note or its editor, from the message loop; false when the message is
/// none, or the key belongs to the text. The note may be gone when the call returns.
bool ServeNoteKey(OpenNotes& desktop, const MSG& message);

}  // namespace jotlets

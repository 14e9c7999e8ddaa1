// Files that become notes.
#pragma once

#include "base/code_page.h"
#include "base/files.h"
#include "desk/new_note.h"

namespace jotlets {

/// The note that a file asks for: a note file (".jtl"), rich text, Markdown, a web page, or any other file as
/// text. A note file's
/// width is at most `maximumWidth`. Nothing when it cannot be read, holds NULs as no text does, or is larger
/// than a note should be; `reason` then tells why.
std::optional<NewNote> NoteFromFile(const Files& files, const CodePage& ansi, TextView path,
                                    std::int32_t maximumWidth, Text& reason);

}  // namespace jotlets

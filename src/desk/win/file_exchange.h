// Notes to files that the user chooses, and back.
#pragma once

#include <optional>

#include "base/code_page.h"
#include "base/files.h"
#include "desk/win/jotlet_maker.h"

namespace jotlets {

/// Writes a note's content to a file: a picture as it is, a text as rich text, or as plain text when the name
/// ends in ".txt". `dataFolder` holds the note's content.
FileStatus WriteNoteCopy(Files& files, BJotlet& jotlet, TextView dataFolder, TextView path);

/// The note that a file asks for: a note file (".jtl"), rich text, or any other file as text. Nothing when it
/// cannot be read, holds NULs as no text does, or is larger than a note should be; `reason` then tells why.
std::optional<NewJotlet> NoteFromFile(const Files& files, const CodePage& ansi, TextView path, Text& reason);

}  // namespace jotlets

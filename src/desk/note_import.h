// Files that become notes.
#pragma once

#include "base/code_page.h"
#include "base/files.h"
#include "data/csv_notes.h"
#include "desk/new_note.h"

namespace jotlets {

/// The note that a file asks for: a note file (".jtl"), rich text, Markdown, a web page, or any other file as
/// text. A note file's
/// width is at most `maximumWidth`. Nothing when it cannot be read, holds NULs as no text does, or is larger
/// than a note should be; `reason` then tells why.
std::optional<NewNote> NoteFromFile(const Files& files, const CodePage& ansi, TextView path,
                                    std::int32_t maximumWidth, Text& reason);

/// Whether the name is that of a file that holds many notes: ENEX, OPML or CSV.
bool IsCollection(TextView path);
/// Its notes; of a table by `columns`, if they were chosen. Nothing when it cannot be read or is over 64 MB.
std::unique_ptr<NoteCollection> CollectionOfFile(const Files& files, const CodePage& ansi, TextView path,
                                                 const std::optional<CsvColumns>& columns, Text& reason);
/// What a dialog shows of a table (CSV) before its columns are chosen; nothing when it cannot be read.
std::optional<CsvPreview> PreviewOfTable(const Files& files, const CodePage& ansi, TextView path,
                                         Text& reason);
/// The note that one of a collection asks for.
NewNote FromCollected(const CollectedNote& note);

/// The name of a file without its folder and extension.
Text NameOfFile(TextView path);

}  // namespace jotlets

// Exported note files (".jtl") and the note message that carries one to the running instance.
#pragma once

#include "base/text.h"
#include "data/jotlet_data.h"

namespace jotlets {

/// The note message for a note file's text: lines "col:", "width:", "title:" or "Title:", "utitle:" or
/// "uTitle:" and "Source:" give the note's fields, the first other line begins its content.
///
/// The message is "#jotlet ", then "FORM=", "COL=", "W=%i\n", "SOURCE=", "UTITLE=", "TITLE=" with their
/// values, a line each, and the content to the end: "RTF=" when it begins with "{\rtf1", else "TEXT=".
Text NoteMessageFromFile(TextView fileText);

/// The text of the note file that holds a note with this rich text, in ASCII but for its source.
Text ComposeNoteFile(const JotletData& record, TextView rtf);

}  // namespace jotlets

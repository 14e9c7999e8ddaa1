// A rich text as other kinds of files: a page for a browser, a text with Markdown's marks. Also the names
// that files of notes are proposed.
#pragma once

#include <string_view>

#include "base/text.h"

namespace jotlets {

/// A page with this title. Every character of the text that means something to a browser is escaped.
Text HtmlOfRtf(std::string_view rtf, TextView title);
/// Characters that Markdown would take for marks are escaped; boxes of check lists become task items.
Text MarkdownOfRtf(std::string_view rtf);

/// A title as the name of a file without an extension: never empty, nor one that the system does not take.
Text FileNameOfTitle(TextView title);

}  // namespace jotlets

// Other kinds of files as rich text: a web page, a text with Markdown's marks. What notes have no looks for
// becomes plain words; nothing of a file is fetched or run.
#pragma once

#include <string>
#include <vector>

#include "base/text.h"
#include "data/rtf_paragraphs.h"

namespace jotlets {

struct ImportedText {
  Text title;  // that the file gives itself; empty for none
  std::vector<TextParagraph> paragraphs;
};

/// Headings, lists, task items, emphasis, code, links and quotations. Front matter gives the title.
ImportedText TextOfMarkdown(TextView markdown);

/// The words of a page with the looks that notes have. Scripts, styles and what else is not to be read are
/// left out.
ImportedText TextOfHtml(TextView page);

/// A link as words: what it says, and where it leads where that says more.
Text LinkWords(TextView words, TextView target);

/// What "&name;" or "&#number;" at the beginning of `text` stands for, and its length, 0 for none.
Text CharacterOfEntity(TextView text, std::size_t& length);

}  // namespace jotlets

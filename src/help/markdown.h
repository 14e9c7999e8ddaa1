// The pages of docs/ as HTML: headings, paragraphs, tables, lists, code and links, as these pages use them.
// Not a reader of anybody's Markdown: it is used where the help page is made, never in the program.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace jotlets {

struct HelpHeading {
  int level = 1;  // as many as the heading has number signs
  std::string anchor;
  std::string title;  // as HTML
};

struct HelpChapter {
  std::string html;
  std::vector<HelpHeading> headings;
};

/// A page as a `<section>` with one inside for each heading of the second level. `name` is its anchor, and
/// stands in front of those of its headings. `linkTo` gives what a link leads to ("options.md"), empty when
/// only its words are to stay.
HelpChapter ChapterOf(std::string_view page, std::string_view name,
                      const std::function<std::string(std::string_view)>& linkTo);

}  // namespace jotlets

#include "help/help_page.h"

#include <algorithm>

#include "help/markdown.h"

namespace jotlets {
namespace {

constexpr std::string_view kNames[] = {"first-steps", "writing",   "keys",     "menus",    "pictures",
                                       "manage",      "finding",   "places",   "options",  "data-folder",
                                       "skins",       "languages", "commands", "scripting"};

// "options.md#links" leads to "#options-links".
std::string WithinHelp(std::string_view target) {
  constexpr std::string_view kExtension = ".md";
  const std::size_t end = target.find(kExtension);
  if (end == std::string_view::npos || std::ranges::find(kNames, target.substr(0, end)) == std::end(kNames))
    return {};
  std::string link = "#" + std::string(target.substr(0, end));
  const std::string_view part = target.substr(end + kExtension.size());
  if (part.size() > 1) link.append("-").append(part.substr(1));
  return link;
}

std::string Replaced(std::string_view text, std::string_view what, const std::string& by) {
  std::string out(text);
  const std::size_t at = out.find(what);
  return at == std::string::npos ? out : out.replace(at, what.size(), by);
}

void AppendContents(std::string& contents, const HelpChapter& chapter) {
  bool below = false;
  for (const HelpHeading& heading : chapter.headings) {
    if (heading.level > 2) continue;
    if (heading.level == 2 && !below) contents += "<ul>\n";
    below = below || heading.level == 2;
    contents += "<li><a href=\"#" + heading.anchor + "\">" + heading.title + "</a>";
    contents += heading.level == 2 ? "</li>\n" : "\n";
  }
  contents += below ? "</ul></li>\n" : "</li>\n";
}

}  // namespace

std::span<const std::string_view> HelpPageNames() { return kNames; }

std::string HelpPage(std::string_view frame, std::span<const HelpSource> sources) {
  std::string contents;
  std::string chapters;
  for (const HelpSource& source : sources) {
    const HelpChapter chapter = ChapterOf(source.page, source.name, WithinHelp);
    AppendContents(contents, chapter);
    chapters += chapter.html;
  }
  return Replaced(Replaced(frame, "{contents}", contents), "{chapters}", chapters);
}

}  // namespace jotlets

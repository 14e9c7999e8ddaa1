// The pages of docs/ that are made: of the tables of the program, of its resources, and the help of all of
// them.
#pragma once

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "command/commands_page.h"
#include "data/options_file.h"
#include "help/help_page.h"
#include "help/table_pages.h"

namespace jotlets {

struct Document {
  std::string name;  // within docs/
  std::string bytes;
};

inline std::string FileOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The texts of the resource script of the program and of all that it includes.
inline ResourceTexts TextsOf(const std::string& root) {
  std::string header;
  std::vector<std::string> scripts;
  std::vector<std::string> names{"jotlets.rc"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string file = FileOf(root + "/src/res/" + names[i]);
    if (names[i].ends_with(".h")) {
      header += file;
      continue;
    }
    scripts.push_back(file);
    constexpr std::string_view kInclude = "#include \"";
    for (std::size_t at = file.find(kInclude); at != std::string::npos; at = file.find(kInclude, at + 1)) {
      const std::size_t from = at + kInclude.size();
      names.push_back(file.substr(from, file.find('"', from) - from));
    }
  }
  return {header, scripts};
}

/// What each of the pages ought to be, from what is in the repository at `root`.
inline std::vector<Document> MadeDocuments(const std::string& root) {
  const std::string docs = root + "/docs/";
  const ResourceTexts texts = TextsOf(root);
  std::string commands = FileOf(docs + "commands.md");
  commands.resize(std::min(commands.find("## Commands"), commands.size()));
  std::vector<Document> made{{"options.md", ToUtf8(OptionsPage())},
                             {"commands.md", commands + ToUtf8(CommandsPage())},
                             {"keys.md", ToUtf8(KeysPage(texts))},
                             {"menus.md", ToUtf8(MenusPage(texts))}};
  std::vector<HelpSource> sources;
  for (const std::string_view name : HelpPageNames()) {
    const auto page = std::ranges::find(made, std::string(name) + ".md", &Document::name);
    sources.push_back({name, page == made.end() ? FileOf(docs + std::string(name) + ".md") : page->bytes});
  }
  made.push_back({"help.html", HelpPage(FileOf(root + "/src/help/frame.html"), sources)});
  return made;
}

}  // namespace jotlets

// The help that ships with the program: one HTML page made of the pages in docs/.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace jotlets {

/// One of the pages by its name ("options") and what it holds.
struct HelpSource {
  std::string_view name;
  std::string page;
};

/// The names of the pages that the help is made of, in its order.
std::span<const std::string_view> HelpPageNames();

/// The help. Links between its pages lead within it; those to other pages are plain words. `frame` is the
/// page around it, with its styles and its search, and "{contents}" and "{chapters}" where these belong.
std::string HelpPage(std::string_view frame, std::span<const HelpSource> sources);

}  // namespace jotlets

// Fields of rich texts, links among them, for a control that would lose what they say.
#pragma once

#include <string>
#include <string_view>

namespace jotlets {

/// The rich text with what its fields say in their places, and behind a link with words of its own its
/// address. What is no whole field stays as it is.
std::string RtfWithoutFields(std::string_view rtf);

}  // namespace jotlets

// Links are plain text: what looks like one is one. Which texts may be opened, and as what, is decided here.
#pragma once

#include <cstddef>

#include "base/text.h"

namespace jotlets {

/// The address that a link stands for: http, https, mailto and file addresses and network paths as they are
/// in the text, "www." ones with "http://" in front. Empty for everything else, which is no link to us.
Text LinkTarget(TextView link);

enum class LinkUse {
  kNothing,   // must not be handed to the system
  kOpened,    // a web page or a person: opened at once
  kRevealed,  // a file: after a question, the explorer shows where it lies; it is never opened
  kRefused,   // a file that a note from outside names
};

/// What a click on a link does; `target` is of `LinkTarget`.
LinkUse UseOfLink(TextView target, bool noteFromOutside);

/// The path of a link to a file. Empty for any other link, and for what a file's name cannot be.
Text PathOfLink(TextView target);

/// The word of `text` around position `at`, without the brackets, quotes and full stops around it; empty when
/// there is none.
TextView WordAt(TextView text, std::size_t at);

/// What a selected text has to become to be a link: an address of a web page ("example.com/a") or of a person
/// ("a@example.com") with what is missing in front of it. Empty when it is a link already or cannot be one.
Text LinkFromText(TextView selected);

}  // namespace jotlets

// Links are plain text: what looks like one is one. Which texts may be opened, and as what, is decided here.
#pragma once

#include <cstddef>

#include "base/text.h"

namespace jotlets {

/// The address to open for a link as it stands in the text: http, https, ftp, file and mailto addresses as
/// they are, "www." ones with "http://" in front. Empty for everything else, which must not be handed to the
/// system.
Text LinkTarget(TextView link);

/// The word of `text` around position `at`, without the brackets, quotes and full stops around it; empty when
/// there is none.
TextView WordAt(TextView text, std::size_t at);

/// What a selected text has to become to be a link: an address of a web page ("example.com/a") or of a person
/// ("a@example.com") with what is missing in front of it. Empty when it is a link already or cannot be one.
Text LinkFromText(TextView selected);

}  // namespace jotlets

// What the user's click on a link of a note leads to.
#pragma once

#include <windows.h>

#include "base/log.h"
#include "ui/resources.h"

namespace jotlets {

/// Follows a link as far as `UseOfLink` lets it, with a question first where it says so. Messages are served
/// while that is open, and the note may be gone when the call returns.
void FollowLink(HWND note, const Resources& resources, Log& log, const Text& target, bool noteFromOutside);

}  // namespace jotlets

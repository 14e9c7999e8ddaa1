// Finding skins and their picture sheets: in packages (zip archives with the extension ".jsk") and as loose
// files.
#pragma once

#include <optional>

#include "base/code_page.h"
#include "base/files.h"
#include "base/log.h"
#include "skin/picture.h"
#include "skin/skin_data.h"

namespace jotlets {

/// A skin ready to be drawn.
struct LoadedSkin {
  SkinData data;
  Picture sheet;
  Text path;  // the file it came from; empty for a built-in skin
};

/// The skins folder, ending in "\", and what reading it needs.
struct SkinFolder {
  const Files& files;
  const CodePage& ansi;
  Log& log;
  Text path;
};

/// The line of one skin in the chooser.
struct SkinSummary {
  Text name;  // what `LoadSkin` takes
  Text skinName;
  Text notes;
  Text authorName;
  Text authorEmail;
  Text authorUrl;
  bool isStack = false;
};

/// What names the same skin as `name`: without the extension ".jsk" or ".ini".
TextView SkinStem(TextView name);

/// Loads a skin by name: from its package when there is one, else from its loose text and picture. A stack's
/// package holds its text as "stack.ini". Nothing when the name is no plain file name, or text or picture
/// cannot be read; the log tells which.
std::optional<LoadedSkin> LoadSkin(const SkinFolder& folder, TextView name, bool forStack);

/// Loads the skin of one ".jsk" or ".ini" file, given by its full path.
std::optional<LoadedSkin> LoadSkinFile(const SkinFolder& folder, TextView path, bool forStack = false);

/// Every skin of the folder whose text can be read, by name. A package with both texts counts twice.
std::vector<SkinSummary> ListSkins(const SkinFolder& folder);

}  // namespace jotlets

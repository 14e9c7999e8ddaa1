// Finding skins and their picture sheets: in packages (zip archives with the extension ".jsk") and as loose
// files.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/code_page.h"
#include "base/files.h"
#include "base/log.h"
#include "picture/picture.h"
#include "skin/skin_data.h"

namespace jotlets {

/// The sheet of a skin for another scale, as it is in its file: most are never looked at.
struct ScaledSheet {
  std::int32_t percent = 100;
  std::string_view bytes;
  std::shared_ptr<const std::string> owner;  // of the bytes; empty for those of the program
};

/// A skin ready to be drawn.
struct LoadedSkin {
  SkinData data;
  Picture sheet;
  Text path;                        // the file it came from; empty for a built-in skin
  std::vector<ScaledSheet> sheets;  // from the smallest to the largest
  /// The skin as its file gives it, when this is one for another scale.
  std::shared_ptr<const LoadedSkin> usual = nullptr;
};

/// The scales for which a skin may carry sheets besides the usual one, and what stands behind the name of the
/// picture then.
struct SheetScale {
  std::int32_t percent;
  TextView suffix;
};
inline constexpr SheetScale kSheetScales[] = {{150, u"@1.5x"}, {200, u"@2x"}, {300, u"@3x"}};

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
  bool isBuiltIn = false;
};

/// What names the same skin as `name`: without the extension ".jsk" or ".ini".
TextView SkinStem(TextView name);

/// What the chooser shows of a skin.
SkinSummary SummaryOf(Text name, SkinData data);

/// Whether the folder has a package or a loose text of this name, readable or not.
bool IsInFolder(const SkinFolder& folder, TextView name);

/// Loads a skin by name: from its package when there is one, else from its loose text and picture. A stack's
/// package holds its text as "stack.ini". Nothing when the name is no plain file name, or text or picture
/// cannot be read; the log tells which.
std::optional<LoadedSkin> LoadSkin(const SkinFolder& folder, TextView name, bool forStack);

/// Loads the skin of one ".jsk" or ".ini" file, given by its full path.
std::optional<LoadedSkin> LoadSkinFile(const SkinFolder& folder, TextView path, bool forStack = false);

/// Every skin of the folder whose text can be read, by name. A package with both texts counts twice.
std::vector<SkinSummary> ListSkins(const SkinFolder& folder);

}  // namespace jotlets

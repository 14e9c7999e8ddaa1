// The skins that the program's windows show: those of the skins folder and the built-in ones.
#pragma once

#include <map>
#include <memory>
#include <optional>

#include "base/code_page.h"
#include "base/files.h"
#include "base/log.h"
#include "data/options.h"
#include "skin/skin_library.h"
#include "skin/win/skin_renderer.h"
#include "ui/resources.h"

namespace jotlets {

/// The skin of a fresh installation.
inline constexpr TextView kPaperSkin = u"Paper";

class ProgramSkins {
 public:
  ProgramSkins(const Resources& resources, const Files& files, const CodePage& ansi, Log& log)
      : resources_(resources), files_(files), ansi_(ansi), log_(log) {}

  /// The data folder is known: its skins are found in "skins\\".
  void Open(TextView dataFolder);
  /// The skin of notes that name none: a name in the skins folder, a full path, or empty for the built-in
  /// one.
  void SetDefault(TextView nameOrPath);

  /// The skin of a note, for so many dots per inch: the one it names, or the default. The name that the
  /// built-in skin gives itself asks for that one. A note names no paths: its record may come from anywhere.
  std::shared_ptr<const LoadedSkin> OfNote(TextView name, std::int32_t dpi = kUsualDpi);
  /// Whether a note that names this skin is shown in it; an empty name is the default one.
  bool IsThere(TextView name);
  /// Copies a package or a loose skin, given by its full path, into the skins folder, unless it lies there
  /// already, and replaces one of its name. Its name; nothing when it is no skin or could not be copied,
  /// which is logged.
  std::optional<Text> Install(Files& files, TextView path);
  /// The file of the default skin; empty for the built-in one.
  Text DefaultPath() { return Usual({})->path; }

  /// The skin of stacks: the one that the default skin comes with, or the built-in one.
  std::shared_ptr<const LoadedSkin> OfStacks(std::int32_t dpi);

  SkinLibrary& Library() { return *library_; }
  SkinRenderer& Renderer() { return renderer_; }
  const Text& Folder() const { return folder_; }

 private:
  std::shared_ptr<const LoadedSkin> Usual(TextView name);
  /// As it is shown now: in high contrast, any skin in that, or Paper if it cannot be.
  std::shared_ptr<const LoadedSkin> Shown(std::shared_ptr<const LoadedSkin> skin, bool forStack,
                                          std::int32_t dpi);
  // The name that the library knows the skin by.
  TextView Wanted(TextView name);
  SkinFolder Reading() const { return {files_, ansi_, log_, folder_}; }

  const Resources& resources_;
  const Files& files_;
  const CodePage& ansi_;
  Log& log_;
  Text folder_;
  Text default_;
  std::shared_ptr<const LoadedSkin> defaultFile_;  // when the default is given by its path
  std::optional<SkinLibrary> library_;
  std::map<std::shared_ptr<const LoadedSkin>, std::shared_ptr<const LoadedSkin>> contrast_;
  SkinRenderer renderer_;
};

}  // namespace jotlets

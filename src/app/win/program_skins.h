// The skins that the program's windows show: those of the skins folder and the built-in ones.
#pragma once

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

class ProgramSkins {
 public:
  ProgramSkins(const Resources& resources, const Files& files, const CodePage& ansi, Log& log)
      : resources_(resources), files_(files), ansi_(ansi), log_(log) {}

  /// The data folder is known: its skins are found in "skins\\".
  void Open(TextView dataFolder);
  /// The skin of notes that name none; empty for the built-in one.
  void SetDefault(TextView name) { default_ = name; }

  /// The skin of a note: the one it names, or the default.
  std::shared_ptr<const LoadedSkin> OfNote(TextView name) {
    return library_->Get(name.empty() ? TextView(default_) : name, false);
  }
  std::shared_ptr<const LoadedSkin> OfStack(TextView name) { return library_->Get(name, true); }

  SkinLibrary& Library() { return *library_; }
  SkinRenderer& Renderer() { return renderer_; }
  const Text& Folder() const { return folder_; }
  /// Where skins are read from, for one that lies elsewhere.
  SkinFolder Reading() const { return {files_, ansi_, log_, folder_}; }

 private:
  const Resources& resources_;
  const Files& files_;
  const CodePage& ansi_;
  Log& log_;
  Text folder_;
  Text default_;
  std::optional<SkinLibrary> library_;
  SkinRenderer renderer_;
};

}  // namespace jotlets

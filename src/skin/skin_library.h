// The skins in use: each is read once, however many notes show it.
#pragma once

#include <map>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "skin/skin_loading.h"

namespace jotlets {

/// A skin compiled into the program: the bytes of its text and of its sheet, which live as long as it.
struct BuiltInSkin {
  std::string_view text;
  std::string_view sheet;
};

class SkinLibrary {
 public:
  SkinLibrary(SkinFolder folder, BuiltInSkin note, BuiltInSkin stack);

  /// The skin called `name`; never null. An empty name is the built-in skin, and so is, with an empty `path`,
  /// what a name gives that cannot be loaded: the first time "Failed to set skin:" and the name are logged,
  /// later calls do not try again until `Forget`. A skin is held as long as somebody holds it.
  std::shared_ptr<const LoadedSkin> Get(TextView name, bool forStack);

  /// Looks at the disk again: names that failed are tried again, and skins are read anew, while notes that
  /// hold an old reading keep it.
  void Forget();

  /// The skins of the folder, for the chooser.
  std::vector<SkinSummary> List() const { return ListSkins(folder_); }

 private:
  struct BuiltIn {
    BuiltInSkin bytes;
    std::shared_ptr<const LoadedSkin> skin;  // empty until it is first asked for
  };
  struct Known {
    std::weak_ptr<const LoadedSkin> skin;
    bool failed = false;
  };
  std::shared_ptr<const LoadedSkin> GetBuiltIn(BuiltIn& builtIn);
  void DropUnused();

  SkinFolder folder_;
  BuiltIn note_;
  BuiltIn stack_;
  std::map<std::pair<Text, bool>, Known> known_;  // by folded stem, and whether for a stack
};

}  // namespace jotlets

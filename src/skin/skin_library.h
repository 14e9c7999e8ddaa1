// The skins in use: each is read once, however many notes show it, and made once for each scale.
#pragma once

#include <map>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "skin/skin_loading.h"

namespace jotlets {

/// A text compiled into the program and its sheets, the usual one first: their bytes, which live as long as
/// it.
struct BuiltInPart {
  std::string_view text;
  std::string_view sheet;
  std::vector<ScaledSheet> sheets;
};

/// A skin compiled into the program.
struct BuiltInSkin {
  Text name;
  BuiltInPart note;
  BuiltInPart stack;  // without a text: the one of the first skin is shown
};

class SkinLibrary {
 public:
  /// The first of the skins that are built in stands for those that cannot be had.
  SkinLibrary(SkinFolder folder, const std::vector<BuiltInSkin>& builtIn);

  /// The skin called `name`, for so many dots per inch; never null. One in the folder goes before one that is
  /// built in. An empty name is the first of these, and so is, with an empty `path`, what a name gives that
  /// cannot be loaded: the first time "Failed to set skin:" and the name are logged, later calls do not try
  /// again until `Forget`. A skin is held as long as somebody holds it.
  std::shared_ptr<const LoadedSkin> Get(TextView name, bool forStack, std::int32_t dpi = kUsualDpi);

  /// A skin that was loaded elsewhere, for so many dots per inch.
  std::shared_ptr<const LoadedSkin> Scaled(std::shared_ptr<const LoadedSkin> skin, std::int32_t dpi);

  /// Looks at the disk again: names that failed are tried again, and skins are read anew, while notes that
  /// hold an old reading keep it.
  void Forget();

  /// For the chooser: the built-in skins but the first, and the skins of the folder, which take the place of
  /// built-in ones of their name.
  std::vector<SkinSummary> List();

 private:
  struct BuiltIn {
    BuiltInPart part;
    std::shared_ptr<const LoadedSkin> skin;  // empty until it is first asked for
  };
  struct Known {
    std::weak_ptr<const LoadedSkin> skin;
    bool failed = false;
  };
  std::shared_ptr<const LoadedSkin> GetUsual(TextView name, bool forStack);
  std::shared_ptr<const LoadedSkin> GetBuiltIn(BuiltIn& builtIn) const;
  std::shared_ptr<const LoadedSkin> Load(TextView name, bool forStack);
  void DropUnused();

  SkinFolder folder_;
  std::vector<Text> names_;                           // of the built-in skins, in their order
  std::map<std::pair<Text, bool>, BuiltIn> builtIn_;  // by folded name, and whether for a stack
  std::map<std::pair<Text, bool>, Known> known_;      // by folded stem, and whether for a stack
  std::map<std::pair<const LoadedSkin*, std::int32_t>, std::weak_ptr<const LoadedSkin>> scaled_;
};

}  // namespace jotlets

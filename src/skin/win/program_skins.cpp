#include "skin/win/program_skins.h"

#include "data/data_folder.h"
#include "data/jotlet_id.h"
#include "res/resource.h"
#include "skin/skin_contrast.h"

namespace jotlets {

namespace {

// A sheet and, under the numbers from `scaled` on, those for larger scales.
BuiltInPart PartOf(const Resources& resources, UINT text, UINT sheet, UINT scaled) {
  BuiltInPart part{resources.Bytes(text), resources.Bytes(sheet), {}};
  for (const SheetScale& scale : kSheetScales)
    part.sheets.push_back({scale.percent, resources.Bytes(scaled++), {}});
  return part;
}

std::vector<BuiltInSkin> BuiltInSkins(const Resources& resources) {
  const auto part = [&](UINT text, UINT sheet, UINT scaled) {
    return PartOf(resources, text, sheet, scaled);
  };
  // Its texts, then the one sheet of them all.
  enum PaperText : UINT { kNote, kStack, kLarge, kBare, kSheet };
  const auto paper = [&](PaperText text) {
    return part(IDR_PAPER + text, IDR_PAPER + kSheet, IDR_PAPER + kSheet + 1);
  };
  const auto alone = [&](UINT text) { return part(text, text + 1, text + 2); };
  return {{u"Jotlets", part(IDR_SKIN_TEXT, IDR_SKIN_SHEET, IDR_SKIN_SHEETS),
           part(IDR_STACK_TEXT, IDR_STACK_SHEET, IDR_STACK_SHEETS)},
          {Text(kPaperSkin), paper(kNote), paper(kStack)},
          {u"Large", paper(kLarge), paper(kStack)},
          {u"Bare", paper(kBare), paper(kStack)},
          {u"Midnight", alone(IDR_MIDNIGHT), {}},
          {u"Plain", alone(IDR_PLAIN), {}}};
}

}  // namespace

void ProgramSkins::Open(TextView dataFolder) {
  folder_ = Text(dataFolder) + Text(kSkinsFolder);
  library_.emplace(SkinFolder{files_, ansi_, log_, folder_}, BuiltInSkins(resources_));
}

void ProgramSkins::SetDefault(TextView nameOrPath) {
  default_ = nameOrPath;
  defaultFile_.reset();
  if (nameOrPath.find(u'\\') == TextView::npos) return;
  auto loaded = LoadSkinFile(Reading(), nameOrPath);
  if (loaded) {
    defaultFile_ = std::make_shared<const LoadedSkin>(std::move(*loaded));
  } else {
    log_.Write(kLogLifecycle, u"Failed to set skin:", nameOrPath);
  }
}

std::shared_ptr<const LoadedSkin> ProgramSkins::OfNote(TextView name, std::int32_t dpi) {
  return Shown(Usual(name), false, dpi);
}

std::shared_ptr<const LoadedSkin> ProgramSkins::Usual(TextView name) {
  return name.empty() && defaultFile_ ? defaultFile_ : library_->Get(Wanted(name), false);
}

std::shared_ptr<const LoadedSkin> ProgramSkins::Shown(std::shared_ptr<const LoadedSkin> skin, bool forStack,
                                                      std::int32_t dpi) {
  if (!resources_.Look().Now().contrast) {
    contrast_.clear();
    return library_->Scaled(std::move(skin), dpi);
  }
  if (!CanShowContrast(skin->data)) skin = library_->Get(kPaperSkin, forStack);
  std::shared_ptr<const LoadedSkin>& made = contrast_[skin];
  if (made == nullptr) {
    LoadedSkin changed = *skin;
    changed.data = ContrastSkin(std::move(changed.data));
    made = std::make_shared<const LoadedSkin>(std::move(changed));
  }
  return library_->Scaled(made, dpi);
}

TextView ProgramSkins::Wanted(TextView name) {
  const TextView wanted = name.empty() ? TextView(default_) : name;
  return EqualIgnoreCase(wanted, library_->Get({}, false)->data.skinName) ? TextView() : wanted;
}

std::shared_ptr<const LoadedSkin> ProgramSkins::OfStacks(std::int32_t dpi) {
  const std::shared_ptr<const LoadedSkin> ofNotes = Usual({});
  // Of skins in the folder, only packages hold both.
  const bool both = ofNotes->path.empty() || HasExtension(ofNotes->path, u".jsk");
  const bool own = !defaultFile_ && both && !ofNotes->data.stackFileName.empty();
  return Shown(library_->Get(own ? Wanted({}) : TextView(), true), true, dpi);
}

bool ProgramSkins::IsThere(TextView name) {
  const std::shared_ptr<const LoadedSkin> skin = Usual(name);
  return name.empty() || !skin->path.empty() || EqualIgnoreCase(name, skin->data.skinName);
}

std::optional<Text> ProgramSkins::Install(Files& files, TextView path) {
  const std::size_t name = path.find_last_of(u"\\/") + 1;
  const Text stem(SkinStem(path.substr(name)));
  const auto loaded = LoadSkinFile(Reading(), path);
  if (!loaded || loaded->data.isStack || !IsPlainFileName(stem)) {
    log_.Write(kLogLifecycle, u"Failed to set skin:", path);
    return std::nullopt;
  }
  if (!EqualIgnoreCase(path.substr(0, name), folder_)) {
    FileStatus copied = files.MakeFolder(folder_);
    if (copied) copied = files.Copy(path, folder_ + Text(path.substr(name)));
    // A loose skin comes with its picture.
    if (copied && HasExtension(path, u".ini"))
      copied = files.Copy(Text(path.substr(0, name)) + loaded->data.bitmap, folder_ + loaded->data.bitmap);
    if (!copied) {
      log_.Write(kLogLifecycle, u"Failed to set skin:", path, u": ", copied.reason);
      return std::nullopt;
    }
  }
  library_->Forget();
  return stem;
}

}  // namespace jotlets

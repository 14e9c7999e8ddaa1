#include "skin/win/program_skins.h"

#include "data/data_folder.h"
#include "data/jotlet_id.h"
#include "res/resource.h"

namespace jotlets {

void ProgramSkins::Open(TextView dataFolder) {
  folder_ = Text(dataFolder) + Text(kSkinsFolder);
  library_.emplace(SkinFolder{files_, ansi_, log_, folder_},
                   BuiltInSkin{resources_.Bytes(IDR_SKIN_TEXT), resources_.Bytes(IDR_SKIN_SHEET)},
                   BuiltInSkin{resources_.Bytes(IDR_STACK_TEXT), resources_.Bytes(IDR_STACK_SHEET)});
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

std::shared_ptr<const LoadedSkin> ProgramSkins::OfNote(TextView name) {
  if (name.empty() && defaultFile_) return defaultFile_;
  const TextView wanted = name.empty() ? TextView(default_) : name;
  const std::shared_ptr<const LoadedSkin> builtIn = library_->Get({}, false);
  return EqualIgnoreCase(wanted, builtIn->data.skinName) ? builtIn : library_->Get(wanted, false);
}

bool ProgramSkins::IsThere(TextView name) {
  const std::shared_ptr<const LoadedSkin> skin = OfNote(name);
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

#include "skin/skin_library.h"

#include "data/text_file.h"
#include "skin/bmp_picture.h"
#include "skin/skin_text.h"

namespace jotlets {

SkinLibrary::SkinLibrary(SkinFolder folder, BuiltInSkin note, BuiltInSkin stack)
    : folder_(std::move(folder)), note_{note, {}}, stack_{stack, {}} {}

std::shared_ptr<const LoadedSkin> SkinLibrary::Get(TextView name, bool forStack) {
  BuiltIn& builtIn = forStack ? stack_ : note_;
  if (name.empty()) return GetBuiltIn(builtIn);
  const std::pair key{FoldCase(SkinStem(name)), forStack};
  const auto known = known_.find(key);
  if (known != known_.end()) {
    if (known->second.failed) return GetBuiltIn(builtIn);
    if (auto skin = known->second.skin.lock()) return skin;
  }
  DropUnused();
  if (auto loaded = LoadSkin(folder_, name, forStack)) {
    auto skin = std::make_shared<const LoadedSkin>(std::move(*loaded));
    known_[key] = {skin, false};
    return skin;
  }
  folder_.log.Write(kLogLifecycle, u"Failed to set skin:", name);
  known_[key] = {{}, true};
  return GetBuiltIn(builtIn);
}

void SkinLibrary::Forget() { known_.clear(); }

std::shared_ptr<const LoadedSkin> SkinLibrary::GetBuiltIn(BuiltIn& builtIn) {
  if (builtIn.skin == nullptr) {
    LoadedSkin skin;
    skin.data = ParseSkin(DecodeTextFile(builtIn.bytes.text, folder_.ansi).text);
    skin.sheet = DecodePicture(builtIn.bytes.sheet).value_or(Picture());
    builtIn.skin = std::make_shared<const LoadedSkin>(std::move(skin));
  }
  return builtIn.skin;
}

void SkinLibrary::DropUnused() {
  std::erase_if(known_,
                [](const auto& entry) { return !entry.second.failed && entry.second.skin.expired(); });
}

}  // namespace jotlets

#include "skin/skin_library.h"

#include <algorithm>

#include "data/text_file.h"
#include "picture/bmp_picture.h"
#include "skin/skin_scaling.h"
#include "skin/skin_text.h"

namespace jotlets {

SkinLibrary::SkinLibrary(SkinFolder folder, const std::vector<BuiltInSkin>& builtIn)
    : folder_(std::move(folder)) {
  for (const BuiltInSkin& skin : builtIn) {
    // The first is what an empty name asks for.
    const Text name = names_.empty() ? Text() : FoldCase(skin.name);
    names_.push_back(skin.name);
    builtIn_[{name, false}] = {skin.note, {}};
    builtIn_[{name, true}] = {skin.stack.text.empty() ? builtIn.front().stack : skin.stack, {}};
  }
}

std::shared_ptr<const LoadedSkin> SkinLibrary::Get(TextView name, bool forStack, std::int32_t dpi) {
  return Scaled(GetUsual(name, forStack), dpi);
}

std::shared_ptr<const LoadedSkin> SkinLibrary::Scaled(std::shared_ptr<const LoadedSkin> skin,
                                                      std::int32_t dpi) {
  dpi = std::clamp(dpi, kMinDpi, kMaxDpi);
  if (dpi == kUsualDpi) return skin;
  std::weak_ptr<const LoadedSkin>& known = scaled_[{skin.get(), dpi}];
  if (auto made = known.lock()) return made;
  LoadedSkin scaled = ScaledSkin(*skin, dpi);
  // As long as it lives, no other skin can come to lie where the usual one is.
  scaled.usual = std::move(skin);
  const auto made = std::make_shared<const LoadedSkin>(std::move(scaled));
  known = made;
  return made;
}

std::shared_ptr<const LoadedSkin> SkinLibrary::GetUsual(TextView name, bool forStack) {
  BuiltIn& fallback = builtIn_[{Text(), forStack}];
  if (name.empty()) return GetBuiltIn(fallback);
  const std::pair key{FoldCase(SkinStem(name)), forStack};
  const auto known = known_.find(key);
  if (known != known_.end()) {
    if (known->second.failed) return GetBuiltIn(fallback);
    if (auto skin = known->second.skin.lock()) return skin;
  }
  DropUnused();
  if (auto skin = Load(name, forStack)) {
    known_[key] = {skin, false};
    return skin;
  }
  folder_.log.Write(kLogLifecycle, u"Failed to set skin:", name);
  known_[key] = {{}, true};
  return GetBuiltIn(fallback);
}

std::shared_ptr<const LoadedSkin> SkinLibrary::Load(TextView name, bool forStack) {
  const auto builtIn = builtIn_.find({FoldCase(SkinStem(name)), forStack});
  if (builtIn != builtIn_.end() && !IsInFolder(folder_, name)) return GetBuiltIn(builtIn->second);
  if (auto loaded = LoadSkin(folder_, name, forStack))
    return std::make_shared<const LoadedSkin>(std::move(*loaded));
  return nullptr;
}

void SkinLibrary::Forget() {
  known_.clear();
  DropUnused();
}

std::vector<SkinSummary> SkinLibrary::List() {
  std::vector<SkinSummary> listed = ListSkins(folder_);
  std::vector<SkinSummary> list;
  for (std::size_t at = 1; at < names_.size(); ++at) {
    if (IsInFolder(folder_, names_[at])) continue;
    const SkinData& skin = GetBuiltIn(builtIn_[{FoldCase(names_[at]), false}])->data;
    list.push_back(SummaryOf(names_[at], skin));
    list.back().isBuiltIn = true;
  }
  list.insert(list.end(), std::make_move_iterator(listed.begin()), std::make_move_iterator(listed.end()));
  return list;
}

std::shared_ptr<const LoadedSkin> SkinLibrary::GetBuiltIn(BuiltIn& builtIn) const {
  if (builtIn.skin == nullptr) {
    LoadedSkin skin;
    skin.data = ParseSkin(DecodeTextFile(builtIn.part.text, folder_.ansi).text);
    skin.sheet = DecodePicture(builtIn.part.sheet).value_or(Picture());
    skin.sheets = builtIn.part.sheets;
    builtIn.skin = std::make_shared<const LoadedSkin>(std::move(skin));
  }
  return builtIn.skin;
}

void SkinLibrary::DropUnused() {
  std::erase_if(known_,
                [](const auto& entry) { return !entry.second.failed && entry.second.skin.expired(); });
  std::erase_if(scaled_, [](const auto& entry) { return entry.second.expired(); });
}

}  // namespace jotlets

#include "skin/skin_loading.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>

#include "data/jotlet_id.h"
#include "data/text_file.h"
#include "picture/bmp_picture.h"
#include "skin/skin_text.h"
#include "skin/zip_archive.h"

namespace jotlets {
namespace {

constexpr TextView kPackageExtension = u".jsk";
constexpr TextView kTextExtension = u".ini";
constexpr TextView kStackText = u"stack.ini";

// A UTF-16 text with its mark, of the maximum of units that is looked at.
constexpr std::size_t kMaxTextBytes = 2 * kMaxSkinText + 2;
constexpr std::size_t kMaxFileBytes = kMaxInflated;

// Where the files of one skin are: a package, or the folder itself.
struct SkinPlace {
  std::function<std::optional<std::string>(TextView name, std::size_t maximum)> read;
  Text package;  // its file name; empty for the folder
};

void Complain(const SkinFolder& folder, Text what, const SkinPlace& place) {
  if (!place.package.empty()) what.append(u" (skin in jsk: ").append(place.package).append(u")");
  folder.log.Write(kLogLifecycle, what);
}

std::optional<std::string> ReadFile(const SkinFolder& folder, const Text& path, std::size_t maximum) {
  if (folder.files.Size(path) > maximum) return std::nullopt;
  FileContent content = folder.files.Read(path);
  if (content.state != FileContent::State::kRead) return std::nullopt;
  return std::move(content.bytes);
}

SkinPlace LoosePlace(const SkinFolder& folder) {
  return {[&folder](TextView name, std::size_t maximum) {
            return ReadFile(folder, folder.path + Text(name), maximum);
          },
          {}};
}

// Packing programs write names as UTF-8 or in some 8-bit code page: both are tried.
std::optional<std::string> ReadPacked(const SkinFolder& folder, const ZipArchive& archive, TextView name,
                                      std::size_t maximum) {
  auto bytes = archive.Read(ToUtf8(name), maximum);
  return bytes ? bytes : archive.Read(folder.ansi.Encode(name), maximum);
}

SkinPlace PackagePlace(const SkinFolder& folder, Text fileName) {
  const auto bytes = std::make_shared<const std::string>(
      ReadFile(folder, folder.path + fileName, kMaxFileBytes).value_or(std::string()));
  return {[&folder, bytes, archive = ZipArchive(*bytes)](TextView name, std::size_t maximum) {
            return ReadPacked(folder, archive, name, maximum);
          },
          std::move(fileName)};
}

std::optional<SkinData> LoadText(const SkinFolder& folder, const SkinPlace& place, TextView name) {
  const auto bytes = place.read(name, kMaxTextBytes);
  if (!bytes) return std::nullopt;
  return ParseSkin(DecodeTextFile(*bytes, folder.ansi).text);
}

// "sheet@2x.png" beside "sheet.png".
std::vector<ScaledSheet> ReadScaledSheets(const SkinPlace& place, TextView bitmap) {
  std::vector<ScaledSheet> sheets;
  const std::size_t dot = std::min(bitmap.rfind(u'.'), bitmap.size());
  for (const SheetScale& scale : kSheetScales) {
    const Text name = Text(bitmap.substr(0, dot)).append(scale.suffix).append(bitmap.substr(dot));
    if (auto bytes = place.read(name, kMaxFileBytes)) {
      auto owner = std::make_shared<const std::string>(*std::move(bytes));
      sheets.push_back({scale.percent, *owner, owner});
    }
  }
  return sheets;
}

std::optional<LoadedSkin> Load(const SkinFolder& folder, const SkinPlace& place, const Text& textName) {
  auto data = LoadText(folder, place, textName);
  if (!data) {
    Complain(folder, u"Cannot read the skin text " + textName, place);
    return std::nullopt;
  }
  const auto sheet = IsPlainFileName(data->bitmap) ? place.read(data->bitmap, kMaxFileBytes) : std::nullopt;
  auto picture = sheet ? DecodePicture(*sheet) : std::nullopt;
  if (!picture) {
    Complain(folder, u"Cannot read the skin picture " + data->bitmap, place);
    return std::nullopt;
  }
  const Text& file = place.package.empty() ? textName : place.package;
  std::vector<ScaledSheet> sheets = ReadScaledSheets(place, data->bitmap);
  return LoadedSkin{std::move(*data), std::move(*picture), folder.path + file, std::move(sheets), nullptr};
}

Text PackedTextName(TextView stem, bool forStack) {
  return forStack ? Text(kStackText) : Text(stem).append(kTextExtension);
}

void ListPackage(const SkinFolder& folder, const Text& fileName, std::vector<SkinSummary>& list) {
  const SkinPlace place = PackagePlace(folder, fileName);
  const Text stem(SkinStem(fileName));
  if (auto data = LoadText(folder, place, PackedTextName(stem, false)))
    list.push_back(SummaryOf(stem, std::move(*data)));
  if (EqualIgnoreCase(PackedTextName(stem, false), kStackText)) return;
  if (auto data = LoadText(folder, place, kStackText)) {
    list.push_back(SummaryOf(stem, std::move(*data)));
    list.back().isStack = true;
  }
}

}  // namespace

SkinSummary SummaryOf(Text name, SkinData data) {
  return {std::move(name),
          std::move(data.skinName),
          std::move(data.notes),
          std::move(data.authorName),
          std::move(data.authorEmail),
          std::move(data.authorUrl),
          data.isStack,
          false};
}

bool IsInFolder(const SkinFolder& folder, TextView name) {
  const Text stem = folder.path + Text(SkinStem(name));
  return IsPlainFileName(SkinStem(name)) && (folder.files.Exists(stem + Text(kPackageExtension)) ||
                                             folder.files.Exists(stem + Text(kTextExtension)));
}

TextView SkinStem(TextView name) {
  for (const TextView extension : {kPackageExtension, kTextExtension}) {
    if (HasExtension(name, extension)) return name.substr(0, name.size() - extension.size());
  }
  return name;
}

std::optional<LoadedSkin> LoadSkin(const SkinFolder& folder, TextView name, bool forStack) {
  const Text stem(SkinStem(name));
  if (!IsPlainFileName(stem)) return std::nullopt;
  const Text package = stem + Text(kPackageExtension);
  return folder.files.Exists(folder.path + package)
             ? Load(folder, PackagePlace(folder, package), PackedTextName(stem, forStack))
             : Load(folder, LoosePlace(folder), stem + Text(kTextExtension));
}

std::optional<LoadedSkin> LoadSkinFile(const SkinFolder& folder, TextView path, bool forStack) {
  const std::size_t separator = path.find_last_of(u"\\/");
  const std::size_t nameAt = separator == TextView::npos ? 0 : separator + 1;
  const Text name(path.substr(nameAt));
  const SkinFolder itsFolder{folder.files, folder.ansi, folder.log, Text(path.substr(0, nameAt))};
  if (!IsPlainFileName(name)) return std::nullopt;
  if (HasExtension(name, kPackageExtension))
    return Load(itsFolder, PackagePlace(itsFolder, name), PackedTextName(SkinStem(name), forStack));
  if (HasExtension(name, kTextExtension)) return Load(itsFolder, LoosePlace(itsFolder), name);
  return std::nullopt;
}

std::vector<SkinSummary> ListSkins(const SkinFolder& folder) {
  std::vector<SkinSummary> list;
  for (const Text& fileName : folder.files.List(folder.path, kPackageExtension))
    ListPackage(folder, fileName, list);
  const SkinPlace loose = LoosePlace(folder);
  for (const Text& fileName : folder.files.List(folder.path, kTextExtension)) {
    const Text stem(SkinStem(fileName));
    // A loose skin behind a package of the same name could not be loaded.
    if (folder.files.Exists(folder.path + stem + Text(kPackageExtension))) continue;
    if (auto data = LoadText(folder, loose, fileName)) list.push_back(SummaryOf(stem, std::move(*data)));
  }
  std::stable_sort(list.begin(), list.end(), [](const SkinSummary& a, const SkinSummary& b) {
    return FoldCase(a.name) < FoldCase(b.name);
  });
  return list;
}

}  // namespace jotlets

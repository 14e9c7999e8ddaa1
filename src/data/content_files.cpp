#include "data/content_files.h"

#include <algorithm>

#include "data/data_folder.h"
#include "data/jotlet_data.h"

namespace jotlets {
namespace {

constexpr TextView kPictureExtension = u".png";

}  // namespace

Text ObjectsPath(TextView contentPath) {
  if (!contentPath.ends_with(kPictureExtension)) return {};
  contentPath.remove_suffix(kPictureExtension.size());
  return Text(contentPath).append(kObjectsExtension);
}

FileStatus CopyContentFile(Files& files, TextView from, TextView to) {
  const FileStatus copied = files.Copy(from, to);
  const Text objects = ObjectsPath(from);
  // A picture is whole without them.
  if (copied && !objects.empty() && files.Exists(objects)) files.Copy(objects, ObjectsPath(to));
  return copied;
}

FileStatus RemoveContentFile(Files& files, TextView path) {
  const FileStatus removed = files.Remove(path);
  const Text objects = ObjectsPath(path);
  return removed && !objects.empty() ? files.Remove(objects) : removed;
}

ContentFiles::ContentFiles(const Files& files, TextView folder)
    : files_(files),
      folder_(folder),
      texts_(List(kRtfFolder, u".rtf")),
      images_(List(kImagesFolder, kPictureExtension)),
      objects_(List(kImagesFolder, kObjectsExtension)) {}

ContentFiles::Stems ContentFiles::List(TextView inner, TextView extension) const {
  std::vector<Text> names = files_.List(folder_ + Text(inner), extension);
  Stems stems;
  stems.reserve(names.size());
  for (Text& name : names) {
    name.resize(name.size() - extension.size());
    Text folded = FoldCase(name);
    stems.push_back({std::move(folded), std::move(name), false});
  }
  std::ranges::stable_sort(stems, {}, &Stem::folded);
  return stems;
}

Text ContentFiles::Claim(const ContentClaim& claim) {
  Stems& stems = claim.isImage ? images_ : texts_;
  const Text folded = FoldCase(claim.id);
  const auto at = std::ranges::lower_bound(stems, folded, {}, &Stem::folded);
  // Two notes may name the same file, and neither is then missing.
  if (at != stems.end() && at->folded == folded) {
    at->claimed = true;
    return {};
  }
  JotletData named;
  named.id = claim.id;
  named.isImage = claim.isImage ? 1 : 0;
  // The file system knows more letter pairs than we do, and a listing may have failed: what is there is
  // there.
  if (files_.Exists(folder_ + ContentPath(named))) return {};
  const Text front = u"!!! " + Text(claim.kind) + u" '" + claim.id;
  return front + (claim.isImage ? u".png' content file not found"
                                : u".rtf' content file not found, fixing with a placeholder file");
}

std::vector<Text> ContentFiles::StrayObjects() const {
  std::vector<Text> lines;
  for (const Stem& stem : objects_) {
    // The lists were made one after the other.
    if (std::ranges::binary_search(images_, stem.folded, {}, &Stem::folded) ||
        files_.Exists(folder_ + Text(kImagesFolder) + stem.written + Text(kPictureExtension)))
      continue;
    lines.push_back(u"!!! '" + stem.written + Text(kObjectsExtension) +
                    u"' belongs to a picture that is not there");
  }
  return lines;
}

std::vector<Orphan> ContentFiles::Unclaimed() const {
  std::vector<Orphan> orphans;
  for (const Stems* stems : {&texts_, &images_}) {
    for (const Stem& stem : *stems)
      if (!stem.claimed) orphans.push_back({stem.written, stems == &images_});
  }
  return orphans;
}

}  // namespace jotlets

// Any bytes as an archive, and as the package of a skin: nothing longer than asked for comes out of it, and
// the folder lists what loading finds.
#include "fuzz.h"
#include "skin/skin_loading.h"
#include "skin/zip_archive.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  const ZipArchive archive(Bytes(data, size));
  for (const char* name : {"a.ini", "stack.ini", "a.png", "a.bmp", ""}) {
    const auto whole = archive.Read(name);
    const auto part = archive.Read(name, 100);
    Check(!whole || whole->size() <= kMaxInflated);
    Check(part ? part == whole && part->size() <= 100 : !whole || whole->size() > 100);
  }
  FakeFiles files;
  FakeLog log;
  const Latin1 ansi;
  const SkinFolder folder{files, ansi, log, u"s\\"};
  files.Put(u"s\\a.jsk", std::string(Bytes(data, size)));
  const std::size_t listed = ListSkins(folder).size();
  const int loaded = (LoadSkin(folder, u"a", false) ? 1 : 0) + (LoadSkin(folder, u"a", true) ? 1 : 0);
  Check(listed <= 2 && loaded <= static_cast<int>(listed));
  Check(log.lines.size() == static_cast<std::size_t>(2 - loaded));
  return 0;
}

// Any bytes as the files of a data folder: the program starts on them, saves, and the next start finds the
// same notes without another word of damage.
#include "data/data_folder.h"
#include "data/loading.h"
#include "data/saving.h"
#include "data/text_file.h"
#include "fuzz.h"

namespace jotlets {
namespace {

constexpr TextView kFuzzFolder = u"D:\\";

// A file begins with a byte that tells which, and two that tell its length.
FakeFiles FolderOf(std::string_view bytes) {
  constexpr TextView kNames[] = {kDataFileName, kExitCopyName,    kSafetyCopyName, kJournalName,
                                 u"rtf\\A.rtf", u"images\\A.png", kOptionsFileName};
  FakeFiles files;
  while (bytes.size() > 3) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
    const Text name(kNames[byte(0) % std::size(kNames)]);
    const std::size_t length = std::min<std::size_t>(byte(1) + 256u * byte(2), bytes.size() - 3);
    files.Put(Text(kFuzzFolder) + name, std::string(bytes.substr(3, length)));
    bytes.remove_prefix(3 + length);
  }
  return files;
}

struct Start {
  LoadedData loaded;
  FakeLog log;
};

Start StartOn(FakeFiles& files, std::string_view journal) {
  static const Latin1 ansi;
  Start start;
  Options options;
  LoadOptionsFile(files, ansi, Text(kFuzzFolder) + Text(kOptionsFileName), options);
  start.loaded =
      LoadJotlets({files, ansi, options, CountingIds(), FakeClock().now, start.log}, kFuzzFolder, journal);
  return start;
}

std::string Composed(const DataFile& file) {
  DataFileView view{file.installId, file.stacks, {}, file.verbatim, {}, true};
  for (const FiledJotlet& jotlet : file.jotlets) view.jotlets.push_back(&jotlet.record);
  for (const FiledJotlet& jotlet : file.deleted) view.deleted.push_back(&jotlet.record);
  return EncodeTextFile(ComposeDataFile(view));
}

}  // namespace
}  // namespace jotlets

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  FakeFiles files = FolderOf(Bytes(data, size));
  const Text path = Text(kFuzzFolder) + Text(kDataFileName);
  const std::string before = files.Get(path);
  const Start first = StartOn(files, files.Read(Text(kFuzzFolder) + Text(kJournalName)).bytes);
  if (first.loaded.file.version > kDataFileVersion) {
    Check(files.Get(path) == before);
    return 0;
  }
  Check(!first.loaded.damaged || files.Get(first.loaded.keptAs) == before);
  files.Put(path, Composed(first.loaded.file));
  for (const TextView copy : {kExitCopyName, kSafetyCopyName}) files.Remove(Text(kFuzzFolder) + Text(copy));
  const Start second = StartOn(files, {});
  Check(!second.loaded.damaged && second.loaded.file.jotlets.size() == first.loaded.file.jotlets.size());
  return 0;
}

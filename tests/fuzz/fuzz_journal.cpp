// Any bytes as a journal, over a data folder with a note: reading and replaying ends, and doing it again
// changes nothing.
#include "data/journal_replay.h"
#include "data/text_file.h"
#include "fuzz.h"

namespace jotlets {
namespace {

// The checksums would keep the fuzzer out: the bytes are cut into bodies, and each gets a front of its own.
std::string WithFronts(std::string_view bytes) {
  std::string journal;
  std::uint64_t sequence = 1;
  while (bytes.size() > 4) {
    JournalFrame frame;
    frame.kind = sequence == 1 ? FrameKind::kBegin : static_cast<FrameKind>(1 + bytes[0] % 8);
    frame.head = static_cast<unsigned char>(bytes[1]);
    frame.tail = static_cast<unsigned char>(bytes[2]) % 16;
    const std::size_t length = std::min<std::size_t>(static_cast<unsigned char>(bytes[3]), bytes.size() - 4);
    const std::string_view body = bytes.substr(4, length);
    frame.id = Text(1, static_cast<char16_t>(u'A' + bytes[0] % 3));
    frame.payload = body;
    frame.base = sequence % 2 == 0 ? FingerprintOf("{\\rtf1 old}") : FingerprintOf(body);
    frame.result = FingerprintOf(body);
    AppendFrame(journal, frame, sequence++);
    bytes.remove_prefix(4 + length);
  }
  return journal;
}

std::string Load(FakeFiles& files, std::string_view journal) {
  const Latin1 ansi;
  Options options;
  FakeLog log;
  DataFile file =
      ParseDataFile(u"[Jotlets]\n<ID>A<RTF>\n[Deleted jotlets]\n<ID>B<RTF>\n", {options, CountingIds(), 0});
  ReplayJournal({files, ansi, options, CountingIds(), FakeClock().now, log}, u"D:\\", journal, 7, true, file);
  DataFileView view{file.installId, file.stacks, {}, file.verbatim, {}, true};
  for (const FiledJotlet& jotlet : file.deleted) view.deleted.push_back(&jotlet.record);
  for (const FiledJotlet& jotlet : file.jotlets) view.jotlets.push_back(&jotlet.record);
  std::string state = EncodeTextFile(ComposeDataFile(view));
  for (const Text& path : files.Paths()) state += ToUtf8(path) + files.Get(path);
  return state;
}

}  // namespace
}  // namespace jotlets

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  const std::string_view bytes = Bytes(data, size);
  for (const std::string& journal : {std::string(bytes), WithFronts(bytes)}) {
    FakeFiles files;
    files.Put(u"D:\\rtf\\A.rtf", "{\\rtf1 old}");
    const std::string once = Load(files, journal);
    Check(Load(files, journal) == once);
  }
  return 0;
}

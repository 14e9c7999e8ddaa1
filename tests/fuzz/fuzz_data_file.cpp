// Any bytes as a data file. What is composed from it reads as the same notes, and from then on nothing
// changes.
#include "data/data_file.h"
#include "data/text_file.h"
#include "fuzz.h"

namespace jotlets {
namespace {

DataFile Parse(std::string_view bytes) {
  Options options;
  return ParseDataFile(DecodeTextFile(bytes, Latin1()).text, {options, CountingIds(), 1000});
}

std::string Compose(const DataFile& file) {
  DataFileView view{file.installId, file.stacks, {}, file.verbatim, {}, true};
  for (const FiledJotlet& jotlet : file.deleted) view.deleted.push_back(&jotlet.record);
  for (const FiledJotlet& jotlet : file.jotlets) view.jotlets.push_back(&jotlet.record);
  return EncodeTextFile(ComposeDataFile(view));
}

// What a file of ours never holds: deletion times that are not of ten characters (the reader looks for the
// bar there), and lines with more than one carriage return at their end.
void LeaveOutTheForeign(DataFile& file) {
  for (FiledJotlet& jotlet : file.deleted) {
    std::int32_t& time = jotlet.record.deletedTime;
    if (time != kNotSet && IntText(time).size() != 10) time = 1'400'000'000;
  }
  std::erase_if(file.verbatim, [](const Text& line) { return line.back() == u'\r'; });
}

void CheckSame(const std::vector<FiledJotlet>& first, const std::vector<FiledJotlet>& second,
               bool inEverything) {
  Check(first.size() == second.size());
  for (std::size_t i = 0; i < first.size(); ++i) {
    const JotletData& a = first[i].record;
    const JotletData& b = second[i].record;
    Check(!second[i].inlineContent && a.id == b.id && a.title == b.title && a.x == b.x && a.y == b.y &&
          a.width == b.width && a.height == b.height && a.colour == b.colour && a.created == b.created &&
          a.modified == b.modified && a.transparency == b.transparency && a.sleep.asleep == b.sleep.asleep &&
          a.isImage == b.isImage && a.stack == b.stack && a.deletedTime == b.deletedTime);
    if (inEverything) Check(a == b);
  }
}

void CheckSame(const DataFile& first, const DataFile& second, bool inEverything) {
  Check(second.recognised && !second.cut && second.version == kDataFileVersion);
  CheckSame(first.jotlets, second.jotlets, inEverything);
  CheckSame(first.deleted, second.deleted, inEverything);
  Check(first.verbatim == second.verbatim && first.stacks.size() == second.stacks.size());
  if (inEverything) Check(first.stacks == second.stacks && first.installId == second.installId);
}

}  // namespace
}  // namespace jotlets

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  DataFile first = Parse(Bytes(data, size));
  if (first.version > kDataFileVersion) return 0;
  LeaveOutTheForeign(first);
  const DataFile second = Parse(Compose(first));
  CheckSame(first, second, false);
  CheckSame(second, Parse(Compose(second)), true);
  return 0;
}

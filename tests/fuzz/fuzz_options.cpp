// Any bytes as an options file. What was written once is read as it was.
#include "data/loading.h"
#include "data/options_file.h"
#include "data/saving.h"
#include "fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  FakeFiles files;
  files.Put(u"options.ini", std::string(Bytes(data, size)));
  std::vector<Options> read;
  for (int round = 0; round < 3; ++round) {
    Check(LoadOptionsFile(files, Latin1(), u"options.ini", read.emplace_back()));
    Check(bool{SaveOptionsFile(files, u"options.ini", read.back())});
  }
  Check(read[0].others.size() == read[1].others.size() && read[0].hooks == read[1].hooks);
  Check(read[0].keepDeleted == read[1].keepDeleted && read[1] == read[2]);
  return 0;
}

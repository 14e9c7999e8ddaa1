// The data file at 100,000 notes (about 60 MB of UTF-16), and next to it what moving the same bytes costs:
// memory to memory, and to and from the disk. The ratios tell how far parsing and composing are from the
// least possible.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>

#include "base/code_page.h"
#include "data/data_file.h"
#include "data/text_file.h"

namespace jotlets {
namespace {

constexpr int kNotes = 100'000;

class NoCodePage final : public CodePage {
 public:
  Text Decode(std::string_view) const override { return {}; }
  std::string Encode(TextView) const override { return {}; }
};

std::vector<JotletData> MakeNotes() {
  std::vector<JotletData> notes(kNotes);
  for (int i = 0; i < kNotes; ++i) {
    JotletData& note = notes[static_cast<std::size_t>(i)];
    note.Reset({}, 1'700'000'000 + i, u"D53BAB0F" + IntText(i));
    note.x = i % 1920, note.y = i % 1080, note.height = 405, note.modified = note.created + 60;
    note.title = u"Title of the note " + IntText(i);
    if (i % 2 == 0) note.userString1 = u"a string that a skin shows";
    if (i % 3 == 0) note.sleep.asleep = true, note.sleep.nextWake = 1'800'000'000;
    if (i % 5 == 0)
      note.attachment.title = u"Document - Editor", note.attachment.className = u"EditorFrame<1>";
    if (i % 7 == 0) note.source = u"somebody on the network", note.onTop = true;
  }
  return notes;
}

struct Sample {
  std::vector<JotletData> notes = MakeNotes();
  Text text;
  std::string bytes;

  DataFileView View() const {
    DataFileView view;
    for (const JotletData& note : notes) view.jotlets.push_back(&note);
    return view;
  }
  Sample() {
    text = ComposeDataFile(View());
    bytes = EncodeTextFile(text);
  }
};

const Sample& TheSample() {
  static const Sample sample;
  return sample;
}

void Count(benchmark::State& state) {
  const auto rounds = static_cast<std::int64_t>(state.iterations());
  state.SetBytesProcessed(rounds * static_cast<std::int64_t>(TheSample().bytes.size()));
  state.SetItemsProcessed(rounds * kNotes);
}

// A file that is there for one benchmark.
class ScratchFile {
 public:
  ScratchFile() : path_(std::filesystem::temp_directory_path() / "jotlets-bench-data.tmp") {}
  ~ScratchFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  bool Write(const std::string& bytes) const {
    std::ofstream out(path_, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return out.flush().good();
  }
  bool Read(std::string& bytes) const {
    std::ifstream in(path_, std::ios::binary);
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return in.good();
  }

 private:
  std::filesystem::path path_;
};

void ParseAll(benchmark::State& state) {
  for (auto _ : state) {
    Options options;
    const DataFileContext context{options, [] { return Text(u"FRESH"); }, 1000};
    const DataFile file = ParseDataFile(TheSample().text, context);
    if (file.jotlets.size() != kNotes) state.SkipWithError("notes are missing");
    benchmark::DoNotOptimize(file.jotlets.data());
  }
  Count(state);
}

void DecodeAndParseAll(benchmark::State& state) {
  for (auto _ : state) {
    Options options;
    const DataFileContext context{options, [] { return Text(u"FRESH"); }, 1000};
    const DataFile file = ParseDataFile(DecodeTextFile(TheSample().bytes, NoCodePage()).text, context);
    benchmark::DoNotOptimize(file.jotlets.data());
  }
  Count(state);
}

void ComposeAll(benchmark::State& state) {
  const DataFileView view = TheSample().View();
  for (auto _ : state) {
    const Text text = ComposeDataFile(view);
    benchmark::DoNotOptimize(text.data());
  }
  Count(state);
}

void ComposeAndEncodeAll(benchmark::State& state) {
  const DataFileView view = TheSample().View();
  for (auto _ : state) {
    const std::string bytes = EncodeTextFile(ComposeDataFile(view));
    benchmark::DoNotOptimize(bytes.data());
  }
  Count(state);
}

void CopyInMemory(benchmark::State& state) {
  for (auto _ : state) {
    const std::string copy = TheSample().bytes;
    benchmark::DoNotOptimize(copy.data());
  }
  Count(state);
}

void WriteToFile(benchmark::State& state) {
  const ScratchFile file;
  for (auto _ : state) {
    if (!file.Write(TheSample().bytes)) state.SkipWithError("the scratch file cannot be written");
  }
  Count(state);
}

void ReadFromFile(benchmark::State& state) {
  const ScratchFile file;
  if (!file.Write(TheSample().bytes)) state.SkipWithError("the scratch file cannot be written");
  for (auto _ : state) {
    std::string bytes(TheSample().bytes.size(), '\0');
    if (!file.Read(bytes)) state.SkipWithError("the scratch file cannot be read");
    benchmark::DoNotOptimize(bytes.data());
  }
  Count(state);
}

BENCHMARK(ParseAll)->Unit(benchmark::kMillisecond);
BENCHMARK(DecodeAndParseAll)->Unit(benchmark::kMillisecond);
BENCHMARK(ComposeAll)->Unit(benchmark::kMillisecond);
BENCHMARK(ComposeAndEncodeAll)->Unit(benchmark::kMillisecond);
BENCHMARK(CopyInMemory)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadFromFile)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteToFile)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace jotlets

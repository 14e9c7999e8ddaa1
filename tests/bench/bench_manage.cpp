// What the manage window does with a hundred thousand closed notes: filling, sorting and searching its list.
#include <benchmark/benchmark.h>

#include "manage/manage_list.h"

namespace jotlets {
namespace {

class Pages final : public NoteTexts {
 public:
  Text TextOf(const ManageRow& row) override {
    Text text = u"About " + row.id + u": ";
    for (int i = 0; i < 12; ++i) text += u"the quick brown fox jumps over the lazy dog. ";
    return text;
  }
};

std::vector<JotletData> ManyNotes(std::int64_t count) {
  std::vector<JotletData> notes(static_cast<std::size_t>(count));
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const auto mixed = static_cast<std::int32_t>(i * 7919 % notes.size());
    notes[i].id = u"1A2B3C4D" + IntText(static_cast<std::int64_t>(i));
    notes[i].title = u"Closed note number " + IntText(mixed);
    notes[i].created = 1'700'000'000 + mixed % 1000;
  }
  return notes;
}

struct Filled {
  explicit Filled(std::int64_t count) : notes(ManyNotes(count)) {
    for (const JotletData& record : notes) records.push_back(&record);
    list.SetNotes(records);
  }
  void ReadAll() {
    while (list.IsReading()) list.ReadOne();
    list.Settle();
  }
  Pages pages;
  ManageTexts texts{pages};
  ManageList list{texts};
  std::vector<JotletData> notes;
  std::vector<const JotletData*> records;
};

void Fill(benchmark::State& state) {
  Filled filled(state.range(0));
  for (auto _ : state) {
    ManageList list(filled.texts);
    benchmark::DoNotOptimize(list.SetNotes(filled.records));
  }
}

void RefreshUnchanged(benchmark::State& state) {
  Filled filled(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(filled.list.SetNotes(filled.records));
}

void Sort(benchmark::State& state, ManageColumn column) {
  Filled filled(state.range(0));
  filled.list.SortBy(ManageColumn::kTitle, false);
  bool backwards = false;
  for (auto _ : state) filled.list.SortBy(column, backwards = !backwards);
}

// What a key press in the search field waits for; the texts follow in slices.
void SearchTitles(benchmark::State& state) {
  Filled filled(state.range(0));
  for (auto _ : state) {
    filled.list.Search(u"number 77", 15);
    filled.list.Search(u"", 15);
  }
}

void SearchReadTexts(benchmark::State& state) {
  Filled filled(state.range(0));
  filled.list.Search(u"nowhere", 15);
  filled.ReadAll();
  bool other = false;
  for (auto _ : state) {
    filled.list.Search((other = !other) ? u"lazy cat" : u"quick cat", 15);
    filled.ReadAll();
  }
}

BENCHMARK(Fill)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(RefreshUnchanged)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Sort, by_title, ManageColumn::kTitle)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Sort, by_date, ManageColumn::kCreated)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(SearchTitles)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(SearchReadTexts)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace jotlets

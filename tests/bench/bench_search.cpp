// The search index on very many notes: how long it takes to fill, to find something from a key on, beside the
// bare query on the same file, and to take in a change. JOTLETS_BENCH_NOTES tells how many notes there are
// (100,000), JOTLETS_BENCH_FOLDER where the file goes.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <random>

#include "store/search_index.h"
#include "store/search_words.h"

namespace jotlets {
namespace {

constexpr std::size_t kShown = 50;

class Words {
 public:
  Words() {
    double sum = 0;
    for (std::size_t i = 0; i < kCount; ++i) {
      Text word;
      const std::size_t letters = 2 + random() % 9;
      for (std::size_t at = 0; at < letters; ++at)
        word += (at % 2 == 0 ? u"bcdfghklmnprstvw" : u"aeiouaeiouaeioyy")[random() % 16];
      words_.push_back(std::move(word));
      // As in any language, few words are most of a text.
      sums_.push_back(sum += 1.0 / (static_cast<double>(i) + 2.7));
    }
  }

  const Text& Any() {
    const double at = std::uniform_real_distribution<>(0, sums_.back())(random);
    return words_[static_cast<std::size_t>(std::ranges::lower_bound(sums_, at) - sums_.begin())];
  }
  Text Many(std::size_t count) {
    Text text;
    for (; count > 0; --count) text.append(Any()).append(u" ");
    return text;
  }
  Text Beginning(std::size_t letters) { return Any().substr(0, letters); }

  std::mt19937 random{5};

 private:
  static constexpr std::size_t kCount = 50'000;
  std::vector<Text> words_;
  std::vector<double> sums_;
};

class Filled {
 public:
  Filled() {
    std::filesystem::create_directories(folder_);
    std::filesystem::remove(path_);
    const auto begun = std::chrono::steady_clock::now();
    if (!index.Open(path_)) std::abort();
    index.Begin();
    for (std::int64_t i = 0; i < count; ++i) {
      index.Put(Note(i), words.Many(20 + words.random() % 81));
      if (i % 200 != 199) continue;
      index.Commit();
      index.Settle();
      index.Begin();
    }
    index.Commit();
    seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
    megabytes = static_cast<double>(std::filesystem::file_size(path_)) / 1e6;
    if (!reads.OpenToSearch(path_) || bare.Open(path_, false) != DatabaseResult::kDone) std::abort();
  }
  ~Filled() {
    reads.Close();
    bare.Close();
    index.Discard(path_);
  }

  IndexedNote Note(std::int64_t number) {
    IndexedNote note;
    note.id = IntText(number);
    note.title = words.Many(2);
    note.changed = static_cast<std::int32_t>(1'000'000'000 + number * 100);
    return note;
  }

  static std::int64_t Setting(const char* name, std::int64_t otherwise) {
    const char* const value = std::getenv(name);
    return value == nullptr ? otherwise : std::atoll(value);
  }

  const std::int64_t count = Setting("JOTLETS_BENCH_NOTES", 100'000);
  Words words;
  SearchIndex index;
  SearchIndex reads;
  Database bare;
  double seconds = 0;
  double megabytes = 0;

 private:
  const std::filesystem::path folder_ = std::filesystem::path(std::getenv("JOTLETS_BENCH_FOLDER") != nullptr
                                                                  ? std::getenv("JOTLETS_BENCH_FOLDER")
                                                                  : ".") /
                                        "search_bench";
  const Text path_ = (folder_ / "search.idx").u16string();
};

Filled& Notes() {
  static Filled filled;
  return filled;
}

double Milliseconds(std::chrono::steady_clock::time_point begun) {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begun).count();
}

void Report(benchmark::State& state, const char* name, std::vector<double> times) {
  std::ranges::sort(times);
  state.counters[std::string(name) + "_p50_ms"] = times[times.size() / 2];
  state.counters[std::string(name) + "_p99_ms"] = times[times.size() * 99 / 100];
}

void Fill(benchmark::State& state) {
  for (auto _ : state) Notes();
  state.counters["notes"] = static_cast<double>(Notes().count);
  state.counters["seconds"] = Notes().seconds;
  state.counters["MB"] = Notes().megabytes;
}
BENCHMARK(Fill)->Iterations(1);

// Two words of which so many letters have been typed.
void Find(benchmark::State& state) {
  Filled& notes = Notes();
  std::vector<double> ours;
  std::vector<double> bare;
  std::vector<double> bareRows;  // with what is shown of the notes
  for (auto _ : state) {
    const Text typed = notes.words.Beginning(static_cast<std::size_t>(state.range(0))) + u" " +
                       notes.words.Beginning(static_cast<std::size_t>(state.range(1)));
    const SearchQuery query = ParseSearchQuery(typed);
    auto begun = std::chrono::steady_clock::now();
    Statement select =
        notes.bare.Prepare("SELECT rowid FROM words WHERE words MATCH ? ORDER BY rowid DESC LIMIT 50");
    select.Bind(FromUtf8(FullTextExpression(query, false)));
    while (select.Step() == DatabaseResult::kRow) benchmark::DoNotOptimize(select.NumberAt(0));
    bare.push_back(Milliseconds(begun));
    begun = std::chrono::steady_clock::now();
    Statement rows = notes.bare.Prepare(
        "SELECT notes.id, notes.title, notes.category, texts.text FROM (SELECT rowid AS found FROM words"
        " WHERE words MATCH ? ORDER BY rowid DESC LIMIT 50)"
        " CROSS JOIN notes ON notes.key = found CROSS JOIN texts ON texts.key = found");
    rows.Bind(FromUtf8(FullTextExpression(query, false)));
    while (rows.Step() == DatabaseResult::kRow)
      for (int column = 0; column < 4; ++column) benchmark::DoNotOptimize(rows.TextAt(column));
    bareRows.push_back(Milliseconds(begun));
    begun = std::chrono::steady_clock::now();
    benchmark::DoNotOptimize(notes.reads.Search(query, {}, kShown));
    ours.push_back(Milliseconds(begun));
  }
  Report(state, "found", ours);
  Report(state, "bare", bare);
  Report(state, "bare_rows", bareRows);
}
BENCHMARK(Find)->Args({1, 2})->Args({2, 3})->Args({3, 4})->Args({6, 8})->Iterations(300);

void FindNothingInside(benchmark::State& state) {
  const SearchQuery query = ParseSearchQuery(u"qqqq");
  std::vector<double> times;
  for (auto _ : state) {
    const auto begun = std::chrono::steady_clock::now();
    benchmark::DoNotOptimize(Notes().reads.Scan(query, {}, kShown));
    times.push_back(Milliseconds(begun));
  }
  Report(state, "scanned", times);
}
BENCHMARK(FindNothingInside)->Iterations(5);

void Change(benchmark::State& state) {
  Filled& notes = Notes();
  std::vector<double> times;
  std::vector<double> settled;  // in its place as well, for which nobody waits
  std::int64_t changed = notes.count;
  for (auto _ : state) {
    IndexedNote note = notes.Note(static_cast<std::int64_t>(notes.words.random()) % notes.count);
    note.changed = static_cast<std::int32_t>(1'000'000'000 + changed++ * 100);
    const Text text = notes.words.Many(60);
    const auto begun = std::chrono::steady_clock::now();
    notes.index.Begin();
    notes.index.Put(note, text);
    notes.index.Commit();
    times.push_back(Milliseconds(begun));
    notes.index.Settle();
    settled.push_back(Milliseconds(begun));
  }
  Report(state, "changed", times);
  Report(state, "settled", settled);
}
BENCHMARK(Change)->Iterations(500);

}  // namespace
}  // namespace jotlets

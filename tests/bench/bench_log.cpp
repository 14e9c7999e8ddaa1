// What an entry of the activity log costs where its level is off, which is everywhere for most users, next to
// an empty loop and to the same entry put together.
#include <benchmark/benchmark.h>

#include "../unit/fakes.h"
#include "app/activity_log.h"

namespace jotlets {
namespace {

constexpr TextView kPath = u"C:\\Users\\somebody\\AppData\\Roaming\\jotlets\\jotlets.ini";

void WriteAtLevel(benchmark::State& state, int highestLevel) {
  FakeFiles files;
  FakeClock clock;
  ActivityLog log(files, clock);
  log.Open(u"D:\\activity.log", highestLevel);
  // The file in memory must not grow, and cannot: only the entry is measured.
  files.unchangeable.insert(u"d:\\activity.log");
  int number = 0;
  for (auto _ : state) {
    Log& any = log;
    benchmark::DoNotOptimize(&any);
    any.Write(kLogDetail, u"SaveJotlets started for '", kPath, u"' ", ++number);
  }
}

void EmptyLoop(benchmark::State& state) {
  int number = 0;
  for (auto _ : state) benchmark::DoNotOptimize(++number);
}

BENCHMARK(EmptyLoop);
BENCHMARK_CAPTURE(WriteAtLevel, off, 0);
BENCHMARK_CAPTURE(WriteAtLevel, on, 3);

}  // namespace
}  // namespace jotlets

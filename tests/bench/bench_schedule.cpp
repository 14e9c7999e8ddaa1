// What runs every second, and what a rule of recurrence costs.
#include <benchmark/benchmark.h>

#include "../unit/fakes.h"
#include "../unit/zone_clock.h"
#include "schedule/waking.h"

namespace jotlets {
namespace {

class NoDesk final : public WakeHost {
 public:
  explicit NoDesk(RecordList& sleeping) : sleeping_(sleeping) {}
  bool Wake(TextView id, const WakeFlags&) override { return sleeping_.Remove(id).has_value(); }
  bool WakeCopy(const JotletData&, const WakeFlags&) override { return true; }
  bool HasCopyOf(const JotletData&) override { return false; }
  void SetNextWake(TextView id, std::int32_t time) override {
    sleeping_.FindToChange(id)->sleep.nextWake = time;
  }
  void RemoveFinished(TextView id) override { sleeping_.Remove(id); }
  void StartDueAlarms(std::int64_t) override {}
  void PlayWakeSound() override {}
  void StopSounds() override {}
  Text ShownTime(std::int32_t) override { return {}; }

 private:
  RecordList& sleeping_;
};

void Tick(benchmark::State& state) {
  RecordList sleeping;
  NoDesk desktop(sleeping);
  FakeClock clock;
  FakeLog log;
  const Options options;
  for (std::int64_t i = 0; i < state.range(0); ++i) {
    JotletData record;
    record.id = u"N" + IntText(i);
    PutToSleep(record, clock.now.utc + 1000 + i, {});
    sleeping.push_back(record);
  }
  Waking waking(sleeping, desktop, clock, log, options);
  waking.Enable(true);
  for ([[maybe_unused]] auto _ : state) {
    waking.WakeSleeping();
    waking.CheckAlarms();
  }
}

// All of them due at once: the pass itself, without windows.
void WakeAll(benchmark::State& state) {
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    RecordList sleeping;
    NoDesk desktop(sleeping);
    FakeClock clock;
    FakeLog log;
    log.highest = 0;
    const Options options;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
      JotletData record;
      record.id = u"N" + IntText(i);
      PutToSleep(record, clock.now.utc, {});
      sleeping.push_back(record);
    }
    Waking waking(sleeping, desktop, clock, log, options);
    waking.Enable(true);
    state.ResumeTiming();
    waking.WakeSleeping();
  }
}

// From every day of ten years.
void NextWakeTimes(benchmark::State& state) {
  constexpr WakeRule kRules[] = {{},
                                 {kDaily, 9, 30, 0},
                                 {kWeekly, 9, 30, 64},
                                 {kMonthlyOnDay, 9, 30, 31},
                                 {kYearly, 9, 30, 229},
                                 {kMonthlyOnWeekday, 9, 30, 404},
                                 {kEvery, 31, 1, kMonths}};
  const ZoneClock clock(kBerlin);
  const WakeRule& rule = kRules[state.range(0)];
  constexpr int kDaysOfTenYears = 3652;
  for ([[maybe_unused]] auto _ : state) {
    for (std::int64_t day = 0; day < kDaysOfTenYears; ++day) {
      const std::int64_t base = 1'795'251'907 + day * 86400;
      benchmark::DoNotOptimize(NextWakeTime(rule, base, base, clock));
    }
  }
  state.SetItemsProcessed(state.iterations() * kDaysOfTenYears);
}

BENCHMARK(Tick)->Arg(0)->Arg(1000)->Arg(100000);
BENCHMARK(WakeAll)->Arg(1000)->Arg(100000);
BENCHMARK(NextWakeTimes)->DenseRange(kDaily, kEvery);

}  // namespace
}  // namespace jotlets

// What runs every second while notes are attached: the decision over all notes and windows.
#include <benchmark/benchmark.h>

#include "schedule/attach_pass.h"

namespace jotlets {
namespace {

std::vector<WindowFacts> ManyWindows(std::int64_t count) {
  std::vector<WindowFacts> windows;
  for (std::int32_t i = 0; i < count; ++i) {
    const Text number = IntText(i);
    windows.push_back({u"Document " + number + u".txt - A program for editing documents",
                       u"Class" + IntText(i % 40), i % 7 == 0, i % 3 != 0, i == 0,
                       RectAt({i, i}, {600, 400})});
  }
  return windows;
}

// `patterns` different ones among the notes, half of which find a window.
std::vector<JotletData> ManyNotes(std::int64_t count, std::int64_t patterns) {
  std::vector<JotletData> notes(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) {
    JotletData& note = notes[static_cast<std::size_t>(i)];
    note.attachment.title = u"*" + IntText(i % patterns * 2) + (i % 2 == 0 ? u".txt*" : u".doc*");
    note.attachment.className = u"*";
    note.attachment.posType = 1;
  }
  return notes;
}

// Half of the notes wait, the other half is on the desktop. The pass includes making the titles comparable.
void AttachPass(benchmark::State& state) {
  const std::vector<WindowFacts> windows = ManyWindows(state.range(1));
  const std::vector<JotletData> notes = ManyNotes(state.range(0), state.range(2));
  std::vector<const JotletData*> waiting;
  std::vector<AttachedNote> desktop;
  for (const JotletData& record : notes) {
    if (waiting.size() < notes.size() / 2) {
      waiting.push_back(&record);
    } else {
      desktop.push_back({&record, {5, 5}});
    }
  }
  for (auto _ : state) {
    AttachMatcher matcher(windows);
    benchmark::DoNotOptimize(DecideAttachPass(waiting, desktop, matcher, {0, 0, 1920, 1080}, 1000));
  }
}

BENCHMARK(AttachPass)->Args({100, 500, 10})->Args({100, 500, 100})->Args({5000, 2000, 100});

}  // namespace
}  // namespace jotlets

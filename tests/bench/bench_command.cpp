// Commands through the interpreter on a program without windows: the first row of the table, the last, an
// unknown one, and those about one of many notes.
#include <benchmark/benchmark.h>

#include "../unit/fakes.h"

namespace jotlets {
namespace {

constexpr int kNotes = 1000;

// Nothing of what is written down for tests.
class QuietProgram {
 public:
  QuietProgram() {
    program_.log.highest = 0;
    program_.transport.onSend = nullptr;
    for (int i = 0; i < kNotes; ++i) program_.Add(u"A" + IntText(i)).text = u"some words";
  }
  void Execute(TextView command) {
    program_.transport.sent.clear();
    program_.journal.clear();
    program_.Execute(command);
  }

 private:
  FakeProgram program_;
};

void Run(benchmark::State& state, TextView command) {
  QuietProgram program;
  for (auto _ : state) program.Execute(command);
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

BENCHMARK_CAPTURE(Run, ping, u"do ping");
BENCHMARK_CAPTURE(Run, unknown, u"do something else");
BENCHMARK_CAPTURE(Run, title, u"get desktop A0 title");
BENCHMARK_CAPTURE(Run, setTitle, u"set desktop A0 title Groceries");
BENCHMARK_CAPTURE(Run, hexText, u"get desktop A0 utext");
BENCHMARK_CAPTURE(Run, encoded, u"get desktop A0 encoded");
BENCHMARK_CAPTURE(Run, listOfAThousand, u"get list desktop");

}  // namespace
}  // namespace jotlets

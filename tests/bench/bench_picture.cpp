// What the effects cost for 12 megapixels, each as a ratio to a plain copy of as many that is made in the
// same breath, so that the machine plays no part in it.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstring>

#include "picture/effects.h"
#include "picture/flood_fill.h"
#include "picture/orientation.h"
#include "picture/picture_document.h"
#include "picture/resizing.h"

namespace jotlets {
namespace {

constexpr Size kPhotograph{4000, 3000};

Picture Photograph() {
  Picture picture = BlankPicture(kPhotograph);
  std::uint32_t state = 1;
  for (std::size_t at = 0; at < picture.pixels.size(); at += 4) {
    state = state * 1664525 + 1013904223;
    StorePixel(picture.pixels.data() + at, 0xFF000000 | state >> 8);
  }
  return picture;
}

double Seconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

template <typename Work>
double SecondsOf(Work work) {
  const double start = Seconds();
  work();
  benchmark::ClobberMemory();
  return Seconds() - start;
}

// `work` changes the picture. The ratio is that of the medians.
template <typename Work>
void AgainstACopy(benchmark::State& state, Work work) {
  Picture picture = Photograph();
  Picture copy = picture;
  std::vector<double> copies, works;
  for (auto _ : state) {
    copies.push_back(
        SecondsOf([&] { std::memcpy(copy.pixels.data(), picture.pixels.data(), picture.pixels.size()); }));
    works.push_back(SecondsOf([&] { work(picture); }));
  }
  const auto median = [](std::vector<double>& seconds) {
    std::nth_element(seconds.begin(), seconds.begin() + static_cast<std::ptrdiff_t>(seconds.size() / 2),
                     seconds.end());
    return seconds[seconds.size() / 2];
  };
  state.counters["copies"] = median(works) / median(copies);
}

void Applied(benchmark::State& state, const Effect& effect) {
  AgainstACopy(state, [&](Picture& picture) { ApplyEffect(picture, WholeOf(picture.size), effect); });
}

#define JOTLETS_EFFECT(name, ...) \
  BENCHMARK_CAPTURE(Applied, name, Effect{__VA_ARGS__})->Unit(benchmark::kMillisecond)->Iterations(9)
JOTLETS_EFFECT(Grey, EffectKind::kGrey);
JOTLETS_EFFECT(Negative, EffectKind::kNegative);
JOTLETS_EFFECT(Mirror, EffectKind::kMirror);
JOTLETS_EFFECT(Flip, EffectKind::kFlip);
JOTLETS_EFFECT(Blur2, EffectKind::kBlur, 2);
JOTLETS_EFFECT(Blur20, EffectKind::kBlur, 20);
JOTLETS_EFFECT(Blur200, EffectKind::kBlur, 200);
JOTLETS_EFFECT(Blur1000, EffectKind::kBlur, 1000);
JOTLETS_EFFECT(Jitter, EffectKind::kJitter, 5);

void RotateRight(benchmark::State& state) {
  AgainstACopy(state, [](Picture& picture) { Orient(picture, Orientation::kTurnedRight); });
}
BENCHMARK(RotateRight)->Unit(benchmark::kMillisecond)->Iterations(9);

class NoLetters final : public LetterPainter {
 public:
  LetterMask Paint(const LetterLook&) const override { return {}; }
};

void UndoGrey(benchmark::State& state) {
  NoLetters letters;
  PictureDocument document({Photograph(), {}}, letters, 5);
  document.Apply({EffectKind::kGrey});
  AgainstACopy(state, [&](Picture&) { document.CanUndo() ? document.Undo() : document.Redo(); });
}
BENCHMARK(UndoGrey)->Unit(benchmark::kMillisecond)->Iterations(9);

// The thousandth point of a pen stroke: what it changes, made anew.
void DrawOn(benchmark::State& state) {
  NoLetters letters;
  PictureDocument document({Photograph(), {}}, letters, 5);
  DrawnObject stroke;
  for (int i = 0; i < 1000; ++i) stroke.points.push_back({{500 + i * 3.0, 500 + i * i % 37 * 1.0}});
  for (auto _ : state) benchmark::DoNotOptimize(document.Composed({3480, 490, 3510, 550}, &stroke));
}
BENCHMARK(DrawOn)->Unit(benchmark::kMicrosecond);

// What a picture costs before there is anything in it: the part of turning that is the system's.
void Blank(benchmark::State& state) {
  AgainstACopy(state, [](Picture& picture) { benchmark::DoNotOptimize(BlankPicture(picture.size)); });
}
BENCHMARK(Blank)->Unit(benchmark::kMillisecond)->Iterations(9);

void ShrinkToHalf(benchmark::State& state) {
  AgainstACopy(state, [](Picture& picture) { benchmark::DoNotOptimize(Resized(picture, {2000, 1500})); });
}
BENCHMARK(ShrinkToHalf)->Unit(benchmark::kMillisecond)->Iterations(5);

void FloodWhole(benchmark::State& state) {
  AgainstACopy(state, [](Picture& picture) {
    benchmark::DoNotOptimize(FloodedPixels(picture, {5, 5}, 255));
  });
}
BENCHMARK(FloodWhole)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace jotlets

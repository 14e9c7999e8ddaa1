// What runs with every movement of the mouse, among many notes, and the placement of a note where thousands
// lie on one corner.
#include <benchmark/benchmark.h>

#include <vector>

#include "data/jotlet_data.h"
#include "note/monitors.h"
#include "note/placement.h"
#include "note/snapping.h"

namespace jotlets {
namespace {

// Notes all over two screens, and around the dragged one.
std::vector<Rect> ManyWindows(std::int64_t count) {
  std::vector<Rect> windows;
  for (std::int32_t i = 0; i < count; ++i) {
    windows.push_back(RectAt({i * 37 % 3600, i * 53 % 900}, {200 + i % 100, 150 + i % 50}));
  }
  return windows;
}

std::vector<Rect> TwoMonitors() {
  return {{0, 0, 1920, 1040}, {0, 0, 1920, 1080}, {1920, 0, 3840, 1080}, {1920, 0, 3840, 1080}};
}

void SnapWhileMoving(benchmark::State& state) {
  const std::vector<Rect> windows = ManyWindows(state.range(0));
  const std::vector<Rect> monitors = TwoMonitors();
  Rect dragged = RectAt({500, 400}, {232, 405});
  for (auto _ : state) {
    benchmark::DoNotOptimize(dragged);
    benchmark::DoNotOptimize(SnappedMove(dragged, {}, false, {windows, monitors}));
  }
}

void SnapWhileSizing(benchmark::State& state) {
  const std::vector<Rect> windows = ManyWindows(state.range(0));
  const std::vector<Rect> monitors = TwoMonitors();
  Rect dragged = RectAt({500, 400}, {232, 405});
  for (auto _ : state) {
    benchmark::DoNotOptimize(dragged);
    benchmark::DoNotOptimize(SnappedSizing(dragged, {1, 1}, {}, false, {windows, monitors}));
  }
}

void PlaceOnAPile(benchmark::State& state) {
  const PlacementSettings settings{0, {}, true, {232, 405}, {1920, 1080}, {1920, 1080}};
  const Placed first = PlaceNewJotlet({kNotSet, kNotSet}, {}, settings, {});
  std::vector<Point> corners(static_cast<std::size_t>(state.range(0)), first.position);
  for (std::size_t i = 0; i < corners.size(); i += 2) {
    const auto step = static_cast<std::int32_t>(8 * i);
    corners[i] = {first.position.x + step, first.position.y + step};
  }
  for (auto _ : state) benchmark::DoNotOptimize(PlaceNewJotlet({kNotSet, kNotSet}, {}, settings, corners));
}

BENCHMARK(SnapWhileMoving)->Arg(1000);
BENCHMARK(SnapWhileSizing)->Arg(1000);
BENCHMARK(PlaceOnAPile)->Arg(10000);

}  // namespace
}  // namespace jotlets

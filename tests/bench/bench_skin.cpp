// A whole repaint of a note in the built-in skin, and next to it one copy of as many pixels, which is the
// least that putting a note on to the screen can cost; and what a skin costs to read and to keep. Runs in
// tests/, from where it finds the skin.
#include <benchmark/benchmark.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>

#include "skin/skin_drawing.h"
#include "skin/skin_layout.h"
#include "skin/skin_loading.h"
#include "skin/skin_text.h"

namespace jotlets {
namespace {

constexpr Size kNote{400, 300};
constexpr std::size_t kStride = kNote.width * 4;
constexpr std::size_t kBytes = kStride * kNote.height;

std::string FileBytes(const std::string& name) {
  std::ifstream file("../src/res/skins/default/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class NoWords final : public SkinWords {
 public:
  std::optional<Text> Find(TextView) const override { return Text(); }
};

class NoTexts final : public SkinTextSetter {
 public:
  void SetText(const SkinElement&, const Rect&, const Text&, Colour) override {}
};

// The picture is empty when the files are not found.
LoadedSkin ReadSkin() {
  LoadedSkin skin{ParseSkin(FromUtf8(FileBytes("skin.ini"))), {}, {}};
  if (auto sheet = DecodePng(FileBytes("skin.png"))) skin.sheet = *std::move(sheet);
  return skin;
}

// A note in use: focus, a scroll bar, and the states that most notes are in at some time.
SkinView BusyView(const SkinData& skin) {
  SkinView view{kNote, {255, 238, 136}};
  view.focus = view.mouseOver = true;
  for (const SkinState state :
       {SkinState::kOnTop, SkinState::kAlarm, SkinState::kReadOnly, SkinState::kScrollbarRequired})
    view.states.Set(state, true);
  const std::int32_t page = TextArea(skin, view).Height();
  view.thumb = ScrollThumb(ScrollTrack(skin, kNote), skin.minimumThumbTrackHeight, {page, page, 3 * page});
  return view;
}

void CopyPixels(benchmark::State& state) {
  const std::vector<std::uint8_t> from(kBytes, 1);
  std::vector<std::uint8_t> to(kBytes);
  for (auto _ : state) {
    for (std::size_t row = 0; row < kBytes; row += kStride) std::memcpy(&to[row], &from[row], kStride);
    benchmark::DoNotOptimize(to.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(CopyPixels)->Unit(benchmark::kMicrosecond);

void RepaintNote(benchmark::State& state) {
  const LoadedSkin skin = ReadSkin();
  if (skin.sheet.pixels.empty()) return state.SkipWithError("no skin found");
  const SkinView view = BusyView(skin.data);
  std::vector<std::uint8_t> pixels(kBytes);
  NoTexts texts;
  for (auto _ : state) {
    Canvas canvas(pixels.data(), kNote, kStride);
    DrawSkin(canvas, skin.data, skin.sheet, view, NoWords(), texts);
    benchmark::DoNotOptimize(pixels.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(RepaintNote)->Unit(benchmark::kMicrosecond);

void ReadBuiltInSkin(benchmark::State& state) {
  const std::string text = FileBytes("skin.ini");
  const std::string sheet = FileBytes("skin.png");
  if (sheet.empty()) return state.SkipWithError("no skin found");
  for (auto _ : state) {
    benchmark::DoNotOptimize(ParseSkin(FromUtf8(text)));
    benchmark::DoNotOptimize(DecodePng(sheet));
  }
  const LoadedSkin skin = ReadSkin();
  state.counters["bytes a skin"] = static_cast<double>(sizeof skin + skin.sheet.pixels.size() +
                                                       skin.data.elements.size() * sizeof(SkinElement));
  state.counters["bytes a note"] = sizeof(SkinView) + sizeof(std::shared_ptr<const LoadedSkin>);
}
BENCHMARK(ReadBuiltInSkin)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace jotlets

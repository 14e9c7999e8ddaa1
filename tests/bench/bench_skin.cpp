// A whole repaint of a note in built-in skins, at 100 and at 200 %, and next to it one copy of as many
// pixels, which is the least that putting a note on to the screen can cost; and what a skin costs to read and
// to keep. Runs in tests/, from where it finds the skin.
#include <benchmark/benchmark.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>

#include "skin/skin_drawing.h"
#include "skin/skin_layout.h"
#include "skin/skin_loading.h"
#include "skin/skin_scaling.h"
#include "skin/skin_text.h"

namespace jotlets {
namespace {

// A note of this size at 96 dots per inch.
Size NoteAt(std::int64_t dpi) {
  return {static_cast<std::int32_t>(400 * dpi / 96), static_cast<std::int32_t>(300 * dpi / 96)};
}

constexpr const char* kSkins[] = {"default/skin", "paper/paper"};

std::string FileBytes(const std::string& name) {
  std::ifstream file("../src/res/skins/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class NoWords final : public SkinWords {
 public:
  std::optional<Text> Find(TextView) const override { return Text(); }
};

class NoTexts final : public SkinTextSetter {
 public:
  std::int32_t WidthOf(const SkinElement&, const Text&) override { return 0; }
  void SetText(const SkinElement&, const Rect&, const Text&, Colour) override {}
};

// The picture is empty when the files are not found.
LoadedSkin ReadSkin(const std::string& name, std::int32_t dpi = kUsualDpi) {
  static std::string doubled;
  LoadedSkin skin{ParseSkin(FromUtf8(FileBytes(name + ".ini"))), {}, {}};
  if (auto sheet = DecodePng(FileBytes(name + ".png"))) skin.sheet = *std::move(sheet);
  doubled = FileBytes(name + "@2x.png");
  skin.sheets.push_back({200, doubled, {}});
  return dpi == kUsualDpi ? skin : ScaledSkin(skin, dpi);
}

// A note in use: focus, a scroll bar, and the states that most notes are in at some time.
SkinView BusyView(const SkinData& skin, Size note) {
  SkinView view{note, {255, 238, 136}};
  view.focus = view.mouseOver = true;
  for (const SkinState state :
       {SkinState::kOnTop, SkinState::kAlarm, SkinState::kReadOnly, SkinState::kScrollbarRequired})
    view.states.Set(state, true);
  const std::int32_t page = TextArea(skin, view).Height();
  view.thumb = ScrollThumb(ScrollTrack(skin, note), skin.minimumThumbTrackHeight, {page, page, 3 * page});
  return view;
}

void CopyPixels(benchmark::State& state) {
  const Size note = NoteAt(state.range(0));
  const std::size_t stride = static_cast<std::size_t>(note.width) * 4;
  const std::size_t bytes = stride * static_cast<std::size_t>(note.height);
  const std::vector<std::uint8_t> from(bytes, 1);
  std::vector<std::uint8_t> to(bytes);
  for (auto _ : state) {
    for (std::size_t row = 0; row < bytes; row += stride) std::memcpy(&to[row], &from[row], stride);
    benchmark::DoNotOptimize(to.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(CopyPixels)->Arg(96)->Arg(192)->Unit(benchmark::kMicrosecond);

void RepaintNote(benchmark::State& state) {
  const char* const name = kSkins[state.range(1)];
  const LoadedSkin skin = ReadSkin(name, static_cast<std::int32_t>(state.range(0)));
  if (skin.sheet.pixels.empty()) return state.SkipWithError("no skin found");
  state.SetLabel(name);
  const Size note = NoteAt(state.range(0));
  const std::size_t stride = static_cast<std::size_t>(note.width) * 4;
  const SkinView view = BusyView(skin.data, note);
  std::vector<std::uint8_t> pixels(stride * static_cast<std::size_t>(note.height));
  NoTexts texts;
  for (auto _ : state) {
    Canvas canvas(pixels.data(), note, stride);
    DrawSkin(canvas, skin.data, skin.sheet, view, NoWords(), texts);
    benchmark::DoNotOptimize(pixels.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(RepaintNote)->ArgsProduct({{96, 192}, {0, 1}})->Unit(benchmark::kMicrosecond);

void ReadBuiltInSkin(benchmark::State& state) {
  const std::string text = FileBytes(std::string(kSkins[0]) + ".ini");
  const std::string sheet = FileBytes(std::string(kSkins[0]) + ".png");
  if (sheet.empty()) return state.SkipWithError("no skin found");
  for (auto _ : state) {
    benchmark::DoNotOptimize(ParseSkin(FromUtf8(text)));
    benchmark::DoNotOptimize(DecodePng(sheet));
  }
  const LoadedSkin skin = ReadSkin(kSkins[0]);
  state.counters["bytes a skin"] = static_cast<double>(sizeof skin + skin.sheet.pixels.size() +
                                                       skin.data.elements.size() * sizeof(SkinElement));
  state.counters["bytes a note"] = sizeof(SkinView) + sizeof(std::shared_ptr<const LoadedSkin>);
}
BENCHMARK(ReadBuiltInSkin)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace jotlets

#include "picture/win/letters.h"

#include <windows.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/win/wide.h"
#include "picture/pixels.h"
#include "ui/pixel_bitmap.h"

namespace jotlets {
namespace {

constexpr double kMaxLetters = 1000;  // pixels high

std::vector<Text> LinesOf(TextView text) {
  std::vector<Text> lines;
  while (true) {
    const Split split = SplitAtFirst(text, u'\n');
    lines.emplace_back(split.head);
    if (split.head.size() == text.size()) return lines;
    text = split.tail;
  }
}

UniqueFont MakeFont(const LetterLook& look) {
  LOGFONTW logical{};
  // The whole height of a line, not of its letters alone.
  logical.lfHeight = static_cast<LONG>(std::lround(std::clamp(look.size, 1.0, kMaxLetters)));
  logical.lfWeight = look.bold ? FW_BOLD : FW_NORMAL;
  logical.lfCharSet = DEFAULT_CHARSET;
  logical.lfQuality = ANTIALIASED_QUALITY;
  wcsncpy(logical.lfFaceName, Wide(Text(look.font)), LF_FACESIZE - 1);
  return UniqueFont(CreateFontIndirectW(&logical));
}

SIZE SizeOfLine(HDC dc, const Text& line) {
  SIZE size{};
  GetTextExtentPoint32W(dc, Wide(line), static_cast<int>(line.size()), &size);
  return size;
}

}  // namespace

LetterMask SystemLetters::Paint(const LetterLook& look) const {
  const UniqueFont font = MakeFont(look);
  const UniqueDc dc(CreateCompatibleDC(nullptr));
  if (!font || !dc) return {};
  const Selected selectedFont(dc.get(), font.get());
  TEXTMETRICW metric{};
  GetTextMetricsW(dc.get(), &metric);
  const std::vector<Text> lines = LinesOf(look.text);
  LetterMask mask;
  for (const Text& line : lines)
    mask.size.width = std::max(mask.size.width, static_cast<std::int32_t>(SizeOfLine(dc.get(), line).cx));
  mask.size.height = Saturated(std::int64_t{metric.tmHeight} * static_cast<std::int64_t>(lines.size()));
  if (!IsPictureSize(mask.size)) return {};
  const PixelBitmap drawn = MakePixelBitmap(mask.size);
  if (!drawn.bitmap) return {};
  const Selected selectedBitmap(dc.get(), drawn.bitmap.get());
  SetTextColor(dc.get(), RGB(255, 255, 255));
  SetBkMode(dc.get(), TRANSPARENT);
  for (std::size_t i = 0; i < lines.size(); ++i)
    TextOutW(dc.get(), 0, static_cast<int>(i) * metric.tmHeight, Wide(lines[i]),
             static_cast<int>(lines[i].size()));
  GdiFlush();
  const auto count = static_cast<std::size_t>(mask.size.width) * static_cast<std::size_t>(mask.size.height);
  mask.coverage.resize(count);
  for (std::size_t at = 0; at < count; ++at) mask.coverage[at] = drawn.pixels[at * 4 + 1];
  return mask;
}

}  // namespace jotlets

#include "manage/win/marked_text.h"

#include <algorithm>

#include "base/win/wide.h"
#include "ui/handle.h"

namespace jotlets {
namespace {

constexpr COLORREF kHitPaper = RGB(0xFF, 0xE5, 0x8A);
constexpr COLORREF kHitInk = RGB(0x1F, 0x1F, 0x1F);

bool IsHighContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != 0 &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

int WidthOf(HDC context, TextView text) {
  SIZE size{};
  GetTextExtentPoint32W(context, Wide(Text(text)), static_cast<int>(text.size()), &size);
  return static_cast<int>(size.cx);
}

// Cut to a width, with an ellipsis when it is.
Text Fitted(HDC context, TextView text, int width) {
  int count = 0;
  SIZE size{};
  const Text whole(text);
  GetTextExtentExPointW(context, Wide(whole), static_cast<int>(whole.size()), std::max(width, 0), &count,
                        nullptr, &size);
  if (count >= static_cast<int>(whole.size())) return whole;
  const TextView ellipsis = u"\u2026";
  GetTextExtentExPointW(context, Wide(whole), static_cast<int>(whole.size()),
                        std::max(width - WidthOf(context, ellipsis), 0), &count, nullptr, &size);
  return whole.substr(0, static_cast<std::size_t>(std::max(count, 0))) + Text(ellipsis);
}

}  // namespace

MarkedColours RowColours(bool selected) {
  MarkedColours colours;
  colours.brush = GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW);
  colours.ink = GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT);
  colours.underlined = IsHighContrast();
  colours.hitPaper = colours.underlined ? GetSysColor(COLOR_HIGHLIGHT) : kHitPaper;
  colours.hitInk = colours.underlined ? GetSysColor(COLOR_HIGHLIGHTTEXT) : kHitInk;
  return colours;
}

void DrawMarked(HDC context, HFONT font, const RECT& bounds, TextView text, const std::vector<TextPart>& hits,
                const MarkedColours& colours) {
  const HGDIOBJ before = SelectObject(context, font);
  const Text line = Fitted(context, text, static_cast<int>(bounds.right - bounds.left));
  int left = static_cast<int>(bounds.left);
  const auto draw = [&](std::size_t first, std::size_t last, bool hit) {
    first = std::min(first, line.size());
    const Text part = line.substr(first, std::min(last, line.size()) - first);
    if (part.empty()) return;
    SetTextColor(context, hit ? colours.hitInk : colours.ink);
    SetBkColor(context, colours.hitPaper);
    SetBkMode(context, hit ? OPAQUE : TRANSPARENT);
    const int width = WidthOf(context, part);
    TextOutW(context, left, static_cast<int>(bounds.top), Wide(part), static_cast<int>(part.size()));
    if (hit && colours.underlined) {
      TEXTMETRICW metric{};
      GetTextMetricsW(context, &metric);
      const RECT under{left, bounds.top + metric.tmAscent + 1, left + width,
                       bounds.top + metric.tmAscent + 2};
      FillRect(context, &under, GetSysColorBrush(COLOR_HIGHLIGHTTEXT));
    }
    left += width;
  };
  std::size_t at = 0;
  for (const TextPart& hit : hits) {
    draw(at, hit.first, false);
    draw(hit.first, hit.last, true);
    at = hit.last;
  }
  draw(at, line.size(), false);
  SelectObject(context, before);
}

}  // namespace jotlets

#include "manage/win/marked_text.h"

#include <algorithm>

#include "base/win/wide.h"
#include "ui/areas.h"

namespace jotlets {
namespace {

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

bool IsRightToLeft(const Text& line) {
  std::vector<WORD> kinds(line.size());
  return GetStringTypeW(CT_CTYPE2, Wide(line), static_cast<int>(line.size()), kinds.data()) != 0 &&
         std::ranges::find(kinds, WORD{C2_RIGHTTOLEFT}) != kinds.end();
}

}  // namespace

// Where the system's own colours hold, what is chosen and what was found share one: the second is underlined.
MarkedColours RowColours(const Theme& theme, bool selected) {
  const WindowColours& all = theme.Colours();
  MarkedColours colours;
  colours.paper = selected ? all.chosen : all.field;
  colours.ink = selected ? all.chosenText : all.text;
  colours.underlined = theme.Now().contrast.has_value();
  colours.hitPaper = all.match;
  colours.hitInk = colours.underlined ? all.chosenText : all.text;
  return colours;
}

void DrawMarked(HDC context, HFONT font, const RECT& bounds, TextView text, const std::vector<TextPart>& hits,
                const MarkedColours& colours) {
  const HGDIOBJ before = SelectObject(context, font);
  const Text line = Fitted(context, text, static_cast<int>(bounds.right - bounds.left));
  // In a mirrored window places count from the right, and words of the other direction begin at their end.
  const bool backwards = (GetLayout(context) & LAYOUT_RTL) != 0 && !IsRightToLeft(line);
  int reached = static_cast<int>(bounds.left) + (backwards ? WidthOf(context, line) : 0);
  const auto draw = [&](std::size_t first, std::size_t last, bool hit) {
    first = std::min(first, line.size());
    const Text part = line.substr(first, std::min(last, line.size()) - first);
    if (part.empty()) return;
    SetTextColor(context, ToCOLORREF(hit ? colours.hitInk : colours.ink));
    SetBkColor(context, ToCOLORREF(colours.hitPaper));
    SetBkMode(context, hit ? OPAQUE : TRANSPARENT);
    const int width = WidthOf(context, part);
    const int left = backwards ? reached - width : reached;
    TextOutW(context, left, static_cast<int>(bounds.top), Wide(part), static_cast<int>(part.size()));
    if (hit && colours.underlined) {
      TEXTMETRICW metric{};
      GetTextMetricsW(context, &metric);
      const RECT under{left, bounds.top + metric.tmAscent + 1, left + width,
                       bounds.top + metric.tmAscent + 2};
      FillArea(context, under, colours.hitInk);
    }
    reached += backwards ? -width : width;
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

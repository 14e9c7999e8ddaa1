#include "schedule/win/member_list.h"

#include <algorithm>

#include "base/win/wide.h"
#include "note/edit_facts.h"
#include "skin/skin_layout.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr std::int32_t kThumbWidth = 3;
constexpr std::int32_t kMinThumb = 12;
// What shows on light paper, and on dark.
struct Inks {
  Colour ink;
  Colour pale;
  Colour hot;  // behind the row under the mouse
};
constexpr Inks kOnLight{{32, 32, 32}, {110, 110, 110}, {204, 228, 247}};
constexpr Inks kOnDark{{240, 240, 240}, {176, 176, 176}, {52, 84, 112}};
constexpr Colour kFrame{140, 140, 140};
constexpr Colour kDropTarget{0, 117, 199};

void Fill(HDC dc, const Rect& area, Colour colour) {
  SetDCBrushColor(dc, ToCOLORREF(colour));
  const RECT rect = ToRECT(area);
  FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void Frame(HDC dc, const Rect& area, Colour colour) {
  SetDCBrushColor(dc, ToCOLORREF(colour));
  const RECT rect = ToRECT(area);
  FrameRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

const Inks& InksOn(Colour paper) { return IsDarkPaper(paper) ? kOnDark : kOnLight; }

Colour Mixed(Colour a, Colour b) {
  const auto half = [](int x, int y) { return static_cast<std::uint8_t>((x + y) / 2); };
  return {half(a.r, b.r), half(a.g, b.g), half(a.b, b.b)};
}

}  // namespace

void MemberListInlay::Draw(HDC dc) const {
  const Rect& area = list_.area;
  if (area.Width() <= 0 || area.Height() <= 0) return;
  const int state = SaveDC(dc);
  IntersectClipRect(dc, area.left, area.top, area.right, area.bottom);
  SetBkMode(dc, TRANSPARENT);
  const auto first = static_cast<std::size_t>(list_.scroll / list_.rowHeight);
  for (std::size_t row = first; row < members_.size() && list_.RowRect(row).top < area.bottom; ++row)
    DrawRow(dc, row);
  if (members_.empty()) DrawHint(dc);
  DrawThumb(dc);
  RestoreDC(dc, state);
  if (!look_.dropTarget) return;
  Frame(dc, area, kDropTarget);
  Frame(dc, {area.left + 1, area.top + 1, area.right - 1, area.bottom - 1}, kDropTarget);
}

void MemberListInlay::DrawRow(HDC dc, std::size_t row) const {
  const StackMember& member = members_[row];
  const Rect rect = list_.RowRect(row);
  const Inks& inks = InksOn(look_.paper);
  const bool shown = member.state == MemberState::kShown;
  if (look_.hot == row) Fill(dc, rect, inks.hot);
  const std::int32_t side = list_.rowHeight - 8;
  const Rect swatch = RectAt({rect.left + 4, rect.top + 4}, {side, side});
  Fill(dc, swatch, shown ? member.colour : Mixed(member.colour, {255, 255, 255}));
  Frame(dc, swatch, shown ? kFrame : Mixed(kFrame, {255, 255, 255}));
  const Selected font(dc, member.state == MemberState::kAway ? look_.awayFont : look_.font);
  SetTextColor(dc, ToCOLORREF(shown ? inks.ink : inks.pale));
  RECT words{swatch.right + 6, rect.top, rect.right - kThumbWidth - 2, rect.bottom};
  const Text title = OneLine(member.title);
  DrawTextW(dc, Wide(title), static_cast<int>(title.size()), &words,
            DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
  if (look_.selected == row) {
    const RECT focus = ToRECT(rect);
    SetTextColor(dc, ToCOLORREF(inks.ink));
    DrawFocusRect(dc, &focus);
  }
}

void MemberListInlay::DrawHint(HDC dc) const {
  const Selected font(dc, look_.awayFont);
  SetTextColor(dc, ToCOLORREF(InksOn(look_.paper).pale));
  RECT words{list_.area.left + 4, list_.area.top + 4, list_.area.right - 4, list_.area.bottom};
  DrawTextW(dc, Wide(hint_), static_cast<int>(hint_.size()), &words, DT_WORDBREAK | DT_NOPREFIX);
}

// For skins without a scroll bar of their own.
void MemberListInlay::DrawThumb(HDC dc) const {
  const ScrollState scroll{list_.scroll, list_.area.Height(), list_.Height()};
  if (scroll.range <= scroll.page) return;
  const Rect track{list_.area.right - kThumbWidth, list_.area.top, list_.area.right, list_.area.bottom};
  Fill(dc, ScrollThumb(track, kMinThumb, scroll), kFrame);
}

}  // namespace jotlets

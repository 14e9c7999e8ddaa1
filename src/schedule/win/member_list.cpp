#include "schedule/win/member_list.h"

#include <algorithm>

#include "base/win/wide.h"
#include "looks/ink.h"
#include "skin/skin_layout.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// Pixels at the usual scale.
constexpr std::int32_t kThumbWidth = 3;
constexpr std::int32_t kMinThumb = 12;
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

// How wide the colour of the note is, and how far it stays from the upper and lower edge of its row.
Size MemberListInlay::SwatchOf(std::int32_t height) const {
  if (!look_.bars) return {height - Scaled(8), Scaled(4)};
  return {Scaled(4), Scaled(7)};
}

// An eye, as lines: the note can be seen on the desktop.
void MemberListInlay::DrawEye(HDC dc, const Rect& row, Colour ink) const {
  const UniqueGdi<HPEN> pen(CreatePen(PS_SOLID, Scaled(1), ToCOLORREF(ink)));
  const Selected selected(dc, pen.get());
  const Selected hollow(dc, static_cast<HBRUSH>(GetStockObject(NULL_BRUSH)));
  const int x = row.right - Scaled(15);
  const int y = row.top + row.Height() / 2;
  const int half = Scaled(6);
  const int high = Scaled(5);
  const POINT lids[] = {{x - half, y}, {x - half / 2, y - high}, {x + half / 2, y - high},
                        {x + half, y}, {x + half / 2, y + high}, {x - half / 2, y + high},
                        {x - half, y}};
  PolyBezier(dc, lids, static_cast<DWORD>(std::size(lids)));
  const int pupil = Scaled(2);
  Ellipse(dc, x - pupil, y - pupil, x + pupil + 1, y + pupil + 1);
}

Colour MemberListInlay::GroundOf(std::size_t row) const {
  if (look_.contrast) return IsMarked(row) ? look_.contrast->chosen : look_.paper;
  return look_.hot == row ? Shaded(look_.paper, 9) : look_.paper;
}

Colour MemberListInlay::InkOf(std::size_t row, bool quiet) const {
  if (look_.contrast) return IsMarked(row) ? look_.contrast->chosenInk : look_.contrast->ink;
  return quiet ? QuietInk(GroundOf(row)) : InkOn(GroundOf(row));
}

void MemberListInlay::DrawRow(HDC dc, std::size_t row) const {
  const StackMember& member = members_[row];
  const Rect rect = list_.RowRect(row);
  const bool shown = member.state == MemberState::kShown;
  const Colour ground = GroundOf(row);
  if (ground != look_.paper) Fill(dc, rect, ground);
  const Size swatchSize = SwatchOf(list_.rowHeight);
  const Rect swatch{rect.left + Scaled(4), rect.top + swatchSize.height,
                    rect.left + Scaled(4) + swatchSize.width, rect.bottom - swatchSize.height};
  const bool plain = shown || look_.bars;
  Fill(dc, swatch, plain ? member.colour : Mixed(member.colour, {255, 255, 255}));
  Frame(dc, swatch,
        look_.contrast ? InkOf(row, false)
        : look_.bars   ? Shaded(member.colour, 30)
        : plain        ? kFrame
                       : Mixed(kFrame, {255, 255, 255}));
  const Selected font(dc, member.state == MemberState::kAway ? look_.awayFont : look_.font);
  SetTextColor(dc, ToCOLORREF(InkOf(row, !shown && !look_.bars)));
  const std::int32_t end = look_.bars ? Scaled(28) : Scaled(kThumbWidth) + 2;
  RECT words{swatch.right + Scaled(look_.bars ? 12 : 6), rect.top, rect.right - end, rect.bottom};
  const Text title = OneLine(member.title);
  DrawTextW(dc, Wide(title), static_cast<int>(title.size()), &words,
            DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
  if (look_.bars && shown) DrawEye(dc, rect, InkOf(row, true));
  if (look_.selected == row) {
    const RECT focus = ToRECT(rect);
    SetTextColor(dc, ToCOLORREF(InkOf(row, false)));
    DrawFocusRect(dc, &focus);
  }
}

void MemberListInlay::DrawHint(HDC dc) const {
  const Selected font(dc, look_.awayFont);
  SetTextColor(dc, ToCOLORREF(look_.contrast ? look_.contrast->ink : QuietInk(look_.paper)));
  RECT words{list_.area.left + Scaled(4), list_.area.top + Scaled(4), list_.area.right - Scaled(4),
             list_.area.bottom};
  DrawTextW(dc, Wide(hint_), static_cast<int>(hint_.size()), &words, DT_WORDBREAK | DT_NOPREFIX);
}

// For skins without a scroll bar of their own.
void MemberListInlay::DrawThumb(HDC dc) const {
  const ScrollState scroll{list_.scroll, list_.area.Height(), list_.Height()};
  if (scroll.range <= scroll.page) return;
  const Rect track{list_.area.right - Scaled(kThumbWidth), list_.area.top, list_.area.right,
                   list_.area.bottom};
  Fill(dc, ScrollThumb(track, Scaled(kMinThumb), scroll), look_.contrast ? look_.contrast->ink : kFrame);
}

}  // namespace jotlets

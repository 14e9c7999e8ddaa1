#include "schedule/win/member_list.h"

#include <algorithm>

#include "base/win/wide.h"
#include "looks/ink.h"
#include "skin/skin_layout.h"
#include "ui/icons.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// Pixels at the usual scale.
constexpr std::int32_t kThumbWidth = 3;
constexpr std::int32_t kMinThumb = 12;
constexpr Colour kFrame{140, 140, 140};
constexpr Colour kDropTarget{0, 117, 199};

bool IsAway(const StackMember& member) {
  return member.state == MemberState::kAsleep || member.state == MemberState::kWaiting;
}

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

// What becomes of the note, at the end of its row: an eye for one that is on the desktop. Where that begins.
std::int32_t MemberListInlay::DrawState(HDC dc, const Rect& row, const StackMember& member,
                                        Colour ink) const {
  const bool away = IsAway(member);
  if (member.state == MemberState::kHidden) return row.right - Scaled(8);
  const Icon sign = !away ? Icon::kEye : member.state == MemberState::kAsleep ? Icon::kMoon : Icon::kAttach;
  DrawIcon(dc, sign, {row.right - Scaled(15), row.top + row.Height() / 2}, look_.dpi, ink);
  std::int32_t begin = row.right - Scaled(28);
  if (member.until.empty()) return begin;
  SIZE size{};
  const int count = static_cast<int>(member.until.size());
  GetTextExtentPoint32W(dc, Wide(member.until), count, &size);
  // The title goes before the time.
  if (size.cx > row.Width() / 3) return begin;
  begin -= static_cast<std::int32_t>(size.cx);
  RECT words{begin, row.top, row.right - Scaled(28), row.bottom};
  SetTextColor(dc, ToCOLORREF(ink));
  DrawTextW(dc, Wide(member.until), count, &words, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
  return begin - Scaled(6);
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
  const bool away = IsAway(member);
  const Selected font(dc, away && !look_.bars ? look_.awayFont : look_.font);
  const std::int32_t end =
      look_.bars ? DrawState(dc, rect, member, InkOf(row, true)) : rect.right - Scaled(kThumbWidth) - 2;
  SetTextColor(dc, ToCOLORREF(InkOf(row, !shown && !look_.bars)));
  RECT words{swatch.right + Scaled(look_.bars ? 12 : 6), rect.top, end, rect.bottom};
  const Text title = OneLine(member.title);
  DrawTextW(dc, Wide(title), static_cast<int>(title.size()), &words,
            DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
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

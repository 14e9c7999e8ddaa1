#include "ui/view_row.h"

#include "looks/ink.h"
#include "ui/areas.h"
#include "ui/handle.h"
#include "ui/icons.h"

namespace jotlets {
namespace {

// Pixels at 96 dots per inch.
constexpr int kGap = 2;
constexpr int kCorner = 4;
constexpr int kAccent = 3;
constexpr int kAccentRoom = 9;
constexpr int kIconMiddle = 20;
constexpr int kTile = 24;
constexpr std::int32_t kTileEdge = 25;  // percent
constexpr int kWords = 38;
constexpr int kRight = 10;

}  // namespace

RECT DrawViewRow(const DRAWITEMSTRUCT& item, Icon icon, const WindowColours& colours, int indent,
                 std::optional<Colour> mark) {
  const int dpi = static_cast<int>(GetDpiForWindow(item.hwndItem));
  const auto scaled = [dpi](int length) { return MulDiv(length, dpi, 96); };
  const bool chosen = (item.itemState & ODS_SELECTED) != 0;
  RECT row = item.rcItem;
  FillArea(item.hDC, row, colours.views);
  InflateRect(&row, 0, -scaled(kGap) / 2);
  if (chosen) {
    const UniqueBrush brush(CreateSolidBrush(ToCOLORREF(colours.chosen)));
    const UniqueGdi<HPEN> pen(CreatePen(PS_SOLID, 1, ToCOLORREF(colours.chosen)));
    const Selected filled(item.hDC, brush.get());
    const Selected drawn(item.hDC, pen.get());
    RoundRect(item.hDC, row.left, row.top, row.right, row.bottom, scaled(2 * kCorner), scaled(2 * kCorner));
    RECT accent{row.left, row.top + scaled(kAccentRoom), row.left + scaled(kAccent),
                row.bottom - scaled(kAccentRoom)};
    FillArea(item.hDC, accent, colours.accent);
  }
  const Colour ink = chosen ? colours.chosenText : colours.text;
  const Point middle{row.left + scaled(kIconMiddle + indent), (row.top + row.bottom) / 2};
  if (mark) {
    const UniqueBrush brush(CreateSolidBrush(ToCOLORREF(*mark)));
    const UniqueGdi<HPEN> pen(CreatePen(PS_SOLID, 1, ToCOLORREF(Shaded(*mark, kTileEdge))));
    const Selected filled(item.hDC, brush.get());
    const Selected drawn(item.hDC, pen.get());
    const int half = scaled(kTile) / 2;
    RoundRect(item.hDC, middle.x - half, middle.y - half, middle.x + half, middle.y + half,
              scaled(2 * kCorner), scaled(2 * kCorner));
  }
  DrawIcon(item.hDC, icon, middle, dpi,
           mark                                                                               ? InkOn(*mark)
           : chosen && colours.chosenText == colours.text && colours.accent != colours.chosen ? colours.accent
                                                                                              : ink);
  if ((item.itemState & ODS_FOCUS) != 0 && (item.itemState & ODS_NOFOCUSRECT) == 0) {
    SetTextColor(item.hDC, ToCOLORREF(colours.text));
    DrawFocusRect(item.hDC, &row);
  }
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, ToCOLORREF(ink));
  return {row.left + scaled((icon == Icon::kNothing ? kRight : kWords) + indent), row.top,
          row.right - scaled(kRight), row.bottom};
}

}  // namespace jotlets

#include "editor/win/style_sample.h"

#include <algorithm>
#include <cstdint>

#include "editor/win/edit_style.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// Pixels at 96 dpi.
constexpr int kWidth = 16;  // of the column of the check marks
constexpr int kHeight = 16;
constexpr int kLargest = 11;
constexpr int kSmallest = 9;

UniqueFont FontOf(const TextStyle& style, std::int32_t dpi) {
  LOGFONTW logical = ToLogFont(EditStyleOf(style).font);
  const int height = std::clamp(-static_cast<int>(logical.lfHeight), kSmallest, kLargest);
  logical.lfHeight = -MulDiv(height, dpi, 96);
  return UniqueFont(CreateFontIndirectW(&logical));
}

}  // namespace

UniqueBitmap MakeStyleSample(const TextStyle& style, std::int32_t dpi, const Theme& theme) {
  if (!style.IsSet()) return {};
  RECT area{0, 0, MulDiv(kWidth, dpi, 96), MulDiv(kHeight, dpi, 96)};
  const HDC screen = GetDC(nullptr);
  const UniqueDc memory(CreateCompatibleDC(screen));
  UniqueBitmap bitmap(CreateCompatibleBitmap(screen, area.right, area.bottom));
  ReleaseDC(nullptr, screen);
  if (!bitmap || !memory) return {};
  const UniqueFont font = FontOf(style, dpi);
  const Selected surface(memory.get(), bitmap.get());
  const Selected letters(memory.get(), font.get());
  const bool own = style.back.has_value();
  SetDCBrushColor(memory.get(), own ? ToCOLORREF(*style.back) : ToCOLORREF(theme.MenuPaper()));
  FillRect(memory.get(), &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
  const COLORREF automatic = own ? RGB(0, 0, 0) : ToCOLORREF(theme.MenuInk());
  SetTextColor(memory.get(), style.colour == Colour{} ? automatic : ToCOLORREF(style.colour));
  SetBkMode(memory.get(), TRANSPARENT);
  DrawTextW(memory.get(), L"Aa", -1, &area, DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX);
  return bitmap;
}

}  // namespace jotlets

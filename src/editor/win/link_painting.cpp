#include "editor/win/link_painting.h"

#include "looks/ink.h"
#include "looks/recolouring.h"
#include "ui/handle.h"
#include "ui/pixel_bitmap.h"

namespace jotlets {
namespace {

Colour FromCOLORREF(COLORREF colour) { return {GetRValue(colour), GetGValue(colour), GetBValue(colour)}; }

Colour LinkInk(Colour paper) {
  constexpr Colour kOnLight{0x0B, 0x57, 0xA4};
  constexpr Colour kOnDark{0x9C, 0xCB, 0xFF};
  return LegibleOn(paper, IsDarkPaper(paper) ? kOnDark : kOnLight);
}

// What controls draw links in: the one that asks the system, and those that do not.
bool IsIllegible(Colour paper, Colour link) { return Contrast(paper, link) < kTextContrast; }

}  // namespace

LinkPainting::LinkPainting(HWND edit, UINT message, std::optional<Colour> paper)
    : edit_(edit), paper_(message == WM_PAINT ? paper : std::nullopt) {
  if (paper_) GetUpdateRect(edit, &painted_, FALSE);
}

// Read back from the screen: the control has no other way to draw.
LinkPainting::~LinkPainting() {
  const Colour drawn[] = {{0, 0, 255}, FromCOLORREF(GetSysColor(COLOR_HOTLIGHT))};
  const SIZE size{painted_.right - painted_.left, painted_.bottom - painted_.top};
  if (!paper_ || size.cx <= 0 || size.cy <= 0) return;
  if (!IsIllegible(*paper_, drawn[0]) && !IsIllegible(*paper_, drawn[1])) return;
  const PixelBitmap copy =
      MakePixelBitmap({static_cast<std::int32_t>(size.cx), static_cast<std::int32_t>(size.cy)});
  const HDC screen = GetDC(edit_);
  if (copy.bitmap && screen != nullptr) {
    const UniqueDc memory(CreateCompatibleDC(screen));
    const Selected selected(memory.get(), copy.bitmap.get());
    BitBlt(memory.get(), 0, 0, size.cx, size.cy, screen, painted_.left, painted_.top, SRCCOPY);
    GdiFlush();
    const std::span pixels(copy.pixels,
                           static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy) * 4);
    bool changed = false;
    for (const Colour link : drawn)
      if (IsIllegible(*paper_, link)) changed = Recolour(pixels, *paper_, link, LinkInk(*paper_)) || changed;
    if (changed) BitBlt(screen, painted_.left, painted_.top, size.cx, size.cy, memory.get(), 0, 0, SRCCOPY);
  }
  if (screen != nullptr) ReleaseDC(edit_, screen);
}

}  // namespace jotlets

#include "editor/win/link_painting.h"

#include <algorithm>
#include <span>

#include "editor/win/edit.h"
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

// Whether what is seen can hold an address; most notes hold none.
bool MayShowLinks(const BEdit& edit) {
  RECT client{};
  GetClientRect(edit.Handle(), &client);
  const auto letterAt = [&edit](POINTL at) {
    return static_cast<LONG>(SendMessageW(edit.Handle(), EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&at)));
  };
  const Text seen = edit.TextBetween({letterAt({0, 0}), letterAt({client.right, client.bottom}) + 1});
  return seen.find_first_of(u":\\") != Text::npos || FoldCase(seen).find(u"www.") != Text::npos;
}

}  // namespace

// Where its parent draws the paper, nobody knows what lies below the letters.
LinkPainting::LinkPainting(const BEdit& edit, UINT message) : edit_(edit) {
  if (message == WM_PAINT && !edit.MadeWith().seeThrough) GetUpdateRect(edit.Handle(), &painted_, FALSE);
}

// Read back from the screen: the control has no other way to draw.
LinkPainting::~LinkPainting() {
  const SIZE size{painted_.right - painted_.left, painted_.bottom - painted_.top};
  if (size.cx <= 0 || size.cy <= 0) return;
  const Colour paper = edit_.MadeWith().background;
  // What controls draw links in: those that ask nobody, and the one that asks the system.
  const Colour drawn[] = {{0, 0, 255}, FromCOLORREF(GetSysColor(COLOR_HOTLIGHT))};
  const auto illegible = [paper](Colour link) { return Contrast(paper, link) < kTextContrast; };
  if (std::ranges::none_of(drawn, illegible) || !MayShowLinks(edit_)) return;
  const PixelBitmap copy =
      MakePixelBitmap({static_cast<std::int32_t>(size.cx), static_cast<std::int32_t>(size.cy)});
  const HDC screen = GetDC(edit_.Handle());
  if (copy.bitmap && screen != nullptr) {
    const UniqueDc memory(CreateCompatibleDC(screen));
    const Selected selected(memory.get(), copy.bitmap.get());
    BitBlt(memory.get(), 0, 0, size.cx, size.cy, screen, painted_.left, painted_.top, SRCCOPY);
    GdiFlush();
    const std::span pixels(copy.pixels,
                           static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy) * 4);
    bool changed = false;
    for (const Colour link : drawn)
      if (illegible(link)) changed = Recolour(pixels, paper, link, LinkInk(paper)) || changed;
    if (changed) BitBlt(screen, painted_.left, painted_.top, size.cx, size.cy, memory.get(), 0, 0, SRCCOPY);
  }
  if (screen != nullptr) ReleaseDC(edit_.Handle(), screen);
}

}  // namespace jotlets

#include "ui/swatch_row.h"

#include <algorithm>

#include "base/win/wide.h"
#include "ui/areas.h"
#include "ui/icons.h"
#include "ui/swatch_drawing.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// Pixels at 96 dpi.
constexpr std::int32_t kHeight = 44;
constexpr std::int32_t kPitch = 31;
constexpr std::int32_t kMargin = 8;
constexpr std::int32_t kSign = 28;

std::int32_t Scaled(std::int32_t pixels, std::int32_t dpi) { return MulDiv(pixels, dpi, 96); }

}  // namespace

SwatchRow::SwatchRow(Text spoken, std::vector<Swatch> swatches, std::optional<std::size_t> current)
    : spoken_(std::move(spoken)), swatches_(std::move(swatches)), current_(current) {
  Mark(current_.value_or(0));
}

void SwatchRow::AppendTo(HMENU menu, UINT id, bool enabled) {
  menu_ = menu;
  id_ = id;
  AppendMenuW(menu, MF_OWNERDRAW | (enabled ? MF_ENABLED : MF_GRAYED), id, reinterpret_cast<LPCWSTR>(&info_));
}

std::optional<UINT> SwatchRow::Position() const {
  const int count = GetMenuItemCount(menu_);
  for (int i = 0; i < count; ++i)
    if (GetMenuItemID(menu_, i) == id_) return static_cast<UINT>(i);
  return std::nullopt;
}

bool SwatchRow::IsLit() const {
  const UINT state = GetMenuState(menu_, id_, MF_BYCOMMAND);
  return state != static_cast<UINT>(-1) && (state & MF_HILITE) != 0;
}

void SwatchRow::Step(int by) {
  const std::size_t count = swatches_.size();
  Mark((marked_ + (by > 0 ? 1 : count - 1)) % count);
}

void SwatchRow::MarkAt(Point at) {
  const auto position = Position();
  RECT bounds{};
  if (!position || !GetMenuItemRect(nullptr, menu_, *position, &bounds)) return;
  const POINT point{at.x, at.y};
  if (!PtInRect(&bounds, point)) return;
  const std::int32_t index = (at.x - static_cast<std::int32_t>(bounds.left) - left_) / pitch_;
  Mark(static_cast<std::size_t>(std::clamp(index, 0, static_cast<std::int32_t>(swatches_.size()) - 1)));
}

void SwatchRow::Mark(std::size_t index) {
  if (index == marked_ && !said_.empty()) return;
  marked_ = index;
  const Text named = ReplaceAll(spoken_, u"%s", swatches_[index].name);
  const Text placed = ReplaceAll(named, u"%i", IntText(static_cast<std::int64_t>(index + 1)));
  said_ = ReplaceAll(placed, u"%n", IntText(static_cast<std::int64_t>(swatches_.size())));
  info_ = {static_cast<DWORD>(MSAA_MENU_SIG), static_cast<DWORD>(said_.size()), WideBuffer(said_)};
  if (!IsWindow(window_)) return;
  InvalidateRect(window_, nullptr, FALSE);
  if (const auto position = Position())
    NotifyWinEvent(EVENT_OBJECT_FOCUS, window_, OBJID_CLIENT, static_cast<LONG>(*position) + 1);
}

void SwatchRow::Measure(MEASUREITEMSTRUCT& measured, std::int32_t dpi) const {
  const auto count = static_cast<std::int32_t>(swatches_.size());
  measured.itemWidth = static_cast<UINT>(Scaled(2 * kMargin + count * kPitch, dpi));
  measured.itemHeight = static_cast<UINT>(Scaled(kHeight, dpi));
}

void SwatchRow::Draw(const DRAWITEMSTRUCT& drawn, std::int32_t dpi, const Theme& theme) {
  if (const HWND window = WindowFromDC(drawn.hDC)) window_ = window;
  left_ = Scaled(kMargin, dpi);
  pitch_ = Scaled(kPitch, dpi);
  const bool lit = (drawn.itemState & ODS_SELECTED) != 0;
  const bool grey = (drawn.itemState & (ODS_GRAYED | ODS_DISABLED)) != 0;
  if (swatches_.front().kind == Swatch::Kind::kSign) return DrawSigns(drawn, dpi, theme);
  SwatchDrawing drawing(FromRECT(drawn.rcItem), dpi, theme);
  for (std::size_t i = 0; i < swatches_.size(); ++i) {
    const std::int32_t middle = left_ + pitch_ / 2 + static_cast<std::int32_t>(i) * pitch_;
    const SwatchState state{lit && !grey && i == marked_, i == current_, grey};
    drawing.Draw(swatches_[i].kind, swatches_[i].colour, middle, state);
  }
  drawing.PutOn(drawn.hDC);
}

void SwatchRow::DrawSigns(const DRAWITEMSTRUCT& drawn, std::int32_t dpi, const Theme& theme) const {
  const bool lit = (drawn.itemState & ODS_SELECTED) != 0;
  const bool grey = (drawn.itemState & (ODS_GRAYED | ODS_DISABLED)) != 0;
  const WindowColours& colours = theme.Colours();
  FillArea(drawn.hDC, drawn.rcItem, theme.MenuPaper());
  const std::int32_t side = Scaled(kSign, dpi);
  const std::int32_t middle = (drawn.rcItem.top + drawn.rcItem.bottom) / 2;
  for (std::size_t i = 0; i < swatches_.size(); ++i) {
    const Swatch& swatch = swatches_[i];
    const std::int32_t x = left_ + pitch_ / 2 + static_cast<std::int32_t>(i) * pitch_;
    const bool marked = lit && !grey && i == marked_;
    const RECT ground{x - side / 2, middle - side / 2, x + side / 2, middle + side / 2};
    if (marked || swatch.on) FillArea(drawn.hDC, ground, swatch.on ? colours.chosen : colours.menuHover);
    if (marked) FrameArea(drawn.hDC, ground, theme.MenuMark());
    const Colour ink = grey ? colours.grey : swatch.on ? colours.chosenText : theme.MenuInk();
    DrawIcon(drawn.hDC, swatch.icon, {x, middle}, dpi, ink);
  }
}

}  // namespace jotlets

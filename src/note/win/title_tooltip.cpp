#include "note/win/title_tooltip.h"

#include <commctrl.h>

#include "base/win/wide.h"
#include "ui/dialog_look.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr std::int32_t kDefaultPoints = 8;
// A longer title would cover the screen, in one line or in many.
constexpr std::int32_t kWidestTip = 400;  // pixels; then it is broken into lines
constexpr std::size_t kLongestTip = 500;

Text TipOf(TextView title) {
  Text tip(title.substr(0, kLongestTip));
  if (tip.size() < title.size()) tip += u'\u2026';
  return tip;
}

TOOLINFOW ToolOf(HWND window, const Rect& area, Text& title) {
  TOOLINFOW tool{};
  // The size of the oldest form, which every version of the control takes.
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_SUBCLASS;
  tool.hwnd = window;
  tool.rect = ToRECT(area);
  tool.lpszText = WideBuffer(title);
  return tool;
}

// The control goes by moves of the mouse, and what the tip is about may have come under one that rests.
void TellMouse(HWND tooltip, HWND window) {
  const Point mouse = MousePosition();
  MSG move{};
  move.hwnd = window;
  move.message = WM_MOUSEMOVE;
  move.pt = {mouse.x, mouse.y};
  POINT at = move.pt;
  ScreenToClient(window, &at);
  move.lParam = MAKELPARAM(at.x, at.y);
  SendMessageW(tooltip, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&move));
}

}  // namespace

void TitleTooltip::Offer(HWND window, const SkinData& skin, const Rect& area, const Text& title,
                         const Theme& theme) {
  if (tooltip_ == nullptr) {
    tooltip_ =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0,
                        0, 0, 0, window, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (tooltip_ == nullptr) return;
    DressTooltip(tooltip_, theme);
    title_ = title;
    area_ = area;
    Text tip = TipOf(title);
    TOOLINFOW tool = ToolOf(window, area, tip);
    SendMessageW(tooltip_, TTM_SETMAXTIPWIDTH, 0, kWidestTip);
    SendMessageW(tooltip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    const std::int32_t points = skin.tooltipFontSize > 0 ? skin.tooltipFontSize : kDefaultPoints;
    font_.reset(CreateFontW(-MulDiv(points, static_cast<int>(GetDpiForWindow(window)), 72), 0, 0, 0,
                            FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, CLEARTYPE_QUALITY, 0,
                            skin.tooltipFontName.empty() ? L"Segoe UI" : Wide(skin.tooltipFontName)));
    SendMessageW(tooltip_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
    TellMouse(tooltip_, window);
    return;
  }
  if (title == title_ && area == area_) return;
  Text tip = TipOf(title);
  TOOLINFOW tool = ToolOf(window, area, tip);
  // Elsewhere it is another one, which waits for the mouse to rest.
  if (area != area_) {
    SendMessageW(tooltip_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(tooltip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    TellMouse(tooltip_, window);
  } else {
    SendMessageW(tooltip_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
  }
  title_ = title;
  area_ = area;
}

void TitleTooltip::Forget() {
  if (tooltip_ != nullptr) DestroyWindow(tooltip_);
  tooltip_ = nullptr;
  font_.reset();
}

}  // namespace jotlets

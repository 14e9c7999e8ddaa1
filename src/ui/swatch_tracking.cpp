#include "ui/swatch_tracking.h"

#include <commctrl.h>

#include <algorithm>

namespace jotlets {

SwatchTracking* SwatchTracking::current_ = nullptr;

SwatchTracking::SwatchTracking(HWND owner, std::span<SwatchRow* const> rows, const Theme& theme)
    : owner_(owner), rows_(rows), theme_(theme) {
  if (rows_.empty() || current_ != nullptr) return;
  current_ = this;
  SetWindowSubclass(owner_, OnOwnerMessage, 1, reinterpret_cast<DWORD_PTR>(this));
  hook_ = SetWindowsHookExW(WH_MSGFILTER, OnFiltered, nullptr, GetCurrentThreadId());
}

SwatchTracking::~SwatchTracking() {
  if (current_ != this) return;
  current_ = nullptr;
  if (hook_ != nullptr) UnhookWindowsHookEx(hook_);
  RemoveWindowSubclass(owner_, OnOwnerMessage, 1);
}

LRESULT CALLBACK SwatchTracking::OnFiltered(int code, WPARAM wParam, LPARAM lParam) noexcept {
  try {
    if (code == MSGF_MENU && current_ != nullptr && current_->Serve(*reinterpret_cast<const MSG*>(lParam)))
      return TRUE;
  } catch (...) {
    OutputDebugStringW(L"an exception left a key of a menu unserved");
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

bool SwatchTracking::Serve(const MSG& message) {
  if (message.message == WM_MOUSEMOVE || message.message == WM_LBUTTONDOWN) {
    for (SwatchRow* row : rows_)
      row->MarkAt({static_cast<std::int32_t>(message.pt.x), static_cast<std::int32_t>(message.pt.y)});
    return false;
  }
  const bool steps =
      message.message == WM_KEYDOWN && (message.wParam == VK_LEFT || message.wParam == VK_RIGHT);
  if (!steps) return false;
  const auto lit = std::ranges::find_if(rows_, [](const SwatchRow* row) { return row->IsLit(); });
  if (lit == rows_.end()) return false;
  (*lit)->Step(message.wParam == VK_RIGHT ? 1 : -1);
  return true;
}

SwatchRow* SwatchTracking::Find(UINT id) const {
  const auto found = std::ranges::find(rows_, id, &SwatchRow::Id);
  return found == rows_.end() ? nullptr : *found;
}

LRESULT CALLBACK SwatchTracking::OnOwnerMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                                UINT_PTR, DWORD_PTR tracking) noexcept {
  const auto& self = *reinterpret_cast<const SwatchTracking*>(tracking);
  const auto dpi = static_cast<std::int32_t>(GetDpiForWindow(window));
  try {
    if (message == WM_MEASUREITEM && wParam == 0) {
      auto& measured = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
      if (const SwatchRow* row = self.Find(measured.itemID)) return row->Measure(measured, dpi), TRUE;
    }
    if (message == WM_DRAWITEM && wParam == 0) {
      const auto& drawn = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      if (SwatchRow* row = self.Find(drawn.itemID)) return row->Draw(drawn, dpi, self.theme_), TRUE;
    }
  } catch (...) {
    OutputDebugStringW(L"an exception left a menu undrawn");
  }
  return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace jotlets

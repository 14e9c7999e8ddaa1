#include "editor/win/edit_direction.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace jotlets {
namespace {

bool IsRightToLeft(HKL keyboard) {
  wchar_t name[LOCALE_NAME_MAX_LENGTH]{};
  const LCID locale = MAKELCID(LOWORD(reinterpret_cast<UINT_PTR>(keyboard)), SORT_DEFAULT);
  if (LCIDToLocaleName(locale, name, LOCALE_NAME_MAX_LENGTH, 0) == 0) return false;
  constexpr DWORD kRightToLeft = 1;
  DWORD layout = 0;
  const int got = GetLocaleInfoEx(name, LOCALE_IREADINGLAYOUT | LOCALE_RETURN_NUMBER,
                                  reinterpret_cast<wchar_t*>(&layout), sizeof layout / sizeof(wchar_t));
  return got != 0 && layout == kRightToLeft;
}

}  // namespace

bool HasRightToLeftKeyboard() {
  std::vector<HKL> keyboards(static_cast<std::size_t>(std::max(GetKeyboardLayoutList(0, nullptr), 0)));
  GetKeyboardLayoutList(static_cast<int>(keyboards.size()), keyboards.data());
  return std::ranges::any_of(keyboards, IsRightToLeft);
}

bool DirectionKeys::Follow(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_KEYDOWN) {
    held_ = wParam == VK_SHIFT && GetKeyState(VK_CONTROL) < 0;
    if (held_) side_ = MapVirtualKeyW(LOBYTE(HIWORD(lParam)), MAPVK_VSC_TO_VK_EX);
    return false;
  }
  if (message == WM_LBUTTONDOWN || message == WM_KILLFOCUS) held_ = false;
  return message == WM_KEYUP && wParam == VK_SHIFT && std::exchange(held_, false);
}

}  // namespace jotlets

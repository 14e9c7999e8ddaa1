#include "ui/theme.h"

#include <dwmapi.h>

#include "base/text.h"
#include "base/win/system_library.h"
#include "base/win/wide.h"

namespace jotlets {
namespace {

Colour SystemColour(int index) {
  const COLORREF colour = GetSysColor(index);
  return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

bool IsSystemDark() {
  DWORD light = 1;
  DWORD bytes = sizeof light;
  const LSTATUS status =
      RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
                   L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &bytes);
  return status == ERROR_SUCCESS && light == 0;
}

// Not every system that has the setting answers the call; all keep it in the same place.
bool IsSystemContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  if (SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != 0 &&
      (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0)
    return true;
  wchar_t flags[16] = {};
  DWORD bytes = sizeof flags;
  const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, L"Control Panel\\Accessibility\\HighContrast",
                                      L"Flags", RRF_RT_REG_SZ, nullptr, flags, &bytes);
  return status == ERROR_SUCCESS && (ParseInt(FromWide(flags)) & HCF_HIGHCONTRASTON) != 0;
}

std::optional<ContrastColours> SystemContrast() {
  if (!IsSystemContrast()) return std::nullopt;
  return ContrastColours{SystemColour(COLOR_WINDOW), SystemColour(COLOR_WINDOWTEXT),
                         SystemColour(COLOR_HIGHLIGHT), SystemColour(COLOR_HIGHLIGHTTEXT),
                         SystemColour(COLOR_HOTLIGHT)};
}

SystemLook ReadSystemLook() {
  BOOL moves = TRUE;
  if (SystemParametersInfoW(SPI_GETCLIENTAREAANIMATION, 0, &moves, 0) == 0) moves = TRUE;
  return {IsSystemDark(), SystemContrast(), moves != FALSE};
}

}  // namespace

bool Theme::Follow(std::int32_t choice) {
  const Appearance look = AppearanceFor(choice, ReadSystemLook());
  if (look == now_) return false;
  now_ = look;
  colours_ = ColoursOf(look);
  return true;
}

Colour Theme::MenuPaper() const { return now_.contrast ? SystemColour(COLOR_MENU) : colours_.menu; }
Colour Theme::MenuInk() const { return now_.contrast ? SystemColour(COLOR_MENUTEXT) : colours_.text; }
Colour Theme::MenuMark() const { return now_.contrast ? SystemColour(COLOR_HIGHLIGHT) : colours_.accent; }

void TellThemeChanged() {
  const auto tell = [](HWND window, LPARAM) -> BOOL {
    SendMessageW(window, Theme::kChangedMessage, 0, 0);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    return TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), tell, 0);
}

void ShowCaption(HWND window, bool dark) {
  constexpr DWORD kDarkCaption = 20;  // DWMWA_USE_IMMERSIVE_DARK_MODE
  static const auto set =
      SystemFunction<decltype(DwmSetWindowAttribute)>(L"dwmapi.dll", "DwmSetWindowAttribute");
  const BOOL value = dark ? TRUE : FALSE;
  if (set != nullptr) set(window, kDarkCaption, &value, sizeof value);
}

}  // namespace jotlets

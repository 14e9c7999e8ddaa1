#include "editor/win/font_chooser.h"

#include <commdlg.h>

#include "ui/window.h"

namespace jotlets {

std::optional<FontStyle> ChooseSystemFont(HWND owner, const FontStyle& style) {
  LOGFONTW font = ToLogFont(style);
  CHOOSEFONTW request{};
  request.lStructSize = sizeof request;
  request.hwndOwner = owner;
  request.lpLogFont = &font;
  request.rgbColors = ToCOLORREF(style.colour);
  request.Flags = CF_SCREENFONTS | CF_EFFECTS | CF_INITTOLOGFONTSTRUCT;
  if (!ChooseFontW(&request)) return std::nullopt;
  return FromLogFont(
      font, request.iPointSize,
      {GetRValue(request.rgbColors), GetGValue(request.rgbColors), GetBValue(request.rgbColors)});
}

}  // namespace jotlets

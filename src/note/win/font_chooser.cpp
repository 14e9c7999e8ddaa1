#include "note/win/font_chooser.h"

#include <commdlg.h>

#include "ui/window.h"

namespace jotlets {

std::optional<FontStyle> ChooseSystemFont(HWND owner, const FontStyle& style) {
  LOGFONTW font = ToLogFont(style);
  CHOOSEFONTW how{};
  how.lStructSize = sizeof how;
  how.hwndOwner = owner;
  how.lpLogFont = &font;
  how.rgbColors = ToCOLORREF(style.colour);
  how.Flags = CF_SCREENFONTS | CF_EFFECTS | CF_INITTOLOGFONTSTRUCT;
  if (!ChooseFontW(&how)) return std::nullopt;
  return FromLogFont(font, how.iPointSize,
                     {GetRValue(how.rgbColors), GetGValue(how.rgbColors), GetBValue(how.rgbColors)});
}

}  // namespace jotlets

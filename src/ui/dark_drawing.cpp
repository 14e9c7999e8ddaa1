#include "ui/dark_drawing.h"

#include <commctrl.h>

#include <algorithm>

#include "base/text.h"
#include "base/win/wide.h"
#include "ui/areas.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr int kCorner = 4;  // all at 96 dots per inch
constexpr int kBox = 14;
constexpr int kBoxGap = 6;
constexpr int kArrowRoom = 20;

int Scaled(const DarkPicture& picture, int length) {
  return MulDiv(length, static_cast<int>(GetDpiForWindow(picture.control)), 96);
}

// What the control stands on is known to its dialog.
void FillSurface(const DarkPicture& picture) {
  const auto brush = reinterpret_cast<HBRUSH>(SendMessageW(GetParent(picture.control), WM_CTLCOLORBTN,
                                                           reinterpret_cast<WPARAM>(picture.dc),
                                                           reinterpret_cast<LPARAM>(picture.control)));
  if (brush != nullptr) {
    FillRect(picture.dc, &picture.area, brush);
  } else {
    FillArea(picture.dc, picture.area, picture.colours.surface);
  }
}

void DrawRound(const DarkPicture& picture, const RECT& area, Colour fill, Colour edge, int corner) {
  const UniqueBrush brush(CreateSolidBrush(ToCOLORREF(fill)));
  const UniqueGdi<HPEN> pen(CreatePen(PS_SOLID, 1, ToCOLORREF(edge)));
  const Selected filled(picture.dc, brush.get());
  const Selected drawn(picture.dc, pen.get());
  RoundRect(picture.dc, area.left, area.top, area.right, area.bottom, corner, corner);
}

void DrawLines(const DarkPicture& picture, const POINT* points, int count, Colour colour) {
  const UniqueGdi<HPEN> pen(CreatePen(PS_SOLID, std::max(Scaled(picture, 3) / 2, 1), ToCOLORREF(colour)));
  const Selected drawn(picture.dc, pen.get());
  Polyline(picture.dc, points, count);
}

void DrawArrow(const DarkPicture& picture, POINT middle, bool up, Colour colour) {
  const int reach = Scaled(picture, 4);
  const int rise = (up ? -1 : 1) * Scaled(picture, 2);
  const POINT points[] = {{middle.x - reach, middle.y - rise},
                          {middle.x, middle.y + rise},
                          {middle.x + reach + 1, middle.y - rise - (up ? -1 : 1)}};
  DrawLines(picture, points, 3, colour);
}

void DrawWords(const DarkPicture& picture, const Text& words, RECT area, UINT format, Colour ink) {
  SetTextColor(picture.dc, ToCOLORREF(ink));
  const bool hidden = (SendMessageW(picture.control, WM_QUERYUISTATE, 0, 0) & UISF_HIDEACCEL) != 0;
  DrawTextW(picture.dc, Wide(words), static_cast<int>(words.size()), &area,
            format | (hidden ? UINT{DT_HIDEPREFIX} : 0u));
}

Colour InkOf(const DarkPicture& picture) {
  return IsWindowEnabled(picture.control) != 0 ? picture.colours.text : picture.colours.grey;
}

bool ShowsFocus(const DarkPicture& picture) {
  return GetFocus() == picture.control &&
         (SendMessageW(picture.control, WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS) == 0;
}

void DrawPushButton(const DarkPicture& picture, LRESULT state, bool isDefault) {
  const WindowColours& colours = picture.colours;
  const bool pressed = (state & BST_PUSHED) != 0;
  const bool focused = GetFocus() == picture.control;
  const Colour fill = pressed ? colours.hover : colours.button;
  const bool marked = (isDefault || focused) && IsWindowEnabled(picture.control) != 0;
  DrawRound(picture, picture.area, fill, marked ? colours.accent : colours.edge,
            Scaled(picture, 2 * kCorner));
  if (ShowsFocus(picture)) {
    RECT inner = picture.area;
    InflateRect(&inner, -Scaled(picture, 3), -Scaled(picture, 3));
    DrawRound(picture, inner, fill, colours.accent, Scaled(picture, kCorner));
  }
  const Text words = WindowText(picture.control);
  if (words.find(u'\n') == Text::npos) {
    return DrawWords(picture, words, picture.area, DT_SINGLELINE | DT_CENTER | DT_VCENTER, InkOf(picture));
  }
  RECT lines = picture.area;
  const int height = DrawTextW(picture.dc, Wide(words), static_cast<int>(words.size()), &lines, DT_CALCRECT);
  lines = picture.area;
  lines.top = (picture.area.bottom - height) / 2;
  DrawWords(picture, words, lines, DT_CENTER, InkOf(picture));
}

void DrawCheckBox(const DarkPicture& picture, LRESULT state, bool isRadio) {
  const WindowColours& colours = picture.colours;
  const int side = Scaled(picture, kBox);
  const int top = (picture.area.bottom - side) / 2;
  const RECT box{0, top, side, top + side};
  const bool checked = (state & (BST_CHECKED | BST_INDETERMINATE)) != 0;
  const bool enabled = IsWindowEnabled(picture.control) != 0;
  const Colour fill = !checked ? colours.field : enabled ? colours.accent : colours.grey;
  DrawRound(picture, box, fill, checked ? fill : colours.edge, isRadio ? side : Scaled(picture, kCorner));
  const auto at = [&](int x, int y) {
    return POINT{box.left + MulDiv(side, x, kBox), box.top + MulDiv(side, y, kBox)};
  };
  if (checked && isRadio) {
    RECT dot = box;
    InflateRect(&dot, -Scaled(picture, 4), -Scaled(picture, 4));
    DrawRound(picture, dot, colours.accentText, colours.accentText, side);
  } else if ((state & BST_INDETERMINATE) != 0) {
    const POINT dash[] = {at(4, 7), at(11, 7)};
    DrawLines(picture, dash, 2, colours.accentText);
  } else if (checked) {
    const POINT check[] = {at(3, 7), at(6, 10), at(12, 3)};
    DrawLines(picture, check, 3, colours.accentText);
  }
  RECT words = picture.area;
  words.left = side + Scaled(picture, kBoxGap);
  const bool lines = (GetWindowLongPtrW(picture.control, GWL_STYLE) & BS_MULTILINE) != 0;
  if (lines) {
    RECT whole = words;
    DrawTextW(picture.dc, Wide(WindowText(picture.control)), -1, &whole, DT_CALCRECT | DT_WORDBREAK);
    words.top = std::max<LONG>((picture.area.bottom - (whole.bottom - whole.top)) / 2, 0);
  }
  DrawWords(picture, WindowText(picture.control), words, lines ? DT_WORDBREAK : DT_SINGLELINE | DT_VCENTER,
            InkOf(picture));
  if (!ShowsFocus(picture)) return;
  words.left -= Scaled(picture, 2);
  FrameArea(picture.dc, words, colours.accent);
}

void DrawGroup(const DarkPicture& picture) {
  const Text words = WindowText(picture.control);
  SIZE size{};
  GetTextExtentPoint32W(picture.dc, Wide(words), static_cast<int>(words.size()), &size);
  RECT frame = picture.area;
  frame.top += size.cy / 2;
  FrameArea(picture.dc, frame, picture.colours.line);
  RECT room{Scaled(picture, 8), 0, Scaled(picture, 12) + size.cx, size.cy};
  FillArea(picture.dc, room, picture.colours.surface);
  room.left += Scaled(picture, 2);
  DrawWords(picture, words, room, DT_SINGLELINE, InkOf(picture));
}

}  // namespace

void DrawDarkButton(const DarkPicture& picture) {
  const LONG_PTR type = GetWindowLongPtrW(picture.control, GWL_STYLE) & BS_TYPEMASK;
  if (type == BS_GROUPBOX) return DrawGroup(picture);
  FillSurface(picture);
  const LRESULT state = SendMessageW(picture.control, BM_GETSTATE, 0, 0);
  switch (type) {
    case BS_PUSHBUTTON: return DrawPushButton(picture, state, false);
    case BS_DEFPUSHBUTTON: return DrawPushButton(picture, state, true);
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON: return DrawCheckBox(picture, state, true);
    default: return DrawCheckBox(picture, state, false);
  }
}

// A list that one chooses from; where one can also type, the field is a control of its own.
void DrawDarkComboBox(const DarkPicture& picture) {
  const WindowColours& colours = picture.colours;
  FillSurface(picture);
  const bool focused = GetFocus() == picture.control;
  DrawRound(picture, picture.area, colours.field, focused ? colours.accent : colours.edge,
            Scaled(picture, 2 * kCorner));
  RECT words = picture.area;
  InflateRect(&words, -Scaled(picture, 3), -Scaled(picture, 3));
  words.right = picture.area.right - Scaled(picture, kArrowRoom);
  DrawArrow(picture, {(words.right + picture.area.right) / 2, picture.area.bottom / 2}, false,
            InkOf(picture));
  const LONG_PTR style = GetWindowLongPtrW(picture.control, GWL_STYLE);
  const LRESULT chosen = SendMessageW(picture.control, CB_GETCURSEL, 0, 0);
  if ((style & 3) != CBS_DROPDOWNLIST) return;
  if ((style & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) == 0) {
    words.left += Scaled(picture, 2);
    return DrawWords(picture, WindowText(picture.control), words, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX,
                     InkOf(picture));
  }
  DRAWITEMSTRUCT item{};
  item.CtlType = ODT_COMBOBOX;
  item.CtlID = static_cast<UINT>(GetDlgCtrlID(picture.control));
  item.itemID = static_cast<UINT>(chosen);
  item.itemState = ODS_COMBOBOXEDIT;
  item.hwndItem = picture.control;
  item.hDC = picture.dc;
  item.rcItem = words;
  item.itemData = static_cast<ULONG_PTR>(SendMessageW(picture.control, CB_GETITEMDATA, item.itemID, 0));
  SendMessageW(GetParent(picture.control), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}

void DrawDarkTabs(const DarkPicture& picture) {
  FillSurface(picture);
  const int selected = TabCtrl_GetCurSel(picture.control);
  for (int at = 0; at < TabCtrl_GetItemCount(picture.control); ++at) {
    RECT tab{};
    wchar_t words[80] = {};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = words;
    item.cchTextMax = static_cast<int>(std::size(words));
    if (!TabCtrl_GetItemRect(picture.control, at, &tab) || !TabCtrl_GetItem(picture.control, at, &item))
      continue;
    const bool chosen = at == selected;
    if (chosen) FillArea(picture.dc, tab, picture.colours.chosen);
    DrawWords(picture, Text(FromWide(item.pszText)), tab,
              DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX,
              chosen ? picture.colours.chosenText : picture.colours.quiet);
    if (!chosen) continue;
    if (ShowsFocus(picture)) FrameArea(picture.dc, tab, picture.colours.accent);
    tab.top = tab.bottom - Scaled(picture, 2);
    FillArea(picture.dc, tab, picture.colours.accent);
  }
}

void DrawDarkHeader(const DarkPicture& picture) {
  FillArea(picture.dc, picture.area, picture.colours.foot);
  for (int at = 0; at < Header_GetItemCount(picture.control); ++at) {
    RECT column{};
    wchar_t words[80] = {};
    HDITEMW item{};
    item.mask = HDI_TEXT | HDI_FORMAT;
    item.pszText = words;
    item.cchTextMax = static_cast<int>(std::size(words));
    if (!Header_GetItemRect(picture.control, at, &column) || !Header_GetItem(picture.control, at, &item))
      continue;
    const bool up = (item.fmt & HDF_SORTUP) != 0;
    if (up || (item.fmt & HDF_SORTDOWN) != 0)
      DrawArrow(picture, {(column.left + column.right) / 2, Scaled(picture, 4)}, up, picture.colours.quiet);
    RECT text = column;
    InflateRect(&text, -Scaled(picture, 6), 0);
    DrawWords(picture, Text(FromWide(item.pszText)), text,
              DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX, picture.colours.text);
    column.left = column.right - 1;
    FillArea(picture.dc, column, picture.colours.line);
  }
}

void DrawDarkUpDown(const DarkPicture& picture) {
  FillArea(picture.dc, picture.area, picture.colours.button);
  FrameArea(picture.dc, picture.area, picture.colours.edge);
  const LONG middle = (picture.area.left + picture.area.right) / 2;
  DrawArrow(picture, {middle, picture.area.bottom / 4}, true, InkOf(picture));
  DrawArrow(picture, {middle, picture.area.bottom * 3 / 4}, false, InkOf(picture));
}

}  // namespace jotlets

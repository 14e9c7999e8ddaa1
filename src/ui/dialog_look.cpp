#include "ui/dialog_look.h"

#include <commctrl.h>

#include "base/win/system_library.h"
#include "base/win/wide.h"
#include "ui/dark_controls.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr UINT_PTR kDress = 0x4C4F4F4B;

struct DressedClass {
  const wchar_t* name;
  DressedControl kind;
};
constexpr DressedClass kClasses[] = {
    {WC_BUTTONW, DressedControl::kButton},    {WC_COMBOBOXW, DressedControl::kComboBox},
    {WC_TABCONTROLW, DressedControl::kTabs},  {WC_HEADERW, DressedControl::kHeader},
    {UPDOWN_CLASSW, DressedControl::kUpDown}, {WC_EDITW, DressedControl::kFramed},
    {WC_LISTBOXW, DressedControl::kFramed},   {WC_LISTVIEWW, DressedControl::kFramed},
    {WC_TREEVIEWW, DressedControl::kFramed},  {PROGRESS_CLASSW, DressedControl::kOther},
};

const DressedClass* ClassOf(HWND control) {
  wchar_t name[64] = {};
  GetClassNameW(control, name, static_cast<int>(std::size(name)));
  for (const DressedClass& known : kClasses)
    if (lstrcmpiW(name, known.name) == 0) return &known;
  return nullptr;
}

bool Is(HWND control, const wchar_t* name) {
  const DressedClass* found = ClassOf(control);
  return found != nullptr && lstrcmpiW(found->name, name) == 0;
}

void SetControlTheme(HWND control, const wchar_t* application, const wchar_t* classes) {
  using Set = HRESULT WINAPI(HWND, LPCWSTR, LPCWSTR);
  static const auto set = SystemFunction<Set>(L"uxtheme.dll", "SetWindowTheme");
  if (set != nullptr) set(control, application, classes);
}

// The system's own dark scroll bars and check boxes of lists, where it has them.
void ShowScrollBars(HWND control, bool dark) {
  SetControlTheme(control, dark ? L"DarkMode_Explorer" : nullptr, nullptr);
}

void ShowLists(HWND control, const Theme& theme) {
  const bool dark = theme.IsDark();
  const COLORREF ground = dark ? ToCOLORREF(theme.Colours().field) : GetSysColor(COLOR_WINDOW);
  const COLORREF text = dark ? ToCOLORREF(theme.Colours().text) : GetSysColor(COLOR_WINDOWTEXT);
  if (Is(control, WC_LISTVIEWW)) {
    ListView_SetBkColor(control, ground);
    ListView_SetTextBkColor(control, ground);
    ListView_SetTextColor(control, text);
  } else if (Is(control, WC_TREEVIEWW)) {
    TreeView_SetBkColor(control, ground);
    TreeView_SetTextColor(control, text);
  } else if (Is(control, PROGRESS_CLASSW)) {
    SendMessageW(control, PBM_SETBKCOLOR, 0, dark ? static_cast<LPARAM>(ground) : CLR_DEFAULT);
  }
}

// The kind stands in the id: messages are many.
LRESULT CALLBACK ServeDressed(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                              DWORD_PTR object) noexcept {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(control, ServeDressed, id);
  const auto& theme = *reinterpret_cast<const Theme*>(object);
  const auto kind = static_cast<DressedControl>(id - kDress);
  const bool isOurs = kind == DressedControl::kGroup ? !theme.Now().contrast : theme.IsDark();
  if (!isOurs) return DefSubclassProc(control, message, wParam, lParam);
  try {
    if (const auto answer = ServeDarkControl(kind, control, message, wParam, lParam, theme)) return *answer;
  } catch (...) {
    OutputDebugStringW(L"an exception left a control undrawn");
  }
  return DefSubclassProc(control, message, wParam, lParam);
}

// In the light a control is the system's own, unless it has been dark before.
BOOL CALLBACK DressControl(HWND control, LPARAM object) {
  const auto& theme = *reinterpret_cast<const Theme*>(object);
  const DressedClass* found = ClassOf(control);
  // A picker stays light as a whole: what it consists of is not ours to draw.
  if (found == nullptr || IsDatePicker(GetParent(control))) return TRUE;
  const bool isGroup = found->kind == DressedControl::kButton &&
                       (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
  const UINT_PTR id = kDress + static_cast<UINT_PTR>(isGroup ? DressedControl::kGroup : found->kind);
  if (theme.IsDark() || isGroup) {
    SetWindowSubclass(control, ServeDressed, id, static_cast<DWORD_PTR>(object));
  } else if (RemoveWindowSubclass(control, ServeDressed, id) == FALSE) {
    return TRUE;
  }
  ShowScrollBars(control, theme.IsDark());
  ShowLists(control, theme);
  return TRUE;
}

}  // namespace

bool IsDatePicker(HWND control) {
  wchar_t name[64] = {};
  GetClassNameW(control, name, static_cast<int>(std::size(name)));
  return lstrcmpiW(name, DATETIMEPICK_CLASSW) == 0;
}

void DressDialog(HWND dialog, const Theme& theme) {
  if ((GetWindowLongPtrW(dialog, GWL_STYLE) & WS_CHILD) == 0) ShowCaption(dialog, theme.IsDark());
  EnumChildWindows(dialog, DressControl, reinterpret_cast<LPARAM>(&theme));
  RedrawWindow(dialog, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void DressTooltip(HWND tooltip, const Theme& theme) {
  if (!theme.IsDark()) return;
  // Only without a theme of the system's are colours taken.
  SetControlTheme(tooltip, L"", L"");
  SendMessageW(tooltip, TTM_SETTIPBKCOLOR, ToCOLORREF(theme.Colours().menu), 0);
  SendMessageW(tooltip, TTM_SETTIPTEXTCOLOR, ToCOLORREF(theme.Colours().text), 0);
}

HBRUSH ControlColours(UINT message, HDC dc, HWND control, const Theme& theme, Colour surface) {
  const bool isField = message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX;
  if (!isField && message != WM_CTLCOLORDLG && message != WM_CTLCOLORSTATIC && message != WM_CTLCOLORBTN)
    return nullptr;
  if (theme.Now().contrast || IsDatePicker(control)) return nullptr;
  // A field that is grey, too, which asks for the colours of a text.
  const bool greyField = Is(control, WC_EDITW) && IsWindowEnabled(control) == 0;
  if (!theme.IsDark() && (isField || greyField)) return nullptr;
  const WindowColours& colours = theme.Colours();
  const Colour ground = isField ? colours.field : surface;
  SetTextColor(
      dc, ToCOLORREF(message == WM_CTLCOLORDLG || IsWindowEnabled(control) ? colours.text : colours.grey));
  SetBkColor(dc, ToCOLORREF(ground));
  SetDCBrushColor(dc, ToCOLORREF(ground));
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

HBRUSH EmptyListColours(HDC dc, const Theme& theme) {
  if (theme.Now().contrast) return nullptr;
  const WindowColours& colours = theme.Colours();
  SetTextColor(dc, ToCOLORREF(colours.quiet));
  SetBkColor(dc, ToCOLORREF(colours.field));
  SetDCBrushColor(dc, ToCOLORREF(colours.field));
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

void SetUpRows(HWND list, const Theme& theme) {
  const DWORD buffered = theme.IsRightToLeft() ? 0 : DWORD{LVS_EX_DOUBLEBUFFER};
  ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | buffered);
}

}  // namespace jotlets

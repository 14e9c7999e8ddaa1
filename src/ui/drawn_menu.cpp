#include "ui/drawn_menu.h"

#include <commctrl.h>

#include <algorithm>
#include <optional>

#include "base/win/wide.h"
#include "ui/areas.h"
#include "ui/icons.h"

namespace jotlets {
namespace {

constexpr UINT_PTR kSubclass = 2;
// All at 96 dots per inch.
constexpr int kRow = 30;
constexpr int kSeparator = 9;
constexpr int kEdge = 4;    // of what is marked, from the edge of the menu
constexpr int kSigns = 38;  // where the words begin
constexpr int kSignMiddle = 20;
constexpr int kRight = 14;  // where keys and arrows end
constexpr int kKeyGap = 24;
constexpr int kCorner = 4;

// Until the menu is drawn, that is all that an entry has of its own.
void SetIcon(HMENU menu, UINT entry, BOOL byPosition, Icon icon) {
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_DATA;
  item.dwItemData = static_cast<ULONG_PTR>(icon);
  SetMenuItemInfoW(menu, entry, byPosition, &item);
}

bool IsGrey(const DRAWITEMSTRUCT& item) { return (item.itemState & (ODS_GRAYED | ODS_DISABLED)) != 0; }

// The letter behind the last single ampersand, in upper case; 0 for none.
char16_t MnemonicOf(const Text& words) {
  for (std::size_t at = words.find(u'&'); at != Text::npos && at + 1 < words.size();
       at = words.find(u'&', at + 2)) {
    if (words[at + 1] == u'&') continue;
    const auto letter = static_cast<ULONG_PTR>(words[at + 1]);
    return static_cast<char16_t>(reinterpret_cast<ULONG_PTR>(CharUpperW(reinterpret_cast<LPWSTR>(letter))));
  }
  return 0;
}

}  // namespace

void SetMenuIcon(HMENU menu, UINT command, Icon icon) { SetIcon(menu, command, FALSE, icon); }

void SetLastMenuIcon(HMENU menu, Icon icon) {
  SetIcon(menu, static_cast<UINT>(GetMenuItemCount(menu) - 1), TRUE, icon);
}

DrawnMenu::DrawnMenu(HMENU menu, HWND owner, const Theme& theme) : theme_(theme), owner_(owner) {
  if (theme.Now().contrast) return;
  dpi_ = static_cast<int>(GetDpiForWindow(owner));
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi_));
  font_.reset(CreateFontIndirectW(&metrics.lfMenuFont));
  metrics.lfMenuFont.lfWeight = FW_SEMIBOLD;
  boldFont_.reset(CreateFontIndirectW(&metrics.lfMenuFont));
  ground_.reset(CreateSolidBrush(ToCOLORREF(theme.Colours().menu)));
  MENUINFO info{};
  info.cbSize = sizeof info;
  info.fMask = MIM_BACKGROUND | MIM_APPLYTOSUBMENUS;
  info.hbrBack = ground_.get();
  SetMenuInfo(menu, &info);
  Convert(menu);
  SetWindowSubclass(owner_, OnOwnerMessage, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

DrawnMenu::~DrawnMenu() {
  if (ground_ && IsWindow(owner_)) RemoveWindowSubclass(owner_, OnOwnerMessage, kSubclass);
}

void DrawnMenu::Convert(HMENU menu) {
  for (int at = 0; at < GetMenuItemCount(menu); ++at) {
    wchar_t words[256] = {};
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_FTYPE | MIIM_STRING | MIIM_SUBMENU | MIIM_BITMAP | MIIM_DATA;
    item.dwTypeData = words;
    item.cch = static_cast<UINT>(std::size(words));
    if (!GetMenuItemInfoW(menu, static_cast<UINT>(at), TRUE, &item)) continue;
    if (item.hSubMenu != nullptr) Convert(item.hSubMenu);
    if ((item.fType & MFT_OWNERDRAW) != 0) continue;
    Entry& entry = entries_.emplace_back();
    entry.words = FromWide(words);
    if (item.dwItemData < static_cast<ULONG_PTR>(Icon::kCount))
      entry.icon = static_cast<Icon>(item.dwItemData);
    entry.picture = item.hbmpItem;
    entry.separator = (item.fType & MFT_SEPARATOR) != 0;
    entry.opens = item.hSubMenu != nullptr;
    entry.info = {static_cast<DWORD>(MSAA_MENU_SIG), static_cast<DWORD>(entry.words.size()),
                  WideBuffer(entry.words)};
    item.fMask = MIIM_FTYPE | MIIM_DATA;
    item.fType |= MFT_OWNERDRAW;
    item.dwItemData = reinterpret_cast<ULONG_PTR>(&entry);
    SetMenuItemInfoW(menu, static_cast<UINT>(at), TRUE, &item);
  }
}

// Rows of colours draw themselves.
const DrawnMenu::Entry* DrawnMenu::Find(ULONG_PTR data) const {
  const auto found = std::ranges::find_if(
      entries_, [data](const Entry& entry) { return reinterpret_cast<ULONG_PTR>(&entry) == data; });
  return found == entries_.end() ? nullptr : &*found;
}

const DrawnMenu::Entry* DrawnMenu::EntryAt(HMENU menu, int position) const {
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_DATA;
  return GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &item) ? Find(item.dwItemData) : nullptr;
}

int DrawnMenu::WidthOf(const Text& words, bool bold) const {
  const HDC dc = GetDC(nullptr);
  RECT area{};
  {
    const Selected font(dc, bold ? boldFont_.get() : font_.get());
    DrawTextW(dc, Wide(words), static_cast<int>(words.size()), &area, DT_SINGLELINE | DT_CALCRECT);
  }
  ReleaseDC(nullptr, dc);
  return area.right;
}

void DrawnMenu::Measure(const Entry& entry, MEASUREITEMSTRUCT& measured) const {
  LOGFONTW logical{};
  GetObjectW(font_.get(), sizeof logical, &logical);
  const int row =
      std::max(Scaled(kRow), static_cast<int>(std::abs(logical.lfHeight)) * 4 / 3 + 2 * Scaled(kEdge));
  const std::size_t tab = entry.words.find(u'\t');
  int width = Scaled(kSigns) + WidthOf(entry.words.substr(0, tab), true) + Scaled(kKeyGap + kRight);
  if (tab != Text::npos) width += WidthOf(entry.words.substr(tab + 1), false);
  measured.itemWidth = static_cast<UINT>(width);
  measured.itemHeight = static_cast<UINT>(entry.separator ? Scaled(kSeparator) : row);
}

void DrawnMenu::Draw(const Entry& entry, const DRAWITEMSTRUCT& item) const {
  const WindowColours& colours = theme_.Colours();
  FillArea(item.hDC, item.rcItem, colours.menu);
  DrawFrame(item);
  RECT inner = item.rcItem;
  InflateRect(&inner, -Scaled(entry.separator ? 3 * kEdge : kEdge), 0);
  if (entry.separator) {
    inner.top = (inner.top + inner.bottom) / 2;
    inner.bottom = inner.top + 1;
    return FillArea(item.hDC, inner, colours.line);
  }
  if ((item.itemState & ODS_SELECTED) != 0) {
    const UniqueBrush brush(CreateSolidBrush(ToCOLORREF(colours.menuHover)));
    const UniqueGdi<HPEN> pen(CreatePen(PS_SOLID, 1, ToCOLORREF(colours.menuHover)));
    const Selected filled(item.hDC, brush.get());
    const Selected drawn(item.hDC, pen.get());
    const int corner = Scaled(2 * kCorner);
    RoundRect(item.hDC, inner.left, inner.top, inner.right, inner.bottom, corner, corner);
  }
  DrawWords(entry, item);
  DrawSigns(entry, item);
}

void DrawnMenu::DrawWords(const Entry& entry, const DRAWITEMSTRUCT& item) const {
  const WindowColours& colours = theme_.Colours();
  const bool grey = IsGrey(item);
  const bool bold = (item.itemState & ODS_DEFAULT) != 0;
  const Selected font(item.hDC, bold ? boldFont_.get() : font_.get());
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, ToCOLORREF(grey ? colours.grey : colours.text));
  RECT words = item.rcItem;
  words.left += Scaled(kSigns);
  words.right -= Scaled(kRight);
  const UINT hidden = (item.itemState & ODS_NOACCEL) != 0 ? UINT{DT_HIDEPREFIX} : 0u;
  const std::size_t tab = entry.words.find(u'\t');
  const Text name = entry.words.substr(0, tab);
  DrawTextW(item.hDC, Wide(name), static_cast<int>(name.size()), &words, DT_SINGLELINE | DT_VCENTER | hidden);
  if (tab == Text::npos) return;
  const Text key = entry.words.substr(tab + 1);
  SelectObject(item.hDC, font_.get());
  SetTextColor(item.hDC, ToCOLORREF(grey ? colours.grey : colours.quiet));
  DrawTextW(item.hDC, Wide(key), static_cast<int>(key.size()), &words,
            DT_SINGLELINE | DT_VCENTER | DT_RIGHT | DT_NOPREFIX);
}

// What stands before and behind the words.
void DrawnMenu::DrawSigns(const Entry& entry, const DRAWITEMSTRUCT& item) const {
  const Colour ink = IsGrey(item) ? theme_.Colours().grey : theme_.Colours().text;
  const int x = item.rcItem.left + Scaled(kSignMiddle);
  const int y = (item.rcItem.top + item.rcItem.bottom) / 2;
  if ((item.itemState & ODS_CHECKED) != 0) {
    DrawIcon(item.hDC, Icon::kCheck, {x, y}, dpi_, theme_.Colours().accent);
  } else if (entry.picture != nullptr) {
    BITMAP picture{};
    GetObjectW(entry.picture, sizeof picture, &picture);
    const UniqueDc memory(CreateCompatibleDC(item.hDC));
    const Selected source(memory.get(), entry.picture);
    BitBlt(item.hDC, x - picture.bmWidth / 2, y - picture.bmHeight / 2, picture.bmWidth, picture.bmHeight,
           memory.get(), 0, 0, SRCCOPY);
  } else {
    DrawIcon(item.hDC, entry.icon, {x, y}, dpi_, ink);
  }
  if (!entry.opens) return;
  // In a mirrored menu it opens to the left, and signs are not mirrored.
  const Icon arrow = (GetLayout(item.hDC) & LAYOUT_RTL) != 0 ? Icon::kChevronLeft : Icon::kChevronRight;
  DrawIcon(item.hDC, arrow, {item.rcItem.right - Scaled(kRight + 2), y}, dpi_, ink);
  // The system would put its own arrow over this one.
  ExcludeClipRect(item.hDC, item.rcItem.left, item.rcItem.top, item.rcItem.right, item.rcItem.bottom);
}

// What is left of the menu's window around its entries.
void DrawnMenu::DrawFrame(const DRAWITEMSTRUCT& item) const {
  const HWND window = WindowFromDC(item.hDC);
  if (window == nullptr) return;
  RECT all{};
  GetWindowRect(window, &all);
  POINT corner{item.rcItem.left, item.rcItem.top};
  ClientToScreen(window, &corner);
  const LONG width = corner.x - all.left;
  OffsetRect(&all, -all.left, -all.top);
  const HDC dc = GetWindowDC(window);
  for (LONG ring = 0; ring < std::min(width, 8L); ++ring) {
    FrameArea(dc, all, ring == 0 ? theme_.Colours().line : theme_.Colours().menu);
    InflateRect(&all, -1, -1);
  }
  ReleaseDC(window, dc);
}

// Entries that are drawn by the program are not found by their letters: by those that are underlined and,
// where none is, by the first.
LRESULT DrawnMenu::ChooseByLetter(char16_t letter, HMENU menu) const {
  const char16_t wanted = MnemonicOf(Text(u"&") + letter);
  const int count = GetMenuItemCount(menu);
  int lit = -1;
  for (int at = 0; at < count; ++at)
    if ((GetMenuState(menu, static_cast<UINT>(at), MF_BYPOSITION) & MF_HILITE) != 0) lit = at;
  const auto entryWith = [&](const auto& fits) -> std::optional<LRESULT> {
    int found = -1;
    int matches = 0;
    for (int step = 1; step <= count; ++step) {
      const int at = (lit + step + count) % count;
      const Entry* entry = EntryAt(menu, at);
      if (entry != nullptr && fits(entry->words) && matches++ == 0) found = at;
    }
    if (found < 0) return std::nullopt;
    return MAKELRESULT(static_cast<WORD>(found), matches == 1 ? MNC_EXECUTE : MNC_SELECT);
  };
  if (wanted == 0) return MAKELRESULT(0, MNC_IGNORE);
  const auto underlined = entryWith([wanted](const Text& words) { return MnemonicOf(words) == wanted; });
  if (underlined) return *underlined;
  const auto first = entryWith([wanted](const Text& words) {
    return MnemonicOf(words) == 0 && MnemonicOf(u"&" + words.substr(0, 1)) == wanted;
  });
  return first.value_or(MAKELRESULT(0, MNC_IGNORE));
}

LRESULT CALLBACK DrawnMenu::OnOwnerMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                           DWORD_PTR object) noexcept {
  const auto& self = *reinterpret_cast<const DrawnMenu*>(object);
  try {
    if (message == WM_MEASUREITEM && wParam == 0) {
      auto& measured = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
      if (const Entry* entry = self.Find(measured.itemData)) return self.Measure(*entry, measured), TRUE;
    }
    if (message == WM_DRAWITEM && wParam == 0) {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      if (const Entry* entry = self.Find(item.itemData)) return self.Draw(*entry, item), TRUE;
    }
    if (message == WM_MENUCHAR)
      return self.ChooseByLetter(static_cast<char16_t>(LOWORD(wParam)), reinterpret_cast<HMENU>(lParam));
  } catch (...) {
    OutputDebugStringW(L"an exception left a menu undrawn");
  }
  return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace jotlets

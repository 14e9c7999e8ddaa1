#include "ui/tall_dialog.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <vector>

#include "base/beside.h"
#include "ui/screen.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// Pixels at 96 dots per inch.
constexpr int kLine = 24;
constexpr int kLowestList = 60;

SCROLLINFO ScrollState(HWND dialog) {
  SCROLLINFO state{};
  state.cbSize = sizeof state;
  state.fMask = SIF_ALL;
  GetScrollInfo(dialog, SB_VERT, &state);
  return state;
}

void ScrollTo(HWND dialog, int position) {
  const SCROLLINFO state = ScrollState(dialog);
  const int last = std::max(state.nMax + 1 - static_cast<int>(state.nPage), 0);
  const int at = std::clamp(position, 0, last);
  if (at == state.nPos) return;
  SetScrollPos(dialog, SB_VERT, at, TRUE);
  ScrollWindowEx(dialog, 0, state.nPos - at, nullptr, nullptr, nullptr, nullptr,
                 SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
}

void OnScroll(HWND dialog, UINT code) {
  const SCROLLINFO state = ScrollState(dialog);
  const int line = MulDiv(kLine, static_cast<int>(GetDpiForWindow(dialog)), USER_DEFAULT_SCREEN_DPI);
  const int page = static_cast<int>(state.nPage);
  switch (code) {
    case SB_LINEUP: return ScrollTo(dialog, state.nPos - line);
    case SB_LINEDOWN: return ScrollTo(dialog, state.nPos + line);
    case SB_PAGEUP: return ScrollTo(dialog, state.nPos - page);
    case SB_PAGEDOWN: return ScrollTo(dialog, state.nPos + page);
    case SB_TOP: return ScrollTo(dialog, 0);
    case SB_BOTTOM: return ScrollTo(dialog, state.nMax);
    case SB_THUMBTRACK: return ScrollTo(dialog, state.nTrackPos);
    default: break;
  }
}

void ShowControl(HWND control) {
  const HWND dialog = GetParent(control);
  RECT bounds{};
  RECT client{};
  GetWindowRect(control, &bounds);
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&bounds), 2);
  GetClientRect(dialog, &client);
  const int position = ScrollState(dialog).nPos;
  if (bounds.bottom > client.bottom) ScrollTo(dialog, position + bounds.bottom - client.bottom);
  if (bounds.top < 0) ScrollTo(dialog, position + bounds.top);
}

LRESULT CALLBACK Scroll(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                        DWORD_PTR) noexcept {
  if (message == WM_VSCROLL && lParam == 0) {
    OnScroll(dialog, LOWORD(wParam));
    return 0;
  }
  if (message == WM_MOUSEWHEEL) {
    OnScroll(dialog, GET_WHEEL_DELTA_WPARAM(wParam) > 0 ? SB_LINEUP : SB_LINEDOWN);
    return 0;
  }
  return DefSubclassProc(dialog, message, wParam, lParam);
}

LRESULT CALLBACK FollowFocus(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                             DWORD_PTR) noexcept {
  if (message == WM_SETFOCUS) ShowControl(control);
  return DefSubclassProc(control, message, wParam, lParam);
}

LRESULT CALLBACK ToParent(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                          DWORD_PTR) noexcept {
  if (message == WM_MOUSEWHEEL && SendMessageW(control, CB_GETDROPPEDSTATE, 0, 0) == 0)
    return SendMessageW(GetParent(control), message, wParam, lParam);
  return DefSubclassProc(control, message, wParam, lParam);
}

bool Is(HWND control, std::initializer_list<const wchar_t*> classes) {
  std::array<wchar_t, 32> name{};
  GetClassNameW(control, name.data(), static_cast<int>(name.size()));
  return std::ranges::any_of(classes,
                             [&](const wchar_t* known) { return lstrcmpiW(name.data(), known) == 0; });
}

// Lets the highest list of the dialog give way, so that all else can be seen, the buttons at the foot before
// all. What is left to be scrolled.
int ShrinkList(HWND dialog, int over) {
  std::vector<HWND> controls;
  std::vector<Rect> places;
  std::size_t list = 0;
  for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    RECT place{};
    GetWindowRect(child, &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    controls.push_back(child);
    places.push_back(FromRECT(place));
    const bool isList = Is(child, {WC_TREEVIEWW, WC_LISTVIEWW, WC_LISTBOXW});
    if (isList && (list == 0 || places.back().Height() > places[list - 1].Height())) list = places.size();
  }
  if (list == 0) return over;
  const Rect place = places[list - 1];
  const int lowest = MulDiv(kLowestList, static_cast<int>(GetDpiForWindow(dialog)), USER_DEFAULT_SCREEN_DPI);
  const int given = RoomGivenBy(place, places, over, lowest);
  for (std::size_t i = 0; i < controls.size(); ++i) {
    const bool moves = places[i].top >= place.bottom;
    const bool shrinks = places[i].top <= place.top && places[i].bottom >= place.bottom;
    if (!moves && !shrinks) continue;
    SetWindowPos(controls[i], nullptr, places[i].left, places[i].top - (moves ? given : 0), places[i].Width(),
                 places[i].Height() - given, SWP_NOZORDER | SWP_NOACTIVATE | (moves ? SWP_NOSIZE : 0u));
  }
  return over - given;
}

// Whether the wheel would change what the control holds; the other kinds scroll themselves or pass it on.
bool ChangesWithWheel(HWND control) {
  if (Is(control, {WC_COMBOBOXW})) return true;
  return Is(control, {WC_EDITW}) && (GetWindowLongPtrW(control, GWL_STYLE) & ES_MULTILINE) == 0;
}

}  // namespace

void FitHeight(HWND dialog) {
  const LONG_PTR style = GetWindowLongPtrW(dialog, GWL_STYLE);
  if ((style & WS_CHILD) != 0) return;
  RECT window{};
  RECT client{};
  GetWindowRect(dialog, &window);
  GetClientRect(dialog, &client);
  const Rect work = WorkAreaOf(dialog);
  if ((style & WS_THICKFRAME) != 0) {
    const Rect bounds = FromRECT(window);
    const int width = std::min(bounds.Width(), work.Width());
    const int height = std::min(bounds.Height(), work.Height());
    SetWindowPos(dialog, nullptr, std::clamp(bounds.left, work.left, work.right - width),
                 std::clamp(bounds.top, work.top, work.bottom - height), width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    return;
  }
  const int over = static_cast<int>(window.bottom - window.top) - work.Height();
  if (over <= 0) return;
  const int scrolled = ShrinkList(dialog, over);
  if (scrolled == 0) {
    SetWindowPos(dialog, nullptr, window.left, work.top, window.right - window.left, work.Height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    return;
  }
  const auto dpi = GetDpiForWindow(dialog);
  const int width = static_cast<int>(window.right - window.left) + GetSystemMetricsForDpi(SM_CXVSCROLL, dpi);
  SCROLLINFO state{};
  state.cbSize = sizeof state;
  state.fMask = SIF_PAGE | SIF_RANGE;
  state.nMax = client.bottom - (over - scrolled) - 1;
  state.nPage = static_cast<UINT>(std::max<int>(client.bottom - over, 1));
  SetScrollInfo(dialog, SB_VERT, &state, FALSE);
  SetWindowPos(dialog, nullptr,
               std::clamp<int>(window.left, work.left, std::max(work.right - width, work.left)), work.top,
               width, work.Height(), SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
  SetWindowSubclass(dialog, Scroll, 0, 0);
  for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    SetWindowSubclass(child, FollowFocus, 0, 0);
    if (ChangesWithWheel(child)) PassWheel(child);
  }
}

void PassWheel(HWND control) { SetWindowSubclass(control, ToParent, 0, 0); }

}  // namespace jotlets

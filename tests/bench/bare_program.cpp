#include "bare_program.h"

#include <commctrl.h>
#include <richedit.h>
#include <windowsx.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/win/disk_files.h"
#include "base/win/wide.h"
#include "ui/pixel_bitmap.h"
#include "ui/screen.h"

namespace jotlets {
namespace {

std::vector<HWND> notes;
bool hidden = false;
bool shadows = false;
POINT grabbed{};  // where in the note it is held

constexpr int kRound =
    16;  // across, of the corners of notes with shadows, as the skin of a first run has them
constexpr int kShadow = 16;  // pixels on each side of a note
constexpr SIZE kShadowSize{232 + 2 * kShadow, 160 + 2 * kShadow};

RECT BoundsOf(HWND window) {
  RECT bounds{};
  GetWindowRect(window, &bounds);
  return bounds;
}

DWORD CALLBACK ReadBytes(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* got) {
  auto& rest = *reinterpret_cast<std::string_view*>(cookie);
  const auto count = std::min<std::size_t>(rest.size(), static_cast<std::size_t>(wanted));
  std::copy_n(rest.data(), count, reinterpret_cast<char*>(buffer));
  rest.remove_prefix(count);
  *got = static_cast<LONG>(count);
  return 0;
}

void ShowOrHide() {
  hidden = !hidden;
  // The topmost first, so that none is painted that another will cover.
  for (auto note = notes.rbegin(); note != notes.rend(); ++note)
    ShowWindow(*note, hidden ? SW_HIDE : SW_SHOWNOACTIVATE);
}

// What stays for the next time is the dialog's alone.
void ShowDialog(const COPYDATASTRUCT& data) {
  const auto* controls = static_cast<const BareControl*>(data.lpData);
  const auto make = [](const BareControl& control, const wchar_t* text, HWND parent) {
    const RECT& area = control.area;
    return CreateWindowExW(control.extended, control.windowClass, text, control.style, area.left, area.top,
                           area.right - area.left, area.bottom - area.top, parent, nullptr, nullptr, nullptr);
  };
  const HWND dialog = make(controls[0], kBareDialogTitle, nullptr);
  for (DWORD i = 1; i < data.cbData / sizeof(BareControl); ++i) make(controls[i], L"Words", dialog);
  ShowWindow(dialog, SW_SHOW);
}

LRESULT CALLBACK EchoProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == kBareShowOrHide) ShowOrHide();
  if (message == WM_COPYDATA && reinterpret_cast<const COPYDATASTRUCT*>(lParam)->dwData == kBareDialog)
    return ShowDialog(*reinterpret_cast<const COPYDATASTRUCT*>(lParam)), TRUE;
  if (message != WM_COPYDATA) return DefWindowProcW(window, message, wParam, lParam);
  COPYDATASTRUCT answer = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
  SendMessageW(reinterpret_cast<HWND>(wParam), WM_COPYDATA, reinterpret_cast<WPARAM>(window),
               reinterpret_cast<LPARAM>(&answer));
  return TRUE;
}

LRESULT CALLBACK NoteProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
      grabbed = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
      SetCapture(window);
      return 0;
    case WM_MOUSEMOVE:
      if (GetCapture() == window) {
        POINT at{};
        GetCursorPos(&at);
        constexpr UINT kMove = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
        const auto shadow = reinterpret_cast<HWND>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (shadow != nullptr)
          SetWindowPos(shadow, nullptr, at.x - grabbed.x - kShadow, at.y - grabbed.y - kShadow, 0, 0, kMove);
        SetWindowPos(window, nullptr, at.x - grabbed.x, at.y - grabbed.y, 0, 0, kMove);
      }
      return 0;
    case WM_LBUTTONUP: ReleaseCapture(); return 0;
    default: return DefWindowProcW(window, message, wParam, lParam);
  }
}

void RegisterBareClass(const wchar_t* name, WNDPROC procedure) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = name;
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
  RegisterClassW(&windowClass);
}

// All shadows are shown from one picture, darker towards its middle.
HDC ShadowPicture() {
  static const HDC picture = [] {
    const HDC dc = CreateCompatibleDC(nullptr);
    static const PixelBitmap made = MakePixelBitmap({kShadowSize.cx, kShadowSize.cy});
    for (LONG y = 0; y < kShadowSize.cy; ++y) {
      for (LONG x = 0; x < kShadowSize.cx; ++x) {
        const LONG inside = std::min({x, y, kShadowSize.cx - 1 - x, kShadowSize.cy - 1 - y});
        made.pixels[(y * kShadowSize.cx + x) * 4 + 3] = static_cast<std::uint8_t>(std::min(inside, 60L));
      }
    }
    SelectObject(dc, made.bitmap.get());
    return dc;
  }();
  return picture;
}

HWND CreateBareShadow(const RECT& note) {
  const HWND shadow = CreateWindowExW(WS_EX_LAYERED | WS_EX_TRANSPARENT | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE,
                                      L"STATIC", L"", WS_POPUP, note.left - kShadow, note.top - kShadow,
                                      kShadowSize.cx, kShadowSize.cy, nullptr, nullptr, nullptr, nullptr);
  POINT at{note.left - kShadow, note.top - kShadow};
  POINT from{};
  SIZE size = kShadowSize;
  BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  UpdateLayeredWindow(shadow, nullptr, &at, &size, ShadowPicture(), &from, 0, &blend, ULW_ALPHA);
  ShowWindow(shadow, SW_SHOWNOACTIVATE);
  return shadow;
}

void CreateBareNote(int number, const Text& folder) {
  const HWND note = CreateWindowExW(WS_EX_LAYERED | WS_EX_TOOLWINDOW, kBareClass, Wide(BenchNoteId(number)),
                                    WS_POPUP | WS_CLIPCHILDREN, (number % 40) * 25, (number / 40) * 25, 232,
                                    160, nullptr, nullptr, nullptr, nullptr);
  SetLayeredWindowAttributes(note, 0, 255, LWA_ALPHA);
  const HWND edit = CreateWindowExW(0, MSFTEDIT_CLASS, L"",
                                    WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL, 6, 24,
                                    220, 130, note, nullptr, nullptr, nullptr);
  const FileContent content = DiskFiles().Read(folder + u"rtf\\" + BenchNoteId(number) + u".rtf");
  std::string_view rest = content.bytes;
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&rest), 0, ReadBytes};
  SendMessageW(edit, EM_STREAMIN, SF_RTF, reinterpret_cast<LPARAM>(&stream));
  if (shadows) {
    const RECT bounds = BoundsOf(note);
    SetWindowRgn(note,
                 CreateRoundRectRgn(0, 0, bounds.right - bounds.left + 1, bounds.bottom - bounds.top + 1,
                                    kRound, kRound),
                 FALSE);
    SetWindowLongPtrW(note, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(CreateBareShadow(bounds)));
  }
  ShowWindow(note, SW_SHOWNOACTIVATE);
  notes.push_back(note);
}

}  // namespace

Text BenchNoteId(int number) { return u"BENCH" + IntText(number); }

int RunBareProgram(int count, const Text& folder, bool withShadows) {
  shadows = withShadows;
  EnableDpiAwareness();
  LoadLibraryW(L"msftedit.dll");
  InitCommonControls();
  RegisterBareClass(kBareClass, NoteProcedure);
  RegisterBareClass(kEchoClass, EchoProcedure);
  for (int i = 0; i < count; ++i) CreateBareNote(i, folder);
  CreateWindowExW(0, kEchoClass, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}

}  // namespace jotlets

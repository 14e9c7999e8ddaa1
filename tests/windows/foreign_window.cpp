// A program of somebody else's with one window: its title and class are the arguments. It ends when the
// window is closed, and stops answering for good when it is told to.
#include <windows.h>

#include <shellapi.h>

#include "foreign_window.h"

namespace {

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == jotlets::kHangMessage) Sleep(INFINITE);
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

int main() {
  int count = 0;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  if (count < 3) return 2;
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = Procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = arguments[2];
  RegisterClassW(&windowClass);
  CreateWindowW(arguments[2], arguments[1], WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 400, 300, 200, nullptr,
                nullptr, windowClass.hInstance, nullptr);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}

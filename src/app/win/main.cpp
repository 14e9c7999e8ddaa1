#include <windows.h>

#include <ole2.h>

#include "app/win/system_tray_app.h"
#include "base/win/wide.h"
#include "ui/screen.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t* commandLine, int) {
  jotlets::EnableDpiAwareness();
  // The shell's folder chooser needs it, and what is dropped on the editors.
  const HRESULT ole = OleInitialize(nullptr);
  const int result = jotlets::CSystemTrayApp().InitInstance(jotlets::FromWide(commandLine));
  if (SUCCEEDED(ole)) OleUninitialize();
  return result;
}

#include <windows.h>

#include <ole2.h>

#include "app/win/crash_report.h"
#include "app/win/system_tray_app.h"
#include "base/win/wide.h"
#include "ui/screen.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t* commandLine, int) {
  // What the system's parts load later comes from the system's folder, too.
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
  jotlets::CatchCrashes();
  jotlets::EnableDpiAwareness();
  // The shell's folder chooser needs it, and what is dropped on the editors.
  const HRESULT ole = OleInitialize(nullptr);
  const int result = jotlets::CSystemTrayApp().InitInstance(jotlets::FromWide(commandLine));
  if (SUCCEEDED(ole)) OleUninitialize();
  return result;
}

#include <windows.h>

#include <objbase.h>

#include "app/win/system_tray_app.h"
#include "base/win/wide.h"
#include "ui/screen.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t* commandLine, int) {
  jotlets::EnableDpiAwareness();
  // The shell's folder chooser needs it.
  const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const int result = jotlets::CSystemTrayApp().InitInstance(jotlets::FromWide(commandLine));
  if (SUCCEEDED(com)) CoUninitialize();
  return result;
}

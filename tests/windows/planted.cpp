// See CMakeLists.txt.
#include <windows.h>

#include <cwchar>

extern "C" BOOL WINAPI DllMain(HINSTANCE self, DWORD reason, LPVOID) {
  wchar_t path[MAX_PATH + 8] = L"";
  if (reason != DLL_PROCESS_ATTACH || GetModuleFileNameW(self, path, MAX_PATH) == 0) return TRUE;
  wcscat(path, L".loaded");
  CloseHandle(CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  return TRUE;
}

#include "ui/system_programs.h"

#include <shellapi.h>

#include "base/win/wide.h"

namespace jotlets {
namespace {

Text FolderOf(UINT(WINAPI* tell)(wchar_t* folder, UINT room)) {
  Text folder(MAX_PATH, u'\0');
  const UINT length = tell(WideBuffer(folder), MAX_PATH);
  folder.resize(length < MAX_PATH ? length : 0);
  return folder;
}

bool Start(HWND owner, const Text& program, const Text& arguments) {
  constexpr INT_PTR kLastError = 32;  // of those that stand for failures
  return reinterpret_cast<INT_PTR>(ShellExecuteW(owner, L"open", Wide(program), Wide(arguments), nullptr,
                                                 SW_SHOWNORMAL)) > kLastError;
}

}  // namespace

bool ShowInExplorer(HWND owner, TextView path) {
  const Text folder = FolderOf(GetSystemWindowsDirectoryW);
  return !folder.empty() && Start(owner, folder + u"\\explorer.exe", u"/select,\"" + Text(path) + u"\"");
}

bool OpenOwnPage(HWND owner, const Text& path) { return Start(owner, path, {}); }

bool OpenInNotepad(HWND owner, TextView path) {
  const Text folder = FolderOf(GetSystemDirectoryW);
  return !folder.empty() && Start(owner, folder + u"\\notepad.exe", u"\"" + Text(path) + u"\"");
}

}  // namespace jotlets

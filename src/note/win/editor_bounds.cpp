#include "note/win/editor_bounds.h"

namespace jotlets {

const EditorBounds& BoundsOfEditor() {
  // Where something else stands in for the system, its control is of the slow kind.
  static const bool slow = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
  return slow ? kSlowEditor : kSystemEditor;
}

std::string ClipboardBytes(HWND window, UINT format) {
  std::string bytes;
  if (OpenClipboard(window) == 0) return bytes;
  if (const HANDLE memory = GetClipboardData(format)) {
    if (const auto* data = static_cast<const char*>(GlobalLock(memory))) {
      bytes.assign(data, GlobalSize(memory));
      GlobalUnlock(memory);
    }
  }
  CloseClipboard();
  while (!bytes.empty() && bytes.back() == '\0') bytes.pop_back();
  if (format == CF_UNICODETEXT && bytes.size() % 2 != 0) bytes.push_back('\0');
  return bytes;
}

}  // namespace jotlets

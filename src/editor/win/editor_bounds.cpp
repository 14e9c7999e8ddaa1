#include "editor/win/editor_bounds.h"

#include <cstring>
#include <string>
#include <utility>

#include "data/letter_marks.h"
#include "data/rtf_text.h"

namespace jotlets {
namespace {

// Without what stands behind the end of a text.
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

}  // namespace

const EditorBounds& BoundsOfEditor() {
  // Where something else stands in for the system, its control is of the slow kind.
  static const bool slow = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
  return slow ? kSlowEditor : kSystemEditor;
}

Text ShowableWords(TextView text) {
  Text words = BoundedWords(text);
  return BoundsOfEditor().takesMarks ? words : WithoutMarks(std::move(words));
}

bool FindPastable(HWND edit, UINT& format) {
  const EditorBounds& bounds = BoundsOfEditor();
  if (format != CF_UNICODETEXT) {
    const std::string rtf = ClipboardBytes(edit, format);
    if (RtfTrouble(rtf, bounds).empty() && (bounds.takesLists || rtf.find("\\pn") == std::string::npos))
      return true;
    format = CF_UNICODETEXT;
  }
  const std::string bytes = ClipboardBytes(edit, CF_UNICODETEXT);
  Text text(bytes.size() / 2, u'\0');
  std::memcpy(text.data(), bytes.data(), text.size() * 2);
  return IsEditable(TextView(text).substr(0, text.find(u'\0')), bounds);
}

}  // namespace jotlets

#include "schedule/win/window_icons.h"

#include <shellapi.h>

#include "base/win/unique_handle.h"
#include "base/win/wide.h"

namespace jotlets {
namespace {

Text ProgramOf(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  const UniqueHandle handle(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process));
  Text path(MAX_PATH * 4, u'\0');
  DWORD length = static_cast<DWORD>(path.size());
  // A program with more rights does not tell.
  if (!handle || !QueryFullProcessImageNameW(handle.get(), 0, WideBuffer(path), &length)) return {};
  path.resize(length);
  return path;
}

}  // namespace

HICON WindowIcons::Of(HWND window) {
  HICON& icon = known_[window];
  if (icon != nullptr) return icon;
  for (const int kind : {GCLP_HICONSM, GCLP_HICON}) {
    if (icon == nullptr) icon = reinterpret_cast<HICON>(GetClassLongPtrW(window, kind));
  }
  if (icon == nullptr) icon = OfProgram(window);
  if (icon == nullptr) icon = LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(IDI_APPLICATION));
  return icon;
}

HICON WindowIcons::OfProgram(HWND window) {
  const Text path = ProgramOf(window);
  if (path.empty()) return nullptr;
  const auto [at, fresh] = programs_.try_emplace(path);
  if (fresh) {
    HICON icon = nullptr;
    ExtractIconExW(Wide(path), 0, nullptr, &icon, 1);
    at->second.reset(icon);
  }
  return at->second.get();
}

}  // namespace jotlets

// Libraries of the system: from its own folder only, never from beside the program or from the current
// folder.
#pragma once

#include <windows.h>

namespace jotlets {

/// Loads a library of the system for the life of the process; nullptr when there is none.
inline HMODULE LoadSystemLibrary(const wchar_t* name) {
  return LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

/// A function of a library that the loader would look for beside the program first, were it linked.
template <typename Function>
Function* SystemFunction(const wchar_t* library, const char* name) {
  const HMODULE module = LoadSystemLibrary(library);
  return module == nullptr ? nullptr : reinterpret_cast<Function*>(GetProcAddress(module, name));
}

}  // namespace jotlets

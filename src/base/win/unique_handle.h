// Owners of kernel handles.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace jotlets {

struct CloseHandleDeleter {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};

/// A file, mutex or process handle, closed with its owner; empty instead of INVALID_HANDLE_VALUE.
using UniqueHandle = std::unique_ptr<std::remove_pointer_t<HANDLE>, CloseHandleDeleter>;

inline UniqueHandle OwnHandle(HANDLE handle) {
  return UniqueHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

}  // namespace jotlets

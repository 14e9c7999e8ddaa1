// Owners of USER and GDI handles: each is released with its owner, and never by hand.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

#include "base/win/unique_handle.h"

namespace jotlets {

template <auto Release>
struct HandleDeleter {
  template <typename Handle>
  void operator()(Handle handle) const {
    Release(handle);
  }
};

template <typename Handle, auto Release>
using UniqueWinHandle = std::unique_ptr<std::remove_pointer_t<Handle>, HandleDeleter<Release>>;

struct GdiDeleter {
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
template <typename Handle>
using UniqueGdi = std::unique_ptr<std::remove_pointer_t<Handle>, GdiDeleter>;
using UniqueFont = UniqueGdi<HFONT>;
using UniqueBitmap = UniqueGdi<HBITMAP>;
using UniqueBrush = UniqueGdi<HBRUSH>;

using UniqueMenu = UniqueWinHandle<HMENU, DestroyMenu>;
using UniqueIcon = UniqueWinHandle<HICON, DestroyIcon>;
using UniqueDc = UniqueWinHandle<HDC, DeleteDC>;
using UniqueAccelerators = UniqueWinHandle<HACCEL, DestroyAcceleratorTable>;

/// Puts an object into a device context and the former one back.
class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) : dc_(dc), former_(SelectObject(dc, object)) {}
  ~Selected() { SelectObject(dc_, former_); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC dc_;
  HGDIOBJ former_;
};

}  // namespace jotlets

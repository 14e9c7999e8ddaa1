// Links where they could not be read: the control draws them blue on any paper and asks nobody.
#pragma once

#include <windows.h>

#include <optional>

#include "base/geometry.h"

namespace jotlets {

/// Lives while the control serves a message: what it paints then has its links in a colour that can be read.
class LinkPainting {
 public:
  /// `paper` is what the control draws on; nothing when its parent draws that.
  LinkPainting(HWND edit, UINT message, std::optional<Colour> paper);
  ~LinkPainting();
  LinkPainting(const LinkPainting&) = delete;
  LinkPainting& operator=(const LinkPainting&) = delete;

 private:
  HWND edit_;
  std::optional<Colour> paper_;
  RECT painted_{};
};

}  // namespace jotlets

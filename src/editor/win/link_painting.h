// Links where they could not be read: the control draws them blue on any paper and asks nobody.
#pragma once

#include <windows.h>

#include "base/geometry.h"

namespace jotlets {

class BEdit;

/// Lives while the control serves a message: what it paints then has its links in a colour that can be read.
class LinkPainting {
 public:
  LinkPainting(const BEdit& edit, UINT message);
  ~LinkPainting();
  LinkPainting(const LinkPainting&) = delete;
  LinkPainting& operator=(const LinkPainting&) = delete;

 private:
  const BEdit& edit_;
  RECT painted_{};  // empty when there is nothing to be mended
};

}  // namespace jotlets

// The fonts of the system, as drawn texts and numbers see them.
#pragma once

#include <cstdint>
#include <vector>

#include "base/geometry.h"
#include "base/text.h"

namespace jotlets {

/// What is written, and with what.
struct LetterLook {
  TextView text;    // lines end with "\n"
  TextView font;    // a family; the painter chooses another one where that is not installed
  double size = 0;  // height of the font's letters with what reaches above and below, in pixels
  bool bold = false;
};

/// How much of each pixel letters cover (255: all of it), top row first.
struct LetterMask {
  Size size;
  std::vector<std::uint8_t> coverage;  // width * height
};

class LetterPainter {
 public:
  virtual ~LetterPainter() = default;
  /// The pixels of a text, as small as they can be with the whole height of its lines inside; nothing when it
  /// cannot be painted. The same look gives the same mask.
  virtual LetterMask Paint(const LetterLook& look) const = 0;
};

}  // namespace jotlets

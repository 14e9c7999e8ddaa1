// The system's fonts as drawn texts see them.
#pragma once

#include "picture/letter_painter.h"

namespace jotlets {

class SystemLetters final : public LetterPainter {
 public:
  LetterMask Paint(const LetterLook& look) const override;
};

}  // namespace jotlets

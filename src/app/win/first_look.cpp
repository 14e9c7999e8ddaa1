#include "app/win/first_look.h"

#include "note/papers.h"
#include "skin/win/program_skins.h"

namespace jotlets {

void SetFirstLook(Options& options) {
  constexpr std::int32_t kSide = 280;
  options.skin = kPaperSkin;
  options.defaultWidth = options.defaultHeight = kSide;
  options.shadows = true;
  // Of the named papers, which turn dark where everything does.
  options.newJotletColour = ColourNumber(kPapers[0].r, kPapers[0].g, kPapers[0].b);
}

}  // namespace jotlets

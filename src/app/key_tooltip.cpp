#include "app/key_tooltip.h"

namespace jotlets {

Text KeyTooltip(Text title, const std::vector<Text>& lines) {
  constexpr std::size_t kRoom = 127;
  for (const Text& line : lines) {
    if (title.size() + 1 + line.size() <= kRoom) title += u"\n" + line;
  }
  return title;
}

}  // namespace jotlets

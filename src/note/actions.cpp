#include "note/actions.h"

#include <array>

namespace jotlets {
namespace {

constexpr std::array kNames = {
#define JOTLETS_NAME(name) TextView(u"" #name),
    JOTLETS_ACTIONS(JOTLETS_NAME)
#undef JOTLETS_NAME
};
static_assert(kNames.size() + 1 == kActionEnd);

}  // namespace

ActionCode ActionFromName(TextView name) {
  for (std::size_t row = 0; row < kNames.size(); ++row) {
    if (EqualIgnoreCase(kNames[row], name)) return static_cast<ActionCode>(row + 1);
  }
  return kActionNone;
}

Text ActionName(std::int32_t code) {
  return code > kActionNone && code < kActionEnd ? FoldCase(kNames[static_cast<std::size_t>(code - 1)])
                                                 : Text();
}

}  // namespace jotlets

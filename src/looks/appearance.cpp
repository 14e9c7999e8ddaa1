#include "looks/appearance.h"

namespace jotlets {

Appearance AppearanceFor(std::int32_t choice, const SystemLook& system) {
  const bool dark = choice == kAlwaysDark || (choice != kAlwaysLight && system.dark);
  return {dark && !system.contrast, system.contrast, system.moves};
}

}  // namespace jotlets

// How the program looks: light, dark, or in the high contrast that the system's user has chosen.
#pragma once

#include <cstdint>
#include <optional>

#include "base/geometry.h"

namespace jotlets {

/// The colours of the system's high contrast, which take the place of all others.
struct ContrastColours {
  Colour paper;
  Colour ink;
  Colour chosen;  // below what is active or selected
  Colour chosenInk;
  Colour link;
  friend bool operator==(const ContrastColours&, const ContrastColours&) = default;
};

/// What the system says of its own look.
struct SystemLook {
  bool dark = false;
  std::optional<ContrastColours> contrast;
  bool moves = true;  // it animates its own windows
  friend bool operator==(const SystemLook&, const SystemLook&) = default;
};

/// The values of the option `Appearance`.
enum AppearanceChoice : std::int32_t { kAsTheSystem, kAlwaysLight, kAlwaysDark };

/// How the program looks now.
struct Appearance {
  bool dark = false;  // never with high contrast, whose colours are neither ours nor to be changed
  std::optional<ContrastColours> contrast;
  bool moves = true;
  friend bool operator==(const Appearance&, const Appearance&) = default;
};

/// What the option and the system make of it; an unknown choice is that of the system.
Appearance AppearanceFor(std::int32_t choice, const SystemLook& system);

}  // namespace jotlets

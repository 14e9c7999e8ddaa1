// Keys of the keyboard, as commands and editors go by them.
#pragma once

#include <cstdint>

namespace jotlets {

/// A key with its modifiers. Keys are virtual-key codes of the platform, which for letters and digits are
/// their ASCII codes.
struct Shortcut {
  std::uint16_t key = 0;
  bool ctrl = false;
  bool shift = false;
  bool alt = false;
  friend bool operator==(const Shortcut&, const Shortcut&) = default;
};

/// Keys that are no letter or digit.
enum Key : std::uint16_t {
  kTabKey = 0x09,
  kEnterKey = 0x0D,
  kSpaceKey = 0x20,
  kLeftKey = 0x25,
  kUpKey = 0x26,
  kRightKey = 0x27,
  kDownKey = 0x28,
  kInsertKey = 0x2D,
  kDeleteKey = 0x2E,
  kMenuKey = 0x5D,
  kF2Key = 0x71,
  kF3Key = 0x72,
  kF6Key = 0x75,
  kSemicolonKey = 0xBA,
  kPlusKey = 0xBB,
  kCommaKey = 0xBC,
  kMinusKey = 0xBD,
  kFullStopKey = 0xBE,
};

}  // namespace jotlets

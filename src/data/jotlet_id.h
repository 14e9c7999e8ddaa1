// Note identities: how fresh ones are made, and which texts from outside may serve as one, or as a path. An
// id names the note's content file, so it must be a plain file name.
#pragma once

#include <cstdint>

#include "base/clock.h"
#include "base/text.h"

namespace jotlets {

/// Whether `text` can name a file inside a folder on every Windows file system: 1 to 200 units, no
/// separators, wildcards or control characters, no reserved device name, no blank at either end and no full
/// stop at the end.
bool IsPlainFileName(TextView text);

/// Whether `text` can be the full path of a file, on a drive or on the network. The names of devices and of
/// the system's own objects are left out, and so is what no name holds.
bool IsPathOfFile(TextView text);

/// Whether other programs can name a note by this id: a plain file name without blanks, which end an id in a
/// command, and commas, which end one in a list.
bool IsAddressableId(TextView id);

/// Makes fresh note identities.
class IdSource {
 public:
  /// `instance` tells this run of the program from others.
  explicit IdSource(std::uint32_t instance) : instance_(instance) {}

  /// Hour, minute, second, instance and a counter, each in upper-case hexadecimal without padding. The
  /// counter goes up first; past 10000 it continues at 10, deliberately not at 0 or 1.
  Text Next(const LocalTime& now);

 private:
  std::uint32_t instance_;
  std::uint32_t counter_ = 0;
};

}  // namespace jotlets

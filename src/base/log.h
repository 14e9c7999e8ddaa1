// The activity log as every room sees it.
#pragma once

#include "base/text.h"

namespace jotlets {

/// Levels in use.
inline constexpr int kLogLifecycle = 1;  // start, exit, where the data is, and what went wrong
inline constexpr int kLogDetail = 3;     // saves, backups, commands, wake and attach passes

class Log {
 public:
  virtual ~Log() = default;
  /// Whether an entry of this level is written at all: ask before building an expensive text.
  virtual bool Writes(int level) const = 0;
  virtual void Write(int level, TextView text) = 0;
};

}  // namespace jotlets

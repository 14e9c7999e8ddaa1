// The activity log as every room sees it.
#pragma once

#include <concepts>

#include "base/text.h"

namespace jotlets {

/// Levels in use.
inline constexpr int kLogLifecycle = 1;  // start, exit, where the data is, and what went wrong
inline constexpr int kLogDetail = 3;     // saves, backups, commands, wake and attach passes

class Log {
 public:
  virtual ~Log() = default;
  /// Whether an entry of this level is written at all.
  virtual bool Writes(int level) const = 0;

  /// Writes one entry made of texts and whole numbers. They are put together only when the level is written:
  /// an entry that is off costs the question.
  template <typename... Parts>
  void Write(int level, const Parts&... parts) {
    if (!Writes(level)) return;
    Text entry;
    (Add(entry, parts), ...);
    WriteEntry(level, entry);
  }

 private:
  virtual void WriteEntry(int level, TextView text) = 0;

  static void Add(Text& entry, TextView part) { entry.append(part); }
  static void Add(Text& entry, std::integral auto part) {
    entry.append(IntText(static_cast<std::int64_t>(part)));
  }
};

}  // namespace jotlets

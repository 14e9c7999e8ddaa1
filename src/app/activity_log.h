// The activity log: "activity.log" in the data folder, one line an entry, nothing held open.
#pragma once

#include <utility>
#include <vector>

#include "base/clock.h"
#include "base/files.h"
#include "base/log.h"

namespace jotlets {

/// One entry: local time, a blank, the text on one line and cut to 1024 units and "...", a line feed. The
/// last entry of a run ("Jotlets closed...") is followed by an empty line.
Text LogEntry(const LocalTime& time, TextView text);

/// Writes entries whose level is at most the `Debug` option. What is logged before the data folder and the
/// level are known is held, and written or dropped by `Open`. A log that cannot be written is no error.
class ActivityLog final : public Log {
 public:
  ActivityLog(Files& files, const Clock& clock) : files_(files), clock_(clock) {}

  void Open(TextView path, int highestLevel);

  bool Writes(int level) const override;

 private:
  void WriteEntry(int level, TextView text) override;

  Files& files_;
  const Clock& clock_;
  Text path_;  // empty until `Open`
  int highestLevel_ = 0;
  std::vector<std::pair<int, Text>> held_;  // level and finished entry
};

}  // namespace jotlets

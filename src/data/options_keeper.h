// The user's options and their file: read at the start, written when they have changed.
#pragma once

#include "base/clock.h"
#include "base/code_page.h"
#include "base/files.h"
#include "base/log.h"
#include "data/options.h"

namespace jotlets {

class OptionsKeeper {
 public:
  OptionsKeeper(Files& files, const CodePage& ansi, const Clock& clock, Log& log)
      : files_(files), ansi_(ansi), clock_(clock), log_(log) {}

  /// The options; the same object for as long as the keeper lives. Whoever changes them says so by
  /// `SetDirty`.
  Options& Current() { return options_; }
  const Options& Current() const { return options_; }

  /// Takes what the options file of a data folder says, for a start that has not come to load it.
  void Peek(TextView dataFolder);
  /// Loads the options of a data folder, which are written back from now on. A file that could be neither
  /// read nor kept under another name is never replaced, and no closed note is dropped while that holds.
  void Load(TextView dataFolder);

  void SetDirty() { dirty_ = true; }
  /// Writes the options file; a failure is logged.
  void Save();
  void SaveIfDirty() {
    if (dirty_) Save();
  }

 private:
  Files& files_;
  const CodePage& ansi_;
  const Clock& clock_;
  Log& log_;
  Options options_;
  Text path_;
  bool dirty_ = false;
  bool unread_ = false;
};

}  // namespace jotlets

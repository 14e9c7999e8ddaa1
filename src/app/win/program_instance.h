// The single instance of the program in this session, and starting the program anew.
#pragma once

#include "base/log.h"
#include "base/text.h"
#include "base/win/unique_handle.h"

namespace jotlets {

inline constexpr wchar_t kMainWindowClass[] = L"BraskSoftwareJotletsMain";

class ProgramInstance {
 public:
  /// Becomes the one instance; false when another one runs.
  bool Claim();
  /// Becomes the one instance, or has the running one come forward, and is then false. An instance that was
  /// ended a moment ago may still hold its claim without answering: it is waited for, some seconds at most.
  bool ClaimOrBringForward();
  void Release() { mutex_.reset(); }

  /// The restart routine: gives the claim up, starts the program file anew and ends this process.
  [[noreturn]] void Restart(Log& log);

 private:
  UniqueHandle mutex_;
};

/// Sends a text to the running instance as copy-data; false when none runs or it does not take it in time.
bool SendToRunningInstance(TextView text);

/// Asks the running instance to close; false when none runs.
bool AskRunningInstanceToClose();

}  // namespace jotlets

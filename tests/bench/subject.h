// The two programs that are measured in turns, started and watched from outside.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "base/text.h"
#include "base/win/unique_handle.h"

namespace jotlets {

/// A program with so many shown notes.
struct Subject {
  const char* name;
  Text commandLine;
  const wchar_t* noteClass;
  const wchar_t* endpoint;  // the class of the window that answers copy-data
  UINT showOrHide;          // to the endpoint: shows all notes, or hides them when they are shown
  WPARAM showOrHideWParam;
  Text folder;  // its data folder
  bool bare = true;
};

/// Seconds from some beginning.
double Seconds();

/// Ourselves and the bare program, with so many notes that stand in a data folder made for them, and so many
/// further ones that are asleep, which the bare program does not have; with shadows, and ours in the skin of
/// a first run then.
Subject JotletsWith(int notes, int further = 0, bool shadows = false);
Subject BareWith(int notes, int further = 0, bool shadows = false);
/// Ourselves with as many notes that sleep and are all due when the program starts.
Subject JotletsWaking(int notes);

/// A started subject; ended with this object.
class RunningSubject {
 public:
  /// Starts it and waits until it answers and shows its notes: nothing when it does not.
  static std::optional<RunningSubject> Start(const Subject& subject, int notes);
  RunningSubject(RunningSubject&&) = default;
  RunningSubject& operator=(RunningSubject&&) = delete;
  RunningSubject(const RunningSubject&) = delete;
  RunningSubject& operator=(const RunningSubject&) = delete;
  ~RunningSubject();

  const Subject& What() const { return *subject_; }
  HWND Endpoint() const { return endpoint_; }
  double SecondsToStart() const { return secondsToStart_; }
  double PrivateBytes() const;
  /// The processor time it has used, in seconds.
  double ProcessorSeconds() const;
  /// Waits until it uses no processor time any more; when that began, as `Seconds`.
  double WaitUntilIdle() const;
  int VisibleNotes() const;

 private:
  RunningSubject(const Subject& subject, UniqueHandle process)
      : subject_(&subject), process_(std::move(process)) {}
  const Subject* subject_;
  UniqueHandle process_;
  std::string systemProcess_;  // below Wine
  HWND endpoint_ = nullptr;
  double secondsToStart_ = 0;
};

}  // namespace jotlets

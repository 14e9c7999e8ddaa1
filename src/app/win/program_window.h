// The hidden main window as the parts of the program use it: its timers, and calls to itself that come when
// the message loop gets to them.
#pragma once

#include <windows.h>

namespace jotlets {

enum class ProgramTimer : UINT_PTR {
  kSave = 1224,
  kFlash = 1225,
  kMinute = 1226,
  kSecond = 1227,
  kAnimation = 1228,
  kOptions = 1229,
  kBackup = 1230,   // only while a backup is under way
  kJournal = 1231,  // from the first change that is not in the journal
  kSearch = 1232,   // from the last change that the search does not know of
};

enum ProgramMessage : UINT {
  kTrayMessage = WM_APP + 1,
  kPurgeMessage,
  kCheckContentMessage,
  kRefreshStacksMessage,
  kJournalMessage,
  kUnknownHeightMessage,
  kClientAnswersMessage,
  kSearchMessage,
  kPictureMessage,
};

class ProgramWindow {
 public:
  void SetHandle(HWND window) { window_ = window; }
  HWND Handle() const { return window_; }

  /// Starts a timer with its period, anew when it runs already.
  void Start(ProgramTimer timer) const;
  /// False when it did not run.
  bool Stop(ProgramTimer timer) const { return KillTimer(window_, static_cast<UINT_PTR>(timer)) != 0; }
  void Post(ProgramMessage message) const { PostMessageW(window_, message, 0, 0); }

 private:
  HWND window_ = nullptr;
};

/// Where the program is between its start and its end.
struct ProgramState {
  bool ready = false;      // the notes are loaded
  bool exiting = false;    // the shutdown has begun, or the data is being replaced
  bool notesGone = false;  // the notes have been saved for the last time and closed
};

}  // namespace jotlets

// The desktop as these tests use it: other processes, their windows, and what a person does with mouse and
// keys. Nothing here sleeps for a fixed time: what is waited for is looked at again and again, up to a bound.
#pragma once

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <optional>
#include <vector>

#include "base/geometry.h"
#include "base/text.h"
#include "base/win/unique_handle.h"

namespace jotlets {

/// Longer than anything takes that works, even on a busy machine; in milliseconds.
inline constexpr DWORD kPatience = 30000;

/// Waits until `condition` holds; false when it did not in time. Messages of this thread are served
/// meanwhile, since the program waits for its listeners.
bool WaitUntil(const std::function<bool()>& condition, DWORD milliseconds = kPatience);

/// A started program, ended with this object at the latest.
class Process {
 public:
  Process() = default;
  /// `input` and `output` are files to read from and write to, when not empty.
  Process(const Text& program, const Text& arguments, const Text& input = {}, const Text& output = {});
  /// A program that is running already.
  explicit Process(DWORD id);
  Process(Process&&) = default;
  Process& operator=(Process&&) = default;
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process() { Kill(); }

  bool Running() const { return handle_ && WaitForSingleObject(handle_.get(), 0) == WAIT_TIMEOUT; }
  /// Its exit code once it has ended by itself; nothing when it does not.
  std::optional<DWORD> WaitForEnd() const;
  /// Ends it at once, with nothing saved, and waits until it is gone. `Strike` does not wait.
  void Kill() const;
  void Strike() const { TerminateProcess(handle_.get(), 99); }
  DWORD Id() const { return GetProcessId(handle_.get()); }
  /// Why it could not be started; 0 where it could.
  DWORD StartError() const { return startError_; }

 private:
  UniqueHandle handle_;
  DWORD startError_ = 0;
};

/// Top-level windows of a class, in Z order; of one process when `process` is not 0.
std::vector<HWND> WindowsOfClass(const wchar_t* className, DWORD process = 0);
Rect BoundsOf(HWND window);
/// The beginning of the text of any window, also of a control of another process.
Text TextOfWindow(HWND window);
/// A note's text as its editor shows it, lines ended by "\r\n".
Text ShownText(HWND note);

/// Presses keys together and lets them go in reverse: `PressKeys({VK_CONTROL, 'N'})`. They go, as what
/// `TypeText` types, through the system's own input queue to whatever has the focus.
void PressKeys(std::initializer_list<WORD> keys);
void TypeText(TextView text);
/// Holds Ctrl, Shift or Alt while the mouse is used, until it is let go.
void HoldKey(WORD key, bool down);
/// Clicks, and waits for what that does.
bool ClickUntil(const std::function<bool()>& condition, Point at, bool right = false);
/// Presses the left button on `window` at `from`, moves by `offset` in a few steps and lets go; `halfway` is
/// called in the middle of it.
bool Drag(HWND window, Point from, Point offset, const std::function<void()>& halfway = nullptr);
/// Drags something that is in `window`, which has the mouse only while it is on its way.
bool DragFrom(HWND window, Point from, Point to);
/// Whether keys go to a window of a note.
bool HasKeyboard(HWND note);
/// Whether what is typed goes into a note's text.
bool TypesInto(HWND note);
/// Clicks into a note's text and waits until keys go there.
bool ClickIntoText(HWND note);
/// Waits for a box of `process` with a text, presses Enter in it, waits until it is gone and gives the text.
/// `besides` is a dialog that is open anyway.
Text AnswerBox(const Process& process, HWND besides = nullptr);

}  // namespace jotlets

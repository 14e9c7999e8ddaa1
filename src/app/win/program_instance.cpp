#include "app/win/program_instance.h"

#include "base/win/ansi_code_page.h"
#include "base/win/wide.h"
#include "command/interpreter.h"
#include "ui/screen.h"

namespace jotlets {
namespace {

constexpr wchar_t kMutexName[] = L"Jotlets Mutex";
// The running instance may still be loading its notes.
constexpr DWORD kFindMilliseconds = 5000;
constexpr DWORD kAnswerMilliseconds = 10000;
constexpr DWORD kPauseMilliseconds = 50;

HWND FindMainWindow() { return FindWindowW(kMainWindowClass, nullptr); }

HWND WaitForMainWindow() {
  for (DWORD waited = 0;; waited += kPauseMilliseconds) {
    const HWND window = FindMainWindow();
    if (window != nullptr || waited >= kFindMilliseconds) return window;
    Sleep(kPauseMilliseconds);
  }
}

enum class Offer { kTaken, kFailed, kNotYet, kNobodyThere };

Offer OfferText(HWND main, TextView text) {
  const std::string bytes = AnsiCodePage().Encode(text);
  COPYDATASTRUCT record{0, static_cast<DWORD>(bytes.size()), const_cast<char*>(bytes.data())};
  // The user has just started us, so we may pass the right to come to the front on.
  AllowSetForegroundWindow(ASFW_ANY);
  DWORD_PTR taken = 0;
  if (SendMessageTimeoutW(main, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&record), SMTO_ABORTIFHUNG,
                          kAnswerMilliseconds, &taken) == 0) {
    return Offer::kNobodyThere;
  }
  if (taken == static_cast<DWORD_PTR>(Taken::kNotReady)) return Offer::kNotYet;
  return taken == static_cast<DWORD_PTR>(Taken::kFailed) ? Offer::kFailed : Offer::kTaken;
}

}  // namespace

bool ProgramInstance::Claim() {
  UniqueHandle mutex(CreateMutexW(nullptr, FALSE, kMutexName));
  if (!mutex || GetLastError() == ERROR_ALREADY_EXISTS) return false;
  mutex_ = std::move(mutex);
  return true;
}

void ProgramInstance::Restart(Log& log) {
  log.Write(kLogLifecycle, u"Restore: Closing mutex");
  Release();
  Text program = u"\"" + ProgramPath() + u"\"";
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started{};
  if (CreateProcessW(nullptr, WideBuffer(program), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                     &started)) {
    const UniqueHandle process(started.hProcess);
    const UniqueHandle thread(started.hThread);
  } else {
    log.Write(kLogLifecycle, LastErrorText(u"CreateProcess"));
  }
  log.Write(kLogLifecycle, u"Restore: Launching new instance and terminating");
  ExitProcess(0);
}

bool SendToRunningInstance(TextView text) {
  const HWND main = WaitForMainWindow();
  if (main == nullptr) return false;
  // An instance that is still loading does not take it yet.
  for (DWORD waited = 0; waited < kFindMilliseconds; waited += kPauseMilliseconds) {
    const Offer offer = OfferText(main, text);
    if (offer != Offer::kNotYet) return offer == Offer::kTaken;
    Sleep(kPauseMilliseconds);
  }
  return false;
}

bool ProgramInstance::ClaimOrBringForward() {
  // By the clock: an instance that hangs makes each offer take long.
  const ULONGLONG begun = GetTickCount64();
  while (!Claim()) {
    const HWND main = FindMainWindow();
    if (main != nullptr && OfferText(main, u"api do bringforward") == Offer::kTaken) return false;
    if (GetTickCount64() - begun >= kFindMilliseconds) return false;
    Sleep(kPauseMilliseconds);
  }
  return true;
}

bool AskRunningInstanceToClose() {
  const HWND main = FindMainWindow();
  return main != nullptr && PostMessageW(main, WM_CLOSE, 0, 0) != 0;
}

}  // namespace jotlets

#include "app/win/main_frame.h"

#include "base/win/wide.h"
#include "res/resource.h"

namespace jotlets {

CMainFrame::CMainFrame(const Resources& resources, Theme& theme, ProgramInstance& instance, bool rescue)
    : accelerators_(resources.Accelerators(IDA_MAIN)), program_(resources, theme, instance, rescue) {}

CMainFrame::~CMainFrame() = default;

bool CMainFrame::Start() {
  taskbarCreated_ = RegisterWindowMessageW(L"TaskbarCreated");
  if (!RegisterWindowClass(kMainWindowClass) || !Create(kMainWindowClass, WideLiteral(kVersionText), {}, {}))
    return false;
  // The shell is less privileged than a program started as administrator; its broadcast must still come
  // through.
  ChangeWindowMessageFilterEx(Handle(), taskbarCreated_, MSGFLT_ALLOW, nullptr);
  if (program_.Start(Handle())) return true;
  Destroy();
  return false;
}

bool CMainFrame::Translate(MSG& message) {
  if (program_.TranslateDialogKey(message)) return true;
  if (Handle() != nullptr && TranslateAcceleratorW(Handle(), accelerators_.get(), &message)) return true;
  return program_.TranslateDialog(message) || (Handle() != nullptr && program_.TranslateNoteKey(message));
}

LRESULT CMainFrame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COPYDATA:
      return OnCopyData(reinterpret_cast<HWND>(wParam), reinterpret_cast<const COPYDATASTRUCT*>(lParam));
    case WM_TIMER: program_.OnTimer(static_cast<ProgramTimer>(wParam)); return 0;
    case WM_HOTKEY: program_.OnHotKey(static_cast<int>(wParam)); return 0;
    case WM_COMMAND:
      // A key, unlike the menu, may be pressed by mistake.
      if (wParam == MAKEWPARAM(ID_EXIT_JOTLETS, 1)) return program_.OnExitKey(), 0;
      program_.OnCommand(LOWORD(wParam));
      return 0;
    case kTrayMessage:
    case kPurgeMessage:
    case kRefreshStacksMessage:
    case kJournalMessage:
    case kUnknownHeightMessage:
    case kCheckContentMessage:
    case kSearchMessage:
    case kPictureMessage:
    case kClientAnswersMessage: program_.OnMessage(static_cast<ProgramMessage>(message), lParam); return 0;
    case WM_DISPLAYCHANGE:
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE:
      program_.FollowMonitors();
      program_.FollowLook();
      break;
    case WM_CLOSE: program_.ExitJotlets(u"close", false); return 0;
    case WM_QUERYENDSESSION: program_.OnSessionEnding(); return TRUE;
    case WM_ENDSESSION: program_.OnSessionEnded(wParam != 0); return 0;
    default: break;
  }
  if (message == taskbarCreated_ && message != 0) program_.OnTaskbarCreated();
  return Default(message, wParam, lParam);
}

LRESULT CMainFrame::OnCopyData(HWND sender, const COPYDATASTRUCT* record) {
  const ProgramState& state = program_.State();
  if (!state.ready || state.exiting) return static_cast<LRESULT>(Taken::kNotReady);
  return static_cast<LRESULT>(record == nullptr ? Taken::kFailed : program_.OnCopyData(sender, *record));
}

}  // namespace jotlets

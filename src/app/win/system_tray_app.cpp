#include "app/win/system_tray_app.h"

#include <windows.h>

#include "app/win/main_frame.h"
#include "base/win/system_library.h"
#include "base/win/wide.h"
#include "data/text_file.h"
#include "desk/note_file.h"
#include "res/resource.h"

namespace jotlets {
namespace {

// A failure may be that of one message, as of one that is too large to be taken; after many in a row nobody
// could ask us for anything any more.
int RunMessageLoop(CMainFrame& frame) {
  constexpr int kMaxFailures = 50;
  constexpr DWORD kPauseMilliseconds = 10;
  MSG message{};
  for (int failures = 0; failures < kMaxFailures;) {
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got == 0) return static_cast<int>(message.wParam);
    if (got < 0) {
      ++failures;
      Sleep(kPauseMilliseconds);
      continue;
    }
    failures = 0;
    if (frame.Translate(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  frame.ExitNow();
  return 1;
}

// The running instance has a current folder of its own.
Text FullPath(const Text& path) {
  Text full(32768, u'\0');
  const DWORD length =
      GetFullPathNameW(Wide(path), static_cast<DWORD>(full.size()), WideBuffer(full), nullptr);
  full.resize(length < full.size() ? length : 0);
  return full;
}

void Say(const Resources& resources, const Text& text) {
  MessageBoxW(nullptr, Wide(text), Wide(resources.String(IDS_APP_TITLE)), MB_OK);
}

}  // namespace

int CSystemTrayApp::InitInstance(TextView commandLine) {
  // Kept for the life of the process: the editors' window class lives in it.
  if (LoadSystemLibrary(L"msftedit.dll") == nullptr) Say(resources_, resources_.String(IDS_NO_RICH_EDIT));
  const StartRequest request = ParseCommandLine(commandLine);
  switch (request.kind) {
    case StartKind::kUsage: Say(resources_, resources_.String(IDS_USAGE)); return 0;
    case StartKind::kClose: return AskRunningInstanceToClose() ? 0 : 1;
    case StartKind::kNoteFile: return SendNoteFile(request.file);
    case StartKind::kSkinFile: return SendToRunningInstance(FullPath(request.file)) ? 0 : 1;
    case StartKind::kNormal:
    case StartKind::kRescue: break;
  }
  if (!instance_.ClaimOrBringForward()) return 0;
  return RunProgram(request.kind == StartKind::kRescue);
}

int CSystemTrayApp::RunProgram(bool rescue) {
  CMainFrame frame(resources_, theme_, instance_, rescue);
  return frame.Start() ? RunMessageLoop(frame) : 0;
}

int CSystemTrayApp::SendNoteFile(TextView path) {
  const auto refuse = [this, path](UINT text, TextView reason) {
    Say(resources_, ReplaceAll(resources_.String(text), u"%s", path) + Text(reason));
    return 1;
  };
  const FileContent content = DiskFiles().Read(path);
  if (content.state == FileContent::State::kMissing) return refuse(IDS_NOTE_FILE_MISSING, {});
  if (content.state == FileContent::State::kUnreadable) return refuse(IDS_NOTE_FILE_UNREAD, content.reason);
  const AnsiCodePage ansi;
  if (SendToRunningInstance(NoteMessageFromFile(DecodeTextFile(content.bytes, ansi).text))) return 0;
  return refuse(IDS_NOTE_FILE_REFUSED, {});
}

}  // namespace jotlets

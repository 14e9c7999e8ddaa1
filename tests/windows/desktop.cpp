#include "desktop.h"

#include "base/win/wide.h"
#include "editor/win/edit.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// A press of a mouse button that is lost is repeated, as a person would.
constexpr int kAttempts = 3;

UniqueHandle OpenForChild(const Text& path, DWORD access, DWORD how) {
  SECURITY_ATTRIBUTES inherit{sizeof inherit, nullptr, TRUE};
  return OwnHandle(CreateFileW(path.empty() ? L"NUL" : Wide(path), access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                               &inherit, path.empty() ? OPEN_EXISTING : how, 0, nullptr));
}

void SendKey(WORD key, WORD scan, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = scan;
  input.ki.dwFlags = flags;
  SendInput(1, &input, sizeof input);
}

void SendButton(DWORD flags) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  SendInput(1, &input, sizeof input);
}

// Where the mouse comes from an X server, each process learns of a move on its own, and one that is late
// tells of a place where the mouse was before. So it is put there until it stays.
bool MoveMouse(Point to) {
  constexpr int kSteady = 5;
  int steady = 0;
  return WaitUntil([&] {
    POINT at{};
    GetCursorPos(&at);
    ++steady;
    if (at.x != to.x || at.y != to.y) steady = 0;
    if (steady == 0) SetCursorPos(to.x, to.y);
    // Whoever is under the mouse has then looked at what has come.
    SendMessageTimeoutW(WindowFromPoint({to.x, to.y}), WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 1000, nullptr);
    return steady == kSteady;
  });
}

GUITHREADINFO ThreadOf(HWND window) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
  return info;
}

}  // namespace

bool WaitUntil(const std::function<bool()>& condition, DWORD milliseconds) {
  const ULONGLONG end = GetTickCount64() + milliseconds;
  for (;;) {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    if (condition()) return true;
    if (GetTickCount64() >= end) return false;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
  }
}

Process::Process(const Text& program, const Text& arguments, const Text& input, const Text& output) {
  Text line = u"\"" + program + u"\" " + arguments;
  const UniqueHandle in = OpenForChild(input, GENERIC_READ, OPEN_EXISTING);
  const UniqueHandle out = OpenForChild(output, GENERIC_WRITE, CREATE_ALWAYS);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = in.get();
  startup.hStdOutput = startup.hStdError = out.get();
  PROCESS_INFORMATION started{};
  if (CreateProcessW(nullptr, WideBuffer(line), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                     &started)) {
    handle_.reset(started.hProcess);
    CloseHandle(started.hThread);
  } else {
    startError_ = GetLastError();
  }
}

Process::Process(DWORD id)
    : handle_(OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE | PROCESS_QUERY_INFORMATION, FALSE, id)) {}

std::optional<DWORD> Process::WaitForEnd() const {
  DWORD code = 0;
  if (!handle_ || !WaitUntil([this] { return !Running(); })) return std::nullopt;
  return GetExitCodeProcess(handle_.get(), &code) ? std::optional(code) : std::nullopt;
}

void Process::Kill() const {
  if (!Running()) return;
  Strike();
  WaitForSingleObject(handle_.get(), kPatience);
}

std::vector<HWND> WindowsOfClass(const wchar_t* className, DWORD process) {
  std::vector<HWND> windows;
  const auto take = [](HWND window, LPARAM list) -> BOOL {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
  };
  EnumWindows(take, reinterpret_cast<LPARAM>(&windows));
  std::erase_if(windows, [className, process](HWND window) {
    wchar_t name[64]{};
    GetClassNameW(window, name, 64);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    return lstrcmpW(name, className) != 0 || (process != 0 && process != owner);
  });
  return windows;
}

Rect BoundsOf(HWND window) {
  RECT bounds{};
  GetWindowRect(window, &bounds);
  return FromRECT(bounds);
}

Text TextOfWindow(HWND window) {
  Text text(16384, u'\0');
  DWORD_PTR units = 0;
  SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_NORMAL,
                      5000, &units);
  return text.substr(0, text.find(u'\0'));
}

Text ShownText(HWND note) { return TextOfWindow(GetDlgItem(note, BEdit::kControlId)); }

void HoldKey(WORD key, bool down) {
  const HMODULE system = GetModuleHandleW(L"ntdll.dll");
  if (GetProcAddress(system, "wine_get_version") == nullptr)
    return SendKey(key, static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)), down ? 0u : KEYEVENTF_KEYUP);
  // Wine takes the modifiers from the X server whenever the mouse moves: there, the key must be a real one.
  const Text name = key == VK_CONTROL ? u"ctrl" : key == VK_SHIFT ? u"shift" : u"alt";
  Process(u"C:\\windows\\system32\\start.exe",
          Text(u"/wait /unix /usr/bin/xdotool ") + (down ? u"keydown " : u"keyup ") + name)
      .WaitForEnd();
}

void PressKeys(std::initializer_list<WORD> keys) {
  const auto scan = [](WORD key) { return static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)); };
  for (const WORD key : keys) SendKey(key, scan(key), 0);
  for (auto key = std::rbegin(keys); key != std::rend(keys); ++key)
    SendKey(*key, scan(*key), KEYEVENTF_KEYUP);
}

void TypeText(TextView text) {
  for (const char16_t unit : text) {
    SendKey(0, unit, KEYEVENTF_UNICODE);
    SendKey(0, unit, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
  }
}

bool ClickUntil(const std::function<bool()>& condition, Point at, bool right) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (!MoveMouse(at)) return false;
    SendButton(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
    SendButton(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
    if (WaitUntil(condition, kPatience / kAttempts)) return true;
  }
  return false;
}

bool Drag(HWND window, Point from, Point offset, const std::function<void()>& halfway) {
  bool held = false;
  for (int attempt = 0; attempt < kAttempts && !held; ++attempt) {
    if (!MoveMouse(from)) return false;
    SendButton(MOUSEEVENTF_LEFTDOWN);
    held = WaitUntil([window] { return ThreadOf(window).hwndCapture == window; }, kPatience / kAttempts);
    if (!held) SendButton(MOUSEEVENTF_LEFTUP);
  }
  constexpr int kSteps = 4;
  for (int step = 1; held && step <= kSteps; ++step) {
    MoveMouse({from.x + offset.x * step / kSteps, from.y + offset.y * step / kSteps});
    if (step == kSteps / 2 && halfway) halfway();
  }
  SendButton(MOUSEEVENTF_LEFTUP);
  return held && WaitUntil([window] { return ThreadOf(window).hwndCapture == nullptr; });
}

bool DragFrom(HWND window, Point from, Point to) {
  constexpr int kNearby = 15;
  if (!MoveMouse(from)) return false;
  SendButton(MOUSEEVENTF_LEFTDOWN);
  const bool held = WaitUntil([&] {
    const bool moved = MoveMouse({from.x + kNearby, from.y}) && MoveMouse({from.x + kNearby, from.y + 2});
    return moved && ThreadOf(window).hwndCapture == window;
  });
  if (held) MoveMouse(to);
  SendButton(MOUSEEVENTF_LEFTUP);
  return held && WaitUntil([window] { return ThreadOf(window).hwndCapture == nullptr; });
}

bool HasKeyboard(HWND note) {
  const HWND focus = ThreadOf(note).hwndFocus;
  return GetForegroundWindow() == note && (focus == note || IsChild(note, focus));
}

bool TypesInto(HWND note) {
  return GetForegroundWindow() == note && ThreadOf(note).hwndFocus == GetDlgItem(note, BEdit::kControlId);
}

bool ClickIntoText(HWND note) {
  const Rect text = BoundsOf(GetDlgItem(note, BEdit::kControlId));
  return ClickUntil([note] { return TypesInto(note); },
                    {(text.left + text.right) / 2, (text.top + text.bottom) / 2});
}

Text AnswerBox(const Process& process, HWND besides) {
  HWND box = nullptr;
  Text text;
  const bool there = WaitUntil([&] {
    for (const HWND window : WindowsOfClass(L"#32770", process.Id())) {
      if (window != besides) box = window;
    }
    if (box == nullptr || GetForegroundWindow() != box) return false;
    // A box may have an icon, which is a static control without a text.
    for (HWND part = nullptr;
         text.empty() && (part = FindWindowExW(box, part, L"Static", nullptr)) != nullptr;) {
      text = TextOfWindow(part);
    }
    return !text.empty();
  });
  if (!there) return u"(no box)";
  PressKeys({VK_RETURN});
  return WaitUntil([box] { return !IsWindow(box); }) ? text : u"(stays open) " + text;
}

}  // namespace jotlets

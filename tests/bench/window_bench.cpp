// Measures the program against a bare one that does the same with nothing behind it, in turns within one run:
// starting with many visible notes, memory per note, and a command's round trip.
//
//   window_bench               prints the figures; needs jotlets.exe beside it and a screen
//   window_bench --bare N DIR  is the bare program: N layered pop-ups with a rich edit child each, the
//   content read
//                              from DIR, and a window that echoes copy-data
#include <windows.h>

#include <psapi.h>
#include <richedit.h>
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "base/win/disk_files.h"
#include "base/win/unique_handle.h"
#include "base/win/wide.h"
#include "data/data_file.h"
#include "data/data_folder.h"
#include "data/text_file.h"
#include "ui/screen.h"

namespace jotlets {
namespace {

constexpr int kNotes = 1000;
constexpr int kRounds = 5;
constexpr int kPings = 3000;
constexpr wchar_t kBareClass[] = L"BareNote";
constexpr wchar_t kEchoClass[] = L"BareEcho";
constexpr wchar_t kNoteClass[] = L"BraskJotletNote";
constexpr wchar_t kMainClass[] = L"BraskSoftwareJotletsMain";

double Seconds() {
  LARGE_INTEGER now{};
  LARGE_INTEGER frequency{};
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

Text NoteId(int number) { return u"BENCH" + IntText(number); }

// ---- the bare program

DWORD CALLBACK ReadBytes(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* got) {
  auto& rest = *reinterpret_cast<std::string_view*>(cookie);
  const auto count = std::min<std::size_t>(rest.size(), static_cast<std::size_t>(wanted));
  std::copy_n(rest.data(), count, reinterpret_cast<char*>(buffer));
  rest.remove_prefix(count);
  *got = static_cast<LONG>(count);
  return 0;
}

LRESULT CALLBACK EchoProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_COPYDATA) return DefWindowProcW(window, message, wParam, lParam);
  COPYDATASTRUCT answer = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
  SendMessageW(reinterpret_cast<HWND>(wParam), WM_COPYDATA, reinterpret_cast<WPARAM>(window),
               reinterpret_cast<LPARAM>(&answer));
  return TRUE;
}

void RegisterBareClass(const wchar_t* name, WNDPROC procedure) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = name;
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
  RegisterClassW(&windowClass);
}

void CreateBareNote(int number, const Text& folder) {
  const HWND note = CreateWindowExW(WS_EX_LAYERED | WS_EX_TOOLWINDOW, kBareClass, Wide(NoteId(number)),
                                    WS_POPUP | WS_CLIPCHILDREN, (number % 40) * 25, (number / 40) * 25, 232,
                                    160, nullptr, nullptr, nullptr, nullptr);
  SetLayeredWindowAttributes(note, 0, 255, LWA_ALPHA);
  const HWND edit = CreateWindowExW(0, MSFTEDIT_CLASS, L"",
                                    WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL, 6, 24,
                                    220, 130, note, nullptr, nullptr, nullptr);
  const FileContent content = DiskFiles().Read(folder + u"rtf\\" + NoteId(number) + u".rtf");
  std::string_view rest = content.bytes;
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&rest), 0, ReadBytes};
  SendMessageW(edit, EM_STREAMIN, SF_RTF, reinterpret_cast<LPARAM>(&stream));
  ShowWindow(note, SW_SHOWNOACTIVATE);
}

int RunBare(int notes, const Text& folder) {
  EnableDpiAwareness();
  LoadLibraryW(L"msftedit.dll");
  RegisterBareClass(kBareClass, DefWindowProcW);
  RegisterBareClass(kEchoClass, EchoProcedure);
  for (int i = 0; i < notes; ++i) CreateBareNote(i, folder);
  CreateWindowExW(0, kEchoClass, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}

// ---- the measuring side

struct CountedClass {
  const wchar_t* name;
  int count;
};

BOOL CALLBACK CountVisible(HWND window, LPARAM parameter) {
  auto& counted = *reinterpret_cast<CountedClass*>(parameter);
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  if (IsWindowVisible(window) && wcscmp(name, counted.name) == 0) ++counted.count;
  return TRUE;
}

int VisibleWindows(const wchar_t* className) {
  CountedClass counted{className, 0};
  EnumWindows(CountVisible, reinterpret_cast<LPARAM>(&counted));
  return counted.count;
}

struct Subject {
  const char* name;
  Text commandLine;
  const wchar_t* noteClass;
  const wchar_t* endpoint;
};

UniqueHandle Start(const Subject& subject) {
  Text commandLine = subject.commandLine;
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started{};
  if (!CreateProcessW(nullptr, WideBuffer(commandLine), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &startup, &started)) {
    return nullptr;
  }
  CloseHandle(started.hThread);
  return UniqueHandle(started.hProcess);
}

// Until the endpoint answers and all windows are there; false after a minute. The windows are counted only
// when the endpoint has answered: asking for them all the time would slow down what is measured.
bool WaitUntilUp(const Subject& subject, int notes) {
  const double limit = Seconds() + 60;
  while (Seconds() < limit) {
    const HWND endpoint = FindWindowW(subject.endpoint, nullptr);
    DWORD_PTR answer = 0;
    if (endpoint != nullptr &&
        SendMessageTimeoutW(endpoint, WM_NULL, 0, 0, SMTO_NORMAL, 60000, &answer) != 0 &&
        VisibleWindows(subject.noteClass) == notes) {
      return true;
    }
    Sleep(10);
  }
  return false;
}

SIZE_T PrivateBytes(HANDLE process) {
  PROCESS_MEMORY_COUNTERS counters{};
  counters.cb = sizeof counters;
  GetProcessMemoryInfo(process, &counters, sizeof counters);
  return counters.PagefileUsage;
}

void Stop(const Subject& subject, HANDLE process) {
  TerminateProcess(process, 0);
  WaitForSingleObject(process, 10000);
  while (FindWindowW(subject.endpoint, nullptr) != nullptr) Sleep(1);
}

LRESULT CALLBACK ReplyProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return message == WM_COPYDATA ? TRUE : DefWindowProcW(window, message, wParam, lParam);
}

double MeasurePings(const Subject& subject, HWND self) {
  const HWND endpoint = FindWindowW(subject.endpoint, nullptr);
  char text[] = "api do ping";
  COPYDATASTRUCT record{7, sizeof text - 1, text};
  std::vector<double> batches;
  // The first batch also waits for what the start has left to do, and is not counted.
  for (int batch = 0; batch < 11; ++batch) {
    const double begin = Seconds();
    for (int i = 0; i < kPings / 10; ++i) {
      SendMessageW(endpoint, WM_COPYDATA, reinterpret_cast<WPARAM>(self), reinterpret_cast<LPARAM>(&record));
    }
    batches.push_back((Seconds() - begin) / (kPings / 10));
  }
  batches.erase(batches.begin());
  return Median(batches);
}

struct Figures {
  std::vector<double> start;
  std::vector<double> memory;
  std::vector<double> ping;
};

bool Measure(const Subject& subject, int notes, HWND self, Figures& figures) {
  const double begin = Seconds();
  const UniqueHandle process = Start(subject);
  if (!process || !WaitUntilUp(subject, notes)) {
    std::printf("%s did not come up with %d notes\n", subject.name, notes);
    if (process) Stop(subject, process.get());
    return false;
  }
  figures.start.push_back(Seconds() - begin);
  figures.memory.push_back(static_cast<double>(PrivateBytes(process.get())));
  figures.ping.push_back(MeasurePings(subject, self));
  Stop(subject, process.get());
  return true;
}

Text ScratchFolder(TextView name) {
  Text folder(MAX_PATH, u'\0');
  folder.resize(GetTempPathW(MAX_PATH, WideBuffer(folder)));
  return folder.append(u"jotlets-bench-").append(name).append(u"\\");
}

// A data folder with so many text notes, of a few lines each.
Text MakeDataFolder(int notes) {
  DiskFiles files;
  const Text folder = ScratchFolder(IntText(notes));
  MakeDataFolders(files, folder);
  std::vector<JotletData> records(static_cast<std::size_t>(notes));
  DataFileView view;
  view.installId = u"BENCH";
  for (int i = 0; i < notes; ++i) {
    JotletData& record = records[static_cast<std::size_t>(i)];
    record.x = (i % 40) * 25;
    record.y = (i / 40) * 25;
    record.width = 232;
    record.height = 160;
    record.id = NoteId(i);
    record.title = u"Note " + IntText(i);
    view.jotlets.push_back(&record);
    files.Write(folder + ContentPath(record),
                "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Segoe UI;}}\\fs20 First line\\par {\\b Second} "
                "line\\par third\\par}");
  }
  files.Write(folder + Text(kDataFileName), EncodeTextFile(ComposeDataFile(view)));
  return folder;
}

void UseDataFolder(const Text& folder) {
  RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Brask\\jotlets", L"Path", REG_SZ, folder.c_str(),
                  static_cast<DWORD>((folder.size() + 1) * sizeof(wchar_t)));
}

void Print(const char* what, double ours, double bare, double scale, const char* unit, double aim) {
  std::printf("%-28s jotlets %9.2f %s   bare %9.2f %s   ratio %.2f (aim: at most %.1f)\n", what, ours * scale,
              unit, bare * scale, unit, ours / bare, aim);
}

int RunBench() {
  RegisterBareClass(L"BenchReply", ReplyProcedure);
  const HWND self =
      CreateWindowExW(0, L"BenchReply", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
  Figures ours[2];
  Figures bare[2];
  const int sizes[2] = {10, kNotes};
  for (int which = 0; which < 2; ++which) {
    const Text folder = MakeDataFolder(sizes[which]);
    UseDataFolder(folder);
    const Subject program{"jotlets", u"\"" + ProgramFolder() + u"jotlets.exe\"", kNoteClass, kMainClass};
    const Subject bareProgram{"bare",
                              u"\"" + ProgramPath() + u"\" --bare " + IntText(sizes[which]) + u" " + folder,
                              kBareClass, kEchoClass};
    for (int round = 0; round < kRounds; ++round) {
      if (!Measure(program, sizes[which], self, ours[which])) return 1;
      if (!Measure(bareProgram, sizes[which], self, bare[which])) return 1;
    }
  }
  std::printf("medians of %d rounds in turns\n", kRounds);
  Print("start with 1000 notes", Median(ours[1].start), Median(bare[1].start), 1000, "ms", 1.3);
  Print("do ping, 10 notes", Median(ours[0].ping), Median(bare[0].ping), 1e6, "us", 1.2);
  Print("do ping, 1000 notes", Median(ours[1].ping), Median(bare[1].ping), 1e6, "us", 1.2);
  const auto perNote = [&sizes](const Figures(&figures)[2]) {
    return (Median(figures[1].memory) - Median(figures[0].memory)) / (sizes[1] - sizes[0]);
  };
  Print("memory per visible note", perNote(ours), perNote(bare), 1.0 / 1024, "KB", 1.2);
  return 0;
}

}  // namespace
}  // namespace jotlets

int main() {
  using namespace jotlets;
  int count = 0;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  if (count == 4 && wcscmp(arguments[1], L"--bare") == 0) {
    return RunBare(_wtoi(arguments[2]), Text(FromWide(arguments[3])));
  }
  return RunBench();
}

#include "subject.h"

#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "bare_program.h"
#include "base/win/disk_files.h"
#include "base/win/wide.h"
#include "data/data_file.h"
#include "data/data_folder.h"
#include "data/text_file.h"
#include "res/resource.h"
#include "ui/screen.h"

namespace jotlets {
namespace {

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

Text ScratchFolder(TextView name) {
  Text folder(MAX_PATH, u'\0');
  folder.resize(GetTempPathW(MAX_PATH, WideBuffer(folder)));
  return folder.append(u"jotlets-bench-").append(name).append(u"\\");
}

Text FolderOf(int notes, int further) {
  return ScratchFolder(IntText(notes) + (further == 0 ? Text() : u"-" + IntText(further)));
}

// A data folder with so many text notes, of a few lines each.
Text MakeDataFolder(int notes, int further, bool asleep = false, bool shadows = false) {
  DiskFiles files;
  const Text folder = FolderOf(notes, further);
  MakeDataFolders(files, folder);
  std::vector<JotletData> records(static_cast<std::size_t>(notes + further));
  DataFileView view;
  view.installId = u"BENCH";
  for (int i = 0; i < notes + further; ++i) {
    JotletData& record = records[static_cast<std::size_t>(i)];
    record.x = (i % 40) * 25;
    record.y = (i / 40) * 25;
    record.width = 232;
    record.height = 160;
    record.id = BenchNoteId(i);
    record.title = u"Note " + IntText(i);
    record.sleep.asleep = asleep || i >= notes;
    record.sleep.nextWake = asleep ? 1 : std::numeric_limits<std::int32_t>::max();
    view.jotlets.push_back(&record);
    files.Write(folder + ContentPath(record),
                "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Segoe UI;}}\\fs20 First line\\par {\\b Second} "
                "line\\par third\\par}");
  }
  files.Write(folder + Text(kDataFileName), EncodeTextFile(ComposeDataFile(view)));
  // The first backup of a new folder would run beside what is measured.
  files.Write(folder + Text(kOptionsFileName), EncodeTextFile(Text(u"[Options]\nTakeBackups=0\n") +
                                                              (shadows ? u"Skin=Paper\nShadows=1\n" : u"")));
  return folder;
}

void UseDataFolder(const Text& folder) {
  RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Brask\\jotlets", L"Path", REG_SZ, folder.c_str(),
                  static_cast<DWORD>((folder.size() + 1) * sizeof(wchar_t)));
}

UniqueHandle StartProcess(Text commandLine) {
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

bool IsWine() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

// Wine knows the processor time of other processes from the system below it only.
std::string ReadSystemFile(const std::string& path) {
  std::string bytes;
  if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
    char part[4096];
    for (std::size_t got = 0; (got = std::fread(part, 1, sizeof part, file)) > 0;) bytes.append(part, got);
    std::fclose(file);
  }
  return bytes;
}

// The folder of a process below Wine, by its command line; empty when it is not found.
std::string SystemProcess(TextView commandLine) {
  std::string wanted;
  for (const char16_t c : commandLine) {
    if (c != u'"') wanted.push_back(static_cast<char>(c));
  }
  WIN32_FIND_DATAA found{};
  const HANDLE search = FindFirstFileA("Z:\\proc\\*", &found);
  if (search == INVALID_HANDLE_VALUE) return {};
  std::string folder;
  do {
    if (found.cFileName[0] < '1' || found.cFileName[0] > '9') continue;
    const std::string candidate = std::string("Z:\\proc\\") + found.cFileName;
    std::string line = ReadSystemFile(candidate + "\\cmdline");
    while (!line.empty() && line.back() == 0) line.pop_back();
    std::replace(line.begin(), line.end(), '\0', ' ');
    if (line == wanted) folder = candidate;
  } while (folder.empty() && FindNextFileA(search, &found));
  FindClose(search);
  return folder;
}

// User and system time in "stat", in hundredths: the 12th and 13th field behind the name in brackets.
double SystemProcessorSeconds(const std::string& folder) {
  const std::string stat = ReadSystemFile(folder + "\\stat");
  const std::size_t name = stat.rfind(')');
  if (name == std::string::npos) return 0;
  std::istringstream fields(stat.substr(name + 1));
  std::string skipped;
  for (int i = 0; i < 11; ++i) fields >> skipped;
  double user = 0;
  double system = 0;
  fields >> user >> system;
  return (user + system) / 100;
}

double SecondsOf(const FILETIME& time) {
  return static_cast<double>((static_cast<std::uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime) *
         1e-7;
}

}  // namespace

double Seconds() {
  LARGE_INTEGER now{};
  LARGE_INTEGER frequency{};
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

namespace {

Subject Jotlets(const Text& folder) {
  UseDataFolder(folder);
  return {"jotlets",
          u"\"" + ProgramFolder() + u"jotlets.exe\"",
          L"BraskJotletNote",
          L"BraskSoftwareJotletsMain",
          WM_COMMAND,
          ID_SHOW_OR_HIDE,
          folder,
          false};
}

}  // namespace

Subject JotletsWith(int notes, int further, bool shadows) {
  return Jotlets(MakeDataFolder(notes, further, false, shadows));
}

Subject JotletsWaking(int notes) { return Jotlets(MakeDataFolder(notes, 0, true)); }

Subject BareWith(int notes, int further, bool shadows) {
  const Text folder = FolderOf(notes, further);
  return {
      "bare",
      u"\"" + ProgramPath() + u"\" --bare " + IntText(notes) + u" " + folder + (shadows ? u" shadows" : u""),
      kBareClass,
      kEchoClass,
      kBareShowOrHide,
      0,
      folder};
}

std::optional<RunningSubject> RunningSubject::Start(const Subject& subject, int notes) {
  const double begin = Seconds();
  RunningSubject running(subject, StartProcess(subject.commandLine));
  // The windows are counted only when the endpoint has answered: asking for them all the time would slow
  // down what is measured.
  while (running.process_ && Seconds() < begin + 60) {
    running.endpoint_ = FindWindowW(subject.endpoint, nullptr);
    DWORD_PTR answer = 0;
    if (running.endpoint_ != nullptr &&
        SendMessageTimeoutW(running.endpoint_, WM_NULL, 0, 0, SMTO_NORMAL, 60000, &answer) != 0 &&
        running.VisibleNotes() == notes) {
      running.secondsToStart_ = Seconds() - begin;
      if (IsWine()) {
        running.systemProcess_ = SystemProcess(subject.commandLine);
        if (running.systemProcess_.empty()) std::printf("no processor time of %s\n", subject.name);
      }
      return running;
    }
    Sleep(10);
  }
  return std::nullopt;
}

RunningSubject::~RunningSubject() {
  if (!process_) return;
  TerminateProcess(process_.get(), 0);
  WaitForSingleObject(process_.get(), 10000);
  while (FindWindowW(subject_->endpoint, nullptr) != nullptr) Sleep(1);
}

double RunningSubject::PrivateBytes() const {
  PROCESS_MEMORY_COUNTERS counters{};
  counters.cb = sizeof counters;
  GetProcessMemoryInfo(process_.get(), &counters, sizeof counters);
  return static_cast<double>(counters.PagefileUsage);
}

double RunningSubject::ProcessorSeconds() const {
  if (!systemProcess_.empty()) return SystemProcessorSeconds(systemProcess_);
  FILETIME ignored{};
  FILETIME kernel{};
  FILETIME user{};
  GetProcessTimes(process_.get(), &ignored, &ignored, &kernel, &user);
  return SecondsOf(kernel) + SecondsOf(user);
}

double RunningSubject::WaitUntilIdle() const {
  constexpr double kQuiet = 0.5;
  double since = Seconds();
  double used = ProcessorSeconds();
  // A program that never comes to rest has a figure too.
  constexpr double kLongest = 20;
  const double end = since + kLongest;
  while (Seconds() < since + kQuiet && Seconds() < end) {
    Sleep(5);
    const double now = ProcessorSeconds();
    // The timers of an idle program take less than this.
    if (now > used + 0.015) {
      used = now;
      since = Seconds();
    }
  }
  return since;
}

int RunningSubject::VisibleNotes() const {
  CountedClass counted{subject_->noteClass, 0};
  EnumWindows(CountVisible, reinterpret_cast<LPARAM>(&counted));
  return counted.count;
}

}  // namespace jotlets

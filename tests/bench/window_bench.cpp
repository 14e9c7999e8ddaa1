// Measures the program against a bare one that does the same with nothing behind it, in turns within one run.
//
//   window_bench [FIGURE...]             prints the figures whose names begin so, or all; needs jotlets.exe
//                                        beside it and a screen. Further rounds are taken as long as there is
//                                        time; the exit code is 1 when a figure was not taken at all
//   window_bench --bare N DIR [shadows]  is the bare program
#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "bare_program.h"
#include "base/win/disk_files.h"
#include "base/win/wide.h"
#include "data/data_folder.h"
#include "res/resource.h"
#include "subject.h"

namespace jotlets {
namespace {

HWND self = nullptr;  // the window that gets replies

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

constexpr UINT kTrayMessage = WM_APP + 1;  // of the program's main window
constexpr int kFirstCustomId = 20000;      // of its menu entries that others have added
int heard = 0;                             // copy-data messages so far

LRESULT CALLBACK ReplyProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_COPYDATA) ++heard;
  return message == WM_COPYDATA ? TRUE : DefWindowProcW(window, message, wParam, lParam);
}

void MakeReplyWindow() {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = ReplyProcedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = L"BenchReply";
  RegisterClassW(&windowClass);
  self = CreateWindowExW(0, L"BenchReply", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
}

// One command's round trip, in seconds.
double RoundTrip(const RunningSubject& subject, std::string text, int batchSize = 300) {
  COPYDATASTRUCT record{7, static_cast<DWORD>(text.size()), text.data()};
  std::vector<double> batches;
  // The first batch also waits for what the start has left to do, and is not counted.
  for (int batch = 0; batch < 11; ++batch) {
    const double begin = Seconds();
    for (int i = 0; i < batchSize; ++i) {
      SendMessageW(subject.Endpoint(), WM_COPYDATA, reinterpret_cast<WPARAM>(self),
                   reinterpret_cast<LPARAM>(&record));
    }
    batches.push_back((Seconds() - begin) / batchSize);
  }
  batches.erase(batches.begin());
  return Median(batches);
}

double Start(const RunningSubject& subject) { return subject.SecondsToStart(); }
double Memory(const RunningSubject& subject) { return subject.PrivateBytes(); }
double Ping(const RunningSubject& subject) { return RoundTrip(subject, "api do ping"); }

double Title(const RunningSubject& subject) {
  return RoundTrip(subject, "api get desktop " + ToUtf8(BenchNoteId(500)) + " title");
}

// Padded to the length of its reply, so that the echo carries as much.
double List(const RunningSubject& subject) {
  std::string command = "api get list desktop";
  command.append(1000 * (BenchNoteId(500).size() + 1), ' ');
  return RoundTrip(subject, command, 100);
}

// What is saved with a change, next to nothing but writing the same file.
double SetTitle(const RunningSubject& subject) {
  constexpr int kTimes = 5;
  if (!subject.What().bare)
    return RoundTrip(subject, "api set desktop " + ToUtf8(BenchNoteId(5)) + " title Changed", kTimes);
  DiskFiles files;
  const std::string bytes = files.Read(subject.What().folder + Text(kDataFileName)).bytes;
  std::vector<double> times;
  for (int i = 0; i < 10 * kTimes; ++i) {
    const double begin = Seconds();
    files.Write(subject.What().folder + u"same.ini", bytes);
    times.push_back(Seconds() - begin);
  }
  return Median(times);
}

// A custom entry of the program's menu, chosen: its event goes to 20 listeners. The bare program is asked as
// often, and answers each time.
double EventToTwenty(const RunningSubject& subject) {
  constexpr int kListeners = 20;
  if (subject.What().bare) return RoundTrip(subject, "api do ping") * kListeners;
  std::vector<HWND> listeners;
  const auto send = [&](HWND from, std::string text) {
    COPYDATASTRUCT record{0, static_cast<DWORD>(text.size()), text.data()};
    SendMessageW(subject.Endpoint(), WM_COPYDATA, reinterpret_cast<WPARAM>(from),
                 reinterpret_cast<LPARAM>(&record));
  };
  send(self, "api do jotletsmenuadd bench Bench");
  // Entries get their numbers when the menu is shown.
  PostMessageW(subject.Endpoint(), kTrayMessage, 0, WM_RBUTTONUP);
  while (FindWindowW(L"#32768", nullptr) == nullptr) Sleep(1);
  PostMessageW(subject.Endpoint(), WM_CANCELMODE, 0, 0);
  while (FindWindowW(L"#32768", nullptr) != nullptr && IsWindowVisible(FindWindowW(L"#32768", nullptr)))
    Sleep(1);
  for (int i = 0; i < kListeners; ++i) {
    listeners.push_back(
        CreateWindowExW(0, L"BenchReply", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr));
    send(listeners.back(), "api do register");
  }
  heard = 0;
  std::vector<double> times;
  constexpr int kTimes = 100;
  for (int i = 0; i < kTimes; ++i) {
    const double begin = Seconds();
    SendMessageW(subject.Endpoint(), WM_COMMAND, kFirstCustomId, 0);
    times.push_back(Seconds() - begin);
  }
  if (heard != kTimes * kListeners) std::printf("%d events of %d were heard\n", heard, kTimes * kListeners);
  for (const HWND listener : listeners) DestroyWindow(listener);
  return Median(times);
}

double ShowOrHideAll(const RunningSubject& subject) {
  const double begin = Seconds();
  SendMessageW(subject.Endpoint(), subject.What().showOrHide, subject.What().showOrHideWParam, 0);
  return subject.WaitUntilIdle() - begin;
}

double HideAll(const RunningSubject& subject) {
  subject.WaitUntilIdle();
  const double seconds = ShowOrHideAll(subject);
  if (subject.VisibleNotes() != 0) std::printf("%s: not all are hidden\n", subject.What().name);
  return seconds;
}

double ShowAll(const RunningSubject& subject) {
  const double seconds = ShowOrHideAll(subject);
  if (subject.VisibleNotes() == 0) std::printf("%s: none is shown\n", subject.What().name);
  return seconds;
}

double IdleProcessor(const RunningSubject& subject) {
  subject.WaitUntilIdle();
  const double used = subject.ProcessorSeconds();
  Sleep(10000);
  return subject.ProcessorSeconds() - used;
}

void MoveMouse(int x, int y) {
  SetCursorPos(x, y);
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = MOUSEEVENTF_MOVE;
  SendInput(1, &input, sizeof input);
}

void PressMouse(bool down) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
  SendInput(1, &input, sizeof input);
}

RECT BoundsOf(HWND window) {
  RECT bounds{};
  GetWindowRect(window, &bounds);
  return bounds;
}

// The note that lies furthest to the lower right, before all others: the same one of every subject, since
// what lies under a note makes its moves dearer.
HWND NoteToDrag(const RunningSubject& subject) {
  HWND found = nullptr;
  LONG furthest = 0;
  for (HWND note = nullptr;
       (note = FindWindowExW(nullptr, note, subject.What().noteClass, nullptr)) != nullptr;) {
    const RECT bounds = BoundsOf(note);
    if (found != nullptr && bounds.left + bounds.top <= furthest) continue;
    found = note;
    furthest = bounds.left + bounds.top;
  }
  SetWindowPos(found, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  subject.WaitUntilIdle();
  return found;
}

// From a move of the mouse to the move of the note that it drags.
double Drag(const RunningSubject& subject) {
  subject.WaitUntilIdle();
  const HWND note = NoteToDrag(subject);
  const RECT start = BoundsOf(note);
  POINT at{start.left + 60, start.top + 10};
  MoveMouse(at.x, at.y);
  PressMouse(true);
  std::vector<double> delays;
  constexpr int kSteps = 200;
  // Steps longer than the distance that windows snap at: each has to move the note.
  for (int i = 0; i < kSteps; ++i) {
    const RECT before = BoundsOf(note);
    at.x += i / 5 % 2 == 0 ? 31 : -31;
    at.y += i / 5 % 2 == 0 ? 23 : -23;
    const double begin = Seconds();
    MoveMouse(at.x, at.y);
    while (BoundsOf(note).left == before.left && Seconds() < begin + 1) Sleep(0);
    delays.push_back(Seconds() - begin);
  }
  PressMouse(false);
  const double median = Median(delays);
  if (median > 0.9) std::printf("%s: the note does not follow the mouse\n", subject.What().name);
  return median;
}

// From the end of the session to its answer, when every text has just been changed; next to nothing but
// writing as many files, one after the other. Ends the program.
double EndSession(const RunningSubject& subject) {
  const int notes = subject.VisibleNotes();
  if (subject.What().bare) {
    DiskFiles files;
    const double begin = Seconds();
    for (int i = 0; i < notes; ++i) files.Write(subject.What().folder + u"same.rtf", "{\\rtf1 changed}");
    return Seconds() - begin;
  }
  for (HWND note = nullptr;
       (note = FindWindowExW(nullptr, note, subject.What().noteClass, nullptr)) != nullptr;)
    SendMessageW(GetWindow(note, GW_CHILD), WM_CHAR, 'x', 0);
  const double begin = Seconds();
  SendMessageW(subject.Endpoint(), WM_QUERYENDSESSION, 0, 0);
  SendMessageW(subject.Endpoint(), WM_ENDSESSION, TRUE, 0);
  return Seconds() - begin;
}

// All windows of the options, as they stand on the first page.
std::vector<BareControl> ControlsOf(HWND dialog) {
  std::vector<BareControl> controls;
  const auto add = [&controls, dialog](HWND window) {
    BareControl& control = controls.emplace_back();
    GetClassNameW(window, control.windowClass, static_cast<int>(std::size(control.windowClass)));
    control.style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
    control.extended = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE));
    control.area = BoundsOf(window);
    if (window != dialog) MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&control.area), 2);
  };
  add(dialog);
  EnumChildWindows(
      dialog, [](HWND child, LPARAM to) { return (*reinterpret_cast<decltype(add)*>(to))(child), TRUE; },
      reinterpret_cast<LPARAM>(&add));
  controls.front().style &= ~static_cast<DWORD>(WS_VISIBLE);
  return controls;
}

// From the command to the last painted control; next to a dialog of as many windows of the same kinds, which
// holds nothing.
double OpenOptions(const RunningSubject& subject) {
  constexpr int kTimes = 7;
  static std::vector<BareControl> controls;
  subject.WaitUntilIdle();
  std::vector<double> times;
  for (int i = 0; i < kTimes; ++i) {
    const double begin = Seconds();
    if (subject.What().bare) {
      COPYDATASTRUCT data{kBareDialog, static_cast<DWORD>(controls.size() * sizeof(BareControl)),
                          controls.data()};
      SendMessageW(subject.Endpoint(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    } else {
      SendMessageW(subject.Endpoint(), WM_COMMAND, ID_OPTIONS, 0);
    }
    const HWND dialog = FindWindowW(nullptr, subject.What().bare ? kBareDialogTitle : L"Options");
    RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    times.push_back(Seconds() - begin);
    if (!subject.What().bare) controls = ControlsOf(dialog);
    SendMessageW(dialog, WM_CLOSE, 0, 0);
  }
  return Median(times);
}

// From a page to the next and painted, when both have been shown before; next to the bare dialog shown anew.
double TurnPage(const RunningSubject& subject) {
  if (subject.What().bare) return OpenOptions(subject);
  constexpr int kTurns = 14;
  SendMessageW(subject.Endpoint(), WM_COMMAND, ID_OPTIONS, 0);
  const HWND dialog = FindWindowW(nullptr, L"Options");
  std::vector<double> times;
  for (int i = 0; i < kTurns; ++i) {
    const double begin = Seconds();
    SendDlgItemMessageW(dialog, IDC_OPTIONS_PAGES, LB_SETCURSEL, static_cast<WPARAM>(i % 2), 0);
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_OPTIONS_PAGES, LBN_SELCHANGE), 0);
    RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    if (i > 1) times.push_back(Seconds() - begin);
  }
  SendMessageW(dialog, WM_CLOSE, 0, 0);
  return Median(times);
}

struct Figure {
  const char* name = nullptr;
  int notes = 0;
  double (*take)(const RunningSubject& subject) = nullptr;
  double scale = 1;
  const char* unit = nullptr;
  const char* aim = nullptr;
  int rounds = 5;
  bool asleep = false;  // our notes are, and all due at the start
  int further = 0;      // notes that sleep on
  bool shadows = false;
};

// Figures with as many notes and rounds are taken from the same run, in this order.
constexpr Figure kFigures[] = {
    {"memory, 10 notes", 10, Memory, 1.0 / 1024, "KB", "-"},
    {"ping, 10 notes", 10, Ping, 1e6, "us", "1.2"},
    {"start, 1000 notes", 1000, Start, 1000, "ms", "1.3"},
    {"memory, 1000 notes", 1000, Memory, 1.0 / 1024, "KB", "-"},
    {"ping, 1000 notes", 1000, Ping, 1e6, "us", "1.2"},
    {"title, 1000 notes", 1000, Title, 1e6, "us", "1.3 (of ping)"},
    {"list, 1000 notes", 1000, List, 1e6, "us", "-"},
    {"event, 20 listeners", 10, EventToTwenty, 1e6, "us", "-"},
    {"set, 10000 notes", 10, SetTitle, 1000, "ms", "-", 1, false, 9990},
    {"options, 10 notes", 10, OpenOptions, 1000, "ms", "1.3"},
    {"page of the options, 10 notes", 10, TurnPage, 1000, "ms", "-"},
    {"drag, 1000 notes", 1000, Drag, 1e6, "us", "-"},
    {"start with shadows, 1000 notes", 1000, Start, 1000, "ms", "1.2", 3, false, 0, true},
    {"shadowed memory, 1000 notes", 1000, Memory, 1.0 / 1024, "KB", "1.25", 3, false, 0, true},
    {"drag with shadows, 1000 notes", 1000, Drag, 1e6, "us", "1.3", 3, false, 0, true},
    // The system's own work for this grows with the square of the windows, and takes minutes for many of
    // them.
    {"hide all, 200 notes", 200, HideAll, 1000, "ms", "1.2", 3},
    {"show all, 200 notes", 200, ShowAll, 1000, "ms", "1.2", 3},
    {"wake, 300 notes", 300, Start, 1000, "ms", "-", 3, true},
    {"end of session, 1000 notes", 1000, EndSession, 1000, "ms", "1000 ms", 2},
    {"idle processor, 200 notes", 200, IdleProcessor, 1000, "ms in 10 s", "none", 1},
};

struct Results {
  std::vector<double> ours;
  std::vector<double> bare;
};

bool TakeFigures(const Subject& subject, const std::vector<const Figure*>& figures,
                 std::map<const Figure*, Results>& results, std::vector<double> Results::*side) {
  const std::optional<RunningSubject> running = RunningSubject::Start(subject, figures.front()->notes);
  if (!running) {
    std::printf("%s did not come up with %d notes\n", subject.name, figures.front()->notes);
    return false;
  }
  for (const Figure* figure : figures) {
    (results[figure].*side).push_back(figure->take(*running));
    std::fprintf(stderr, "%s, %s: %.2f %s\n", subject.name, figure->name,
                 (results[figure].*side).back() * figure->scale, figure->unit);
  }
  return true;
}

void Print(const Figure& figure, const Results& results) {
  if (results.ours.empty() || results.bare.empty()) {
    std::printf("%-26s not taken\n", figure.name);
    return;
  }
  const double ours = Median(results.ours);
  const double bare = Median(results.bare);
  std::printf("%-26s jotlets %9.2f  bare %9.2f %-10s ratio %.2f  aim at most %s\n", figure.name,
              ours * figure.scale, bare * figure.scale, figure.unit, bare > 0 ? ours / bare : 0, figure.aim);
}

void PrintMemoryPerNote(const std::map<const Figure*, Results>& results) {
  const Results* few = nullptr;
  const Results* many = nullptr;
  for (const auto& [figure, result] : results) {
    if (figure->take == Memory && !figure->shadows) (figure->notes == 10 ? few : many) = &result;
  }
  if (few == nullptr || many == nullptr || few->bare.empty() || many->bare.empty()) return;
  const double ours = (Median(many->ours) - Median(few->ours)) / 990 / 1024;
  const double bare = (Median(many->bare) - Median(few->bare)) / 990 / 1024;
  std::printf("%-26s jotlets %9.2f  bare %9.2f %-10s ratio %.2f  aim at most 1.2\n", "memory per shown note",
              ours, bare, "KB", ours / bare);
}

bool IsWanted(const Figure& figure, const std::vector<std::string>& wanted) {
  return wanted.empty() || std::any_of(wanted.begin(), wanted.end(), [&figure](const std::string& name) {
           return std::string(figure.name).starts_with(name);
         });
}

// Figures that are taken from the same run.
struct Group {
  std::vector<const Figure*> figures;
  double seconds = 0;  // of its longest round so far
};

// By notes, rounds, whether they sleep, further ones and shadows.
std::vector<Group> GroupsOf(const std::vector<std::string>& wanted) {
  std::map<std::tuple<int, int, bool, int, bool>, Group> groups;
  for (const Figure& figure : kFigures) {
    if (IsWanted(figure, wanted))
      groups[{figure.notes, figure.rounds, figure.asleep, figure.further, figure.shadows}].figures.push_back(
          &figure);
  }
  std::vector<Group> list;
  list.reserve(groups.size());
  for (auto& [key, group] : groups) list.push_back(std::move(group));
  return list;
}

bool TakeRound(Group& group, std::map<const Figure*, Results>& results) {
  const double begin = Seconds();
  const Figure& first = *group.figures.front();
  const Subject ours =
      first.asleep ? JotletsWaking(first.notes) : JotletsWith(first.notes, first.further, first.shadows);
  const bool taken = TakeFigures(ours, group.figures, results, &Results::ours) &&
                     TakeFigures(BareWith(first.notes, first.further, first.shadows), group.figures, results,
                                 &Results::bare);
  group.seconds = std::max(group.seconds, Seconds() - begin);
  return taken;
}

// One round of everything before a second one of anything: a busy machine gives fewer rounds, not fewer
// figures.
int RunBench(const std::vector<std::string>& wanted) {
  constexpr double kSeconds = 230;
  constexpr int kMostRounds = 5;
  const double end = Seconds() + kSeconds;
  MakeReplyWindow();
  std::vector<Group> groups = GroupsOf(wanted);
  std::map<const Figure*, Results> results;
  for (int round = 0; round < kMostRounds; ++round) {
    for (Group& group : groups) {
      const bool enough = round >= group.figures.front()->rounds;
      if (!enough && Seconds() + group.seconds < end) TakeRound(group, results);
    }
  }
  std::printf("medians of rounds in turns, next to the aims\n");
  bool all = true;
  for (const Group& group : groups) {
    for (const Figure* figure : group.figures) {
      Print(*figure, results[figure]);
      all = all && !results[figure].ours.empty() && !results[figure].bare.empty();
    }
  }
  PrintMemoryPerNote(results);
  return all ? 0 : 1;
}

}  // namespace
}  // namespace jotlets

int main() {
  using namespace jotlets;
  int count = 0;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  if (count >= 4 && wcscmp(arguments[1], L"--bare") == 0) {
    return RunBareProgram(_wtoi(arguments[2]), Text(FromWide(arguments[3])), count > 4);
  }
  std::vector<std::string> wanted;
  for (int i = 1; i < count; ++i) {
    std::string& name = wanted.emplace_back();
    for (const wchar_t* c = arguments[i]; *c != 0; ++c) name.push_back(static_cast<char>(*c));
  }
  return RunBench(wanted);
}

// Measures what attached notes cost: the look at many windows of another program and the decision over it,
// and how long a note takes to follow its window.
//
//   attach_bench            prints the times with 500 windows and 100 notes
//   attach_bench follow     moves the window "Bench 0" and waits for the note window beside it; needs
//   jotlets.exe
//                           to run with a note attached to that window, and the windows of the next form
//   attach_bench windows N  is the other program: N windows "Bench 0", "Bench 1" ... until it is killed
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "base/win/wide.h"
#include "schedule/win/foreign_windows.h"

namespace jotlets {
namespace {

double Milliseconds() {
  LARGE_INTEGER now{};
  LARGE_INTEGER perSecond{};
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&perSecond);
  return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

template <typename Work>
void Print(const char* name, int rounds, Work work, DWORD pause = 0) {
  std::vector<double> times;
  for (int round = 0; round < rounds; ++round) {
    // Not in step with the pass.
    Sleep(pause * static_cast<DWORD>(round) % 1000);
    const double begin = Milliseconds();
    work();
    times.push_back(Milliseconds() - begin);
  }
  std::sort(times.begin(), times.end());
  std::printf("%-28s median %8.2f ms, worst %8.2f ms of %d\n", name, times[times.size() / 2], times.back(),
              rounds);
}

int ShowWindows(int count) {
  for (int i = 0; i < count; ++i) {
    const Text title = u"Bench " + IntText(i);
    CreateWindowW(L"STATIC", Wide(title), WS_OVERLAPPED | (i < 50 ? WS_VISIBLE : 0u), 10 * (i % 60),
                  8 * (i % 60), 200, 100, nullptr, nullptr, nullptr, nullptr);
  }
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}

int MeasurePass() {
  std::vector<WindowFacts> windows;
  Print("look at all windows", 200, [&windows] {
    windows.clear();
    for (ForeignWindow& window : ListForeignWindows(GetForegroundWindow()))
      windows.push_back(std::move(window.facts));
  });
  std::vector<JotletData> notes(100);
  for (std::size_t i = 0; i < notes.size(); ++i) {
    notes[i].attachment.title = u"*" + IntText(static_cast<std::int64_t>(i));
    notes[i].attachment.className = u"*";
    notes[i].attachment.posType = 1;
  }
  std::vector<const JotletData*> waiting;
  for (const JotletData& note : notes) waiting.push_back(&note);
  Print("decision, 100 notes", 200, [&] {
    AttachMatcher matcher(windows);
    DecideAttachPass(waiting, {}, matcher, {0, 0, 1920, 1080}, 0);
  });
  std::printf("%zu windows\n", windows.size());
  return 0;
}

int MeasureFollowing() {
  const HWND target = FindWindowW(L"STATIC", L"Bench 0");
  const HWND note = FindWindowW(L"BraskJotletNote", nullptr);
  if (target == nullptr || note == nullptr) return 1;
  int step = 0;
  Print(
      "a note follows", 15,
      [&] {
        RECT before{};
        GetWindowRect(note, &before);
        SetWindowPos(target, nullptr, 100 + 37 * (++step % 10), 200, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
        const double bound = Milliseconds() + 5000;
        for (RECT now = before; Milliseconds() < bound && now.left == before.left && now.top == before.top;
             GetWindowRect(note, &now))
          Sleep(1);
      },
      137);
  return 0;
}

}  // namespace
}  // namespace jotlets

int main(int count, char** arguments) {
  const std::string mode = count > 1 ? arguments[1] : "";
  if (mode == "windows") return jotlets::ShowWindows(count > 2 ? std::atoi(arguments[2]) : 500);
  return mode == "follow" ? jotlets::MeasureFollowing() : jotlets::MeasurePass();
}

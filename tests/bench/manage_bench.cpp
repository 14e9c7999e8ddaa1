// Measures the manage window with few and with many closed notes: from the command that opens it until its
// first row is on the screen, and a search through all texts. Needs jotlets.exe beside it and a screen.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <vector>

#include "base/win/disk_files.h"
#include "base/win/wide.h"
#include "data/data_file.h"
#include "data/data_folder.h"
#include "data/text_file.h"
#include "res/resource.h"
#include "subject.h"
#include "ui/screen.h"

namespace jotlets {
namespace {

constexpr int kClosedView = 4;
constexpr int kRounds = 25;

Text MakeFolder(int closed) {
  DiskFiles files;
  Text folder(MAX_PATH, u'\0');
  folder.resize(GetTempPathW(MAX_PATH, WideBuffer(folder)));
  folder.append(u"jotlets-manage-").append(IntText(closed)).append(u"\\");
  MakeDataFolders(files, folder);
  std::vector<JotletData> records(static_cast<std::size_t>(closed));
  for (std::size_t i = 0; i < records.size(); ++i) {
    records[i].id = u"BE" + IntText(static_cast<std::int64_t>(100000 + i));
    records[i].title = u"Closed note " + IntText(static_cast<std::int64_t>(i * 7919 % records.size()));
    std::string words;
    for (std::size_t word = 0; word < 150; ++word) words += "word" + std::to_string(i * word % 977) + ' ';
    // Nobody waits here for so many flushes.
    std::ofstream(std::filesystem::path(folder + ContentPath(records[i])))
        << "{\\rtf1\\ansi " << words << '}';
  }
  DataFileView view;
  view.installId = u"BENCH";
  for (const JotletData& gone : records) view.deleted.push_back(&gone);
  files.Write(folder + Text(kDataFileName), EncodeTextFile(ComposeDataFile(view)));
  files.Write(
      folder + Text(kOptionsFileName),
      EncodeTextFile(u"[Options]\nKeepDeleted=100000\nTakeBackups=0\nManageWindow=100,100,800,500\n"));
  return folder;
}

HWND Manage() { return FindWindowW(L"#32770", L"Manage Jotlets"); }

// Whether there is dark writing on the screen where the first rows of the list are.
bool RowsAreSeen() {
  constexpr int kLeft = 120;
  constexpr int kTop = 205;
  constexpr int kWidth = 100;
  constexpr int kHeight = 12;
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), kWidth, -kHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ former = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, kWidth, kHeight, screen, kLeft, kTop, SRCCOPY);
  const auto* pixels = static_cast<const std::uint32_t*>(bits);
  const bool dark =
      std::any_of(pixels, pixels + kWidth * kHeight, [](std::uint32_t p) { return (p & 0xFF) < 0x60; });
  SelectObject(memory, former);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return dark;
}

double SecondsUntil(double begin, bool (*condition)()) {
  while (!condition() && Seconds() < begin + 60) {
  }
  return Seconds() - begin;
}

void CloseManage() {
  SendMessageW(Manage(), WM_COMMAND, IDCANCEL, 0);
  SecondsUntil(Seconds(), [] { return Manage() == nullptr && !RowsAreSeen(); });
}

double Open(HWND endpoint) {
  const double begin = Seconds();
  PostMessageW(endpoint, WM_COMMAND, ID_MANAGE, 0);
  return SecondsUntil(begin, RowsAreSeen);
}

bool IsSearched() {
  // Each question is answered between two slices of reading.
  Sleep(20);
  wchar_t status[100] = {};
  SendMessageW(GetDlgItem(Manage(), IDC_MANAGE_STATUS), WM_GETTEXT, 100, reinterpret_cast<LPARAM>(status));
  return std::wcsstr(status, L"searching") == nullptr;
}

double SearchFor(const wchar_t* words) {
  const double begin = Seconds();
  SendMessageW(GetDlgItem(Manage(), IDC_MANAGE_SEARCH), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(words));
  return SecondsUntil(begin, IsSearched);
}

void Measure(int closed) {
  const Text folder = MakeFolder(closed);
  RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Brask\\jotlets", L"Path", REG_SZ, folder.c_str(),
                  static_cast<DWORD>((folder.size() + 1) * sizeof(wchar_t)));
  const Subject subject{"jotlets",          u"\"" + ProgramFolder() + u"jotlets.exe\"",
                        L"BraskJotletNote", L"BraskSoftwareJotletsMain",
                        WM_COMMAND,         ID_SHOW_OR_HIDE};
  const auto running = RunningSubject::Start(subject, 0);
  if (!running) return void(std::printf("the program did not come up with %d closed notes\n", closed));
  running->WaitUntilIdle();
  PostMessageW(running->Endpoint(), WM_COMMAND, ID_MANAGE, 0);
  SecondsUntil(Seconds(), [] { return Manage() != nullptr && IsWindowVisible(Manage()) != FALSE; });
  SendMessageW(GetDlgItem(Manage(), IDC_MANAGE_VIEWS), TCM_SETCURFOCUS, kClosedView, 0);
  SecondsUntil(Seconds(), RowsAreSeen);
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) {
    CloseManage();
    times.push_back(Open(running->Endpoint()));
  }
  std::sort(times.begin(), times.end());
  const double first = SearchFor(L"word976 nowhere");
  const double again = SearchFor(L"word975 nowhere");
  std::printf(
      "%6d closed: open to painted %.1f ms (median of %d), first search of the texts %.0f ms, next %.0f ms\n",
      closed, times[times.size() / 2] * 1000, kRounds, first * 1000, again * 1000);
  CloseManage();
}

}  // namespace
}  // namespace jotlets

int main() {
  for (const int closed : {10, 10000, 10, 10000}) jotlets::Measure(closed);
  return 0;
}

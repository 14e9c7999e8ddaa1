#include "app/win/crash_report.h"

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <cwchar>
#include <exception>
#include <iterator>

#include "base/win/unique_handle.h"
#include "base/win/wide.h"

namespace jotlets {
namespace {

constexpr TextView kNewMark = u"crash-";
constexpr TextView kToldMark = u"crashed-";
constexpr DWORD kTerminated = 0xE0000001;
constexpr ULONG kStackForReport = 64 * 1024;
constexpr USHORT kMaxFrames = 48;

// Nothing may be allocated once a fault has happened: the heap may be what is broken.
wchar_t crashFolder[1024];
char report[8192];

void Add(int& length, const char* text) {
  for (; *text != 0 && length < static_cast<int>(sizeof report); ++text) report[length++] = *text;
}

void AddHex(int& length, std::uint64_t number) {
  char digits[17]{};
  int at = 16;
  do {
    digits[--at] = "0123456789abcdef"[number & 15];
    number >>= 4;
  } while (number != 0);
  Add(length, digits + at);
}

void AddAddress(int& length, const void* address) {
  HMODULE module = nullptr;
  char name[MAX_PATH] = "?";
  if (GetModuleHandleExW(
          GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
          static_cast<const wchar_t*>(address), &module) != 0)
    GetModuleFileNameA(module, name, MAX_PATH);
  const char* file = name;
  for (const char* at = name; *at != 0; ++at) {
    if (*at == '\\') file = at + 1;
  }
  Add(length, file);
  Add(length, "+");
  AddHex(length, reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(module));
  Add(length, "\r\n");
}

void WriteReport(DWORD code, const void* address) {
  static LONG written = 0;
  if (crashFolder[0] == 0 || InterlockedExchange(&written, 1) != 0) return;
  SYSTEMTIME now{};
  GetLocalTime(&now);
  wchar_t path[1200];
  _snwprintf(path, 1200, L"%ls%ls%04u%02u%02u%02u%02u%02u.txt", crashFolder, WideLiteral(kNewMark), now.wYear,
             now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond);
  int length = 0;
  Add(length, "Jotlets v8.0c\r\ncode ");
  AddHex(length, code);
  Add(length, " at ");
  AddAddress(length, address);
  void* frames[kMaxFrames];
  const USHORT count = CaptureStackBackTrace(0, kMaxFrames, frames, nullptr);
  for (USHORT i = 0; i < count; ++i) AddAddress(length, frames[i]);
  const UniqueHandle file =
      OwnHandle(CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD done = 0;
  if (file && WriteFile(file.get(), report, static_cast<DWORD>(length), &done, nullptr) != 0)
    FlushFileBuffers(file.get());
}

LONG WINAPI OnFault(EXCEPTION_POINTERS* fault) noexcept {
  WriteReport(fault->ExceptionRecord->ExceptionCode, fault->ExceptionRecord->ExceptionAddress);
  return EXCEPTION_EXECUTE_HANDLER;
}

[[noreturn]] void OnTerminate() noexcept {
  WriteReport(kTerminated, reinterpret_cast<const void*>(&OnTerminate));
  TerminateProcess(GetCurrentProcess(), kTerminated);
  std::abort();
}

}  // namespace

void CatchCrashes() {
  ULONG stack = kStackForReport;
  SetThreadStackGuarantee(&stack);
  SetUnhandledExceptionFilter(OnFault);
  std::set_terminate(OnTerminate);
}

void SetCrashFolder(TextView dataFolder) {
  if (dataFolder.size() >= std::size(crashFolder)) return;
  const Text folder(dataFolder);
  wcscpy(crashFolder, Wide(folder));
}

std::vector<Text> CollectCrashReports(Files& files, Log& log, TextView dataFolder) {
  std::vector<Text> taken;
  for (const Text& name : files.List(dataFolder, u".txt")) {
    if (!name.starts_with(kNewMark)) continue;
    Text told(kToldMark);
    told.append(TextView(name).substr(kNewMark.size()));
    log.Write(kLogLifecycle, u"Jotlets ended by a fault the last time: '", told, u"'");
    if (files.Rename(Text(dataFolder) + name, Text(dataFolder) + told)) taken.push_back(told);
  }
  return taken;
}

}  // namespace jotlets

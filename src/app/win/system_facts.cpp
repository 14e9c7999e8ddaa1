#include "app/win/system_facts.h"

#include <windows.h>

#include <shlobj.h>

#include "base/win/wide.h"
#include "ui/screen.h"

namespace jotlets {
namespace {

constexpr wchar_t kRegistryKey[] = L"Software\\Brask\\jotlets";
constexpr wchar_t kRunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr wchar_t kRunValue[] = L"Jotlets";
constexpr wchar_t kPathValue[] = L"Path";

Text ShellFolder(int folder) {
  Text path(MAX_PATH, u'\0');
  if (FAILED(SHGetFolderPathW(nullptr, folder, nullptr, SHGFP_TYPE_CURRENT, WideBuffer(path)))) return {};
  path.resize(path.find(u'\0'));
  return path;
}

Text RegistryPath() {
  Text path(MAX_PATH, u'\0');
  auto bytes = static_cast<DWORD>(path.size() * sizeof(wchar_t));
  if (RegGetValueW(HKEY_CURRENT_USER, kRegistryKey, kPathValue, RRF_RT_REG_SZ, nullptr, path.data(),
                   &bytes) != 0) {
    return {};
  }
  path.resize(path.find(u'\0') == Text::npos ? path.size() : path.find(u'\0'));
  return path;
}

}  // namespace

DataFolderFacts GatherDataFolderFacts() {
  return {RegistryPath(), ShellFolder(CSIDL_PROFILE), ProgramFolder(), ShellFolder(CSIDL_APPDATA)};
}

FileStatus WriteRegistryPath(TextView folder) {
  const Text value(folder);
  if (value.empty()) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kRegistryKey, kPathValue);
    return {};
  }
  const LSTATUS status = RegSetKeyValueW(HKEY_CURRENT_USER, kRegistryKey, kPathValue, REG_SZ, value.c_str(),
                                         static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
  if (status == ERROR_SUCCESS) return {};
  return FileStatus::Failed(LastErrorText(u"RegSetKeyValue", static_cast<DWORD>(status)));
}

bool IsStartedWithWindows() {
  return RegGetValueW(HKEY_CURRENT_USER, kRunKey, kRunValue, RRF_RT_REG_SZ, nullptr, nullptr, nullptr) ==
         ERROR_SUCCESS;
}

FileStatus WriteStartWithWindows(bool starts) {
  LSTATUS status = ERROR_SUCCESS;
  if (starts) {
    const Text command = u"\"" + ProgramPath() + u"\"";
    status = RegSetKeyValueW(HKEY_CURRENT_USER, kRunKey, kRunValue, REG_SZ, command.c_str(),
                             static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t)));
  } else {
    status = RegDeleteKeyValueW(HKEY_CURRENT_USER, kRunKey, kRunValue);
    if (status == ERROR_FILE_NOT_FOUND) status = ERROR_SUCCESS;
  }
  if (status == ERROR_SUCCESS) return {};
  return FileStatus::Failed(LastErrorText(u"Run key", static_cast<DWORD>(status)));
}

Text UserAndMachine() {
  constexpr DWORD kRoom = 257;
  wchar_t user[kRoom] = {};
  wchar_t machine[kRoom] = {};
  DWORD userRoom = kRoom;
  DWORD machineRoom = kRoom;
  GetUserNameW(user, &userRoom);
  GetComputerNameW(machine, &machineRoom);
  return Text(FromWide(user)) + u" (" + Text(FromWide(machine)) + u")";
}

std::uint32_t InstanceNumber() {
  LARGE_INTEGER ticks{};
  QueryPerformanceCounter(&ticks);
  FILETIME now{};
  GetSystemTimeAsFileTime(&now);
  // Multiplied by a large odd number so that runs that start close together differ in every digit.
  const auto mixed = (static_cast<std::uint64_t>(ticks.QuadPart) ^ now.dwLowDateTime ^
                      (static_cast<std::uint64_t>(GetCurrentProcessId()) << 32)) *
                     0x9E3779B97F4A7C15u;
  return static_cast<std::uint32_t>(mixed >> 32);
}

}  // namespace jotlets

#include "ui/clipboard.h"

#include <cstring>
#include <utility>
#include <vector>

namespace jotlets {
namespace {

// Another program may be looking at it just now.
constexpr int kTries = 10;
constexpr DWORD kPauseMilliseconds = 10;

class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) {
    for (int i = 0; i < kTries && !opened_; ++i) {
      opened_ = OpenClipboard(owner) != 0;
      if (!opened_) Sleep(kPauseMilliseconds);
    }
  }
  ~OpenedClipboard() {
    if (opened_) CloseClipboard();
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  explicit operator bool() const { return opened_; }

 private:
  bool opened_ = false;
};

bool Put(const ClipboardItem& item) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, item.bytes.size());
  if (memory == nullptr) return false;
  if (void* bytes = GlobalLock(memory)) {
    std::memcpy(bytes, item.bytes.data(), item.bytes.size());
    GlobalUnlock(memory);
  }
  // The clipboard owns it from here on, unless it refuses it.
  if (SetClipboardData(item.format, memory) != nullptr) return true;
  GlobalFree(memory);
  return false;
}

std::string Read(UINT format) {
  const HANDLE memory = GetClipboardData(format);
  const void* bytes = memory == nullptr ? nullptr : GlobalLock(memory);
  if (bytes == nullptr) return {};
  std::string copy(static_cast<const char*>(bytes), GlobalSize(memory));
  GlobalUnlock(memory);
  return copy;
}

std::string WithNul(TextView text) {
  return {reinterpret_cast<const char*>(Text(text).c_str()), (text.size() + 1) * sizeof(char16_t)};
}

}  // namespace

bool PutOnClipboard(HWND owner, std::span<const ClipboardItem> items) {
  const OpenedClipboard opened(owner);
  if (!opened || !EmptyClipboard()) return false;
  bool all = true;
  for (const ClipboardItem& item : items) all = Put(item) && all;
  return all;
}
bool PutTextOnClipboard(HWND owner, TextView plain, const std::string& rtf) {
  std::vector<ClipboardItem> items;
  if (!rtf.empty()) items.push_back({RegisterClipboardFormatW(L"Rich Text Format"), rtf + '\0'});
  items.push_back({CF_UNICODETEXT, WithNul(plain)});
  return PutOnClipboard(owner, items);
}

ClipboardItem ReadClipboard(HWND owner, std::span<const UINT> formats) {
  const OpenedClipboard opened(owner);
  if (!opened) return {};
  for (const UINT format : formats) {
    if (std::string bytes = Read(format); !bytes.empty()) return {format, std::move(bytes)};
  }
  return {};
}

}  // namespace jotlets

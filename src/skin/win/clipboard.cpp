#include "skin/win/clipboard.h"

#include <cstring>
#include <span>
#include <vector>

#include "picture/picture_file.h"

namespace jotlets {
namespace {

// Another program may be looking at it just now.
constexpr int kTries = 10;
constexpr DWORD kPauseMilliseconds = 10;

struct ClipboardItem {
  UINT format;
  std::string bytes;
};

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

UINT PngFormat() { return RegisterClipboardFormatW(L"PNG"); }

std::string WithNul(TextView text) {
  return {reinterpret_cast<const char*>(Text(text).c_str()), (text.size() + 1) * sizeof(char16_t)};
}

bool PutOnClipboard(HWND owner, std::span<const ClipboardItem> items) {
  const OpenedClipboard opened(owner);
  if (!opened || !EmptyClipboard()) return false;
  bool all = true;
  for (const ClipboardItem& item : items) all = Put(item) && all;
  return all;
}

}  // namespace

bool PutTextOnClipboard(HWND owner, TextView plain, const std::string& rtf) {
  std::vector<ClipboardItem> items;
  if (!rtf.empty()) items.push_back({RegisterClipboardFormatW(L"Rich Text Format"), rtf + '\0'});
  items.push_back({CF_UNICODETEXT, WithNul(plain)});
  return PutOnClipboard(owner, items);
}

bool PutPictureOnClipboard(HWND owner, const std::string& png) {
  std::vector<ClipboardItem> items;
  if (std::string bitmap = ClipboardOfPng(png); !bitmap.empty()) items.push_back({CF_DIB, std::move(bitmap)});
  items.push_back({PngFormat(), png});
  return PutOnClipboard(owner, items);
}

bool HasClipboardPicture() {
  return IsClipboardFormatAvailable(CF_DIB) != 0 || IsClipboardFormatAvailable(PngFormat()) != 0;
}

std::string ClipboardPicture(HWND owner) {
  const OpenedClipboard opened(owner);
  if (!opened) return {};
  std::string png = PngOfPicture(Read(PngFormat()));
  return png.empty() ? PngOfPicture(BmpOfClipboard(Read(CF_DIB))) : png;
}

}  // namespace jotlets

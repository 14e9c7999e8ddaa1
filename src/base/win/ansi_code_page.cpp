#include "base/win/ansi_code_page.h"

#include <windows.h>

#include <algorithm>
#include <limits>

#include "base/win/wide.h"

namespace jotlets {
namespace {

int IntSize(std::size_t size) {
  return static_cast<int>(std::min<std::size_t>(size, std::numeric_limits<int>::max() / 4));
}

}  // namespace

Text AnsiCodePage::Decode(std::string_view bytes) const {
  const int size = IntSize(bytes.size());
  Text text(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0)), u'\0');
  MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, WideBuffer(text), static_cast<int>(text.size()));
  return text;
}

std::string AnsiCodePage::Encode(TextView text) const {
  const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
  const int units = IntSize(text.size());
  const int size = WideCharToMultiByte(CP_ACP, 0, wide, units, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, 0, wide, units, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

bool AnsiCodePage::Carries(TextView text) const { return Decode(Encode(text)) == text; }

}  // namespace jotlets

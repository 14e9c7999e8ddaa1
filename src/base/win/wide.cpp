#include "base/win/wide.h"

namespace jotlets {

Text LastErrorText(TextView call, DWORD error) {
  wchar_t* words = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
      error, 0, reinterpret_cast<wchar_t*>(&words), 0, nullptr);
  Text text = Text(call).append(u" failed (").append(IntText(error)).append(u")");
  if (length > 0) text.append(u": ").append(TrimBlanks(OneLine(FromWide(words, length))));
  LocalFree(words);
  return text;
}

}  // namespace jotlets

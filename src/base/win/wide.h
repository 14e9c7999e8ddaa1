// Where the program's text meets Windows' `wchar_t`: the same 16-bit code units, viewed without a copy.
#pragma once

#include <windows.h>

#include <type_traits>

#include "base/text.h"

namespace jotlets {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

/// The NUL-terminated wide form of a text. Good as long as the text is.
inline const wchar_t* Wide(const Text& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }
inline wchar_t* WideBuffer(Text& text) { return reinterpret_cast<wchar_t*>(text.data()); }
/// The same for literals such as `kVersionText`, which end in a NUL.
inline const wchar_t* WideLiteral(TextView literal) {
  return reinterpret_cast<const wchar_t*>(literal.data());
}

inline TextView FromWide(const wchar_t* text, std::size_t length) {
  return {reinterpret_cast<const char16_t*>(text), length};
}
inline TextView FromWide(const wchar_t* text) {
  return text == nullptr ? TextView() : TextView(reinterpret_cast<const char16_t*>(text));
}

/// Why the last call failed: its name, the system's words and the error number.
Text LastErrorText(TextView call, DWORD error = GetLastError());

}  // namespace jotlets

// 8-bit text: it exists only at the command transport and in files of older programs.
#pragma once

#include <string>
#include <string_view>

#include "base/text.h"

namespace jotlets {

/// The system's ANSI code page.
class CodePage {
 public:
  virtual ~CodePage() = default;
  /// Every byte sequence decodes to something.
  virtual Text Decode(std::string_view bytes) const = 0;
  /// What the code page lacks is written as "?".
  virtual std::string Encode(TextView text) const = 0;
};

}  // namespace jotlets

// The system's ANSI code page, through Windows' own conversions.
#pragma once

#include "base/code_page.h"

namespace jotlets {

class AnsiCodePage final : public CodePage {
 public:
  Text Decode(std::string_view bytes) const override;
  std::string Encode(TextView text) const override;

  /// Whether the code page has every character of the text.
  bool Carries(TextView text) const;
};

}  // namespace jotlets

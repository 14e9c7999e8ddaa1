// The stack record: one line of the data file for each stack.
#pragma once

#include <cstdint>

#include "base/text.h"

namespace jotlets {

struct StackRecord {
  std::int32_t x = 100;  // screen pixels
  std::int32_t y = 100;
  std::int32_t width = 280;
  std::int32_t height = 65;
  std::int32_t number = 0;         // unique among the stacks of one data folder
  std::int32_t colour = 0xB4FFFF;  // red in the low byte, then green, then blue
  Text title;
  bool unp = false;
  bool onTop = false;
  bool keepColour = false;
  friend bool operator==(const StackRecord&, const StackRecord&) = default;
};

/// The line of a stack, without its line break. The title is written as it stands: a "<" in it cuts it when
/// the line is read again, deliberately; line breaks in it become blanks.
Text MakeStackLine(const StackRecord& stack);

/// Reads a stack line; what it lacks keeps its default, the number `freshNumber`. Never fails: a line that
/// does not begin with "<" is a stack with all defaults.
StackRecord ParseStackLine(TextView line, std::int32_t freshNumber);

}  // namespace jotlets

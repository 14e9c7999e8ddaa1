// Any text as a stack line. What was written once is read as it was.
#include "data/stack_record.h"
#include "fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  if (size == 0) return 0;
  const std::string_view bytes = Bytes(data + 1, size - 1);
  StackRecord stack = ParseStackLine((data[0] & 1) != 0 ? Units(bytes) : FromUtf8(bytes), 7);
  Check(stack.number > 0 && stack.title.find(u'<') == Text::npos);
  const Text line = MakeStackLine(stack);
  Check(line.find_first_of(u"\r\n") == Text::npos);
  stack.title = OneLine(stack.title);
  Check(ParseStackLine(line, 9) == stack);
  return 0;
}

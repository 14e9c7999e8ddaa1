// Any text as a record line or an encoded note. The line written from it is one line, and reads as itself.
#include "data/data_file.h"
#include "data/jotlet_id.h"
#include "fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  if (size == 0) return 0;
  const std::string_view bytes = Bytes(data + 1, size - 1);
  const Text input = (data[0] & 1) != 0 ? Units(bytes) : FromUtf8(bytes);
  const bool alt = (data[0] & 2) != 0;
  const FreshId freshId = CountingIds();
  const auto read = [&](TextView line) { return ParseJotletLine(line, JotletData{}, freshId); };

  const FiledJotlet encoded = ParseEncodedJotlet(input, JotletData{}, freshId);
  Check(IsPlainFileName(encoded.record.id));
  Check(!encoded.inlineContent || encoded.inlineContent->starts_with(u"{\\rtf1"));

  const JotletData first = read(input);
  const Text line = MakeJotletLine(first, alt);
  Check(line.find_first_of(Text(u"\r\n\0", 3)) == Text::npos && line.ends_with(u"<RTF>"));
  const JotletData second = read(line);
  Check(second.id == first.id && second.title == first.title && second.x == first.x);
  Check(read(MakeJotletLine(second, alt)) == second);
  return 0;
}

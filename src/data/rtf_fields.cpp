#include "data/rtf_fields.h"

#include <algorithm>

namespace jotlets {
namespace {

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// Behind the brace that ends the group which begins at `at`; npos when none does.
std::size_t EndOfGroup(std::string_view rtf, std::size_t at) {
  std::size_t depth = 0;
  for (; at < rtf.size(); ++at) {
    if (rtf[at] == '\\') {
      ++at;
    } else if (rtf[at] == '{') {
      ++depth;
    } else if (rtf[at] == '}' && --depth == 0) {
      return at + 1;
    }
  }
  return std::string_view::npos;
}

// What is in the group of a field that begins with this word, without the braces and the word.
std::string_view PartOf(std::string_view field, std::string_view word) {
  const std::size_t at = field.find(word);
  if (at == std::string_view::npos) return {};
  const std::size_t brace = field.rfind('{', at);
  const std::size_t end = brace == std::string_view::npos ? brace : EndOfGroup(field, brace);
  std::size_t from = at + word.size();
  if (end == std::string_view::npos || end <= from || IsLetter(field[from])) return {};
  if (field[from] == ' ') ++from;
  return field.substr(from, end - 1 - from);
}

// The address between the quotes of HYPERLINK "..."; none with what means something to a rich text.
std::string_view AddressOf(std::string_view instruction) {
  const std::size_t word = instruction.find("HYPERLINK");
  const std::size_t from = word == std::string_view::npos ? word : instruction.find('"', word);
  const std::size_t to = from == std::string_view::npos ? from : instruction.find('"', from + 1);
  if (to == std::string_view::npos) return {};
  const std::string_view address = instruction.substr(from + 1, to - from - 1);
  return address.find_first_of("{}\\") == std::string_view::npos ? address : std::string_view();
}

}  // namespace

std::string RtfWithoutFields(std::string_view rtf) {
  constexpr std::string_view kField = "{\\field";
  // One inside another is done when the outer one has gone.
  constexpr int kDeepest = 8;
  std::string text(rtf);
  for (int depth = 0; depth < kDeepest && text.find(kField) != std::string::npos; ++depth) {
    std::string out;
    std::size_t done = 0;
    for (std::size_t at = 0; (at = text.find(kField, at)) != std::string::npos;) {
      const std::size_t behind = at + kField.size();
      const bool escaped = at > 0 && text[at - 1] == '\\';
      const std::size_t end = !escaped && behind < text.size() && !IsLetter(text[behind])
                                  ? EndOfGroup(text, at)
                                  : std::string::npos;
      const std::string_view field =
          end == std::string::npos ? std::string_view() : std::string_view(text).substr(at, end - at);
      const std::string_view said = PartOf(field, "\\fldrslt");
      if (said.empty()) {
        at = behind;
        continue;
      }
      out.append(text, done, at - done).append("{").append(said).append("}");
      const std::string_view address = AddressOf(PartOf(field, "\\fldinst"));
      if (!address.empty() && said.find(address) == std::string_view::npos)
        out.append(" (").append(address).append(")");
      done = at = end;
    }
    if (done == 0) break;
    out.append(text, done);
    text = std::move(out);
  }
  return text;
}

}  // namespace jotlets

#include "desk/note_copy.h"

#include "data/rtf_bytes.h"
#include "data/text_export.h"
#include "data/written_time.h"
#include "desk/note_file.h"
#include "store/search_words.h"

namespace jotlets {
namespace {

bool IsPage(TextView path) { return HasExtension(path, u".html") || HasExtension(path, u".htm"); }

// In quotation marks, as nothing else keeps every text from being taken for a number, a list or a mark.
Text YamlQuoted(TextView text) {
  Text quoted = u"\"";
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char16_t unit = text[at];
    const bool high = (unit & 0xFC00) == 0xD800;
    const bool pair = high && at + 1 < text.size() && (text[at + 1] & 0xFC00) == 0xDC00;
    if (pair) {
      quoted.append(text.substr(at++, 2));
    } else if (high || (unit & 0xFC00) == 0xDC00 || unit >= 0xFFFE) {
      quoted.push_back(0xFFFD);
    } else if (unit < u' ' || (unit >= 0x7F && unit < 0xA0) || unit == 0x2028 || unit == 0x2029 ||
               unit == 0xFEFF) {
      quoted.append(u"\\u").append(HexTitle({&unit, 1}));
    } else {
      if (unit == u'"' || unit == u'\\') quoted.push_back(u'\\');
      quoted.push_back(unit);
    }
  }
  return quoted + u"\"";
}

}  // namespace

Text ColourForm(const Colour& colour) {
  constexpr TextView kDigits = u"0123456789abcdef";
  Text form = u"#";
  for (const int part : {colour.r, colour.g, colour.b})
    form.append(
        {kDigits[static_cast<std::size_t>(part >> 4 & 15)], kDigits[static_cast<std::size_t>(part & 15)]});
  return form;
}

bool IsOtherKind(TextView path) {
  return IsPage(path) || HasExtension(path, u".md") || HasExtension(path, u".jtl");
}

std::string CopyOfText(const JotletData& record, TextView rtf, TextView title, TextView path) {
  const std::string bytes = RtfBytes(rtf);
  if (IsPage(path)) return ToUtf8(HtmlOfRtf(bytes, title));
  if (HasExtension(path, u".md")) return ToUtf8(MarkdownOfRtf(bytes));
  return ToUtf8(ComposeNoteFile(record, FromAscii(bytes)));
}

Text FrontMatterOf(const JotletData& record, TextView title, TextView category, TextView words) {
  Text matter = u"---\n";
  const auto put = [&matter](TextView name, TextView value) {
    matter.append(name).append(u": ").append(value).append(u"\n");
  };
  put(u"title", YamlQuoted(title));
  if (record.created > 0) put(u"created", WrittenTime(record.created));
  if (record.modified > 0) put(u"changed", WrittenTime(record.modified));
  if (!category.empty()) put(u"category", YamlQuoted(category));
  Text tags;
  const Text found = TagsIn(words);
  for (TextView rest = found; !rest.empty();) {
    const Split split = SplitAtFirst(rest, u' ');
    tags.append(tags.empty() ? u"" : u", ").append(YamlQuoted(split.head));
    rest = split.tail;
  }
  if (!tags.empty()) put(u"tags", u"[" + tags + u"]");
  put(u"colour", YamlQuoted(ColourForm(record.colour)));
  return matter + u"---\n\n";
}

}  // namespace jotlets

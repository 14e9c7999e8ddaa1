#include "desk/note_message.h"

#include "data/options.h"
#include "data/text_file.h"

namespace jotlets {
namespace {

constexpr TextView kRtfKey = u"RTF=";
constexpr TextView kTextKey = u"TEXT=";

}  // namespace

std::optional<NoteMessage> ParseNoteMessage(TextView text) {
  NoteMessage message;
  LineReader lines(text);
  for (TextView line; lines.Next(line);) {
    const bool isRtf = line.starts_with(kRtfKey);
    if (isRtf || line.starts_with(kTextKey)) {
      const auto at =
          static_cast<std::size_t>(line.data() - text.data()) + (isRtf ? kRtfKey : kTextKey).size();
      message.content = text.substr(at);
      message.isRtf = isRtf;
      return message;
    }
    const Split field = SplitAtFirst(line, u'=');
    if (field.head == u"COL") message.colour = ColourOfNumber(ParseInt(field.tail));
    if (field.head == u"W") message.width = ParseInt(field.tail);
    if (field.head == u"SOURCE") message.source = field.tail;
    // The encoded title carries every character; the plain one serves only without it.
    if (field.head == u"UTITLE") message.title = UnhexTitle(field.tail);
    if (field.head == u"TITLE" && message.title.empty()) message.title = field.tail;
  }
  return std::nullopt;
}

}  // namespace jotlets

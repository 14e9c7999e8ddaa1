#include "desk/note_file.h"

#include <array>

#include "data/options.h"
#include "data/text_file.h"

namespace jotlets {
namespace {

struct NoteFields {
  Text colour, width, title, utitle, source;
};

struct FieldRow {
  TextView key;
  Text NoteFields::*field;
};

constexpr std::array kFields = {
    FieldRow{u"col:", &NoteFields::colour},    FieldRow{u"width:", &NoteFields::width},
    FieldRow{u"title:", &NoteFields::title},   FieldRow{u"Title:", &NoteFields::title},
    FieldRow{u"utitle:", &NoteFields::utitle}, FieldRow{u"uTitle:", &NoteFields::utitle},
    FieldRow{u"Source:", &NoteFields::source},
};

bool NextField(NoteFields& fields, TextView line) {
  for (const FieldRow& row : kFields) {
    if (!line.starts_with(row.key)) continue;
    fields.*row.field = TrimBlanks(line.substr(row.key.size()));
    return true;
  }
  return false;
}

}  // namespace

Text NoteMessageFromFile(TextView fileText) {
  NoteFields fields;
  LineReader lines(fileText);
  TextView line;
  TextView content;
  while (lines.Next(line)) {
    if (line.empty() || NextField(fields, line)) continue;
    content = fileText.substr(static_cast<std::size_t>(line.data() - fileText.data()));
    break;
  }
  Text message = u"#jotlet FORM=\n";
  const auto put = [&message](TextView key, TextView value) {
    if (!value.empty()) message.append(key).append(value).push_back(u'\n');
  };
  put(u"COL=", fields.colour);
  if (!fields.width.empty()) put(u"W=", IntText(ParseInt(fields.width)));
  put(u"SOURCE=", fields.source);
  put(u"UTITLE=", fields.utitle);
  put(u"TITLE=", fields.title);
  message.append(content.starts_with(u"{\\rtf1") ? u"RTF=" : u"TEXT=").append(content);
  return message;
}

Text ComposeNoteFile(const JotletData& record, TextView rtf) {
  Text file = u"col:";
  AppendInt(file, ColourNumber(record.colour.r, record.colour.g, record.colour.b));
  file += u"\nwidth:";
  AppendInt(file, record.width);
  file += u"\n";
  // The encoded form keeps every character, blanks at the ends too.
  if (!record.title.empty()) file += u"utitle:" + HexTitle(record.title) + u"\n";
  if (!record.source.empty()) file += u"Source:" + OneLine(record.source) + u"\n";
  return file.append(rtf);
}

}  // namespace jotlets

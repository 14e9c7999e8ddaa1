#include "command/commands_page.h"

#include "command/command_table.h"
#include "command/desktop_commands.h"
#include "command/desktop_fields.h"
#include "desk/note_event.h"

namespace jotlets {
namespace {

// The keyword in code marks, its arguments in italics.
Text Written(TextView keyword, TextView arguments) {
  Text text = Text(u"`").append(TrimBlanks(keyword)).append(u"`");
  if (!arguments.empty()) text.append(u" *").append(arguments).append(u"*");
  return text;
}

void AppendRow(Text& page, std::initializer_list<TextView> cells) {
  page.append(u"|");
  for (const TextView cell : cells) {
    page.append(u" ").append(ReplaceAll(cell, u"|", u"\\|")).append(u" |");
  }
  page.append(u"\n");
}

void AppendHead(Text& page, std::initializer_list<TextView> cells) {
  AppendRow(page, cells);
  page.append(u"|");
  for (std::size_t i = 0; i < cells.size(); ++i) page.append(u"---|");
  page.append(u"\n");
}

Text Quoted(TextView code) { return Text(u"`").append(code).append(u"`"); }

}  // namespace

Text CommandsPage() {
  Text page = u"## Commands\n\nIn the order in which they are tried.\n\n";
  AppendHead(page, {u"Command", u"", u"Replies", u"Example"});
  for (const CommandRow& row : CommandRows()) {
    Text purpose(row.purpose);
    if (row.run == NotYet) purpose.append(u" Not in this version: 999.");
    AppendRow(page, {Written(row.keyword, row.arguments), purpose, row.replies, Quoted(row.example)});
  }
  page.append(u"\n## Actions of `do desktop`\n\n");
  AppendHead(page, {u"Action", u"", u"Replies"});
  for (const ActionRow& row : DesktopActions()) AppendRow(page, {Quoted(row.name), row.purpose, row.replies});
  page.append(u"\n## Fields of `get desktop`\n\n");
  AppendHead(page, {u"Field", u"Reply"});
  for (const FieldReader& row : DesktopReaders()) AppendRow(page, {Quoted(row.name), row.form});
  page.append(u"\n## Fields of `set desktop`\n\n");
  AppendHead(page, {u"Field", u"Value", u"Replies"});
  for (const FieldWriter& row : DesktopWriters()) {
    AppendRow(page, {Quoted(row.name), row.value, row.replies});
  }
  page.append(u"\n## Events\n\n");
  AppendHead(page, {u"Line", u"Sent when"});
  for (const EventPageRow& row : EventPage()) AppendRow(page, {row.line, row.purpose});
  return page;
}

}  // namespace jotlets

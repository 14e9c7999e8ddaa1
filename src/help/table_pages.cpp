#include "help/table_pages.h"

#include <algorithm>

#include "action/action_table.h"
#include "action/key_list.h"
#include "data/options.h"
#include "res/resource.h"

namespace jotlets {
namespace {

void AppendRow(Text& page, std::initializer_list<TextView> cells) {
  page.append(u"|");
  for (const TextView cell : cells) page.append(u" ").append(ReplaceAll(cell, u"|", u"\\|")).append(u" |");
  page.append(u"\n");
}

void AppendHead(Text& page, TextView heading, std::initializer_list<TextView> cells) {
  page.append(u"\n## ").append(heading).append(u"\n\n");
  AppendRow(page, cells);
  page.append(u"|");
  for (std::size_t i = 0; i < cells.size(); ++i) page.append(u"---|");
  page.append(u"\n");
}

Text WordsOfCommand(const ResourceTexts& texts, int command) {
  const auto& menu = texts.Menu("IDM_TRAY");
  const auto entry = std::ranges::find(menu, command, &ResourceTexts::Entry::id);
  return entry == menu.end() ? texts.String(command) : PlainMenuText(entry->text);
}

std::vector<KeyRow> RowsOf(const ResourceTexts& texts) {
  std::vector<KeyRow> rows =
      NoteKeyRows([&](std::uint32_t id) { return texts.String(static_cast<int>(id)); });
  for (const ResourceTexts::Accelerator& key : texts.Accelerators())
    rows.push_back({KeyPlace::kProgram, key.key, WordsOfCommand(texts, key.id)});
  int id = IDS_HOT_KEY;
  for (const HotKey& hotKey : Options().hooks)
    rows.push_back({KeyPlace::kEverywhere, HotKeyText(hotKey), texts.String(id++)});
  return Arranged(std::move(rows));
}

// "&Manage Jotlets...\tCtrl+M" as two cells; a separator has no text.
void AppendEntries(Text& page, const ResourceTexts& texts, const std::string& menu) {
  for (const ResourceTexts::Entry& entry : texts.Menu(menu)) {
    if (entry.id == ID_SHOW_OR_HIDE) {
      // What it does is put in its place when the menu opens.
      for (const int words : {IDS_HIDE_ALL, IDS_SHOW_ALL})
        AppendRow(page, {PlainMenuText(texts.String(words)), u""});
      continue;
    }
    const Text words = PlainMenuText(entry.text);
    if (!words.empty()) AppendRow(page, {words, SplitAtFirst(entry.text, u'\t').tail});
  }
}

void AppendNoteMenu(Text& page, const ResourceTexts& texts, NoteMenu first, NoteMenu end) {
  std::vector<const NoteAction*> entries;
  for (const NoteAction& row : kNoteActions) {
    if (row.menu.menu >= first && row.menu.menu < end && row.by != ActionBy::kNobody) entries.push_back(&row);
  }
  std::ranges::sort(entries, [](const NoteAction* a, const NoteAction* b) {
    return std::pair(a->menu.menu, a->menu.at) < std::pair(b->menu.menu, b->menu.at);
  });
  for (const NoteAction* row : entries) {
    const Text name = u"`" + ActionName(row->code) + u"`";
    AppendRow(page, {PlainMenuText(texts.String(IDS_ACTION + row->code)), ShortcutText(row->code), name});
  }
}

}  // namespace

Text KeysPage(const ResourceTexts& texts) {
  Text page =
      u"# Keys\n\nCtrl+F1 in a note shows this list in a window, with the hot keys as they are set now.\n";
  const std::vector<KeyRow> rows = RowsOf(texts);
  for (int place = 0; place < static_cast<int>(kKeyPlaces); ++place) {
    AppendHead(page, texts.String(IDS_KEY_PLACE + place), {u"Key", u"What it does"});
    for (const KeyRow& row : rows) {
      if (static_cast<int>(row.place) == place) AppendRow(page, {row.key, row.what});
    }
  }
  page.append(
      u"\nThe last ones are the hot keys, as they are at first; they are options, `Hook` to `Hook7`, and\n"
      u"`UseHooks` turns them off. One that another program holds is passed over.\n");
  return page;
}

Text MenusPage(const ResourceTexts& texts) {
  Text page =
      u"# Menus\n\nA right click, or the menu key, opens the menu of what is there: the icon beside the "
      u"clock, the\n"
      u"bar of a note, its text, a stack. The last column is the name that a skin's button uses.\n";
  AppendHead(page, u"The icon beside the clock", {u"Entry", u"Key"});
  AppendEntries(page, texts, "IDM_TRAY");
  AppendHead(page, u"A note, with the menus in it", {u"Entry", u"Key", u"Name"});
  AppendNoteMenu(page, texts, NoteMenu::kJotletMenu, NoteMenu::kTextMenu);
  AppendHead(page, u"The text of a note, with the menus in it", {u"Entry", u"Key", u"Name"});
  AppendNoteMenu(page, texts, NoteMenu::kTextMenu, static_cast<NoteMenu>(0xFF));
  AppendHead(page, u"A stack", {u"Entry", u"Key"});
  AppendEntries(page, texts, "IDM_STACK");
  return page;
}

}  // namespace jotlets

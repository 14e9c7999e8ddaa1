#include "action/key_list.h"

#include <algorithm>

#include "action/action_table.h"
#include "editor/editor_keys.h"
#include "res/resource.h"

namespace jotlets {
namespace {

KeyRow ParseRow(TextView line) {
  const Split place = SplitAtFirst(line, u'\t');
  const Split key = SplitAtFirst(place.tail, u'\t');
  const auto number = std::clamp<std::int32_t>(ParseInt(place.head), 0, kKeyPlaces - 1);
  return {static_cast<KeyPlace>(number), Text(key.head), Text(key.tail)};
}

KeyPlace PlaceOf(const NoteAction& action) {
  if (action.by == ActionBy::kPicture) return KeyPlace::kPicture;
  const bool ofText = action.needs != ActionNeeds::kNothing && action.needs != ActionNeeds::kFreeSkin;
  return ofText ? KeyPlace::kText : KeyPlace::kNote;
}

// Where keys mean something else than everywhere.
bool HasItsOwnKeys(KeyPlace place) { return place == KeyPlace::kPicture || place == KeyPlace::kManage; }

}  // namespace

Text PlainMenuText(TextView menuText) {
  Text text;
  for (std::size_t i = 0; i < menuText.size() && menuText[i] != u'\t'; ++i) {
    // Two of them stand for one that is shown.
    if (menuText[i] == u'&' && ++i == menuText.size()) break;
    text.push_back(menuText[i]);
  }
  if (text.ends_with(u"...")) text.resize(text.size() - 3);
  return text;
}

// "None" says nothing without the menu that it is in.
Text ActionWords(const NoteAction& action, const TextOfResource& textOf) {
  Text words = PlainMenuText(textOf(IDS_ACTION + static_cast<std::uint32_t>(action.code)));
  std::uint32_t of = 0;
  if (action.sets.what == ActionSets::kHighlight) of = IDS_HIGHLIGHTS;
  if (action.menu.menu == NoteMenu::kAlignMenu) of = IDS_MENU_ALIGN;
  if (action.menu.menu == NoteMenu::kBulletsMenu) of = IDS_MENU_BULLETS;
  return of == 0 ? words : PlainMenuText(textOf(of)) + u": " + words;
}

std::vector<KeyRow> NoteKeyRows(const TextOfResource& textOf) {
  std::vector<KeyRow> rows;
  for (const NoteAction& action : kNoteActions) {
    const Text key = ShortcutText(action.code);
    if (key.empty() || action.by == ActionBy::kNobody) continue;
    rows.push_back({PlaceOf(action), key, ActionWords(action, textOf)});
  }
  for (const EditorKeyRow& row : kEditorKeys)
    rows.push_back({KeyPlace::kText, ShortcutText(row.key),
                    textOf(IDS_EDITOR_KEY + static_cast<std::uint32_t>(row.does))});
  for (std::uint32_t id = IDS_KEY_ROW; id < IDS_KEY_ROW_END; ++id) {
    const Text line = textOf(id);
    if (!line.empty()) rows.push_back(ParseRow(line));
  }
  return rows;
}

std::vector<KeyRow> Arranged(std::vector<KeyRow> rows) {
  std::ranges::stable_sort(rows, {}, &KeyRow::place);
  std::vector<KeyRow> once;
  for (KeyRow& row : rows) {
    const auto isSame = [&row](const KeyRow& other) {
      const bool apart = HasItsOwnKeys(row.place) || HasItsOwnKeys(other.place);
      return other.key == row.key && (!apart || other.place == row.place);
    };
    if (std::ranges::none_of(once, isSame)) once.push_back(std::move(row));
  }
  return once;
}

bool IsFound(const KeyRow& row, TextView search) {
  // The tray menu's fixed entries and all others have two words for one thing.
  const auto folded = [](TextView words) { return ReplaceAll(FoldCase(words), u"jotlet", u"note"); };
  const Text words = folded(search);
  const Text what = folded(row.what);
  for (TextView rest = words; !rest.empty();) {
    const Split word = SplitAtFirst(rest, u' ');
    if (FindIgnoreCase(row.key, word.head) == TextView::npos && what.find(word.head) == Text::npos)
      return false;
    rest = word.tail;
  }
  return true;
}

}  // namespace jotlets

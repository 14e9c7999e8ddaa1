#include "note/win/action_menu.h"

#include <algorithm>
#include <span>

#include "base/win/wide.h"
#include "note/shortcuts.h"
#include "res/resource.h"
#include "ui/popup_menu.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// The ids of extra entries, by their places; those of commands are their codes.
constexpr UINT kFirstExtra = 1000;

// An entry that is no command: a menu below, or the extra entries of a part, in a menu of their own when
// there is a text.
struct OtherEntry {
  MenuPlace place;
  UINT text = 0;
  NoteMenu below = NoteMenu::kNoMenu;
  MenuPart part = MenuPart::kNothing;
};

constexpr OtherEntry kOthers[] = {
    {{NoteMenu::kJotletMenu, 220}, IDS_MENU_OPACITY, NoteMenu::kOpacityMenu},
    {{NoteMenu::kJotletMenu, 240}, IDS_MENU_MARKS, NoteMenu::kMarksMenu},
    {.place = {NoteMenu::kJotletMenu, 590}, .part = MenuPart::kFile},
    {.place = {NoteMenu::kJotletMenu, 440}, .part = MenuPart::kAttachment},
    {{NoteMenu::kJotletMenu, 450}, IDS_MENU_STACKS, NoteMenu::kStacksMenu, MenuPart::kStacks},
    {.place = {NoteMenu::kJotletMenu, 900}, .part = MenuPart::kOfOthers},
    {.place = {NoteMenu::kTextMenu, 225}, .part = MenuPart::kPastePlain},
    {{NoteMenu::kTextMenu, 300}, IDS_MENU_FONT, NoteMenu::kFontMenu},
    {.place = {NoteMenu::kFontMenu, 100}, .part = MenuPart::kFonts},
    {.place = {NoteMenu::kBulletsMenu, 200}, .part = MenuPart::kCheckList},
    {.place = {NoteMenu::kTextMenu, 450}, .part = MenuPart::kWebSearch},
    {{NoteMenu::kTextMenu, 310}, IDS_MENU_FORMAT, NoteMenu::kFormatMenu},
    {{NoteMenu::kTextMenu, 320}, IDS_MENU_ALIGN, NoteMenu::kAlignMenu},
    {{NoteMenu::kTextMenu, 330}, IDS_MENU_BULLETS, NoteMenu::kBulletsMenu},
    {{NoteMenu::kTextMenu, 340}, IDS_MENU_HIGHLIGHT, NoteMenu::kHighlightMenu},
    {{NoteMenu::kTextMenu, 350}, IDS_MENU_STYLES, NoteMenu::kStylesMenu},
    {{NoteMenu::kTextMenu, 500}, IDS_MENU_JOTLET, NoteMenu::kJotletMenu},
};

static_assert(std::ranges::none_of(kNoteActions, [](const NoteAction& row) {
  return std::ranges::find(kOthers, row.menu, &OtherEntry::place) != std::end(kOthers);
}));

// Of these two, one is there.
struct Entry {
  std::int32_t at = 0;
  const NoteAction* action = nullptr;
  const OtherEntry* other = nullptr;
};

std::vector<Entry> EntriesOf(NoteMenu which) {
  std::vector<Entry> entries;
  for (const NoteAction& row : kNoteActions)
    if (row.menu.menu == which) entries.push_back({row.menu.at, &row, nullptr});
  for (const OtherEntry& other : kOthers)
    if (other.place.menu == which) entries.push_back({other.place.at, nullptr, &other});
  std::ranges::sort(entries, {}, &Entry::at);
  return entries;
}

UINT StateFlags(bool enabled, bool checked) {
  return (enabled ? MF_ENABLED : MF_GRAYED) | (checked ? MF_CHECKED : MF_UNCHECKED);
}

void AppendExtras(HMENU menu, MenuPart part, std::span<const ExtraEntry> extras) {
  UINT id = kFirstExtra;
  for (const ExtraEntry& extra : extras) {
    const UINT own = id++;
    if (extra.part != part) continue;
    const UINT flags = extra.run ? StateFlags(extra.enabled, extra.checked) : MF_SEPARATOR;
    AppendMenuW(menu, flags, own, Wide(extra.text));
  }
}

// Builds a menu from what every entry needs.
class MenuBuilder {
 public:
  MenuBuilder(const Resources& resources, const ActionFacts& facts, std::span<const ExtraEntry> extras)
      : resources_(resources), facts_(facts), extras_(extras) {}

  UniqueMenu Build(NoteMenu which) const {
    constexpr std::int32_t kStretch = 100;
    UniqueMenu menu(CreatePopupMenu());
    std::int32_t last = 0;
    for (const Entry& entry : EntriesOf(which)) {
      if (!IsThere(entry)) continue;
      if (last != 0 && entry.at / kStretch != last / kStretch)
        AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
      last = entry.at;
      if (entry.action != nullptr) {
        AppendAction(menu.get(), *entry.action);
      } else {
        AppendOther(menu.get(), *entry.other);
      }
    }
    return menu;
  }

 private:
  // A part without entries gets no separator either.
  bool IsThere(const Entry& entry) const {
    return entry.other == nullptr || entry.other->text != 0 ||
           std::ranges::count(extras_, entry.other->part, &ExtraEntry::part) != 0;
  }

  void AppendAction(HMENU menu, const NoteAction& row) const {
    const ActionState state = StateOf(row.code, facts_);
    const auto code = static_cast<UINT>(row.code);
    Text text = row.sets.what == ActionSets::kStyle ? StyleText(row) : resources_.String(IDS_ACTION + code);
    if (const Text keys = ShortcutText(row.code); !keys.empty()) text += u"\t" + keys;
    AppendMenuW(menu, StateFlags(state.enabled, state.checked), code, Wide(text));
  }

  // A style is called by its name where it has one; an ampersand of that is no mnemonic.
  Text StyleText(const NoteAction& row) const {
    const Text& name = facts_.styles[static_cast<std::size_t>(row.sets.value)];
    if (name.empty()) return resources_.String(IDS_ACTION + static_cast<UINT>(row.code));
    return ReplaceAll(name, u"&", u"&&");
  }

  void AppendOther(HMENU menu, const OtherEntry& other) const {
    if (other.text == 0) return AppendExtras(menu, other.part, extras_);
    UniqueMenu below = Build(other.below);
    AppendExtras(below.get(), other.part, extras_);
    // The menu above owns the one below from here on.
    AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(below.release()),
                Wide(resources_.String(other.text)));
  }

  const Resources& resources_;
  const ActionFacts& facts_;
  std::span<const ExtraEntry> extras_;
};

}  // namespace

ActionMenu::ActionMenu(const Resources& resources, NoteMenu which, const ActionFacts& facts,
                       std::vector<ExtraEntry> extras)
    : extras_(std::move(extras)), menu_(MenuBuilder(resources, facts, extras_).Build(which)) {}

UINT ChooseFromMenu(HMENU menu, HWND owner) {
  Point at = MousePosition();
  // From the keyboard, the menu belongs to the note, wherever the mouse is.
  RECT bounds{};
  GetWindowRect(owner, &bounds);
  const Rect area = FromRECT(bounds);
  if (!area.Contains(at)) at = {area.left + 16, area.top + 24};
  return ChooseFromMenu(menu, at, owner);
}

MenuChoice ActionMenu::Choose(HWND owner) const {
  const UINT chosen = ChooseFromMenu(menu_.get(), owner);
  UINT id = kFirstExtra;
  for (const ExtraEntry& extra : extras_)
    if (id++ == chosen) return {kActionNone, &extra};
  return {RowOf(static_cast<std::int32_t>(chosen)).code, nullptr};
}

}  // namespace jotlets

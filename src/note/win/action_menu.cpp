#include "note/win/action_menu.h"

#include <algorithm>
#include <span>

#include "action/shortcuts.h"
#include "base/win/wide.h"
#include "note/win/jotlet.h"
#include "ui/drawn_menu.h"
#include "ui/popup_menu.h"

namespace jotlets {
namespace {

// The ids of entries that are no command, by their places; those of commands are their codes.
constexpr UINT kFirstExtra = 1000;
constexpr UINT kFirstColours = 900;

UINT StateFlags(bool enabled, bool checked) {
  return (enabled ? MF_ENABLED : MF_GRAYED) | (checked ? MF_CHECKED : MF_UNCHECKED);
}

void Append(HMENU menu, UINT flags, UINT_PTR id, const Text& text, Icon icon) {
  AppendMenuW(menu, flags, id, Wide(text));
  SetLastMenuIcon(menu, icon);
}

// Builds a menu from what every entry needs.
class MenuBuilder {
 public:
  MenuBuilder(const Resources& resources, const ActionFacts& facts, const MenuExtras& extras,
              std::span<const std::unique_ptr<SwatchRow>> rows)
      : resources_(resources), facts_(facts), extras_(extras), rows_(rows) {}

  UniqueMenu Build(NoteMenu which) const {
    constexpr std::int32_t kStretch = 100;
    UniqueMenu menu(CreatePopupMenu());
    std::int32_t last = kStretch;
    for (const MenuRow& row : RowsOf(which)) {
      if (!IsThere(row)) continue;
      if (GetMenuItemCount(menu.get()) > 0 && row.at / kStretch != last / kStretch)
        AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
      last = row.at;
      if (row.action != nullptr) {
        AppendAction(menu.get(), *row.action);
      } else if (row.other->below != NoteMenu::kNoMenu) {
        AppendMenuBelow(menu.get(), *row.other);
      } else {
        AppendExtras(menu.get(), *row.other);
        AppendColours(menu.get(), *row.other);
      }
    }
    return menu;
  }

 private:
  // A part without entries gets no separator either.
  bool IsThere(const MenuRow& row) const {
    // A style that nobody has made is none to choose.
    if (row.action != nullptr && row.action->sets.what == ActionSets::kStyle)
      return !facts_.styles[static_cast<std::size_t>(row.action->sets.value)].empty();
    if (row.other != nullptr && row.other->below == NoteMenu::kPictureMenu) return facts_.image;
    if (row.other == nullptr || row.other->below != NoteMenu::kNoMenu) return true;
    return std::ranges::count(extras_.entries, row.other->part, &ExtraEntry::part) +
               std::ranges::count(extras_.colours, row.other->part, &ColourEntry::part) !=
           0;
  }

  void AppendAction(HMENU menu, const NoteAction& row) const {
    const ActionState state = StateOf(row.code, facts_);
    const auto code = static_cast<UINT>(row.code);
    Text text = row.sets.what == ActionSets::kStyle ? StyleText(row) : resources_.String(IDS_ACTION + code);
    if (const Text keys = ShortcutText(row.code); !keys.empty()) text += u"\t" + resources_.Key(keys);
    Append(menu, StateFlags(state.enabled, state.checked), code, text, row.icon);
    if (row.sets.what == ActionSets::kStyle) ShowStyle(menu, row);
  }

  void ShowStyle(HMENU menu, const NoteAction& row) const {
    const auto number = static_cast<std::size_t>(row.sets.value);
    if (number >= extras_.styles.size() || !extras_.styles[number]) return;
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_BITMAP;
    info.hbmpItem = extras_.styles[number].get();
    SetMenuItemInfoW(menu, static_cast<UINT>(row.code), FALSE, &info);
    // In the column of the check marks: one of its own would push the words on to the keys.
    MENUINFO style{};
    style.cbSize = sizeof style;
    style.fMask = MIM_STYLE;
    style.dwStyle = MNS_CHECKORBMP;
    SetMenuInfo(menu, &style);
  }

  // A style is called by its name where it has one; an ampersand of that is no mnemonic.
  Text StyleText(const NoteAction& row) const {
    const Text& name = facts_.styles[static_cast<std::size_t>(row.sets.value)];
    if (name.empty()) return resources_.String(IDS_ACTION + static_cast<UINT>(row.code));
    return ReplaceAll(name, u"&", u"&&");
  }

  void AppendMenuBelow(HMENU menu, const MenuEntry& entry) const {
    UniqueMenu below = Build(entry.below);
    // The menu above owns the one below from here on.
    Append(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(below.release()), TextOf(entry), entry.icon);
  }

  void AppendExtras(HMENU menu, const MenuEntry& entry) const {
    UINT id = kFirstExtra;
    for (const ExtraEntry& extra : extras_.entries) {
      const UINT own = id++;
      if (extra.part != entry.part) continue;
      Text text = entry.text == 0 ? extra.text : TextOf(entry);
      if (entry.text != 0 && !extra.text.empty()) text += u"\t" + extra.text;
      Append(menu, StateFlags(extra.enabled, extra.checked), own, text, entry.icon);
    }
  }

  void AppendColours(HMENU menu, const MenuEntry& entry) const {
    for (std::size_t i = 0; i < extras_.colours.size(); ++i) {
      const ColourEntry& colours = extras_.colours[i];
      if (colours.part == entry.part)
        rows_[i]->AppendTo(menu, kFirstColours + static_cast<UINT>(i), colours.enabled);
    }
  }

  Text TextOf(const MenuEntry& entry) const { return resources_.String(static_cast<UINT>(entry.text)); }

  const Resources& resources_;
  const ActionFacts& facts_;
  const MenuExtras& extras_;
  std::span<const std::unique_ptr<SwatchRow>> rows_;
};

std::vector<std::unique_ptr<SwatchRow>> MakeRows(const Resources& resources, const MenuExtras& extras) {
  std::vector<std::unique_ptr<SwatchRow>> rows;
  for (const ColourEntry& colours : extras.colours) {
    const Text spoken = ReplaceAll(resources.String(IDS_SWATCH), u"%c", colours.caption);
    rows.push_back(std::make_unique<SwatchRow>(spoken, colours.swatches, colours.current));
  }
  return rows;
}

}  // namespace

ActionMenu::ActionMenu(const Resources& resources, NoteMenu which, const ActionFacts& facts,
                       MenuExtras extras)
    : theme_(resources.Look()),
      extras_(std::move(extras)),
      rows_(MakeRows(resources, extras_)),
      menu_(MenuBuilder(resources, facts, extras_, rows_).Build(which)) {}

std::function<void(BJotlet& jotlet)> ActionMenu::Choose(HWND owner, Point at) const {
  std::vector<SwatchRow*> rows;
  for (const auto& row : rows_) rows.push_back(row.get());
  const UINT chosen = ChooseFromMenu(theme_, menu_.get(), at, owner, rows);
  if (chosen == 0) return nullptr;
  if (chosen >= kFirstExtra) return extras_.entries[chosen - kFirstExtra].run;
  if (chosen >= kFirstColours) {
    const std::size_t row = chosen - kFirstColours;
    return [run = extras_.colours[row].run, index = rows_[row]->Marked()](BJotlet& jotlet) {
      run(jotlet, index);
    };
  }
  return [code = static_cast<ActionCode>(chosen)](BJotlet& jotlet) { jotlet.DoAction(code, {}); };
}

}  // namespace jotlets

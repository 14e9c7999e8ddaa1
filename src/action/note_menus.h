// What stands in the menus of a note beside the commands: the menus below, and entries that are no command.
// Together with the places of the commands (`action/action_table.h`) this is all of every menu.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "action/action_table.h"
#include "res/picture_numbers.h"
#include "res/resource.h"

namespace jotlets {

/// Entries that are no command of a note. Who shows a menu says which of them there are, and what they do.
enum class MenuPart : std::uint8_t {
  kNothing,
  kPapers,     // rows of colours
  kTextTools,  // rows, too: of signs
  kHighlights,
  kGhost,
  kPreset,  // these four in the order of `Preset`
  kPreset1,
  kPreset2,
  kPreset3,
  kClearAlarm,
  kAttachment,
  kStacks,  // one for each
  kNewStack,
  kLeaveStack,
  kFile,
  kCategories,  // one for each
  kPastePlain,
  kFonts,  // one for each of those used lately
  kCheckList,
  kWebSearch,
  kPictureUndo,
  kPictureRedo,
  kOfOthers,  // what other programs have added
};

/// A menu below, or the entries of a part; those without a text of their own have it from who shows them.
struct MenuEntry {
  MenuPlace place;
  std::int32_t text = 0;  // a resource
  NoteMenu below = NoteMenu::kNoMenu;
  MenuPart part = MenuPart::kNothing;
  Icon icon = Icon::kNothing;
};

inline constexpr std::array kMenuEntries = [] {
  using enum NoteMenu;
  using enum MenuPart;
  return std::array{
      MenuEntry{{kJotletMenu, 50}, 0, kNoMenu, kPapers},
      MenuEntry{{kJotletMenu, 120}, IDS_MENU_LOOK, kLookMenu, kNothing, Icon::kPalette},
      MenuEntry{{kJotletMenu, 115}, IDS_MENU_PICTURE, kPictureMenu, kNothing, Icon::kPicture},
      MenuEntry{{kPictureMenu, 100}, IDS_MENU_DRAW, kDrawMenu, kNothing, Icon::kPencil},
      MenuEntry{{kPictureMenu, 150}, IDS_ACTION + kActionUndo, kNoMenu, kPictureUndo, Icon::kUndo},
      MenuEntry{{kPictureMenu, 160}, IDS_ACTION + kActionRedo, kNoMenu, kPictureRedo, Icon::kRedo},
      MenuEntry{{kDrawMenu, 320}, IDS_MENU_PEN_WIDTH, kPenWidthMenu, kNothing, Icon::kWidth},
      MenuEntry{{kPictureMenu, 600}, IDS_MENU_ZOOM, kZoomMenu, kNothing, Icon::kSearch},
      MenuEntry{{kJotletMenu, 300}, IDS_MENU_REMIND, kRemindMenu, kNothing, Icon::kBell},
      MenuEntry{{kJotletMenu, 320}, IDS_MENU_UNATTACH, kNoMenu, kAttachment, Icon::kAttach},
      MenuEntry{{kJotletMenu, 330}, IDS_MENU_STACKS, kStacksMenu, kNothing, Icon::kStack},
      MenuEntry{{kJotletMenu, 350}, IDS_MENU_FILE, kFileMenu, kNothing, Icon::kFile},
      MenuEntry{{kJotletMenu, 900}, 0, kNoMenu, kOfOthers},
      MenuEntry{{kLookMenu, 100}, IDS_MENU_OPACITY, kOpacityMenu, kNothing, Icon::kOpacity},
      MenuEntry{{kLookMenu, 110}, IDS_MENU_GHOST, kNoMenu, kGhost, Icon::kGhost},
      MenuEntry{{kLookMenu, 150}, IDS_MENU_MARKS, kMarksMenu, kNothing, Icon::kStar},
      MenuEntry{{kLookMenu, 160}, IDS_MENU_ARRANGE, kArrangeMenu, kNothing, Icon::kSpread},
      MenuEntry{{kRemindMenu, 100}, IDS_PRESET, kNoMenu, kPreset, Icon::kClock},
      MenuEntry{{kRemindMenu, 110}, IDS_PRESET + 1, kNoMenu, kPreset1, Icon::kClock},
      MenuEntry{{kRemindMenu, 120}, IDS_PRESET + 2, kNoMenu, kPreset2, Icon::kClock},
      MenuEntry{{kRemindMenu, 130}, IDS_PRESET + 3, kNoMenu, kPreset3, Icon::kClock},
      MenuEntry{{kRemindMenu, 300}, IDS_MENU_CLEAR_ALARM, kNoMenu, kClearAlarm, Icon::kBellOff},
      MenuEntry{{kStacksMenu, 100}, 0, kNoMenu, kStacks, Icon::kStack},
      MenuEntry{{kStacksMenu, 110}, IDS_MENU_NEW_STACK, kNoMenu, kNewStack, Icon::kPlus},
      MenuEntry{{kStacksMenu, 210}, IDS_MENU_LEAVE_STACK, kNoMenu, kLeaveStack, Icon::kUp},
      MenuEntry{{kFileMenu, 130}, IDS_MENU_STORE, kStoreMenu, kNothing, Icon::kStore},
      MenuEntry{{kStoreMenu, 100}, 0, kNoMenu, kCategories, Icon::kTag},
      MenuEntry{{kFileMenu, 300}, IDS_MENU_SHOW_FILE, kNoMenu, kFile, Icon::kSearch},
      MenuEntry{{kTextMenu, 100}, 0, kNoMenu, kTextTools},
      MenuEntry{{kTextMenu, 110}, 0, kNoMenu, kHighlights},
      MenuEntry{{kTextMenu, 325}, IDS_MENU_PASTE_PLAIN, kNoMenu, kPastePlain, Icon::kText},
      MenuEntry{{kTextMenu, 400}, IDS_MENU_FONT, kFontMenu, kNothing, Icon::kFont},
      MenuEntry{{kFontMenu, 100}, 0, kNoMenu, kFonts},
      MenuEntry{{kBulletsMenu, 140}, IDS_MENU_CHECK_LIST, kNoMenu, kCheckList, Icon::kCheckList},
      MenuEntry{{kTextMenu, 550}, 0, kNoMenu, kWebSearch, Icon::kNet},
      MenuEntry{{kTextMenu, 410}, IDS_MENU_FORMAT, kFormatMenu, kNothing, Icon::kBold},
      MenuEntry{{kTextMenu, 420}, IDS_MENU_ALIGN, kAlignMenu, kNothing, Icon::kLeft},
      MenuEntry{{kTextMenu, 430}, IDS_MENU_BULLETS, kBulletsMenu, kNothing, Icon::kBullets},
      MenuEntry{{kTextMenu, 440}, IDS_MENU_STYLES, kStylesMenu, kNothing, Icon::kWand},
      MenuEntry{{kTextMenu, 600}, IDS_MENU_JOTLET, kJotletMenu, kNothing, Icon::kMore},
  };
}();

static_assert(std::ranges::none_of(kNoteActions, [](const NoteAction& row) {
  return std::ranges::find(kMenuEntries, row.menu, &MenuEntry::place) != kMenuEntries.end();
}));

/// An entry of a menu: of these two, one is there.
struct MenuRow {
  std::int32_t at = 0;
  const NoteAction* action = nullptr;
  const MenuEntry* other = nullptr;
};

/// All that a menu may show, from the top down.
inline std::vector<MenuRow> RowsOf(NoteMenu which) {
  std::vector<MenuRow> rows;
  for (const NoteAction& row : kNoteActions)
    if (row.menu.menu == which) rows.push_back({row.menu.at, &row, nullptr});
  for (const MenuEntry& entry : kMenuEntries)
    if (entry.place.menu == which) rows.push_back({entry.place.at, nullptr, &entry});
  std::ranges::sort(rows, {}, &MenuRow::at);
  return rows;
}

}  // namespace jotlets

#include "note/win/action_menu.h"

#include "base/win/wide.h"
#include "note/shortcuts.h"
#include "res/resource.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr MenuEntry kSeparator{};

constexpr MenuEntry kOpacity[] = {
    {kActionTransparentOpaque}, {kActionTransparent10pc}, {kActionTransparent20pc}, {kActionTransparent30pc},
    {kActionTransparent40pc},   {kActionTransparent50pc}, {kActionTransparent60pc}, {kActionTransparent70pc},
    {kActionTransparent80pc},   {kActionTransparent90pc},
};

constexpr MenuEntry kMarks[] = {{kActionUser1}, {kActionUser2}, {kActionUser3}, {kActionEditUserString1}};

constexpr MenuEntry kNoteEntries[] = {
    {kActionNewJotlet},
    {kActionNewFromClipboard},
    {kActionImportFromFile},
    kSeparator,
    {kActionEditTitle},
    {kActionColour},
    {kActionNone, IDS_MENU_OPACITY, kOpacity},
    {kActionSetSkin},
    {kActionNone, IDS_MENU_MARKS, kMarks},
    {kActionProperties},
    kSeparator,
    {kActionOnTop},
    {kActionRoll},
    {kActionAutoWidth},
    {kActionLock},
    {kActionGoAway},
    {kActionSolo},
    kSeparator,
    {kActionSleep},
    {kActionRecurrence},
    {kActionAlarm},
    {kActionAttach},
    {kActionNone, 0, {}, MenuPart::kAttachment},
    {kActionNone, IDS_MENU_STACKS, {}, MenuPart::kStacks},
    kSeparator,
    {kActionCopyToFile},
    {kActionMoveToFile},
    {kActionPrint},
    kSeparator,
    {kActionClose},
    {kActionDelete},
};

constexpr MenuEntry kAlign[] = {{kActionLeft}, {kActionCenter}, {kActionRight},
                                kSeparator,    {kActionLtr},    {kActionRtl}};
constexpr MenuEntry kBullets[] = {
    {kActionBulletsNone}, {kActionBulletsNormal}, {kActionBulletsNumbers}, {kActionBulletsLetters}};
constexpr MenuEntry kHighlight[] = {{kActionHiliteNone},   {kActionHiliteYellow}, {kActionHilitePink},
                                    {kActionHiliteOrange}, {kActionHiliteGreen},  {kActionHiliteBlue}};
constexpr MenuEntry kStyles[] = {{kActionApplyStyle0}, {kActionApplyStyle1}, {kActionApplyStyle2},
                                 {kActionApplyStyle3}, {kActionApplyStyle4}, {kActionApplyStyle5},
                                 {kActionApplyStyle6}, {kActionApplyStyle7}, {kActionApplyStyle8},
                                 {kActionApplyStyle9}};
constexpr MenuEntry kFormat[] = {
    {kActionBold},   {kActionItalic},  {kActionUnderline},  {kActionStrikethrough}, kSeparator,
    {kActionLarger}, {kActionSmaller}, {kActionLiftFormat}, {kActionApplyFormat},
};

constexpr MenuEntry kTextEntries[] = {
    {kActionUndo},
    {kActionRedo},
    kSeparator,
    {kActionCut},
    {kActionCopy},
    {kActionPaste},
    {kActionClear},
    {kActionSelectAll},
    kSeparator,
    {kActionFont},
    {kActionNone, IDS_MENU_FORMAT, kFormat},
    {kActionNone, IDS_MENU_ALIGN, kAlign},
    {kActionNone, IDS_MENU_BULLETS, kBullets},
    {kActionNone, IDS_MENU_HIGHLIGHT, kHighlight},
    {kActionNone, IDS_MENU_STYLES, kStyles},
    kSeparator,
    {kActionInsertDate},
    {kActionHyperlink},
    {kActionOpenUrl},
    {kActionFindText},
    {kActionFindTextAgain},
    kSeparator,
    {kActionNone, IDS_MENU_JOTLET, kNoteEntries},
};

void AppendExtras(HMENU menu, MenuPart part, std::span<const ExtraEntry> extras) {
  for (const ExtraEntry& extra : extras) {
    if (extra.part != part) continue;
    const UINT state = (extra.enabled ? MF_ENABLED : MF_GRAYED) | (extra.checked ? MF_CHECKED : MF_UNCHECKED);
    AppendMenuW(menu, extra.id == 0 ? MF_SEPARATOR : state, extra.id, Wide(extra.text));
  }
}

// The menu above owns the one below from here on.
void AppendMenuOfItsOwn(const Resources& resources, HMENU menu, UINT text, UniqueMenu below) {
  AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(below.release()), Wide(resources.String(text)));
}

UniqueMenu Build(const Resources& resources, std::span<const MenuEntry> entries, const ActionFacts& facts,
                 std::span<const ExtraEntry> extras) {
  UniqueMenu menu(CreatePopupMenu());
  for (const MenuEntry& entry : entries) {
    if (entry.part != MenuPart::kNothing) {
      UniqueMenu below(entry.text == 0 ? nullptr : CreatePopupMenu());
      AppendExtras(below ? below.get() : menu.get(), entry.part, extras);
      if (below) AppendMenuOfItsOwn(resources, menu.get(), entry.text, std::move(below));
    } else if (!entry.entries.empty()) {
      AppendMenuOfItsOwn(resources, menu.get(), entry.text, Build(resources, entry.entries, facts, extras));
    } else if (entry.action == kActionNone) {
      AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    } else {
      const ActionState state = StateOf(entry.action, facts);
      const auto code = static_cast<UINT>(entry.action);
      Text text = resources.String(IDS_ACTION + code);
      if (const Text keys = ShortcutText(entry.action); !keys.empty()) text += u"\t" + keys;
      AppendMenuW(menu.get(),
                  (state.enabled ? MF_ENABLED : MF_GRAYED) | (state.checked ? MF_CHECKED : MF_UNCHECKED),
                  code, Wide(text));
    }
  }
  return menu;
}

}  // namespace

const std::span<const MenuEntry> kJotletMenu(kNoteEntries);
const std::span<const MenuEntry> kTextMenu(kTextEntries);

ActionMenu::ActionMenu(const Resources& resources, std::span<const MenuEntry> entries,
                       const ActionFacts& facts, std::span<const ExtraEntry> extras)
    : menu_(Build(resources, entries, facts, extras)) {}

UINT ChooseFromMenu(HMENU menu, HWND owner) {
  Point at = MousePosition();
  // From the keyboard, the menu belongs to the note, wherever the mouse is.
  RECT bounds{};
  GetWindowRect(owner, &bounds);
  const Rect area = FromRECT(bounds);
  if (!area.Contains(at)) at = {area.left + 16, area.top + 24};
  const BOOL chosen = TrackPopupMenu(menu, TPM_RIGHTBUTTON | TPM_RETURNCMD, at.x, at.y, 0, owner, nullptr);
  return static_cast<UINT>(chosen);
}

UINT ActionMenu::Choose(HWND owner) const { return ChooseFromMenu(menu_.get(), owner); }

}  // namespace jotlets

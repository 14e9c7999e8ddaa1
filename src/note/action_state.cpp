#include "note/action_state.h"

#include <algorithm>

namespace jotlets {
namespace {

struct Span {
  ActionCode first;
  ActionCode last;
  constexpr bool Holds(ActionCode action) const { return action >= first && action <= last; }
};

template <std::size_t count>
bool IsIn(const Span (&spans)[count], ActionCode action) {
  return std::any_of(std::begin(spans), std::end(spans), [action](const Span& s) { return s.Holds(action); });
}

// Network and mail, the store, printing, image tools, and the codes without a handler in a note.
constexpr Span kNotYet[] = {
    {kActionReply, kActionReply},
    {kActionSendToPpc, kActionStyles},
    {kActionAddAsFriend, kActionAddAsFriend},
    {kActionFormatForReply, kActionFormatForReply},
    {kActionSyncWithServer, kActionSyncWithServer},
    {kActionHelp, kActionHelp},
    {kActionImportFromPpc, kActionImportFromPpc},
    {kActionStoreJotlet, kActionStoreJotlet},
    {kActionTrack, kActionTrack},
    {kActionSpecify, kActionSendToFf9},
    {kActionPenSelect, kActionPasteIntoImage},
    {kActionPenDrawText, kActionPenDrawText},
    {kActionSizeImageJotlet, kActionPenWidth21},
    {kActionPenArrow, kActionPenArrow},
    {kActionDummy, kActionStack},
    {kActionGrabSs, kActionFloodFill},
};

// What only a text can have done to it.
constexpr Span kOfText[] = {
    {kActionInsertDate, kActionInsertDate},
    {kActionAutoWidth, kActionAutoWidth},
    {kActionBullets, kActionStrikethrough},
    {kActionOpenUrl, kActionOpenUrl},
    {kActionScrollUp, kActionScrollDown},
    {kActionBulletsNone, kActionBulletsLetters},
    {kActionPageUp, kActionPageDown},
    {kActionApplyStyle0, kActionApplyStyle9},
    {kActionOpenTextContext, kActionOpenTextContext},
    {kActionFindText, kActionFindTextAgain},
    {kActionLtr, kActionRtl},
    {kActionHiliteNone, kActionHiliteBlue},
    {kActionLiftFormat, kActionApplyFormat},
    {kActionHyperlink, kActionHyperlink},
};

// Of those, what leaves the text as it is.
constexpr Span kReading[] = {
    {kActionAutoWidth, kActionAutoWidth},
    {kActionCopy, kActionCopy},
    {kActionSelectAll, kActionSelectAll},
    {kActionOpenUrl, kActionOpenUrl},
    {kActionScrollUp, kActionScrollDown},
    {kActionPageUp, kActionPageDown},
    {kActionFindText, kActionFindTextAgain},
    {kActionLiftFormat, kActionLiftFormat},
    {kActionOpenTextContext, kActionOpenTextContext},
};

// What needs something of the text: a selection, a clipboard, a step to take back.
bool HasWhatItNeeds(ActionCode action, const EditFacts& edit) {
  switch (action) {
    case kActionCut:
    case kActionCopy:
    case kActionClear: return edit.hasSelection;
    case kActionPaste: return edit.canPaste;
    case kActionUndo: return edit.canUndo;
    case kActionRedo: return edit.canRedo;
    default: return true;
  }
}

bool IsEnabled(ActionCode action, const ActionFacts& facts) {
  if (action <= kActionNone || action >= kActionEnd || IsIn(kNotYet, action)) return false;
  if (action == kActionSetSkin || action == kActionDefaultSkin) return !facts.skinFixed;
  if (action == kActionShowParent) return facts.inStack;
  if (!IsIn(kOfText, action)) return true;
  return !facts.image && (!facts.readOnly || IsIn(kReading, action)) && HasWhatItNeeds(action, facts.edit);
}

// The code of the family that begins with `first` and has a member for each value of an enumeration.
template <typename Kind>
bool IsOf(ActionCode action, ActionCode first, std::optional<Kind> kind) {
  return kind && action == first + static_cast<int>(*kind);
}

bool IsChecked(ActionCode action, const ActionFacts& facts) {
  switch (action) {
    case kActionRoll: return facts.rolled;
    case kActionOnTop: return facts.onTop;
    case kActionLock: return facts.readOnly;
    case kActionStang: return facts.stang;
    case kActionUser1: return facts.user1;
    case kActionUser2: return facts.user2;
    case kActionUser3: return facts.user3;
    case kActionBold: return facts.edit.bold;
    case kActionItalic: return facts.edit.italic;
    case kActionUnderline: return facts.edit.underline;
    case kActionStrikethrough: return facts.edit.strikethrough;
    case kActionRtl: return facts.edit.rtl;
    default: break;
  }
  return OpacityOf(action) == facts.transparency || IsOf(action, kActionLeft, facts.edit.alignment) ||
         IsOf(action, kActionBulletsNone, facts.edit.bullets) ||
         IsOf(action, kActionHiliteNone, facts.edit.highlight);
}

}  // namespace

ActionState StateOf(ActionCode action, const ActionFacts& facts) {
  return {IsEnabled(action, facts), IsChecked(action, facts)};
}

std::optional<std::int32_t> OpacityOf(ActionCode action) {
  if (action < kActionTransparentOpaque || action > kActionTransparent10pc) return std::nullopt;
  // The family counts down from 90 percent, which stores 10.
  return (action - kActionTransparentOpaque) * 10;
}

}  // namespace jotlets

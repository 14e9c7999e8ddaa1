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

// Network and mail, the store and the manage window, printing, sleep, alarms and attaching, image tools, and
// the codes without a handler in a note.
constexpr Span kNotYet[] = {
    {kActionReply, kActionReply},
    {kActionSendToPpc, kActionManage},
    {kActionAddAsFriend, kActionAddAsFriend},
    {kActionRecurrence, kActionRecurrence},
    {kActionFormatForReply, kActionFormatForReply},
    {kActionSyncWithServer, kActionSyncWithServer},
    {kActionHelp, kActionHelp},
    {kActionImportFromPpc, kActionImportFromPpc},
    {kActionAlarm, kActionAlarm},
    {kActionSleep, kActionSleep},
    {kActionPlayAlarm, kActionPlayAlarm},
    {kActionStoreJotlet, kActionStoreJotlet},
    {kActionAttach, kActionAttach},
    {kActionTrack, kActionTrack},
    {kActionSpecify, kActionSendToFf9},
    {kActionPenSelect, kActionPasteIntoImage},
    {kActionPenDrawText, kActionPenDrawText},
    {kActionSizeImageJotlet, kActionPenWidth21},
    {kActionPenArrow, kActionPenArrow},
    {kActionDummy, kActionStack},
    {kActionGrabSs, kActionFloodFill},
    {kActionShowParent, kActionShowParent},
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

bool IsEnabled(ActionCode action, const ActionFacts& facts) {
  if (action <= kActionNone || action >= kActionEnd || IsIn(kNotYet, action)) return false;
  if (action == kActionSetSkin || action == kActionDefaultSkin) return !facts.skinFixed;
  if (!IsIn(kOfText, action)) return true;
  return !facts.image && (!facts.readOnly || IsIn(kReading, action));
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
    default: return OpacityOf(action) == facts.transparency;
  }
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

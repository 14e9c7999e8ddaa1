// The vocabulary of note commands: the names that skin buttons carry and the codes that notes act on. What a
// command does is not known here.
#pragma once

#include <cstdint>

#include "base/text.h"

// Every action in the order of the codes, which count from 1. The opacities deliberately count down.
// clang-format off
#define JOTLETS_ACTIONS(X) \
  X(Close) X(OnTop) X(Roll) X(GoAway) X(Reply) X(MoveToFile) X(SendToPpc) X(SendToPalm) X(Multiple) X(Print) \
  X(Options) X(Styles) X(Friends) X(Manage) X(CopyToFile) X(OpenLog) X(OpenIni) X(AddAsFriend) X(InsertDate) \
  X(NewJotlet) X(Recurrence) X(EditTitle) X(FormatForReply) X(AutoWidth) X(SyncWithServer) X(Properties) \
  X(Help) X(ImportFromFile) X(ImportFromPpc) X(Rescue) X(HideAll) X(ExitApp) X(Alarm) X(Colour) X(Sleep) \
  X(Bullets) X(Undo) X(Cut) X(Copy) X(Paste) X(Clear) X(SelectAll) X(Font) X(Redo) \
  X(Left) X(Center) X(Right) X(Larger) X(Smaller) X(Bold) X(Italic) X(Underline) X(Strikethrough) \
  X(Save) X(PlayAlarm) X(OpenUrl) X(StoreJotlet) X(ScrollUp) X(ScrollDown) X(Attach) \
  X(BulletsNone) X(BulletsNormal) X(BulletsNumbers) X(BulletsLetters) X(User1) X(User2) X(User3) \
  X(Delete) X(Lock) X(Track) X(PageUp) X(PageDown) X(Specify) \
  X(SendToFf0) X(SendToFf1) X(SendToFf2) X(SendToFf3) X(SendToFf4) \
  X(SendToFf5) X(SendToFf6) X(SendToFf7) X(SendToFf8) X(SendToFf9) \
  X(ApplyStyle0) X(ApplyStyle1) X(ApplyStyle2) X(ApplyStyle3) X(ApplyStyle4) \
  X(ApplyStyle5) X(ApplyStyle6) X(ApplyStyle7) X(ApplyStyle8) X(ApplyStyle9) \
  X(PenSelect) X(PenDraw) X(PenErase) X(PenDropper) X(PenColour) X(PenCrop) X(PenClearSel) X(PenClearAll) \
  X(PenLoadImage) X(ConvertToImage) X(PasteIntoImage) X(OpenJotletContext) X(OpenTextContext) \
  X(EditUserString1) X(PenDrawText) X(FindText) X(FindTextAgain) X(SizeImageJotlet) \
  X(PenLine) X(PenRect) X(PenCirc) \
  X(PenWidth1) X(PenWidth3) X(PenWidth5) X(PenWidth7) X(PenWidth9) X(PenWidth11) \
  X(PenWidth13) X(PenWidth15) X(PenWidth17) X(PenWidth19) X(PenWidth21) \
  X(Ltr) X(Rtl) X(SetSkin) X(DefaultSkin) X(Backup) \
  X(HiliteNone) X(HiliteYellow) X(HilitePink) X(HiliteOrange) X(HiliteGreen) X(HiliteBlue) \
  X(TransparentOpaque) X(Transparent90pc) X(Transparent80pc) X(Transparent70pc) X(Transparent60pc) \
  X(Transparent50pc) X(Transparent40pc) X(Transparent30pc) X(Transparent20pc) X(Transparent10pc) \
  X(LiftFormat) X(ApplyFormat) X(PenArrow) X(Stang) X(Dummy) X(Stack) X(Solo) X(GrabSs) X(GrabSsArea) \
  X(Mirror) X(Flip) X(RotLeft) X(RotRight) X(Negative) X(Grey) X(Border) X(Blur) X(Jitter) X(FloodFill) \
  X(NewFromClipboard) X(ShowParent) X(Hyperlink) X(OrphanCheck)
// clang-format on

namespace jotlets {

/// `kActionClose` is 1, and so on; the code of an action is its name's row.
enum ActionCode : std::int32_t {
  kActionNone = 0,
#define JOTLETS_CODE(name) kAction##name,
  JOTLETS_ACTIONS(JOTLETS_CODE)
#undef JOTLETS_CODE
      kActionEnd  // one past the last
};

/// The action called `name`, without regard to case; `kActionNone` when there is none.
ActionCode ActionFromName(TextView name);

/// The name of an action in lower case; empty for what is no action.
Text ActionName(std::int32_t code);

}  // namespace jotlets

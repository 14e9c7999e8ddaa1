#include "note/win/edit_actions.h"

#include <algorithm>
#include <array>

#include "note/win/edit_text.h"

namespace jotlets {
namespace {

constexpr std::int32_t kScrollStep = 16;  // pixels, of one click on a scroll button

struct EditAction {
  ActionCode first;
  ActionCode last;  // of a family, whose members differ by their distance from the first
  bool changes;     // refused by read-only notes
  void (*act)(BEdit&, const EditContext&, std::int32_t member);
};

template <void (*Act)(BEdit&)>
void Plain(BEdit& edit, const EditContext&, std::int32_t) {
  Act(edit);
}

template <TextEffect Effect>
void Toggle(BEdit& edit, const EditContext&, std::int32_t) {
  ToggleEffect(edit, Effect);
}

template <bool Larger>
void Step(BEdit& edit, const EditContext&, std::int32_t) {
  StepFontSize(edit, Larger);
}

template <bool RightToLeft>
void Direct(BEdit& edit, const EditContext&, std::int32_t) {
  SetDirection(edit, RightToLeft);
}

template <std::int32_t Direction>
void ScrollLine(BEdit& edit, const EditContext&, std::int32_t) {
  edit.ScrollBy(Direction * kScrollStep);
}

template <std::int32_t Direction>
void ScrollPage(BEdit& edit, const EditContext&, std::int32_t) {
  edit.ScrollBy(Direction * edit.PageHeight());
}

void PasteClipboard(BEdit& edit, const EditContext&, std::int32_t) { edit.Paste(); }

void Align(BEdit& edit, const EditContext&, std::int32_t member) {
  SetAlignment(edit, static_cast<Alignment>(member));
}

void List(BEdit& edit, const EditContext& context, std::int32_t member) {
  SetBullets(edit, static_cast<Bullets>(member), context.bulletIndent);
}

void Shade(BEdit& edit, const EditContext& context, std::int32_t member) {
  SetHighlight(edit, static_cast<Highlight>(member), context.highlights);
}

void Style(BEdit& edit, const EditContext& context, std::int32_t member) {
  const auto index = static_cast<std::size_t>(member);
  if (index < context.styles.size()) SetFont(edit, context.styles[index]);
}

void Lift(BEdit& edit, const EditContext& context, std::int32_t) { context.lifted = LiftFormat(edit); }

void Apply(BEdit& edit, const EditContext& context, std::int32_t) {
  if (context.lifted) ApplyFormat(edit, *context.lifted);
}

void InsertDate(BEdit& edit, const EditContext& context, std::int32_t) {
  if (context.dateText) InsertText(edit, context.dateText());
}

void FindAgain(BEdit& edit, const EditContext& context, std::int32_t) {
  if (!FindNextText(edit, context.searched, context.matchCase)) MessageBeep(MB_OK);
}

void OpenLink(BEdit& edit, const EditContext&, std::int32_t) { OpenSelectedLink(edit); }
void MakeLink(BEdit& edit, const EditContext&, std::int32_t) { OpenOrMakeLink(edit); }

constexpr std::array kEditActions = {
    EditAction{kActionUndo, kActionUndo, true, Plain<Undo>},
    EditAction{kActionRedo, kActionRedo, true, Plain<Redo>},
    EditAction{kActionCut, kActionCut, true, Plain<Cut>},
    EditAction{kActionCopy, kActionCopy, false, Plain<Copy>},
    EditAction{kActionPaste, kActionPaste, true, PasteClipboard},
    EditAction{kActionClear, kActionClear, true, Plain<Clear>},
    EditAction{kActionSelectAll, kActionSelectAll, false, Plain<SelectAll>},
    EditAction{kActionBold, kActionBold, true, Toggle<TextEffect::kBold>},
    EditAction{kActionItalic, kActionItalic, true, Toggle<TextEffect::kItalic>},
    EditAction{kActionUnderline, kActionUnderline, true, Toggle<TextEffect::kUnderline>},
    EditAction{kActionStrikethrough, kActionStrikethrough, true, Toggle<TextEffect::kStrikethrough>},
    EditAction{kActionLarger, kActionLarger, true, Step<true>},
    EditAction{kActionSmaller, kActionSmaller, true, Step<false>},
    EditAction{kActionLeft, kActionRight, true, Align},
    EditAction{kActionLtr, kActionLtr, true, Direct<false>},
    EditAction{kActionRtl, kActionRtl, true, Direct<true>},
    EditAction{kActionBulletsNone, kActionBulletsLetters, true, List},
    EditAction{kActionHiliteNone, kActionHiliteBlue, true, Shade},
    EditAction{kActionLiftFormat, kActionLiftFormat, false, Lift},
    EditAction{kActionApplyFormat, kActionApplyFormat, true, Apply},
    EditAction{kActionApplyStyle0, kActionApplyStyle9, true, Style},
    EditAction{kActionInsertDate, kActionInsertDate, true, InsertDate},
    EditAction{kActionFindTextAgain, kActionFindTextAgain, false, FindAgain},
    EditAction{kActionOpenUrl, kActionOpenUrl, false, OpenLink},
    EditAction{kActionHyperlink, kActionHyperlink, false, MakeLink},
    EditAction{kActionScrollUp, kActionScrollUp, false, ScrollLine<-1>},
    EditAction{kActionScrollDown, kActionScrollDown, false, ScrollLine<1>},
    EditAction{kActionPageUp, kActionPageUp, false, ScrollPage<-1>},
    EditAction{kActionPageDown, kActionPageDown, false, ScrollPage<1>},
};

}  // namespace

bool DoEditAction(BEdit& edit, ActionCode action, const EditContext& context) {
  const auto row = std::find_if(kEditActions.begin(), kEditActions.end(),
                                [&](const EditAction& r) { return action >= r.first && action <= r.last; });
  if (row == kEditActions.end()) return false;
  const bool refused = row->changes && edit.IsReadOnly();
  if (!refused && edit.Handle() != nullptr) row->act(edit, context, action - row->first);
  return true;
}

}  // namespace jotlets

#include "note/win/edit_actions.h"

#include "action/action_table.h"
#include "editor/win/edit_text.h"

namespace jotlets {
namespace {

constexpr std::int32_t kScrollStep = 16;  // pixels, of one click on a scroll button

// `value` is what the command sets, for those that set one of several.
using EditAct = void (*)(BEdit& edit, const EditContext& context, std::int32_t value);

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

void Align(BEdit& edit, const EditContext&, std::int32_t value) {
  SetAlignment(edit, static_cast<Alignment>(value));
}

void List(BEdit& edit, const EditContext& context, std::int32_t value) {
  SetBullets(edit, static_cast<Bullets>(value), context.bulletIndent);
}

// Paragraphs of several kinds all become bulleted ones.
void ToggleList(BEdit& edit, const EditContext& context, std::int32_t) {
  const bool none = edit.Facts(context.highlights).bullets != Bullets::kNormal;
  SetBullets(edit, none ? Bullets::kNormal : Bullets::kNoBullets, context.bulletIndent);
}

void Shade(BEdit& edit, const EditContext& context, std::int32_t value) {
  SetHighlight(edit, static_cast<Highlight>(value), context.highlights);
}

void Style(BEdit& edit, const EditContext& context, std::int32_t value) {
  const auto index = static_cast<std::size_t>(value);
  if (index < context.styles.size()) ApplyStyle(edit, context.styles[index]);
}

void Lift(BEdit& edit, const EditContext& context, std::int32_t) { context.lifted = LiftFormat(edit); }

void Apply(BEdit& edit, const EditContext& context, std::int32_t) {
  if (context.lifted) ApplyFormat(edit, *context.lifted);
}

void InsertDate(BEdit& edit, const EditContext& context, std::int32_t) {
  if (context.dateText) InsertText(edit, context.dateText());
}

void FindAgain(BEdit& edit, const EditContext& context, std::int32_t) {
  if (FindText(edit, context.searched, FindStep::kNext).count == 0) MessageBeep(MB_OK);
}

void OpenLink(BEdit& edit, const EditContext&, std::int32_t) { OpenSelectedLink(edit); }

struct EditHandler {
  ActionCode code;
  EditAct act;
};

constexpr EditHandler kHandlers[] = {
    {kActionUndo, Plain<Undo>},
    {kActionRedo, Plain<Redo>},
    {kActionCut, Plain<Cut>},
    {kActionCopy, Plain<Copy>},
    {kActionPaste, PasteClipboard},
    {kActionClear, Plain<Clear>},
    {kActionSelectAll, Plain<SelectAll>},
    {kActionBold, Toggle<TextEffect::kBold>},
    {kActionItalic, Toggle<TextEffect::kItalic>},
    {kActionUnderline, Toggle<TextEffect::kUnderline>},
    {kActionStrikethrough, Toggle<TextEffect::kStrikethrough>},
    {kActionLarger, Step<true>},
    {kActionSmaller, Step<false>},
    {kActionLeft, Align},
    {kActionLtr, Direct<false>},
    {kActionRtl, Direct<true>},
    {kActionBulletsNone, List},
    {kActionHiliteNone, Shade},
    {kActionLiftFormat, Lift},
    {kActionApplyFormat, Apply},
    {kActionApplyStyle0, Style},
    {kActionInsertDate, InsertDate},
    {kActionFindTextAgain, FindAgain},
    {kActionOpenUrl, OpenLink},
    {kActionScrollUp, ScrollLine<-1>},
    {kActionScrollDown, ScrollLine<1>},
    {kActionPageUp, ScrollPage<-1>},
    {kActionPageDown, ScrollPage<1>},
    {kActionBullets, ToggleList},
};
static_assert(AreHandlersBy(ActionBy::kEditor, kHandlers));

}  // namespace

bool DoEditAction(BEdit& edit, ActionCode action, const EditContext& context) {
  const NoteAction& row = RowOf(action);
  const EditHandler* handler = HandlerOf(kHandlers, row);
  if (handler == nullptr) return false;
  const bool refused = row.onText == ActionOnText::kEdits && edit.IsReadOnly();
  if (!refused && edit.Handle() != nullptr) handler->act(edit, context, row.sets.value);
  return true;
}

}  // namespace jotlets

// What a note looks like: its skin, what the skin is told to show, and how opaque it is.
#include <algorithm>

#include "base/win/shown_time.h"
#include "note/opacity.h"
#include "note/win/jotlet.h"
#include "note/win/note_words.h"

namespace jotlets {
namespace {

bool ShowsCaret(const BEdit& edit) {
  POINTL at{};
  SendMessageW(edit.Handle(), EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&at), edit.Selection().cpMax);
  RECT client{};
  GetClientRect(edit.Handle(), &client);
  return at.y >= client.top && at.y < client.bottom;
}

// The caret stays in sight; a text that is scrolled away from it stays where it is.
void SetBoundsAroundCaret(ShownContent& content, BEdit* edit, const Rect& bounds) {
  const bool shown = edit != nullptr && ShowsCaret(*edit);
  content.SetBounds(bounds);
  if (shown) SendMessageW(edit->Handle(), EM_SCROLLCARET, 0, 0);
}

bool HoldsMouse(const BEdit& edit) {
  POINT mouse{};
  GetCursorPos(&mouse);
  return GetAsyncKeyState(VK_LBUTTON) < 0 &&
         (GetCapture() == edit.Handle() || WindowFromPoint(mouse) == edit.Handle());
}

}  // namespace

ShownContent::Look BJotlet::ContentLook() const {
  const auto& contrast = context_.theme.Now().contrast;
  return {PaperOf(DrawnColour(record_.colour)), record_.readOnly, !skin_->data.useScrollbar,
          skin_->data.drawOnRtfBg, contrast ? std::optional(contrast->ink) : std::nullopt};
}

// Everything that follows from the skin anew.
void BJotlet::ApplySkin() {
  // What the skin draws under the text must not be clipped away there.
  const LONG_PTR style = GetWindowLongPtrW(Handle(), GWL_STYLE);
  SetWindowLongPtrW(Handle(), GWL_STYLE,
                    skin_->data.drawOnRtfBg ? style & ~WS_CLIPCHILDREN : style | WS_CLIPCHILDREN);
  title_.tooltip.Forget();
  ApplyOpacity();
  content_->SetLook(ContentLook());
  OnSize();
}

void BJotlet::SetSkin(TextView name) {
  record_.skin = name;
  RefreshSkin();
  Tell(JotletEvent::kChanged);
}

void BJotlet::RefreshSkin() {
  Record();
  skin_ = context_.skins.OfNote(record_.skin, place_.Dpi());
  PlaceByRecord();
  ApplySkin();
}

void BJotlet::OnScaleChanged() {
  skin_ = context_.skins.OfNote(record_.skin, place_.Dpi());
  ApplySkin();
}

void BJotlet::FollowOptions() {
  ApplyOpacity();
  TitleChanged();
  UpdateView();
  Repaint();
}

void BJotlet::SetColour(Colour colour) {
  record_.colour = colour;
  content_->SetPaper(PaperOf(DrawnColour(colour)));
  UpdateView();
  Tell(JotletEvent::kChanged);
}

// What stands in the title bar; the window is called by the title alone.
Text BJotlet::BarTitle() const {
  enum : std::int32_t { kTitleAndTime = 1, kNothing = 2 };
  if (context_.options.titlebar == kNothing) return {};
  if (context_.options.titlebar != kTitleAndTime || record_.modified <= 0) return shownTitle_;
  const Text time = ShownTime(context_.clock.ToLocal(record_.modified));
  return shownTitle_.empty() ? time : shownTitle_ + u" \u2013 " + time;
}

void BJotlet::Draw(HDC dc, const Rect& part) {
  const Text title = BarTitle();
  const NoteWords words(context_, record_, title, view_.window);
  const auto inlay = content_->Inlay(ContentPlace(), ContentArea());
  context_.skins.Renderer().Paint(dc, part, *skin_, view_, words, inlay.get());
}

void BJotlet::OnSize() {
  UpdateView();
  content_->Show(!view_.rolled);
  if (!view_.rolled) content_->SetBounds(TextArea(skin_->data, view_));
  UpdateView();
  ApplyRegion();
  Repaint();
}

void BJotlet::FitWidth() {
  if (view_.rolled || IsFrozen()) return;
  const std::optional<std::int32_t> natural = content_->NaturalWidth();
  if (!natural) return;
  constexpr std::int32_t kCaretRoom = 8;
  const Rect bounds = Bounds();
  const std::int32_t frame = bounds.Width() - TextArea(skin_->data, view_).Width();
  const std::int32_t wanted = *natural + frame + kCaretRoom;
  SetSizeSafe({std::min(wanted, context_.screens.virtualScreen.Width() / 2), bounds.Height()});
  if (Bounds() != bounds) Tell(JotletEvent::kSized);
}

void BJotlet::ApplyOpacity() {
  ShowOpacity(IsOpaqueInFocus(record_.transparency, context_.options.opaqueEdit) && hasFocus_
                  ? 0
                  : record_.transparency);
}

// High contrast shows nothing through.
void BJotlet::ShowOpacity(std::int32_t percent) {
  ApplyAlpha(AlphaOfOpacity(context_.theme.Now().contrast ? 0 : percent));
}

void BJotlet::BeginFade() {
  const Options& options = context_.options;
  const bool atOnce = options.dontFadeToTransparent || !context_.theme.Now().moves;
  const FocusLoss loss = OnFocusLoss(record_.transparency, options.opaqueEdit, atOnce);
  if (loss == FocusLoss::kReturnsAtOnce) ShowOpacity(record_.transparency);
  if (loss != FocusLoss::kFades) return;
  fadeStep_ = 0;
  SetTimer(Handle(), kFadeTimer, UINT{kFadeStep}, nullptr);
}

void BJotlet::FadeStep() {
  const auto opacity = FadeOpacity(++fadeStep_, record_.transparency);
  if (opacity) {
    ShowOpacity(*opacity);
  } else {
    KillTimer(Handle(), kFadeTimer);
  }
}

void BJotlet::OnEditScrolled() {
  // Without a scroll bar of the skin's own, nothing that it shows follows the text.
  if (skin_->data.useScrollbar && Handle() != nullptr) UpdateView();
}

SkinStates BJotlet::States() const {
  SkinStates states;
  states.Set(SkinState::kOnTop, record_.onTop);
  states.Set(SkinState::kReadOnly, record_.readOnly);
  states.Set(SkinState::kAlarm, record_.alarm > 0);
  states.Set(SkinState::kAttached, record_.IsAttached());
  states.Set(SkinState::kTransmit, !record_.lastSend.empty());
  states.Set(SkinState::kInStack, context_.stackName(record_.stack).has_value());
  states.Set(SkinState::kSleeping, record_.sleep.asleep);
  states.Set(SkinState::kRecurring, record_.sleep.recurring);
  states.Set(SkinState::kGhost, record_.ghost);
  states.Set(SkinState::kTitle, !shownTitle_.empty());
  states.Set(SkinState::kOwnTitle, !record_.title.empty());
  states.Set(SkinState::kImage, record_.IsImage());
  states.Set(SkinState::kStang, record_.stang);
  states.Set(SkinState::kSounding, IsSounding());
  states.Set(SkinState::kRolled, view_.rolled);
  states.Set(SkinState::kUser1, record_.user1);
  states.Set(SkinState::kUser2, record_.user2);
  states.Set(SkinState::kUser3, record_.user3);
  return states;
}

std::vector<SkinPart> BJotlet::SkinParts() const {
  const ActionFacts actions = owner_.FactsOf(*this);
  PartFacts facts{.title = shownTitle_, .titleAction = kActionEditTitle, .states = StatesOfNotes()};
  facts.content = record_.IsImage() ? PartRole::kPicture : PartRole::kText;
  facts.stateOf = [&actions](ActionCode action) { return StateOf(action, actions); };
  facts.valueOf = [this](SkinState state) { return WordsOfState(state); };
  facts.textOf = context_.textOf;
  return PartsOf(skin_->data, view_, facts);
}

Text BJotlet::WordsOfState(SkinState state) const {
  const NoteWords words(context_, record_, shownTitle_, view_.window);
  switch (state) {
    case SkinState::kAlarm: return words.Find(u"ALARM").value_or(Text());
    case SkinState::kSleeping: return words.Find(u"WAKE").value_or(Text());
    case SkinState::kInStack: return words.Find(u"STACKNAME").value_or(Text());
    default: return {};
  }
}

void BJotlet::FillView() {
  view_.colour = ShownColour();
  view_.rolled = IsShownRolled(record_, Rolling());
  // A note that is selected with others looks like the one that has the focus.
  view_.focus = hasFocus_ || selected_;
  const bool hadBar = view_.states.Has(SkinState::kFormatBar);
  view_.states = States();
  ShowFormat(hadBar);
  ShowTools();
  const auto tag = TagOf(skin_->data, view_);
  view_.states.Set(SkinState::kTagLine, tag.has_value());
  if (tag) view_.states.Set(*tag, true);
}

// The bar is there while one writes. It does not come under a mouse that selects text.
void BJotlet::ShowFormat(bool hadBar) {
  const BEdit* edit = Editor();
  const bool writes =
      hasFocus_ && edit != nullptr && !edit->IsReadOnly() && context_.options.formatBar && !IsSounding();
  if (!writes || !HasRoomForFormatBar(skin_->data, view_) || (!hadBar && HoldsMouse(*edit))) return;
  SkinStates& states = view_.states;
  // At every move of the caret: no more than what the bar shows.
  const EditFacts facts = edit->FormatFacts(context_.editing().highlights);
  states.Set(SkinState::kFormatBar, true);
  states.Set(SkinState::kCheckLists, context_.options.typingAids);
  states.Set(SkinState::kBold, facts.bold);
  states.Set(SkinState::kItalic, facts.italic);
  states.Set(SkinState::kUnderline, facts.underline);
  states.Set(SkinState::kStrikethrough, facts.strikethrough);
  states.Set(SkinState::kBullets, facts.bullets == Bullets::kNormal);
  states.Set(SkinState::kCheckList, facts.checkList);
  states.Set(SkinState::kHighlight, facts.highlight && *facts.highlight != Highlight::kNoHighlight);
}

// The bar of a picture is there while it has the keyboard.
void BJotlet::ShowTools() {
  const bool draws = record_.IsImage() && hasFocus_ && !record_.readOnly && context_.options.formatBar &&
                     !IsSounding() && HasRoomForFormatBar(skin_->data, view_);
  view_.chosen = kActionNone;
  view_.pen = {};
  view_.canUndo = view_.canRedo = true;
  if (!draws) return;
  const PictureFacts drawing = Drawing();
  view_.states.Set(SkinState::kPictureBar, true);
  view_.chosen = drawing.tool;
  view_.canUndo = drawing.canUndo;
  view_.canRedo = drawing.canRedo;
  view_.pen = ToolSettingsFrom(context_.options, place_.Dpi()).colour;
}

// What changes most often, the button under the mouse and the thumb, changes little of the window.
void BJotlet::Invalidate(const SkinView& before) {
  // The bar at the foot has come or gone.
  const Rect text = TextArea(skin_->data, view_);
  if (before.window == view_.window && text != TextArea(skin_->data, before))
    SetBoundsAroundCaret(*content_, Editor(), text);
  SkinView rest = before;
  rest.hotButton = view_.hotButton;
  rest.thumb = view_.thumb;
  rest.hover = view_.hover;
  if (rest != view_) {
    Repaint();
    return;
  }
  if (before.hover != view_.hover) {
    const RECT area = ToRECT(AreaUnderMouse(skin_->data, view_));
    InvalidateRect(Handle(), &area, FALSE);
  }
  for (const std::size_t button : {before.hotButton, view_.hotButton}) {
    if (button >= skin_->data.elements.size()) continue;
    const RECT area = ToRECT(ElementRect(skin_->data.elements[button], view_));
    InvalidateRect(Handle(), &area, FALSE);
  }
  if (before.thumb == view_.thumb) return;
  const RECT beside{TextArea(skin_->data, view_).right, 0, view_.window.width, view_.window.height};
  InvalidateRect(Handle(), &beside, FALSE);
}

}  // namespace jotlets

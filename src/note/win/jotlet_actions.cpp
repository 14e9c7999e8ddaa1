// The states of a note that commands change.
#include "note/opacity.h"
#include "note/win/jotlet.h"

namespace jotlets {

bool BJotlet::SetRolled(bool rolled) {
  if (rolled && RolledHeight() <= 0) return false;
  if (record_.rolled == rolled) return true;
  SyncPlace();
  GetJotletHeight();
  record_.rolled = rolled;
  PlaceByRecord();
  OnSize();
  Tell(JotletEvent::kChanged);
  return true;
}

std::int32_t BJotlet::GetJotletHeight() {
  const auto known = jotlets::GetJotletHeight(record_, place_.Chosen().Height(), Rolling());
  if (known) return *known;
  record_.height = HeightOfContent();
  Tell(JotletEvent::kHeightUnknown);
  return record_.height;
}

// The editor of a note that was never shown whole has no width yet to break its lines at.
std::int32_t BJotlet::HeightOfContent() {
  SkinView whole = view_;
  whole.rolled = false;
  whole.states.Set(SkinState::kFormatBar, false);
  whole.window = {Scaled(record_.width), Scaled(context_.options.defaultHeight)};
  const Rect area = TextArea(skin_->data, whole);
  content_->SetBounds(area);
  const std::int32_t height =
      HeightFromContent(content_->Scrolled(area.Height()).range, area.top, whole.window.height - area.bottom);
  return MulDiv(height, kUsualDpi, place_.Dpi());
}

bool BJotlet::EditTitle() {
  if (!skin_->data.titlebar || !IsWindowVisible(Handle())) return false;
  const Rect area = ResolveCorners(*skin_->data.titlebar, {view_.window, {}});
  constexpr std::int32_t kMinWidth = 40;
  constexpr std::int32_t kMinHeight = 12;
  if (area.Width() < kMinWidth || area.Height() < kMinHeight) return false;
  SetForegroundWindow(Handle());
  return title_.edit.Open(Handle(), area, record_.title,
                          [this](const Text* title, HWND focus) { OnTitleEdited(title, focus); });
}

void BJotlet::OnTitleEdited(const Text* title, HWND focus) {
  if (Handle() == nullptr) return;
  if (title != nullptr && *title != record_.title) SetTitle(*title);
  if (focus == nullptr) {
    SetFocus(FocusWindow());
  } else if (focus != Handle() && !IsChild(Handle(), focus)) {
    OnFocus(false);
  }
}

void BJotlet::SetOnTop(bool onTop) {
  record_.onTop = onTop;
  KeepOnTop(onTop);
  UpdateView();
  Tell(JotletEvent::kChanged);
}

void BJotlet::SetReadOnly(bool readOnly) {
  record_.readOnly = readOnly;
  content_->SetReadOnly(readOnly);
  UpdateView();
  Tell(JotletEvent::kChanged);
}

void BJotlet::SetHidden(bool hidden) {
  if (record_.hidden == hidden) return;
  record_.hidden = hidden;
  if (hidden) {
    Hide();
  } else if (context_.options.hidden != 1) {
    Show();
  }
  Tell(JotletEvent::kChanged);
}

void BJotlet::SetGhost(bool ghost) {
  if (record_.ghost == ghost) return;
  record_.ghost = ghost;
  ApplyGhost();
  ApplyOpacity();
  UpdateView();
  Tell(JotletEvent::kChanged);
}

// A ghost whose alarm sounds can be clicked, or nobody could quieten it.
void BJotlet::ApplyGhost() {
  const bool through = record_.ghost && !IsSounding();
  const LONG_PTR style = GetWindowLongPtrW(Handle(), GWL_EXSTYLE);
  // The layered style stays: without it, the first half of a change would show the note opaque.
  SetWindowLongPtrW(Handle(), GWL_EXSTYLE,
                    through ? style | WS_EX_TRANSPARENT | WS_EX_LAYERED : style & ~WS_EX_TRANSPARENT);
}

void BJotlet::SetTransparency(std::int32_t percent) {
  record_.transparency = percent;
  // While it has the focus, a note that is opaque for editing stays so until it loses it.
  const bool later = percent != 0 && hasFocus_ && context_.options.opaqueEdit;
  if (!later) {
    KillTimer(Handle(), kFadeTimer);
    ShowOpacity(percent);
  }
  Tell(JotletEvent::kChanged);
}

void BJotlet::SetSelected(bool selected) {
  selected_ = selected;
  UpdateView();
}

void BJotlet::GoAway() {
  const Rect screen = context_.screens.virtualScreen;
  const Rect bounds = Bounds();
  const bool left = bounds.left - screen.left < screen.right - bounds.right;
  StartAnimation({bounds.left, bounds.top}, {left ? screen.left - bounds.Width() : screen.right, bounds.top},
                 AnimationKind::kHide);
}

void BJotlet::StartAnimation(Point from, Point to, AnimationKind kind) {
  SyncPlace();
  if (animation_.Start(from, to, kind)) Tell(JotletEvent::kAnimated);
}

bool BJotlet::TickAnimation() {
  const auto frame = animation_.Tick(context_.theme.Now().moves ? context_.options.animationSpeed : 0);
  return frame && ShowFrame(*frame);
}

void BJotlet::FinishAnimation() {
  if (const auto frame = animation_.FinishNow()) ShowFrame(*frame);
}

bool BJotlet::ShowFrame(const AnimationFrame& frame) {
  // Hidden before it is put back to where it was, so that nobody sees it jump.
  if (frame.finished && animation_.kind == AnimationKind::kHide) SetHidden(true);
  SetWindowPos(Handle(), nullptr, frame.position.x, frame.position.y, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  if (!frame.finished) return true;
  Tell(JotletEvent::kChanged);
  StartPendingAlarm();
  owner_.OnAnimationEnded(*this, animation_.kind);
  return false;
}

void BJotlet::SetUserString(TextView words) {
  record_.userString1 = words;
  Repaint();
  Tell(JotletEvent::kChanged);
}

void BJotlet::SetStack(std::int32_t number) {
  if (record_.stack == number) return;
  record_.stack = number;
  UpdateView();
  Repaint();
  Tell(JotletEvent::kChanged);
}

void BJotlet::SetAttachment(const Attachment& attachment) {
  record_.attachment = attachment;
  UpdateView();
  Tell(JotletEvent::kChanged);
}

void BJotlet::ApplyProperties(const JotletData& wanted) {
  if (wanted.title != record_.title) SetTitle(wanted.title);
  if (wanted.userString1 != record_.userString1) SetUserString(wanted.userString1);
  if (wanted.colour != record_.colour) SetColour(wanted.colour);
  if (wanted.transparency != record_.transparency) SetTransparency(wanted.transparency);
  if (wanted.onTop != record_.onTop) SetOnTop(wanted.onTop);
  if (wanted.readOnly != record_.readOnly) SetReadOnly(wanted.readOnly);
  if (wanted.ghost != record_.ghost) SetGhost(wanted.ghost);
  Record();
  if (wanted.width != record_.width || wanted.height != record_.height) {
    SetRolled(false);
    SetSizeSafe({Scaled(wanted.width), Scaled(wanted.height)});
  }
  SetRolled(wanted.rolled);
  SetHidden(wanted.hidden);
}

void BJotlet::Mark(bool JotletData::*flag, bool on) {
  record_.*flag = on;
  UpdateView();
  Tell(JotletEvent::kChanged);
}

}  // namespace jotlets

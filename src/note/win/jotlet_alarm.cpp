// A note whose alarm sounds: it comes to the front, jiggles about its place and flashes until it is stopped.
#include <cstdlib>

#include "looks/motion.h"
#include "note/win/jotlet.h"

namespace jotlets {

void BJotlet::SetAlarm(std::int32_t time) {
  record_.alarm = time;
  if (waitsForWindow_) StopAlarm();
  ShowAlarm();
  Tell(JotletEvent::kChanged);
}

// The indicators and words of the skin that tell of it.
void BJotlet::ShowAlarm() {
  UpdateView();
  Repaint();
}

void BJotlet::StartAlarm() {
  if (IsSounding() || Handle() == nullptr) return;
  const bool waited = waitsForWindow_;
  waitsForWindow_ = !record_.hidden && owner_.IsTargetBehind(*this);
  if (waitsForWindow_) {
    alarmPending_ = true;
    return Hide();
  }
  if (waited && context_.options.hidden != 1) ShowWindow(Handle(), SW_SHOWNOACTIVATE);
  // What cannot be seen, or is on its way, sounds when it is there.
  alarmPending_ = record_.hidden || !IsWindowVisible(Handle()) || animation_.running;
  if (alarmPending_) return;
  SyncPlace();
  alarmOrigin_ = Bounds().TopLeft();
  alarmPhase_ = 0;
  record_.alarm = kNone;
  SetTimer(Handle(), kAlarmTimer, UINT{kAlarmStep}, nullptr);
  if (record_.ghost) ApplyGhost();
  SetWindowPos(Handle(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  ShowPaper();
  ShowAlarm();
  Tell(JotletEvent::kChanged);
  Tell(JotletEvent::kSounding);
  // Last: the focus is told of, and a listener may take the note away.
  SetForegroundWindow(Handle());
}

void BJotlet::StopAlarm() {
  alarmPending_ = false;
  if (waitsForWindow_) EndWaitForWindow();
  if (!IsSounding() || Handle() == nullptr) return;
  alarmPhase_ = kNotSounding;
  KillTimer(Handle(), kAlarmTimer);
  if (record_.ghost) ApplyGhost();
  SetWindowPos(Handle(), nullptr, alarmOrigin_.x, alarmOrigin_.y, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  // What was on top before stays there.
  if (!record_.onTop) {
    SetWindowPos(Handle(), HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
  ShowPaper();
  ShowAlarm();
  Tell(JotletEvent::kSilent);
}

void BJotlet::EndWaitForWindow() {
  waitsForWindow_ = false;
  if (!record_.hidden && context_.options.hidden != 1) Show();
}

void BJotlet::StartPendingAlarm() {
  if (alarmPending_) StartAlarm();
}

void BJotlet::TickAlarm() {
  if (!IsSounding()) return;
  alarmPhase_ = NextAlarmPhase(alarmPhase_);
  const Options& options = context_.options;
  if (options.flashAlarm == 1) ShowPaper();
  if (options.jiggleAlarm != 1) return;
  const auto offset = [] {
    constexpr int kRandomNumbers = 32768;
    return JiggleOffset(std::rand() % kRandomNumbers);
  };
  const Point at{alarmOrigin_.x + offset(), alarmOrigin_.y + offset()};
  SetWindowPos(Handle(), nullptr, at.x, at.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

Colour BJotlet::ShownColour() const {
  const bool flashes = IsSounding() && context_.options.flashAlarm == 1;
  const Colour paper = DrawnColour(record_.colour);
  return flashes ? FlashColour(paper, alarmPhase_) : paper;
}

void BJotlet::ShowPaper() {
  if (view_.colour == ShownColour()) return;
  content_->SetBackground(PaperOf(ShownColour()));
  UpdateView();
}

Rect BJotlet::SettledBounds() const {
  const Rect bounds = Bounds();
  return IsSounding() ? RectAt(alarmOrigin_, {bounds.Width(), bounds.Height()}) : bounds;
}

}  // namespace jotlets

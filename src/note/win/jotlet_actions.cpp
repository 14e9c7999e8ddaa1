// The states of a note that commands change, and the commands that are its own affair.
#include <algorithm>

#include "note/action_state.h"
#include "note/win/jotlet.h"

namespace jotlets {
namespace {

constexpr std::int32_t kScrollStep = 16;  // pixels, of one click on a scroll button

}  // namespace

void BJotlet::SetRolled(bool rolled) {
  if (record_.rolled == rolled) return;
  Record();
  record_.rolled = rolled;
  const std::int32_t rolledHeight = skin_->data.rolledHeight;
  const std::int32_t height = rolled && rolledHeight > 0 ? rolledHeight : record_.height;
  // Known before the window is sized, so that its new height is not taken for the unrolled one.
  view_.rolled = rolled && rolledHeight > 0;
  SetWindowPos(Handle(), nullptr, 0, 0, record_.width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  OnSize();
  owner_.OnJotletChanged();
}

void BJotlet::SetOnTop(bool onTop) {
  record_.onTop = onTop;
  SetWindowPos(Handle(), onTop ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  UpdateView();
  owner_.OnJotletChanged();
}

void BJotlet::SetReadOnly(bool readOnly) {
  record_.readOnly = readOnly;
  if (edit_.Handle() != nullptr) edit_.SetReadOnly(readOnly);
  UpdateView();
  owner_.OnJotletChanged();
}

void BJotlet::SetHidden(bool hidden) {
  if (record_.hidden == hidden) return;
  record_.hidden = hidden;
  if (hidden) {
    Hide();
  } else {
    Show();
  }
  owner_.OnJotletChanged();
}

void BJotlet::SetGhost(bool ghost) {
  if (record_.ghost == ghost) return;
  record_.ghost = ghost;
  const LONG_PTR style = GetWindowLongPtrW(Handle(), GWL_EXSTYLE);
  // The layered style stays: without it, the first half of a change would show the note opaque.
  SetWindowLongPtrW(Handle(), GWL_EXSTYLE,
                    ghost ? style | WS_EX_TRANSPARENT | WS_EX_LAYERED : style & ~WS_EX_TRANSPARENT);
  ApplyOpacity();
  UpdateView();
  owner_.OnJotletChanged();
}

void BJotlet::SetTransparency(std::int32_t percent) {
  record_.transparency = percent;
  ApplyOpacity();
  owner_.OnJotletChanged();
}

void BJotlet::SetUserString(TextView words) {
  record_.userString1 = words;
  InvalidateRect(Handle(), nullptr, FALSE);
  owner_.OnJotletChanged();
}

void BJotlet::TakeProperties(const JotletData& wanted) {
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
    SetSizeSafe({wanted.width, wanted.height});
  }
  SetRolled(wanted.rolled);
  SetHidden(wanted.hidden);
}

struct BJotlet::ActionRow {
  ActionCode first;
  ActionCode last;  // the same, or the last of a family
  void (*run)(BJotlet& jotlet, ActionCode action);
};

// What is not here is asked of the owner.
const BJotlet::ActionRow BJotlet::kActions[] = {
    {kActionOnTop, kActionOnTop, [](BJotlet& j, ActionCode) { j.SetOnTop(!j.record_.onTop); }},
    {kActionRoll, kActionRoll, [](BJotlet& j, ActionCode) { j.SetRolled(!j.record_.rolled); }},
    {kActionLock, kActionLock, [](BJotlet& j, ActionCode) { j.SetReadOnly(!j.record_.readOnly); }},
    {kActionGoAway, kActionGoAway, [](BJotlet& j, ActionCode) { j.SetHidden(true); }},
    {kActionScrollUp, kActionScrollUp, [](BJotlet& j, ActionCode) { j.ScrollBy(-kScrollStep); }},
    {kActionScrollDown, kActionScrollDown, [](BJotlet& j, ActionCode) { j.ScrollBy(kScrollStep); }},
    {kActionPageUp, kActionPageUp, [](BJotlet& j, ActionCode) { j.ScrollBy(-j.Scrolled().page); }},
    {kActionPageDown, kActionPageDown, [](BJotlet& j, ActionCode) { j.ScrollBy(j.Scrolled().page); }},
    {kActionUser1, kActionUser1, [](BJotlet& j, ActionCode) { j.Toggle(j.record_.user1); }},
    {kActionUser2, kActionUser2, [](BJotlet& j, ActionCode) { j.Toggle(j.record_.user2); }},
    {kActionUser3, kActionUser3, [](BJotlet& j, ActionCode) { j.Toggle(j.record_.user3); }},
    {kActionStang, kActionStang, [](BJotlet& j, ActionCode) { j.Toggle(j.record_.stang); }},
    {kActionTransparentOpaque, kActionTransparent10pc,
     [](BJotlet& j, ActionCode action) { j.SetTransparency(OpacityOf(action).value_or(0)); }},
};

bool BJotlet::DoAction(ActionCode action, Point) {
  if (!owner_.IsActionEnabled(*this, action)) return false;
  const auto row = std::find_if(std::begin(kActions), std::end(kActions), [action](const ActionRow& r) {
    return action >= r.first && action <= r.last;
  });
  if (row == std::end(kActions)) return owner_.OnJotletAction(*this, action);
  row->run(*this, action);
  return true;
}

void BJotlet::Toggle(bool& flag) {
  flag = !flag;
  UpdateView();
  owner_.OnJotletChanged();
}

}  // namespace jotlets

#include "schedule/win/sleep_dialog.h"

#include <commctrl.h>

#include <algorithm>

#include "base/win/shown_time.h"
#include "base/win/wide.h"
#include "res/resource.h"
#include "schedule/win/time_pickers.h"

namespace jotlets {

std::optional<SleepChoice> BSleepDlg::Ask(HWND owner, bool alarmIsSet) {
  canClear_ = alarmIsSet;
  PreparePickers();
  if (Show(resources_, form_ == Form::kSleep ? IDD_SLEEP : IDD_ALARM, owner) != IDOK) return std::nullopt;
  return choice_;
}

void BSleepDlg::OnInit() {
  SendDlgItemMessageW(Handle(), IDC_SLEEP_SPIN, UDM_SETRANGE32, 1, 9999);
  SetDlgItemInt(Handle(), IDC_SLEEP_NUMBER, static_cast<UINT>(options_.sleepValues[0]), TRUE);
  FillUnits(options_.sleepValues[1]);
  constexpr std::int64_t kLater = 60 * 60;  // now would be over at once
  const LocalTime later = clock_.ToLocal(clock_.Now().utc + kLater);
  SetClockForm(Item(IDC_SLEEP_TIME));
  SetPicker(Item(IDC_SLEEP_DATE), later);
  SetPicker(Item(IDC_SLEEP_TIME), later);
  Choose(IDC_SLEEP_FOR);
  ShowPresets();
  if (form_ == Form::kSleep) {
    CheckDlgButton(Handle(), IDC_SLEEP_SOUND, options_.alarm.number == 1);
    CheckDlgButton(Handle(), IDC_SLEEP_ALARM, options_.soundAlarmOnWake == 1);
    CheckDlgButton(Handle(), IDC_SLEEP_ON_TOP, options_.aotDefault == 1);
  } else {
    EnableWindow(Item(IDC_ALARM_CLEAR), canClear_);
  }
  filled_ = true;
  ShowWords();
  // A button with the focus would be the one that Enter presses.
  PostMessageW(Handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(IDC_SLEEP_FOR)), TRUE);
}

void BSleepDlg::ShowPresets() {
  const Moment now = clock_.Now();
  for (std::size_t i = 0; i < presets_.size(); ++i) {
    const int button = IDC_SLEEP_PRESET + static_cast<int>(i);
    presets_[i] =
        TimeOf(static_cast<Preset>(i), now.utc, {options_.eveningTime, options_.morningTime}, clock_);
    Text text = resources_.String(IDS_PRESET + static_cast<UINT>(i));
    text += u"\n" + (presets_[i] ? ShownSoon(clock_.ToLocal(*presets_[i]), now.local)
                                 : resources_.String(IDS_PRESET_OVER));
    SetDlgItemTextW(Handle(), button, Wide(text));
    EnableWindow(Item(button), presets_[i].has_value());
  }
}

// Sets what a user could have set: OK is still to be pressed.
void BSleepDlg::ApplyPreset(std::int64_t time) {
  const LocalTime local = clock_.ToLocal(time);
  SetPicker(Item(IDC_SLEEP_DATE), local);
  SetPicker(Item(IDC_SLEEP_TIME), local);
  Choose(IDC_SLEEP_UNTIL);
  ShowWords();
  PostMessageW(Handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(IDOK)), TRUE);
}

std::int64_t BSleepDlg::Time() const {
  if (IsDlgButtonChecked(Handle(), IDC_SLEEP_FOR) != BST_CHECKED)
    return PickedInstant(Item(IDC_SLEEP_DATE), Item(IDC_SLEEP_TIME), clock_);
  const auto unit = static_cast<std::int32_t>(SendMessageW(Item(IDC_SLEEP_UNIT), CB_GETCURSEL, 0, 0));
  return clock_.Now().utc + SleepSeconds(Number(), unit);
}

void BSleepDlg::ShowWords() {
  const bool sleeps = form_ == Form::kSleep;
  const std::int64_t time = Time();
  Text words = resources_.String(sleeps ? IDS_SLEEP_PAST : IDS_ALARM_PAST);
  if (time > clock_.Now().utc)
    words = ReplaceAll(resources_.String(sleeps ? IDS_WAKES : IDS_SOUNDS), u"%s",
                       TimeInWords(clock_.ToLocal(time)));
  if (words != ItemText(IDC_SLEEP_WORDS)) SetDlgItemTextW(Handle(), IDC_SLEEP_WORDS, Wide(words));
}

std::int32_t BSleepDlg::Number() const { return ParseInt(ItemText(IDC_SLEEP_NUMBER)); }

// Refilled whenever the number changes: one minute, two minutes.
void BSleepDlg::FillUnits(std::int32_t selected) {
  const UINT first = Number() == 1 ? IDS_UNIT_ONE : IDS_UNIT_MANY;
  const HWND list = Item(IDC_SLEEP_UNIT);
  SendMessageW(list, CB_RESETCONTENT, 0, 0);
  for (UINT unit = kMinutes; unit <= kMonths; ++unit) {
    const Text word = resources_.String(first + unit);
    SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(word)));
  }
  SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(std::clamp<std::int32_t>(selected, kMinutes, kMonths)),
               0);
}

void BSleepDlg::Choose(int radio) { CheckRadioButton(Handle(), IDC_SLEEP_FOR, IDC_SLEEP_UNTIL, radio); }

bool BSleepDlg::OnCommand(UINT control, UINT notification) {
  if (!filled_) return false;
  if (control >= IDC_SLEEP_PRESET && control - IDC_SLEEP_PRESET < presets_.size()) {
    const auto time = presets_[control - IDC_SLEEP_PRESET];
    if (notification == BN_CLICKED && time) ApplyPreset(*time);
    return true;
  }
  const bool served = Serve(control, notification);
  if (control != IDOK && control != IDCANCEL && control != IDC_ALARM_CLEAR) ShowWords();
  return served;
}

bool BSleepDlg::Serve(UINT control, UINT notification) {
  switch (control) {
    case IDC_SLEEP_NUMBER:
      if (notification != EN_CHANGE) return false;
      FillUnits(static_cast<std::int32_t>(SendMessageW(Item(IDC_SLEEP_UNIT), CB_GETCURSEL, 0, 0)));
      Choose(IDC_SLEEP_FOR);
      return true;
    case IDC_SLEEP_UNIT:
      if (notification == CBN_SELCHANGE) Choose(IDC_SLEEP_FOR);
      return true;
    case IDC_ALARM_CLEAR:
      choice_.clear = true;
      End(IDOK);
      return true;
    case IDOK: Take(); return false;
    default: return false;
  }
}

void BSleepDlg::OnNotify(const NMHDR& header) {
  if (!filled_ || header.code != static_cast<UINT>(DTN_DATETIMECHANGE)) return;
  Choose(IDC_SLEEP_UNTIL);
  ShowWords();
}

void BSleepDlg::Take() {
  const auto checked = [this](int control) { return IsDlgButtonChecked(Handle(), control) == BST_CHECKED; };
  choice_.number = Number();
  choice_.unit = static_cast<std::int32_t>(SendMessageW(Item(IDC_SLEEP_UNIT), CB_GETCURSEL, 0, 0));
  choice_.relative = checked(IDC_SLEEP_FOR);
  choice_.seconds = choice_.relative ? SleepSeconds(choice_.number, choice_.unit)
                                     : PickedInstant(Item(IDC_SLEEP_DATE), Item(IDC_SLEEP_TIME), clock_);
  choice_.flags = {checked(IDC_SLEEP_SOUND), checked(IDC_SLEEP_ALARM), checked(IDC_SLEEP_ON_TOP)};
  choice_.sleepUntilAlarm = checked(IDC_ALARM_SLEEP);
}

}  // namespace jotlets

#include "schedule/win/sleep_dialog.h"

#include <commctrl.h>

#include <algorithm>

#include "base/win/wide.h"
#include "res/resource.h"
#include "schedule/win/time_pickers.h"

namespace jotlets {

std::optional<SleepChoice> BSleepDlg::Ask(HWND owner) {
  PreparePickers();
  if (Show(resources_, form_ == Form::kSleep ? IDD_SLEEP : IDD_ALARM, owner) != IDOK) return std::nullopt;
  return choice_;
}

void BSleepDlg::OnInit() {
  SendDlgItemMessageW(Handle(), IDC_SLEEP_SPIN, UDM_SETRANGE32, 1, 9999);
  SetDlgItemInt(Handle(), IDC_SLEEP_NUMBER, static_cast<UINT>(options_.sleepValues[0]), TRUE);
  FillUnits(options_.sleepValues[1]);
  const LocalTime now = clock_.Now().local;
  SetClockForm(Item(IDC_SLEEP_TIME));
  SetPicker(Item(IDC_SLEEP_DATE), now);
  SetPicker(Item(IDC_SLEEP_TIME), now);
  Choose(IDC_SLEEP_FOR);
  if (form_ == Form::kSleep) {
    CheckDlgButton(Handle(), IDC_SLEEP_SOUND, options_.alarm.number == 1);
    CheckDlgButton(Handle(), IDC_SLEEP_ALARM, options_.soundAlarmOnWake == 1);
    CheckDlgButton(Handle(), IDC_SLEEP_ON_TOP, options_.aotDefault == 1);
  }
  filled_ = true;
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
  if (filled_ && header.code == static_cast<UINT>(DTN_DATETIMECHANGE)) Choose(IDC_SLEEP_UNTIL);
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

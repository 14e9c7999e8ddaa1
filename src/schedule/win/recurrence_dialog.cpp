#include "schedule/win/recurrence_dialog.h"

#include <commctrl.h>

#include <algorithm>

#include "base/win/shown_time.h"
#include "base/win/wide.h"
#include "res/resource.h"
#include "schedule/calendar.h"
#include "schedule/recurrence_words.h"
#include "schedule/win/time_pickers.h"

namespace jotlets {
namespace {

constexpr int kWeekDays = 7;
constexpr int kFirstOfWeekend = 5;
constexpr UINT kTimeColumn = 200;  // of the list of dates, in units of the dialog

// The controls that belong to one kind of rule.
struct Part {
  int control;
  std::int32_t type;
};

constexpr Part kParts[] = {
    {IDC_REC_MONDAY, kWeekly},           {IDC_REC_MONDAY + 1, kWeekly},
    {IDC_REC_MONDAY + 2, kWeekly},       {IDC_REC_MONDAY + 3, kWeekly},
    {IDC_REC_MONDAY + 4, kWeekly},       {IDC_REC_MONDAY + 5, kWeekly},
    {IDC_REC_MONDAY + 6, kWeekly},       {IDC_REC_ALL_DAYS, kWeekly},
    {IDC_REC_WORKING_DAYS, kWeekly},     {IDC_REC_ON_DAY, kMonthlyOnDay},
    {IDC_REC_ON_WEEKDAY, kMonthlyOnDay}, {IDC_REC_MONTH_DAY, kMonthlyOnDay},
    {IDC_REC_MONTH_SPIN, kMonthlyOnDay}, {IDC_REC_ORDINAL, kMonthlyOnDay},
    {IDC_REC_WEEKDAY, kMonthlyOnDay},    {IDC_REC_MONTH, kYearly},
    {IDC_REC_YEAR_LABEL, kYearly},       {IDC_REC_YEAR_DAY, kYearly},
    {IDC_REC_YEAR_SPIN, kYearly},        {IDC_REC_COUNT, kEvery},
    {IDC_REC_COUNT_SPIN, kEvery},        {IDC_REC_UNIT, kEvery},
};

struct Radio {
  int control;
  std::int32_t type;
};

constexpr Radio kKinds[] = {{IDC_REC_DAILY, kDaily},
                            {IDC_REC_WEEKLY, kWeekly},
                            {IDC_REC_MONTHLY, kMonthlyOnDay},
                            {IDC_REC_YEARLY, kYearly},
                            {IDC_REC_EVERY, kEvery}};

constexpr int kTimePickers[] = {IDC_REC_TIME, IDC_REC_START_TIME, IDC_REC_END_TIME};

void AddLine(HWND list, const wchar_t* text) {
  SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

void Select(HWND list, std::int32_t index) {
  SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void AddNames(HWND list, const std::vector<Text>& names) {
  for (const Text& name : names) AddLine(list, Wide(name));
}

}  // namespace

std::optional<Recurrence> BRecurranceDlg::Ask(HWND owner) {
  PreparePickers();
  if (Show(resources_, IDD_RECURRENCE, owner) != IDOK) return std::nullopt;
  return chosen_;
}

void BRecurranceDlg::OnInit() {
  FillLists();
  for (const int spin : {IDC_REC_MONTH_SPIN, IDC_REC_YEAR_SPIN})
    SendDlgItemMessageW(Handle(), spin, UDM_SETRANGE32, 1, 31);
  SendDlgItemMessageW(Handle(), IDC_REC_COUNT_SPIN, UDM_SETRANGE32, 1, 9999);
  for (const int picker : kTimePickers) SetClockForm(Item(picker));
  const UINT timeColumn = kTimeColumn;
  SendDlgItemMessageW(Handle(), IDC_REC_NEXT, LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&timeColumn));
  ShowRule(ShowTimes());
  ShowFlags();
  filled_ = true;
  Follow();
}

void BRecurranceDlg::FillLists() {
  const auto add = [this](int list, UINT first, UINT count) {
    for (UINT i = 0; i < count; ++i) {
      const Text word = resources_.String(first + i);
      AddLine(Item(list), Wide(word));
    }
  };
  add(IDC_REC_ORDINAL, IDS_ORDINAL, kLastOrdinal + 1);
  AddNames(Item(IDC_REC_WEEKDAY), DayNames());
  add(IDC_REC_WEEKDAY, IDS_KIND_OF_DAY, 3);
  AddNames(Item(IDC_REC_MONTH), MonthNames());
  add(IDC_REC_UNIT, IDS_UNIT_ONE, kMonths + 1);
}

// When it happens. What the note does not say starts at today.
LocalTime BRecurranceDlg::ShowTimes() {
  const WakeRule rule = RuleOf(record_);
  const Moment now = clock_.Now();
  LocalTime ofDay = now.local;
  const bool known = FaultOf(rule).empty();
  if (!known) {
    ofDay.hour = std::clamp(options_.morningTime / 60, 0, 23);
    ofDay.minute = std::clamp(options_.morningTime % 60, 0, 59);
  } else if (rule.type != kEvery) {
    ofDay.hour = std::clamp(rule.hours, 0, 23);
    ofDay.minute = std::clamp(rule.minutes, 0, 59);
  }
  const bool later = known && record_.sleep.nextWake > now.utc;
  const LocalTime start = later ? clock_.ToLocal(record_.sleep.nextWake) : now.local;
  const bool ends = known && record_.sleep.lastWake > now.utc;
  constexpr std::int64_t kLater = std::int64_t{30} * 24 * 60 * 60;  // what is suggested for an end
  const LocalTime end = clock_.ToLocal(ends ? record_.sleep.lastWake : now.utc + kLater);
  SetPicker(Item(IDC_REC_TIME), ofDay);
  for (const int picker : {IDC_REC_START_DATE, IDC_REC_START_TIME}) SetPicker(Item(picker), start);
  for (const int picker : {IDC_REC_END_DATE, IDC_REC_END_TIME}) SetPicker(Item(picker), end);
  CheckDlgButton(Handle(), IDC_REC_ENDS, ends);
  return start;
}

// The rule of the note, decoded into the controls; those of the other kinds are those of the start.
void BRecurranceDlg::ShowRule(const LocalTime& start) {
  const WakeRule rule = RuleOf(record_);
  const bool known = FaultOf(rule).empty();
  const std::int32_t type = known ? rule.type : static_cast<std::int32_t>(kDaily);
  const auto is = [&](std::int32_t wanted) { return type == wanted; };
  const std::int32_t kind = is(kMonthlyOnWeekday) ? static_cast<std::int32_t>(kMonthlyOnDay) : type;
  for (const Radio& radio : kKinds) CheckDlgButton(Handle(), radio.control, radio.type == kind);
  const std::int32_t today = (DayOfWeek(DayNumber(start.year, start.month, start.day)) + 5) % kWeekDays;
  const std::int32_t days = is(kWeekly) ? rule.day : 1 << today;
  for (int day = 0; day < kWeekDays; ++day)
    CheckDlgButton(Handle(), IDC_REC_MONDAY + day, (days >> day & 1) != 0);
  CheckRadioButton(Handle(), IDC_REC_ON_DAY, IDC_REC_ON_WEEKDAY,
                   is(kMonthlyOnWeekday) ? IDC_REC_ON_WEEKDAY : IDC_REC_ON_DAY);
  const auto set = [this](int control, int number) {
    SetDlgItemInt(Handle(), control, static_cast<UINT>(number), TRUE);
  };
  set(IDC_REC_MONTH_DAY, is(kMonthlyOnDay) ? rule.day : start.day);
  Select(Item(IDC_REC_ORDINAL), is(kMonthlyOnWeekday) ? rule.day / 100 : 0);
  Select(Item(IDC_REC_WEEKDAY), is(kMonthlyOnWeekday) ? rule.day % 100 : today);
  Select(Item(IDC_REC_MONTH), (is(kYearly) ? rule.day / 100 : start.month) - 1);
  set(IDC_REC_YEAR_DAY, is(kYearly) ? rule.day % 100 : start.day);
  set(IDC_REC_COUNT, is(kEvery) ? rule.minutes : 1);
  Select(Item(IDC_REC_UNIT), is(kEvery) ? rule.day : static_cast<std::int32_t>(kDays));
}

void BRecurranceDlg::ShowFlags() {
  const bool known = FaultOf(RuleOf(record_)).empty();
  const WakeFlags flags =
      known ? FlagsOf(record_)
            : WakeFlags{options_.alarm.number == 1, options_.soundAlarmOnWake == 1, options_.aotDefault == 1};
  CheckDlgButton(Handle(), IDC_REC_SOUND, flags.sound);
  CheckDlgButton(Handle(), IDC_REC_ALARM, flags.alarm);
  CheckDlgButton(Handle(), IDC_REC_ON_TOP, flags.onTop);
}

bool BRecurranceDlg::OnCommand(UINT control, UINT notification) {
  if (!filled_) return false;
  if (control == IDC_REC_MONTH_DAY && notification == EN_CHANGE) ChooseDay(IDC_REC_ON_DAY);
  if ((control == IDC_REC_ORDINAL || control == IDC_REC_WEEKDAY) && notification == CBN_SELCHANGE)
    ChooseDay(IDC_REC_ON_WEEKDAY);
  const bool working = control == IDC_REC_WORKING_DAYS;
  if (working || control == IDC_REC_ALL_DAYS) {
    for (int day = 0; day < kWeekDays; ++day)
      CheckDlgButton(Handle(), IDC_REC_MONDAY + day, !working || day < kFirstOfWeekend);
  }
  if (control == IDOK) chosen_ = Chosen();
  if (control == IDOK || control == IDCANCEL) return false;
  Follow();
  return true;
}

// Of the two days of a month, the one that was entered last counts.
void BRecurranceDlg::ChooseDay(int radio) {
  CheckRadioButton(Handle(), IDC_REC_ON_DAY, IDC_REC_ON_WEEKDAY, radio);
}

void BRecurranceDlg::OnNotify(const NMHDR& header) {
  if (filled_ && header.code == static_cast<UINT>(DTN_DATETIMECHANGE)) ShowWords();
}

std::int32_t BRecurranceDlg::Selected(int list) const {
  return static_cast<std::int32_t>(SendMessageW(Item(list), CB_GETCURSEL, 0, 0));
}

std::int32_t BRecurranceDlg::Number(int control) const { return ParseInt(ItemText(control)); }

WakeRule BRecurranceDlg::ChosenRule() const {
  const auto at = [this](std::int32_t type, std::int32_t day) {
    const LocalTime time = PickerTime(Item(IDC_REC_TIME));
    return WakeRule{type, time.hour, time.minute, day};
  };
  if (IsOn(IDC_REC_DAILY)) return at(kDaily, 0);
  if (IsOn(IDC_REC_WEEKLY)) {
    std::int32_t days = 0;
    for (int day = 0; day < kWeekDays; ++day) days |= IsOn(IDC_REC_MONDAY + day) ? 1 << day : 0;
    return at(kWeekly, days);
  }
  if (IsOn(IDC_REC_MONTHLY) && IsOn(IDC_REC_ON_WEEKDAY))
    return at(kMonthlyOnWeekday, Selected(IDC_REC_ORDINAL) * 100 + Selected(IDC_REC_WEEKDAY));
  if (IsOn(IDC_REC_MONTHLY)) return at(kMonthlyOnDay, Number(IDC_REC_MONTH_DAY));
  if (IsOn(IDC_REC_YEARLY)) {
    const std::int32_t day = Number(IDC_REC_YEAR_DAY);
    // The number of the month shares a field with that of the day.
    return at(kYearly, (Selected(IDC_REC_MONTH) + 1) * 100 + (day < 0 || day > 99 ? 0 : day));
  }
  return {kEvery, PickerTime(Item(IDC_REC_START_DATE)).day, Number(IDC_REC_COUNT), Selected(IDC_REC_UNIT)};
}

Recurrence BRecurranceDlg::Chosen() const {
  Recurrence chosen;
  chosen.rule = ChosenRule();
  chosen.start = PickedInstant(Item(IDC_REC_START_DATE), Item(IDC_REC_START_TIME), clock_);
  const std::int64_t end = PickedInstant(Item(IDC_REC_END_DATE), Item(IDC_REC_END_TIME), clock_);
  // An end that is over is none.
  if (IsOn(IDC_REC_ENDS) && end > clock_.Now().utc) chosen.end = end;
  chosen.flags = {IsOn(IDC_REC_SOUND), IsOn(IDC_REC_ALARM), IsOn(IDC_REC_ON_TOP)};
  return chosen;
}

void BRecurranceDlg::Follow() {
  const auto kind =
      std::find_if(std::begin(kKinds), std::end(kKinds), [this](const Radio& r) { return IsOn(r.control); });
  const std::int32_t type = kind == std::end(kKinds) ? kNone : kind->type;
  for (const Part& part : kParts) ShowWindow(Item(part.control), part.type == type ? SW_SHOWNA : SW_HIDE);
  // How often it comes says when.
  for (const int control : {IDC_REC_TIME_LABEL, IDC_REC_TIME})
    ShowWindow(Item(control), type == kEvery ? SW_HIDE : SW_SHOWNA);
  for (const int picker : {IDC_REC_END_DATE, IDC_REC_END_TIME})
    EnableWindow(Item(picker), IsOn(IDC_REC_ENDS));
  ShowWords();
}

void BRecurranceDlg::ShowWords() {
  using Kind = NextAppearance::Kind;
  const Recurrence chosen = Chosen();
  const NextAppearance next = AppearanceOf(chosen.rule, chosen.start, chosen.end, clock_.Now().utc, clock_);
  const UINT words = next.kind == Kind::kAt             ? IDS_APPEARS
                     : next.kind == Kind::kNotBeforeEnd ? IDS_APPEARS_TOO_LATE
                                                        : IDS_APPEARS_NEVER;
  const Text time = TimeInWords(clock_.ToLocal(next.time));
  const bool faulty = !FaultOf(chosen.rule).empty();
  const UINT fault =
      IDS_RULE_FAULT + static_cast<UINT>(std::clamp<std::int32_t>(chosen.rule.type, kDaily, kEvery));
  SetWords(IDC_REC_WORDS,
           faulty ? resources_.String(fault) : ReplaceAll(resources_.String(words), u"%s", time));
  EnableWindow(Item(IDOK), next.kind != Kind::kNever);
  SetWords(IDC_REC_SENTENCE, faulty ? Text() : SentenceOf(chosen.rule) + u" " + EndInWords(chosen));
  ShowDates(chosen);
}

// Set anew only when it is another: what is read aloud or flickers, does so for a reason.
void BRecurranceDlg::SetWords(int control, const Text& words) {
  if (words != ItemText(control)) SetDlgItemTextW(Handle(), control, Wide(words));
}

Text BRecurranceDlg::SentenceOf(const WakeRule& rule) const {
  const auto textOf = [this](std::uint32_t id) { return resources_.String(id); };
  const LocalTime ofDay{2000, 1, 1, rule.hours, rule.minutes, 0};
  return RuleInWords(rule, {textOf, DayNames(), MonthNames(), ShownTimeOfDay(ofDay)});
}

Text BRecurranceDlg::EndInWords(const Recurrence& chosen) const {
  if (!IsOn(IDC_REC_ENDS)) return resources_.String(IDS_RULE_ENDLESS);
  if (chosen.end == kNone) return resources_.String(IDS_RULE_END_OVER);
  return ReplaceAll(resources_.String(IDS_RULE_UNTIL), u"%s", TimeInWords(clock_.ToLocal(chosen.end)));
}

void BRecurranceDlg::ShowDates(const Recurrence& chosen) {
  constexpr std::size_t kShown = 5;
  std::vector<std::int32_t> times =
      AppearancesOf(chosen.rule, chosen.start, chosen.end, clock_.Now().utc, clock_, kShown);
  if (times == dates_) return;
  dates_ = std::move(times);
  SendDlgItemMessageW(Handle(), IDC_REC_NEXT, LB_RESETCONTENT, 0, 0);
  for (const std::int32_t date : dates_) {
    const LocalTime time = clock_.ToLocal(date);
    const Text line = LongDate(time) + u"\t" + ShownTimeOfDay(time);
    SendDlgItemMessageW(Handle(), IDC_REC_NEXT, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(line)));
  }
}

}  // namespace jotlets

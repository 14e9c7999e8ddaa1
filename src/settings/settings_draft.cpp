#include "settings/settings_draft.h"

#include <algorithm>

#include "editor/link_text.h"

namespace jotlets {
namespace {

bool HasValue(const SettingRow& row) { return row.access.get != nullptr; }

// Blanks around it do no harm, anything else does.
std::optional<std::int64_t> WholeNumber(TextView entered) {
  const TextView digits = TrimBlanks(entered);
  const bool negative = digits.starts_with(u'-');
  const TextView figures = digits.substr(negative ? 1 : 0);
  constexpr std::size_t kMaxDigits = 10;
  if (figures.empty() || figures.size() > kMaxDigits) return std::nullopt;
  std::int64_t number = 0;
  for (const char16_t c : figures) {
    if (c < u'0' || c > u'9') return std::nullopt;
    number = number * 10 + (c - u'0');
  }
  return negative ? -number : number;
}

// Nothing that came into the options by any way may start a program.
bool IsWebAddress(TextView entered) {
  const Text folded = FoldCase(entered);
  return (folded.starts_with(u"http://") || folded.starts_with(u"https://")) &&
         UseOfLink(LinkTarget(entered), false) == LinkUse::kOpened;
}

EnteredSetting ParseNumber(const SettingRow& row, TextView entered) {
  const std::optional<std::int64_t> number = WholeNumber(entered);
  if (!number) return {{}, SettingFault::kNotANumber};
  if (*number < row.minimum) return {{}, SettingFault::kTooSmall};
  if (*number > row.maximum) return {{}, SettingFault::kTooLarge};
  return {{static_cast<std::int32_t>(*number), {}}, SettingFault::kNothing};
}

constexpr std::int32_t kHour = 60;

// "9", "9:30", "09.30".
EnteredSetting ParseTimeOfDay(TextView entered) {
  const TextView time = TrimBlanks(entered);
  const std::size_t mark = time.find_first_of(u":.");
  const std::optional<std::int64_t> hour = WholeNumber(time.substr(0, mark));
  const std::optional<std::int64_t> minute =
      mark == TextView::npos ? std::int64_t{0} : WholeNumber(time.substr(mark + 1));
  if (!hour || !minute || *hour < 0 || *hour > 23 || *minute < 0 || *minute >= kHour)
    return {{}, SettingFault::kNoTime};
  return {{static_cast<std::int32_t>(*hour * kHour + *minute), {}}, SettingFault::kNothing};
}

}  // namespace

Text TimeOfDayText(std::int32_t minutes) {
  const Text minute = IntText(minutes % kHour);
  return IntText(minutes / kHour) + (minute.size() < 2 ? u":0" : u":") + minute;
}

EnteredSetting ParseSetting(const SettingRow& row, TextView entered) {
  if (row.control == SettingControl::kNumber) return ParseNumber(row, entered);
  if (row.control == SettingControl::kTimeOfDay) return ParseTimeOfDay(entered);
  // A line of the options file holds one option.
  if (entered.find_first_of(u"\r\n") != TextView::npos) return {{}, SettingFault::kLineBreak};
  if (row.control == SettingControl::kWebAddress && !entered.empty() && !IsWebAddress(entered))
    return {{}, SettingFault::kNoWebAddress};
  return {{0, Text(entered)}, SettingFault::kNothing};
}

SettingsDraft::SettingsDraft(const Options& options, const Policy& policy)
    : before_(WithPolicy(options, policy)), draft_(before_), policy_(policy) {}

bool SettingsDraft::IsEnabled(const SettingRow& row) const { return !IsFixed(row) && HasWhatItNeeds(row); }

bool SettingsDraft::HasWhatItNeeds(const SettingRow& row) const {
  const SettingRow* needed = FindSetting(row.needs);
  return needed == nullptr || (Value(*needed).number == row.needed && HasWhatItNeeds(*needed));
}

SettingValue SettingsDraft::Value(const SettingRow& row) const {
  return HasValue(row) ? row.access.get(draft_) : SettingValue();
}

void SettingsDraft::Set(const SettingRow& row, const SettingValue& value) {
  if (!HasValue(row) || IsFixed(row)) return;
  faults_.erase(row.id);
  row.access.set(draft_, value);
}

SettingFault SettingsDraft::Enter(const SettingRow& row, TextView text) {
  const EnteredSetting entered = ParseSetting(row, text);
  if (entered.fault == SettingFault::kNothing) {
    Set(row, entered.value);
  } else {
    faults_[row.id] = entered.fault;
  }
  return entered.fault;
}

const SettingRow* SettingsDraft::SameHotKey(const SettingRow& row) const {
  const auto rows = SettingRows();
  const std::int32_t key = row.control == SettingControl::kHotKey ? Value(row).number : 0;
  const auto found = std::ranges::find_if(rows, [&](const SettingRow& other) {
    return other.control == SettingControl::kHotKey && other.id != row.id && Value(other).number == key;
  });
  return key == 0 || found == rows.end() ? nullptr : &*found;
}

const SettingRow* SettingsDraft::FirstFault() const {
  const auto rows = SettingRows();
  const auto found = std::ranges::find_if(rows, [this](const SettingRow& row) {
    const bool twice = IsChanged(row) && SameHotKey(row) != nullptr;
    return (faults_.contains(row.id) || twice) && IsEnabled(row);
  });
  return found == rows.end() ? nullptr : &*found;
}

void SettingsDraft::Reset(SettingsPage page, const Options& defaults) {
  for (const SettingRow& row : SettingRows())
    if (PageOf(row.group) == page && HasValue(row)) Set(row, row.access.get(defaults));
}

bool SettingsDraft::IsChanged(const SettingRow& row) const {
  return HasValue(row) && !IsFixed(row) && row.access.get(draft_) != row.access.get(before_);
}

bool SettingsDraft::IsChanged() const {
  return !faults_.empty() ||
         std::ranges::any_of(SettingRows(), [this](const SettingRow& row) { return IsChanged(row); });
}

void SettingsDraft::Apply(Options& options) {
  for (const SettingRow& row : SettingRows())
    if (IsChanged(row)) row.access.set(options, row.access.get(draft_));
  before_ = draft_;
}

void SettingsDraft::Follow(const Options& options, const Policy& policy) {
  const Options now = WithPolicy(options, policy);
  policy_ = policy;
  for (const SettingRow& row : SettingRows()) {
    if (!HasValue(row)) continue;
    const bool touched = IsChanged(row);
    row.access.set(before_, row.access.get(now));
    if (!touched) row.access.set(draft_, row.access.get(now));
  }
}

}  // namespace jotlets

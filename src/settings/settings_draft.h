// What the user has entered in the options dialog and not yet confirmed.
#pragma once

#include <map>
#include <optional>

#include "settings/setting.h"

namespace jotlets {

/// Why what was entered cannot be taken.
enum class SettingFault : std::uint8_t {
  kNothing,
  kNotANumber,
  kTooSmall,
  kTooLarge,
  kNoWebAddress,
  kLineBreak,
  kNoTime
};

/// What a text entered for a setting means; a fault instead when it cannot be taken.
struct EnteredSetting {
  SettingValue value;
  SettingFault fault = SettingFault::kNothing;
};
/// How a time of day is shown: "18:00" for 1080.
Text TimeOfDayText(std::int32_t minutes);
EnteredSetting ParseSetting(const SettingRow& row, TextView entered);

class SettingsDraft {
 public:
  /// Begins with the user's own options; what the policy fixes is shown in their place and is not changed.
  SettingsDraft(const Options& options, const Policy& policy);

  bool IsFixed(const SettingRow& row) const { return row.isFixed != nullptr && row.isFixed(policy_); }
  /// Whether it can be changed now: nobody has fixed it, and what it needs is so.
  bool IsEnabled(const SettingRow& row) const;

  SettingValue Value(const SettingRow& row) const;
  void Set(const SettingRow& row, const SettingValue& value);
  /// What the user has typed, which counts as soon as it has no fault.
  SettingFault Enter(const SettingRow& row, TextView text);
  /// Another hot key that is the same; nullptr for none.
  const SettingRow* SameHotKey(const SettingRow& row) const;
  /// The first row, in their order, with a fault that has not been mended; nullptr for none. A hot key that
  /// the user has made the same as another has one.
  const SettingRow* FirstFault() const;

  /// Everything on a page as it is in a new program, but for what is fixed.
  void Reset(SettingsPage page, const Options& defaults);

  /// Whether the user has changed anything that `Apply` would.
  bool IsChanged() const;
  /// Puts what has been changed since the draft was made, or last applied, into the options, and nothing
  /// else: they may have changed otherwise meanwhile.
  void Apply(Options& options);
  /// The settings were changed elsewhere, or the policy was: takes over what the user has not touched.
  void Follow(const Options& options, const Policy& policy);

 private:
  bool HasWhatItNeeds(const SettingRow& row) const;
  bool IsChanged(const SettingRow& row) const;

  Options before_;
  Options draft_;
  Policy policy_;
  std::map<std::uint16_t, SettingFault> faults_;
};

}  // namespace jotlets

// Asks how long a note is to sleep, or when its alarm is to sound.
#pragma once

#include <array>
#include <optional>

#include "base/clock.h"
#include "data/options.h"
#include "schedule/presets.h"
#include "schedule/sleep_times.h"
#include "ui/dialog.h"

namespace jotlets {

/// What the user has chosen. Either `relative` seconds from now or a time (seconds since 1970 UTC).
struct SleepChoice {
  bool clear = false;  // of an alarm: there is to be none
  bool relative = true;
  std::int64_t seconds = 0;
  WakeFlags flags;
  bool sleepUntilAlarm = false;
  std::int32_t number = 1;  // what `relative` seconds were given as
  std::int32_t unit = 0;
};

class BSleepDlg final : public Dialog {
 public:
  enum class Form { kSleep, kAlarm };

  BSleepDlg(const Resources& resources, Form form, const Options& options, const Clock& clock)
      : resources_(resources), form_(form), options_(options), clock_(clock) {}

  /// The choice; nothing when it was cancelled. An alarm can be cleared where one is set.
  std::optional<SleepChoice> Ask(HWND owner, bool alarmIsSet = false);

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  bool Serve(UINT control, UINT notification);
  void OnNotify(const NMHDR& header) override;
  std::int32_t Number() const;
  void FillUnits(std::int32_t selected);
  void Choose(int radio);
  void ShowPresets();
  void ApplyPreset(std::int64_t time);
  void ShowWords();
  std::int64_t Time() const;
  void Take();

  const Resources& resources_;
  Form form_;
  const Options& options_;
  const Clock& clock_;
  bool filled_ = false;
  bool canClear_ = false;
  std::array<std::optional<std::int64_t>, kPresets> presets_;
  SleepChoice choice_;
};

}  // namespace jotlets

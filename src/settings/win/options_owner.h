// What the options dialog asks of the program.
#pragma once

#include <windows.h>

#include <vector>

#include "settings/setting.h"

namespace jotlets {

class OptionsOwner {
 public:
  virtual ~OptionsOwner() = default;

  virtual Options& CurrentOptions() = 0;
  /// Those of a fresh installation.
  virtual Options FirstOptions() = 0;
  /// What the administrator fixes now.
  virtual Policy PolicyNow() = 0;
  /// The user has confirmed settings: they take effect, and are written. `before` is how they were.
  virtual void OnOptionsChanged(const Options& before) = 0;

  /// The names of the skins that can be chosen, but for the built-in one.
  virtual std::vector<Text> SkinNames() = 0;
  virtual bool StartsWithWindows() = 0;
  /// False when the system did not take it.
  virtual bool SetStartsWithWindows(bool starts) = 0;
  /// The line that tells how things are.
  virtual Text TellSetting(SettingTask task) = 0;
  /// What a button of the dialog is for; the dialog may be gone when the call returns.
  virtual void DoSettingTask(SettingTask task, HWND dialog) = 0;
  /// The hot keys are given up while the user chooses one, which would else start something.
  virtual void HoldHotKeys(bool held) = 0;
  virtual void PlaySettingSound(const Text& file) = 0;
};

}  // namespace jotlets

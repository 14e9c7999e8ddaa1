// The options dialog as the program answers it: what it is told, and what a change of settings brings about.
#pragma once

#include <functional>

#include "app/win/commands/skin_commands.h"
#include "app/win/first_look.h"
#include "app/win/program_saving.h"
#include "backup/win/backup_commands.h"
#include "data/options_keeper.h"
#include "settings/win/options_dialog.h"

namespace jotlets {

struct OptionTools {
  const Resources& resources;
  Files& files;
  Log& log;
  OptionsKeeper& options;
  Policy& policy;
  ProgramSkins& skins;
  ProgramSaving& saving;
  BackupCommands& backups;
  const NoteDesk& desk;
  /// One of the commands of the tray menu.
  std::function<void(UINT command)> doCommand;
  /// The settings take effect wherever they are not asked each time anew.
  std::function<void(const Options& before)> follow;
  /// Whether the hot keys are given up for a while: the user is choosing one.
  std::function<void(bool held)> holdHotKeys;
};

class OptionCommands final : private OptionsOwner {
 public:
  explicit OptionCommands(OptionTools tools) : tools_(std::move(tools)), dialog_(tools_.resources, *this) {}

  void Open(SettingsPage page) { dialog_.OpenAt(page); }
  BOptionsDlg& Dialog() { return dialog_; }

 private:
  Options FirstOptions() override {
    Options options;
    SetFirstLook(options);
    return options;
  }
  Options& CurrentOptions() override { return tools_.options.Current(); }
  Policy PolicyNow() override;
  void OnOptionsChanged(const Options& before) override;
  std::vector<Text> SkinNames() override;
  bool StartsWithWindows() override;
  bool SetStartsWithWindows(bool starts) override;
  Text TellSetting(SettingTask task) override;
  void DoSettingTask(SettingTask task, HWND dialog) override;
  void PlaySettingSound(const Text& file) override;
  void HoldHotKeys(bool held) override { tools_.holdHotKeys(held); }

  OptionTools tools_;
  BOptionsDlg dialog_;
};

}  // namespace jotlets

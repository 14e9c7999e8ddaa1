#include "app/win/commands/option_commands.h"

#include "app/win/registry_policy.h"
#include "app/win/system_facts.h"
#include "base/win/wide.h"
#include "data/data_folder.h"
#include "res/find_numbers.h"
#include "res/resource.h"
#include "schedule/win/alarm_sound.h"
#include "skin/skin_library.h"
#include "ui/system_programs.h"
#include "ui/user_messages.h"

namespace jotlets {

// Read anew: an administrator need not wait for the next start of the program.
Policy OptionCommands::PolicyNow() {
  tools_.policy = ReadPolicy(RegistryPolicy(), tools_.log);
  return tools_.policy;
}

void OptionCommands::OnOptionsChanged(const Options& before) {
  if (tools_.options.Current() == before) return;
  tools_.log.Write(kLogLifecycle, u"Options changed");
  tools_.saving.SetOptionsDirty();
  tools_.follow(before);
}

std::vector<Text> OptionCommands::SkinNames() {
  std::vector<Text> names;
  for (const SkinSummary& skin : tools_.skins.Library().List())
    if (!skin.name.empty()) names.push_back(skin.name);
  return names;
}

bool OptionCommands::StartsWithWindows() { return IsStartedWithWindows(); }

bool OptionCommands::SetStartsWithWindows(bool starts) {
  const FileStatus written = WriteStartWithWindows(starts);
  if (!written) tools_.log.Write(kLogLifecycle, u"Unable to change how Jotlets starts: ", written.reason);
  return written.ok;
}

Text OptionCommands::TellSetting(SettingTask task) {
  switch (task) {
    case SettingTask::kTellDataFolder: return tools_.desk.Folder();
    case SettingTask::kTellLastBackup: return tools_.backups.TellNewest();
    case SettingTask::kTellLanguage: return tools_.resources.String(IDS_LANGUAGE);
    case SettingTask::kTellStatistics: {
      const Text line = tools_.resources.String(IDS_SETTING_STATISTICS);
      const auto& counts = tools_.options.Current().statistics;
      return ReplaceAll(ReplaceAll(line, u"%s", IntText(counts[0])), u"%r", IntText(counts[1]));
    }
    default: return {};
  }
}

void OptionCommands::DoSettingTask(SettingTask task, HWND dialog) {
  switch (task) {
    case SettingTask::kMoveData: return tools_.doCommand(ID_MOVE_DATA);
    case SettingTask::kBackUp: return tools_.doCommand(ID_BACKUP);
    case SettingTask::kRestore: return tools_.doCommand(ID_RESTORE);
    case SettingTask::kEditStyles: return tools_.doCommand(ID_STYLES);
    case SettingTask::kListKeys: return tools_.doCommand(ID_KEYBOARD_SHORTCUTS);
    case SettingTask::kFindInAllNotes: return tools_.doCommand(ID_QUICK_FIND);
    case SettingTask::kOpenLog: {
      const Text path = tools_.desk.Folder() + Text(kActivityLogName);
      if (!tools_.files.Exists(path) || !OpenInNotepad(dialog, path))
        Tell(dialog, tools_.resources, IDS_SETTING_NO_LOG, path);
      return;
    }
    default: return;
  }
}

void OptionCommands::PlaySettingSound(const Text& file) {
  Options trial;
  trial.sound = file;
  PlayAlarmSound(trial, tools_.log, 0, true);
}

}  // namespace jotlets

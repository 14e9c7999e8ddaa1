// The settings as the options dialog shows them: one row a control. Pages, reading, writing, checking,
// searching and resetting go by the rows; the dialog builds itself from them.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "base/text.h"
#include "data/options.h"
#include "data/policy.h"

namespace jotlets {

/// The pages, in the order of their list.
enum class SettingsPage : std::uint8_t {
  kNotes,
  kEditor,
  kLooks,
  kTime,
  kNetwork,
  kMail,
  kPictures,
  kSystem,
};
inline constexpr std::size_t kSettingsPages = 8;

/// The headings on the pages, in their order.
enum class SettingGroup : std::uint8_t {
  kNewNotes,
  kMoving,
  kClosing,
  kTyping,
  kHighlights,
  kStyles,
  kWebSearch,
  kFrame,
  kSeeThrough,
  kSleep,
  kAlarm,
  kAttaching,
  kConnection,
  kArriving,
  kSending,
  kMailing,
  kPictureSize,
  kDrawing,
  kHotKeys,
  kFiles,
  kBackups,
};

SettingsPage PageOf(SettingGroup group);

/// What a setting is changed with.
enum class SettingControl : std::uint8_t {
  kSwitch,  // 0 or 1
  kNumber,
  kChoice,  // a number, counted from the row's first value
  kText,
  kWebAddress,
  kFolder,
  kSound,   // a sound file, or one of the words that stand for none and the system's own
  kColour,  // a number, see `ColourNumber`
  kPaper,   // the same, or -1 for the program's own choice
  kHotKey,  // a number, see `HotKeyNumber`
  kSkin,
  kTimeOfDay,  // minutes since midnight
  kButton,     // has no value: something to do
  kInfo,       // has no value: a line that tells how things are
};

/// What is not kept in the options: what a button does, what a line tells.
enum class SettingTask : std::uint8_t {
  kNothing,
  kEditStyles,
  kMoveData,
  kBackUp,
  kRestore,
  kTellLastBackup,
  kTellDataFolder,
  kTellLanguage,
  kTellStatistics,
  kOpenLog,
  kListKeys,
  kFindInAllNotes,
  kStartWithWindows,  // a switch of the system's, not of the options
};

/// The value of a setting: a number, or a text where the control has one.
struct SettingValue {
  std::int32_t number = 0;
  Text text;
  friend bool operator==(const SettingValue&, const SettingValue&) = default;
};

/// A hot key as one number: the key code, and above it a bit for each modifier.
std::int32_t HotKeyNumber(const HotKey& key);
HotKey HotKeyOfNumber(std::int32_t number);

/// How the value is had from the options, and put there; none for a task.
struct SettingAccess {
  SettingValue (*get)(const Options&) = nullptr;
  void (*set)(Options&, const SettingValue&) = nullptr;
};

struct SettingRow {
  std::uint16_t id = 0;  // its text is IDS_SETTING + id; kept for ever, translations have it
  TextView option;       // the key in the options file; empty for a task
  SettingGroup group = SettingGroup::kNewNotes;  // its text is IDS_SETTING_GROUP + group
  SettingControl control = SettingControl::kSwitch;
  SettingAccess access;
  std::int32_t minimum = 0;  // of a number; of a choice, the value of its first entry
  std::int32_t maximum = 1;
  std::uint16_t choices = 0;  // the text of the first entry of a choice: IDS_SETTING_CHOICE + choices
  bool continues = false;     // stands on the line of the row before
  bool hasUnit = false;       // a text follows: IDS_SETTING_UNIT + id
  std::uint16_t needs = 0;    // the row, by id, that must have the value `needed`; 0 for none
  std::int32_t needed = 1;
  bool (*isFixed)(const Policy&) = nullptr;  // by the administrator
  SettingTask task = SettingTask::kNothing;
};

/// All rows, in the order in which they stand on their pages.
std::span<const SettingRow> SettingRows();

/// The row of an id; nullptr for none.
const SettingRow* FindSetting(std::uint16_t id);

/// The options that are state, not settings: the program sets them as it is used.
std::span<const TextView> OptionsThatAreState();

}  // namespace jotlets

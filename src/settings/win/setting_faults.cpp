// What is said beside a setting: what cannot be taken, and what may be a mistake.
#include "base/win/wide.h"
#include "res/resource.h"
#include "settings/win/options_page.h"

namespace jotlets {

// Several fields may share a row.
Text BOpTab::FaultText(const SettingRow& row, SettingFault fault) const {
  if (fault == SettingFault::kNothing) return {};
  const std::int32_t bound = fault == SettingFault::kTooSmall ? row.minimum : row.maximum;
  const Text text = context_.resources.String(IDS_SETTING_FAULT + static_cast<UINT>(fault));
  return context_.resources.String(IDS_SETTING + row.id) + u": " + ReplaceAll(text, u"%n", IntText(bound));
}

Text BOpTab::Doubt(const SettingControls& setting) const {
  const SettingRow& row = setting.Row();
  const Text entered = setting.Entered();
  if (row.control == SettingControl::kHotKey) {
    if (const SettingRow* other = context_.draft.SameHotKey(row))
      return ReplaceAll(context_.resources.String(IDS_SETTING_KEY_TWICE), u"%s",
                        context_.resources.String(IDS_SETTING + other->id));
    if (IsCommonKey(HotKeyOfNumber(context_.draft.Value(row).number)))
      return context_.resources.String(IDS_SETTING_KEY_COMMON);
  } else if (!entered.empty() && row.control == SettingControl::kSound) {
    const DWORD file = GetFileAttributesW(Wide(entered));
    if (file == INVALID_FILE_ATTRIBUTES || (file & FILE_ATTRIBUTE_DIRECTORY) != 0)
      return context_.resources.String(IDS_SETTING_NO_SOUND);
  } else if (!entered.empty() && row.control == SettingControl::kFolder) {
    const DWORD folder = GetFileAttributesW(Wide(entered));
    if (folder == INVALID_FILE_ATTRIBUTES || (folder & FILE_ATTRIBUTE_DIRECTORY) == 0)
      return context_.resources.String(IDS_SETTING_NO_FOLDER);
  }
  return {};
}

}  // namespace jotlets

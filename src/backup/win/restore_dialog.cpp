#include "backup/win/restore_dialog.h"

#include "base/win/shown_time.h"
#include "base/win/wide.h"
#include "res/resource.h"
#include "ui/user_messages.h"

namespace jotlets {
namespace {

constexpr int kTabStops[] = {90, 145};  // dialog units: the number of notes and the size

Text ShownSize(std::uint64_t bytes) {
  constexpr std::uint64_t kKilo = 1024;
  if (bytes < 10 * kKilo * kKilo)
    return IntText(static_cast<std::int64_t>((bytes + kKilo - 1) / kKilo)) + u" KB";
  return IntText(static_cast<std::int64_t>(bytes / kKilo / kKilo)) + u" MB";
}

}  // namespace

Text BackupLine(const Resources& resources, const Backup& backup, TextView between) {
  const Text notes =
      ReplaceAll(resources.String(IDS_BACKUP_NOTES), u"%i", IntText(static_cast<std::int64_t>(backup.notes)));
  return ShownTime(backup.taken) + Text(between) + notes + Text(between) + ShownSize(backup.bytes);
}

Text ChooseBackup(HWND owner, const Resources& resources, UINT question, const BackupKeeper& backups) {
  std::vector<Backup> found = backups.Describe();
  if (found.empty()) {
    Tell(owner, resources, IDS_NO_BACKUPS, backups.BackupsFolder());
    return {};
  }
  return BRestoreDlg(resources, question, std::move(found)).Choose(owner);
}

Text BRestoreDlg::Choose(HWND owner) {
  return Show(resources_, IDD_RESTORE, owner) == IDOK ? chosen_ : Text();
}

void BRestoreDlg::OnInit() {
  SetDlgItemTextW(Handle(), IDC_RESTORE_TEXT, Wide(resources_.String(text_)));
  const HWND list = Item(IDC_RESTORE_LIST);
  SendMessageW(list, LB_SETTABSTOPS, std::size(kTabStops), reinterpret_cast<LPARAM>(kTabStops));
  for (const Backup& backup : backups_) {
    SendMessageW(list, LB_ADDSTRING, 0,
                 reinterpret_cast<LPARAM>(Wide(BackupLine(resources_, backup, u"\t"))));
  }
  SendMessageW(list, LB_SETCURSEL, 0, 0);
}

bool BRestoreDlg::OnCommand(UINT control, UINT notification) {
  const bool doubleClick = control == IDC_RESTORE_LIST && notification == LBN_DBLCLK;
  if (control != IDOK && !doubleClick) return false;
  const LRESULT at = SendMessageW(Item(IDC_RESTORE_LIST), LB_GETCURSEL, 0, 0);
  if (at >= 0 && at < static_cast<LRESULT>(backups_.size()))
    chosen_ = backups_[static_cast<std::size_t>(at)].name;
  End(IDOK);
  return true;
}

}  // namespace jotlets

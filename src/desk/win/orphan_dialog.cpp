#include "desk/win/orphan_dialog.h"

#include "base/win/wide.h"
#include "res/resource.h"

namespace jotlets {

void BOrphanDlg::OnInit() {
  for (const Orphan& orphan : orphans_) {
    const Text name = orphan.id + (orphan.isImage ? u".png" : u".rtf");
    SendMessageW(Item(IDC_ORPHAN_LIST), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(name)));
  }
  // All are chosen at first: what is in doubt is rather kept.
  SendMessageW(Item(IDC_ORPHAN_LIST), LB_SETSEL, TRUE, -1);
}

bool BOrphanDlg::OnCommand(UINT control, UINT) {
  if (control != IDOK) return false;
  for (std::size_t i = 0; i < orphans_.size(); ++i) {
    if (SendMessageW(Item(IDC_ORPHAN_LIST), LB_GETSEL, i, 0) > 0) chosen_.push_back(orphans_[i]);
  }
  End(IDOK);
  return true;
}

}  // namespace jotlets

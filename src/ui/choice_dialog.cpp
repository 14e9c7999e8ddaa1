#include "ui/choice_dialog.h"

#include "base/win/wide.h"
#include "res/resource.h"

namespace jotlets {

Choice BChoiceDlg::Ask(const Resources& resources, HWND owner) {
  switch (Show(resources, dialog_, owner)) {
    case IDOK: return Choice::kFirst;
    case IDC_CHOICE_SECOND: return Choice::kSecond;
    default: return Choice::kNeither;
  }
}

void BChoiceDlg::OnInit() { SetDlgItemTextW(Handle(), IDC_CHOICE_QUESTION, Wide(question_)); }

bool BChoiceDlg::OnCommand(UINT control, UINT) {
  if (control != IDC_CHOICE_SECOND) return false;
  End(IDC_CHOICE_SECOND);
  return true;
}

}  // namespace jotlets

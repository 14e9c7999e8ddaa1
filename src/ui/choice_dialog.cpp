#include "ui/choice_dialog.h"

#include "base/win/wide.h"
#include "res/resource.h"

namespace jotlets {

Choice BChoiceDlg::Ask(const Resources& resources, HWND owner) {
  switch (Show(resources, dialog_, owner)) {
    case IDOK: return Choice::kFirst;
    case IDC_CHOICE_SECOND: return Choice::kSecond;
    case IDC_CHOICE_THIRD: return Choice::kThird;
    default: return Choice::kNeither;
  }
}

void BChoiceDlg::OnInit() {
  SetDlgItemTextW(Handle(), IDC_CHOICE_QUESTION, Wide(question_));
  // The focus, which would make another button the default one, goes to the first control after this.
  const int standard = LOWORD(SendMessageW(Handle(), DM_GETDEFID, 0, 0));
  PostMessageW(Handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(standard)), TRUE);
}

bool BChoiceDlg::OnCommand(UINT control, UINT) {
  if (control != IDC_CHOICE_SECOND && control != IDC_CHOICE_THIRD) return false;
  End(static_cast<INT_PTR>(control));
  return true;
}

}  // namespace jotlets

#include "ui/text_dialog.h"

#include "base/win/wide.h"
#include "res/resource.h"

namespace jotlets {

std::optional<Text> BTextDlg::Ask(HWND owner) {
  if (Show(resources_, IDD_TEXT, owner) != IDOK) return std::nullopt;
  return text_;
}

void BTextDlg::OnInit() {
  SetWindowTextW(Handle(), Wide(resources_.String(caption_)));
  SetDlgItemTextW(Handle(), IDC_TEXT_LABEL, Wide(resources_.String(label_)));
  SetDlgItemTextW(Handle(), IDC_TEXT_LINE, Wide(text_));
}

bool BTextDlg::OnCommand(UINT control, UINT) {
  if (control == IDOK) text_ = ItemText(IDC_TEXT_LINE);
  return false;
}

}  // namespace jotlets

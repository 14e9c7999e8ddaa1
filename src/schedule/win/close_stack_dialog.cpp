#include "schedule/win/close_stack_dialog.h"

#include "base/win/wide.h"
#include "res/resource.h"

namespace jotlets {

std::optional<NotesOfClosedStack> BCloseStackDlg::Ask(HWND owner) {
  switch (Show(resources_, IDD_CLOSE_STACK, owner)) {
    case IDOK: return NotesOfClosedStack::kStay;
    case IDC_STACK_CLOSE_NOTES: return NotesOfClosedStack::kClose;
    default: return std::nullopt;
  }
}

void BCloseStackDlg::OnInit() {
  const Text count = IntText(static_cast<std::int64_t>(notes_));
  SetDlgItemTextW(Handle(), IDC_STACK_QUESTION,
                  Wide(ReplaceAll(resources_.String(IDS_STACK_CLOSING), u"%s", count)));
}

bool BCloseStackDlg::OnCommand(UINT control, UINT) {
  if (control != IDC_STACK_CLOSE_NOTES) return false;
  End(IDC_STACK_CLOSE_NOTES);
  return true;
}

}  // namespace jotlets

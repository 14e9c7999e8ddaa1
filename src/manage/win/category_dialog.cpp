#include "manage/win/category_dialog.h"

#include <windowsx.h>

#include "base/win/wide.h"
#include "res/resource.h"

namespace jotlets {

std::optional<Text> BCategoryDlg::Ask(HWND owner) {
  if (Show(resources_, IDD_CATEGORY, owner) != IDOK) return std::nullopt;
  return category_;
}

void BCategoryDlg::OnInit() {
  constexpr int kLongest = 200;
  const HWND field = Item(IDC_CATEGORY);
  ComboBox_LimitText(field, kLongest);
  for (const Text& category : categories_)
    if (!category.empty()) ComboBox_AddString(field, Wide(category));
  SetWindowTextW(field, Wide(category_));
  SendMessageW(field, CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
  EnableWindow(Item(IDOK), !category_.empty());
}

// What is chosen in the list stands in the field only after the message that tells of it.
Text BCategoryDlg::ChosenInList() const {
  const HWND field = Item(IDC_CATEGORY);
  const int chosen = ComboBox_GetCurSel(field);
  if (chosen < 0) return {};
  Text name(static_cast<std::size_t>(ComboBox_GetLBTextLen(field, chosen)) + 1, u'\0');
  name.resize(static_cast<std::size_t>(ComboBox_GetLBText(field, chosen, WideBuffer(name))));
  return name;
}

bool BCategoryDlg::OnCommand(UINT control, UINT notification) {
  if (control != IDC_CATEGORY) return false;
  if (notification == CBN_SELCHANGE) category_ = ChosenInList();
  if (notification == CBN_EDITCHANGE) category_ = TrimBlanks(ItemText(IDC_CATEGORY));
  EnableWindow(Item(IDOK), !category_.empty());
  return true;
}

}  // namespace jotlets

#include "note/win/picture_size_dialog.h"

#include <commctrl.h>

#include "base/win/wide.h"
#include "res/picture_numbers.h"
#include "res/resource.h"

namespace jotlets {

bool BPictureSizeDlg::Edit(HWND owner) { return Show(resources_, IDD_PICTURE_SIZE, owner) == IDOK; }

void BPictureSizeDlg::OnInit() {
  for (const int spin : {IDC_PICTURE_WIDTH_SPIN, IDC_PICTURE_HEIGHT_SPIN})
    SendMessageW(Item(spin), UDM_SETRANGE32, 1, 30000);
  CheckRadioButton(Handle(), IDC_PICTURE_PERCENT, IDC_PICTURE_PIXELS,
                   sizing_.Unit() == SizeUnit::kPixels ? IDC_PICTURE_PIXELS : IDC_PICTURE_PERCENT);
  CheckDlgButton(Handle(), IDC_PICTURE_ASPECT, sizing_.KeepsAspect());
  ShowNumbers(0);
}

// A field that is being written in is left as it is.
void BPictureSizeDlg::ShowNumbers(int except) {
  filling_ = true;
  if (except != IDC_PICTURE_WIDTH)
    SetDlgItemInt(Handle(), IDC_PICTURE_WIDTH, static_cast<UINT>(sizing_.Width()), FALSE);
  if (except != IDC_PICTURE_HEIGHT)
    SetDlgItemInt(Handle(), IDC_PICTURE_HEIGHT, static_cast<UINT>(sizing_.Height()), FALSE);
  filling_ = false;
  ShowWords();
}

void BPictureSizeDlg::ShowWords() {
  const std::optional<Size> wanted = sizing_.Wanted();
  Text words = resources_.String(wanted ? IDS_PICTURE_SIZE : IDS_NO_PICTURE_SIZE);
  if (wanted)
    words = ReplaceAll(ReplaceAll(words, u"%w", IntText(wanted->width)), u"%h", IntText(wanted->height));
  SetDlgItemTextW(Handle(), IDC_PICTURE_WORDS, Wide(words));
  EnableWindow(Item(IDOK), wanted.has_value());
}

bool BPictureSizeDlg::OnCommand(UINT control, UINT notification) {
  const auto number = [&] {
    return static_cast<std::int32_t>(GetDlgItemInt(Handle(), static_cast<int>(control), nullptr, FALSE));
  };
  switch (control) {
    case IDC_PICTURE_WIDTH:
      if (notification != EN_CHANGE || filling_) return true;
      sizing_.SetWidth(number());
      ShowNumbers(IDC_PICTURE_WIDTH);
      return true;
    case IDC_PICTURE_HEIGHT:
      if (notification != EN_CHANGE || filling_) return true;
      sizing_.SetHeight(number());
      ShowNumbers(IDC_PICTURE_HEIGHT);
      return true;
    case IDC_PICTURE_ASPECT:
      sizing_.SetKeepsAspect(IsDlgButtonChecked(Handle(), IDC_PICTURE_ASPECT) == BST_CHECKED);
      ShowNumbers(0);
      return true;
    case IDC_PICTURE_PERCENT:
    case IDC_PICTURE_PIXELS:
      if (notification != BN_CLICKED) return true;
      sizing_.SetUnit(control == IDC_PICTURE_PIXELS ? SizeUnit::kPixels : SizeUnit::kPercent);
      ShowNumbers(0);
      return true;
    default: return false;
  }
}

}  // namespace jotlets

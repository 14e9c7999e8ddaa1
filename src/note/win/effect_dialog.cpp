#include "note/win/effect_dialog.h"

#include <commctrl.h>

#include "base/win/wide.h"
#include "res/picture_numbers.h"

namespace jotlets {
namespace {

constexpr std::int32_t kMaxOffered = 200;  // pixels

}  // namespace

std::optional<std::int32_t> BEffectDlg::Choose(HWND owner) {
  if (Show(resources_, IDD_PICTURE_EFFECT, owner) != IDOK) return std::nullopt;
  return strength_;
}

void BEffectDlg::OnInit() {
  SetWindowTextW(Handle(), Wide(title_));
  SendMessageW(Item(IDC_EFFECT_STRENGTH_SPIN), UDM_SETRANGE32, 1, kMaxOffered);
  SetDlgItemInt(Handle(), IDC_EFFECT_STRENGTH, static_cast<UINT>(strength_), FALSE);
}

bool BEffectDlg::OnCommand(UINT control, UINT notification) {
  if (control != IDC_EFFECT_STRENGTH || notification != EN_CHANGE) return false;
  const auto written =
      static_cast<std::int32_t>(GetDlgItemInt(Handle(), IDC_EFFECT_STRENGTH, nullptr, FALSE));
  const bool usable = written >= 1 && written <= kMaxOffered;
  EnableWindow(Item(IDOK), usable);
  if (usable) tried_(strength_ = written);
  return true;
}

}  // namespace jotlets

#include "note/win/properties_dialog.h"

#include <algorithm>

#include "base/win/wide.h"
#include "res/resource.h"
#include "ui/areas.h"
#include "ui/system_choosers.h"
#include "ui/window.h"

namespace jotlets {
namespace {

struct FlagRow {
  int control;
  bool JotletData::*member;
};

constexpr FlagRow kFlags[] = {
    {IDC_PROP_ON_TOP, &JotletData::onTop},  {IDC_PROP_READ_ONLY, &JotletData::readOnly},
    {IDC_PROP_ROLLED, &JotletData::rolled}, {IDC_PROP_GHOST, &JotletData::ghost},
    {IDC_PROP_HIDDEN, &JotletData::hidden},
};

struct NumberRow {
  int control;
  std::int32_t JotletData::*member;
  std::int32_t minimum;
  std::int32_t maximum;
};

constexpr NumberRow kNumbers[] = {
    {IDC_PROP_WIDTH, &JotletData::width, 40, 30000},
    {IDC_PROP_HEIGHT, &JotletData::height, 16, 30000},
};

// The opacities of the commands; the record holds what remains, and 0 for all of it.
constexpr std::int32_t kOpacityStep = 10;

}  // namespace

UINT BPropertiesDlg::IDD() { return IDD_PROPERTIES; }

void BPropertiesDlg::OnInit() {
  SetDlgItemTextW(Handle(), IDC_PROP_TITLE, Wide(record_.title));
  SetDlgItemTextW(Handle(), IDC_PROP_USER_STRING, Wide(record_.userString1));
  for (const FlagRow& flag : kFlags) CheckDlgButton(Handle(), flag.control, record_.*flag.member);
  for (const NumberRow& row : kNumbers)
    SetDlgItemInt(Handle(), row.control, static_cast<UINT>(record_.*row.member), TRUE);
  for (std::int32_t percent = 100; percent >= kOpacityStep; percent -= kOpacityStep) {
    const Text line = IntText(percent) + u" %";
    SendMessageW(Item(IDC_PROP_OPACITY), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(line)));
  }
  const std::int32_t shown = record_.transparency == 0 ? 100 : record_.transparency;
  SendMessageW(Item(IDC_PROP_OPACITY), CB_SETCURSEL,
               static_cast<WPARAM>(std::clamp((100 - shown) / kOpacityStep, 0, 9)), 0);
  const Text dates =
      shownTime_(record_.created) + u"\r\n" + (record_.modified > 0 ? shownTime_(record_.modified) : Text());
  SetDlgItemTextW(Handle(), IDC_PROP_DATES, Wide(dates));
}

bool BPropertiesDlg::OnCommand(UINT control, UINT) {
  if (control == IDC_PROP_COLOUR) {
    if (const auto colour = ChooseSystemColour(Handle(), record_.colour)) record_.colour = *colour;
    InvalidateRect(Item(IDC_PROP_COLOUR), nullptr, FALSE);
    return true;
  }
  if (control == IDOK) Take();
  return false;
}

void BPropertiesDlg::OnDrawItem(const DRAWITEMSTRUCT& item) {
  SetDCBrushColor(item.hDC, ToCOLORREF(record_.colour));
  FillRect(item.hDC, &item.rcItem, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
  RECT frame = item.rcItem;
  FrameArea(item.hDC, frame, Look().Colours().edge);
  InflateRect(&frame, -2, -2);
  if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &frame);
}

void BPropertiesDlg::Take() {
  record_.title = ItemText(IDC_PROP_TITLE);
  record_.userString1 = ItemText(IDC_PROP_USER_STRING);
  for (const FlagRow& flag : kFlags)
    record_.*flag.member = IsDlgButtonChecked(Handle(), flag.control) == BST_CHECKED;
  for (const NumberRow& row : kNumbers) {
    const Text typed = ItemText(row.control);
    // A field that was emptied leaves the size as it is.
    if (!typed.empty()) record_.*row.member = std::clamp(ParseInt(typed), row.minimum, row.maximum);
  }
  const LRESULT chosen = SendMessageW(Item(IDC_PROP_OPACITY), CB_GETCURSEL, 0, 0);
  const std::int32_t percent = 100 - static_cast<std::int32_t>(chosen) * kOpacityStep;
  // A value between the steps stays unless another one was chosen.
  const std::int32_t shown = record_.transparency == 0 ? 100 : record_.transparency;
  if (chosen >= 0 && (100 - shown) / kOpacityStep != chosen)
    record_.transparency = percent == 100 ? 0 : percent;
}

}  // namespace jotlets

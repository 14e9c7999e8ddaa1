#include "manage/win/columns_dialog.h"

#include <windowsx.h>

#include <commctrl.h>

#include <algorithm>
#include <vector>

#include "base/win/wide.h"
#include "res/resource.h"
#include "ui/dialog_look.h"

namespace jotlets {
namespace {

// More are not shown, but can be chosen.
constexpr std::size_t kShownColumns = 50;
constexpr std::size_t kShownUnits = 80;  // of a cell
constexpr int kColumnWidth = 120;        // pixels at 96 dots per inch
constexpr std::size_t kNamedLeft = 6;

// In the order of their controls.
constexpr int CsvColumns::*kParts[] = {&CsvColumns::title, &CsvColumns::text, &CsvColumns::category,
                                       &CsvColumns::created};

}  // namespace

std::optional<CsvColumns> BColumnsDlg::Ask(HWND owner) {
  if (Show(resources_, IDD_COLUMNS, owner) != IDOK) return std::nullopt;
  return columns_;
}

void BColumnsDlg::OnInit() {
  SetDlgItemTextW(Handle(), IDC_COLUMNS_CAPTION,
                  Wide(ReplaceAll(ItemText(IDC_COLUMNS_CAPTION), u"%s", ReplaceAll(table_, u"&", u"&&"))));
  Button_SetCheck(Item(IDC_COLUMNS_HEADER), columns_.header ? BST_CHECKED : BST_UNCHECKED);
  SetUpRows(Item(IDC_COLUMNS_ROWS), Look());
  FillChoices();
  ShowRows();
  ShowWords();
}

void BColumnsDlg::FillChoices() {
  const std::vector<Text> names =
      NamesOfColumns(preview_, columns_.header, resources_.String(IDS_COLUMN_NUMBER));
  for (std::size_t part = 0; part < std::size(kParts); ++part) {
    const HWND choice = Item(IDC_COLUMNS_PART + static_cast<int>(part));
    ComboBox_ResetContent(choice);
    ComboBox_AddString(choice, Wide(resources_.String(IDS_COLUMN_NONE)));
    for (const Text& name : names) ComboBox_AddString(choice, Wide(name));
    ComboBox_SetCurSel(choice, columns_.*kParts[part] + 1);
  }
}

void BColumnsDlg::ShowRows() {
  const HWND list = Item(IDC_COLUMNS_ROWS);
  ListView_DeleteAllItems(list);
  while (ListView_DeleteColumn(list, 0)) {
  }
  std::vector<Text> names = NamesOfColumns(preview_, columns_.header, resources_.String(IDS_COLUMN_NUMBER));
  names.resize(std::min(names.size(), kShownColumns));
  for (std::size_t at = 0; at < names.size(); ++at) {
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = WideBuffer(names[at]);
    column.cx = MulDiv(kColumnWidth, static_cast<int>(GetDpiForWindow(list)), USER_DEFAULT_SCREEN_DPI);
    ListView_InsertColumn(list, static_cast<int>(at), &column);
  }
  int row = 0;
  for (std::size_t from = columns_.header ? 1 : 0; from < preview_.rows.size(); ++from, ++row) {
    LVITEMW item{};
    item.iItem = row;
    ListView_InsertItem(list, &item);
    for (std::size_t at = 0; at < std::min(preview_.rows[from].size(), names.size()); ++at) {
      Text cell = OneLine(preview_.rows[from][at]).substr(0, kShownUnits);
      ListView_SetItemText(list, row, static_cast<int>(at), WideBuffer(cell));
    }
  }
}

void BColumnsDlg::ShowWords() {
  const std::vector<Text> left = ColumnsLeft(preview_, columns_, resources_.String(IDS_COLUMN_NUMBER));
  Text named;
  for (std::size_t at = 0; at < std::min(left.size(), kNamedLeft); ++at)
    named += (at == 0 ? u"" : u", ") + left[at];
  if (left.size() > kNamedLeft)
    named += u", " + ReplaceAll(resources_.String(IDS_COLUMNS_MORE), u"%n",
                                IntText(static_cast<std::int64_t>(left.size() - kNamedLeft)));
  const bool empty = preview_.rows.size() == 1 && columns_.header;
  const Text words = empty          ? resources_.String(IDS_COLUMNS_NO_ROWS)
                     : left.empty() ? resources_.String(IDS_COLUMNS_ALL_USED)
                                    : ReplaceAll(resources_.String(IDS_COLUMNS_LEFT), u"%s", named);
  SetDlgItemTextW(Handle(), IDC_COLUMNS_WORDS, Wide(words));
}

bool BColumnsDlg::OnCommand(UINT control, UINT notification) {
  const UINT part = control - IDC_COLUMNS_PART;
  if (part < std::size(kParts) && notification == CBN_SELCHANGE) {
    columns_.*kParts[part] = ComboBox_GetCurSel(Item(static_cast<int>(control))) - 1;
    ShowWords();
    return true;
  }
  if (control != IDC_COLUMNS_HEADER || notification != BN_CLICKED) return false;
  columns_.header = Button_GetCheck(Item(IDC_COLUMNS_HEADER)) == BST_CHECKED;
  FillChoices();
  ShowRows();
  ShowWords();
  return true;
}

}  // namespace jotlets

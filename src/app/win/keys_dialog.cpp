#include "app/win/keys_dialog.h"

#include <commctrl.h>

#include <algorithm>

#include "base/key_text.h"
#include "base/win/wide.h"
#include "res/resource.h"
#include "ui/dialog_look.h"

namespace jotlets {
namespace {

constexpr int kMargin = 8;  // pixels at 96 dots per inch, as all lengths below
constexpr int kRow = 24;
constexpr int kLabel = 56;
constexpr int kSmallestWidth = 420;
constexpr int kSmallestHeight = 240;
constexpr int kColumns[] = {184, 250, 160};  // key, what it does, where it counts
constexpr int kStretched = 1;                // takes what the others leave, and is no narrower than above

Text TextOf(const ACCEL& key) {
  return KeyText({false, (key.fVirt & FCONTROL) != 0, (key.fVirt & FALT) != 0, (key.fVirt & FSHIFT) != 0},
                 key.key);
}

Text MenuText(HMENU menu, UINT command) {
  const int length = GetMenuStringW(menu, command, nullptr, 0, MF_BYCOMMAND);
  Text text(static_cast<std::size_t>(std::max(length, 0)) + 1, u'\0');
  GetMenuStringW(menu, command, WideBuffer(text), static_cast<int>(text.size()), MF_BYCOMMAND);
  text.pop_back();
  return text;
}

}  // namespace

void BKeysDlg::OpenWindow() {
  if (!IsOpen() && !Open(resources_, IDD_KEYS)) return;
  ReadRows();
  ShowRows();
  ShowWindow(Handle(), IsIconic(Handle()) ? SW_RESTORE : SW_SHOW);
  SetForegroundWindow(Handle());
  SetFocus(Item(IDC_KEYS_SEARCH));
}

void BKeysDlg::OnInit() {
  const auto icon =
      reinterpret_cast<LPARAM>(LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_JOTLETS)));
  SendMessageW(Handle(), WM_SETICON, ICON_SMALL, icon);
  SendMessageW(Handle(), WM_SETICON, ICON_BIG, icon);
  AddColumns();
  Layout();
}

void BKeysDlg::AddColumns() {
  const HWND list = Item(IDC_KEYS_LIST);
  SetUpRows(list, resources_.Look());
  for (int i = 0; i < static_cast<int>(std::size(kColumns)); ++i) {
    Text title = resources_.String(IDS_KEYS_COLUMN + static_cast<UINT>(i));
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = WideBuffer(title);
    column.cx = Scaled(kColumns[i]);
    ListView_InsertColumn(list, i, &column);
  }
}

void BKeysDlg::ReadRows() {
  std::vector<KeyRow> rows = NoteKeyRows([this](std::uint32_t id) { return resources_.String(id); });
  AddProgramKeys(rows);
  for (UINT i = 0; i < HotKeys::kCount; ++i) {
    const Text key = hotKeys_.Held(i);
    if (!key.empty()) rows.push_back({KeyPlace::kEverywhere, key, resources_.String(IDS_HOT_KEY + i)});
  }
  for (KeyRow& row : rows) row.key = resources_.Key(row.key);
  rows_ = Arranged(std::move(rows));
}

// What they do is told by the menu, or, for what is in none, by a text of the command's own number.
void BKeysDlg::AddProgramKeys(std::vector<KeyRow>& rows) const {
  const UniqueAccelerators table = resources_.Accelerators(IDA_MAIN);
  std::vector<ACCEL> keys(static_cast<std::size_t>(CopyAcceleratorTableW(table.get(), nullptr, 0)));
  CopyAcceleratorTableW(table.get(), keys.data(), static_cast<int>(keys.size()));
  const UniqueMenu menu = resources_.Menu(IDM_TRAY);
  for (const ACCEL& key : keys) {
    Text what = PlainMenuText(MenuText(menu.get(), key.cmd));
    if (what.empty()) what = resources_.String(key.cmd);
    rows.push_back({KeyPlace::kProgram, TextOf(key), what});
  }
}

// The scroll bar, which comes and goes with the rows, has its room.
void BKeysDlg::FitColumns() {
  const HWND list = Item(IDC_KEYS_LIST);
  RECT bounds{};
  GetWindowRect(list, &bounds);
  const auto dpi = GetDpiForWindow(list);
  int width = bounds.right - bounds.left - GetSystemMetricsForDpi(SM_CXVSCROLL, dpi) -
              2 * GetSystemMetricsForDpi(SM_CXEDGE, dpi);
  for (int i = 0; i < static_cast<int>(std::size(kColumns)); ++i)
    if (i != kStretched) width -= ListView_GetColumnWidth(list, i);
  ListView_SetColumnWidth(list, kStretched, std::max(width, Scaled(kColumns[kStretched])));
}

void BKeysDlg::ShowRows() {
  const HWND list = Item(IDC_KEYS_LIST);
  const Text search = ItemText(IDC_KEYS_SEARCH);
  SendMessageW(list, WM_SETREDRAW, FALSE, 0);
  ListView_DeleteAllItems(list);
  int shown = 0;
  for (const KeyRow& row : rows_) {
    if (!IsFound(row, search)) continue;
    Text cells[] = {row.key, row.what, resources_.String(IDS_KEY_PLACE + static_cast<UINT>(row.place))};
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = shown++;
    item.pszText = WideBuffer(cells[0]);
    ListView_InsertItem(list, &item);
    for (int i = 1; i < static_cast<int>(std::size(cells)); ++i)
      ListView_SetItemText(list, item.iItem, i, WideBuffer(cells[i]));
  }
  SendMessageW(list, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(list, nullptr, TRUE);
  SetDlgItemTextW(Handle(), IDC_KEYS_COUNT, Wide(shown == 0 ? resources_.String(IDS_KEYS_NONE) : Text()));
}

int BKeysDlg::Scaled(int length) const {
  return MulDiv(length, static_cast<int>(GetDpiForWindow(Handle())), 96);
}

void BKeysDlg::Layout() {
  RECT client{};
  GetClientRect(Handle(), &client);
  const int margin = Scaled(kMargin);
  const int row = Scaled(kRow);
  const int label = Scaled(kLabel);
  const int width = static_cast<int>(client.right) - 2 * margin;
  const auto place = [this](int control, int left, int top, int across, int down) {
    SetWindowPos(Item(control), nullptr, left, top, std::max(across, 0), std::max(down, 0),
                 SWP_NOZORDER | SWP_NOACTIVATE);
  };
  const int list = 2 * margin + row;
  const int status = static_cast<int>(client.bottom) - margin / 2 - row;
  place(IDC_KEYS_SEARCH_LABEL, margin, margin + Scaled(4), label, row - Scaled(4));
  place(IDC_KEYS_SEARCH, margin + label, margin, width - label, row);
  place(IDC_KEYS_LIST, margin, list, width, status - margin / 2 - list);
  place(IDC_KEYS_COUNT, margin, status + Scaled(4), width, row - Scaled(4));
  FitColumns();
}

bool BKeysDlg::OnCommand(UINT control, UINT notification) {
  if (control == IDCANCEL) Close();
  if (control == IDC_KEYS_SEARCH && notification == EN_CHANGE) ShowRows();
  return true;
}

std::optional<LRESULT> BKeysDlg::OnMessage(UINT message, WPARAM, LPARAM lParam) {
  switch (message) {
    case WM_CLOSE: Close(); return 0;
    case WM_SIZE: Layout(); return 0;
    case WM_GETMINMAXINFO:
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {Scaled(kSmallestWidth),
                                                               Scaled(kSmallestHeight)};
      return 0;
    default: return std::nullopt;
  }
}

// The key that ends the program closes the window that it is pressed in.
bool BKeysDlg::TranslateKey(const MSG& message) {
  if (!IsOpen() || (message.hwnd != Handle() && !IsChild(Handle(), message.hwnd))) return false;
  const bool closes = message.message == WM_SYSKEYDOWN && message.wParam == VK_F4;
  if (closes) PostMessageW(Handle(), WM_CLOSE, 0, 0);
  return closes;
}

}  // namespace jotlets

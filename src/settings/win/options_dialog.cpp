#include "settings/win/options_dialog.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>

#include "base/win/wide.h"
#include "note/monitors.h"
#include "note/papers.h"
#include "note/win/monitor_setup.h"
#include "res/resource.h"
#include "ui/user_messages.h"
#include "ui/view_row.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kWidth = 800;
constexpr int kHeight = 742;
constexpr int kListWidth = 194;
constexpr int kMargin = 10;
constexpr int kSearchHeight = 26;
constexpr int kRowHeight = 36;
constexpr int kFootHeight = 52;
constexpr int kButtonHeight = 28;
constexpr int kButtonWidth = 88;
// In the order of the pages.
constexpr Icon kIcons[] = {Icon::kPencil, Icon::kFont, Icon::kPalette, Icon::kClock,
                           Icon::kNet,    Icon::kMail, Icon::kPicture, Icon::kSliders};

int RowHeight() { return MulDiv(kRowHeight, static_cast<int>(GetDpiForSystem()), 96); }

}  // namespace

void BOptionsDlg::OpenAt(SettingsPage page) {
  if (!IsOpen()) {
    draft_.emplace(owner_.CurrentOptions(), owner_.PolicyNow());
    choices_ = {owner_.SkinNames(), owner_.StartsWithWindows()};
    startedBefore_ = choices_.startsWithWindows;
    page_ = page;
    if (!Open(resources_, IDD_OPTIONS)) return;
    // The page first: what is not seen yet is made and placed without being drawn.
    Show(page);
    ShowWindow(Handle(), SW_SHOW);
  }
  Show(page);
  SetForegroundWindow(Handle());
  SetFocus(Item(IDC_OPTIONS_PAGES));
}

void BOptionsDlg::Follow() {
  if (!IsOpen()) return;
  draft_->Follow(owner_.CurrentOptions(), owner_.PolicyNow());
  if (draft_->FirstFault() == nullptr) PageAt(page_).Fill();
  ShowApply();
}

void BOptionsDlg::OnInit() {
  const auto icon =
      reinterpret_cast<LPARAM>(LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_JOTLETS)));
  SendMessageW(Handle(), WM_SETICON, ICON_SMALL, icon);
  SendMessageW(Handle(), WM_SETICON, ICON_BIG, icon);
  const Text cue = resources_.String(IDS_SETTING_SEARCH);
  SendMessageW(Item(IDC_OPTIONS_SEARCH), EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(Wide(cue)));
  SendMessageW(Item(IDC_OPTIONS_PAGES), LB_SETITEMHEIGHT, 0, RowHeight());
  searching_ = false;
  MakePages();
  GatherWords();
  PlaceInMiddle();
  ShowList();
  ShowApply();
}

void BOptionsDlg::MakePages() {
  const PageContext context{resources_, *draft_, owner_, *this, choices_};
  pages_ = {std::make_unique<BOpTab1>(context), std::make_unique<BOpTab2>(context),
            std::make_unique<BOpTab3>(context), std::make_unique<BOpTab4>(context),
            std::make_unique<BOpTab5>(context), std::make_unique<BOpTab6>(context),
            std::make_unique<BOpTab7>(context), std::make_unique<BOpTab8>(context)};
}

void BOptionsDlg::PlaceInMiddle() {
  const int dpi = static_cast<int>(GetDpiForWindow(Handle()));
  RECT frame{0, 0, MulDiv(kWidth, dpi, 96), MulDiv(kHeight, dpi, 96)};
  AdjustWindowRectExForDpi(&frame, static_cast<DWORD>(GetWindowLongPtrW(Handle(), GWL_STYLE)), FALSE,
                           static_cast<DWORD>(GetWindowLongPtrW(Handle(), GWL_EXSTYLE)),
                           GetDpiForWindow(Handle()));
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  POINT mouse{};
  GetCursorPos(&mouse);
  GetMonitorInfoW(MonitorFromPoint(mouse, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& work = monitor.rcWork;
  // On a small monitor the pages scroll.
  const int width = std::min<int>(frame.right - frame.left, work.right - work.left);
  const int height = std::min<int>(frame.bottom - frame.top, work.bottom - work.top);
  SetWindowPos(Handle(), nullptr, work.left + (work.right - work.left - width) / 2,
               work.top + (work.bottom - work.top - height) / 2, width, height,
               SWP_NOZORDER | SWP_NOACTIVATE);
  Layout();
}

void BOptionsDlg::Layout() {
  RECT client{};
  GetClientRect(Handle(), &client);
  const auto scaled = [dpi = static_cast<int>(GetDpiForWindow(Handle()))](int length) {
    return MulDiv(length, dpi, 96);
  };
  const auto place = [this](int control, int left, int top, int width, int height) {
    SetWindowPos(Item(control), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
  };
  const int margin = scaled(kMargin);
  const int foot = client.bottom - scaled(kFootHeight);
  const int across = scaled(kListWidth) - 2 * margin;
  const int field = FieldHeight(FontOf(Item(IDC_OPTIONS_SEARCH)));
  place(IDC_OPTIONS_SEARCH, margin, margin + (scaled(kSearchHeight) - field) / 2, across, field);
  const int list = 2 * margin + scaled(kSearchHeight);
  place(IDC_OPTIONS_PAGES, margin, list, across, foot - list - margin);
  const int top = foot + (scaled(kFootHeight) - scaled(kButtonHeight)) / 2;
  place(IDC_OPTIONS_RESET, 2 * margin, top, scaled(kButtonWidth + 30), scaled(kButtonHeight));
  int right = client.right - 2 * margin;
  for (const int button : {IDC_OPTIONS_APPLY, IDCANCEL, IDOK}) {
    right -= scaled(kButtonWidth);
    place(button, right, top, scaled(kButtonWidth), scaled(kButtonHeight));
    right -= margin;
  }
  for (const auto& page : pages_)
    if (page->IsOpen())
      page->SetBounds({scaled(kListWidth), 0, static_cast<std::int32_t>(client.right), foot});
}

// Pages are made when they are first shown: a hundred controls take their time.
void BOptionsDlg::Show(SettingsPage page) {
  BOpTab& next = PageAt(page);
  if (!next.IsOpen()) {
    if (!next.OpenIn(Handle())) return;
    // Behind the list in the order of Tab.
    SetWindowPos(next.Window(), Item(IDC_OPTIONS_PAGES), 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    Layout();
  }
  if (page != page_ && PageAt(page_).IsOpen()) PageAt(page_).Show(false);
  page_ = page;
  next.Show(true);
  if (!searching_) ListBox_SetCurSel(Item(IDC_OPTIONS_PAGES), static_cast<int>(page));
}

void BOptionsDlg::Step(int step) {
  constexpr int kPages = static_cast<int>(kSettingsPages);
  Show(static_cast<SettingsPage>((static_cast<int>(page_) + step + kPages) % kPages));
}

void BOptionsDlg::GatherWords() {
  words_.clear();
  for (const SettingRow& row : SettingRows()) {
    const auto page = static_cast<UINT>(PageOf(row.group));
    Text said = resources_.String(IDS_SETTING + row.id) + u" " +
                resources_.String(IDS_SETTING_GROUP + static_cast<UINT>(row.group)) + u" " +
                resources_.String(IDS_SETTINGS_PAGE + page) + u" " + Text(row.option);
    if (row.hasUnit) said += u" " + resources_.String(IDS_SETTING_UNIT + row.id);
    if (row.control == SettingControl::kChoice)
      for (std::int32_t i = 0; i <= row.maximum - row.minimum; ++i)
        said += u" " + resources_.String(IDS_SETTING_CHOICE + row.choices + static_cast<UINT>(i));
    if (row.control == SettingControl::kPaper)
      for (UINT i = 0; i < kPapers.size(); ++i) said += u" " + resources_.String(IDS_PAPER + i);
    words_.push_back({row.id, std::move(said)});
  }
}

// The pages, or what the search has found.
void BOptionsDlg::ShowList() {
  const HWND list = Item(IDC_OPTIONS_PAGES);
  const Text query = ItemText(IDC_OPTIONS_SEARCH);
  searching_ = !TrimBlanks(query).empty();
  found_ = FindSettings(query, words_);
  SetWindowRedraw(list, FALSE);
  ListBox_ResetContent(list);
  if (!searching_) {
    for (UINT i = 0; i < kSettingsPages; ++i)
      ListBox_AddString(list, Wide(resources_.String(IDS_SETTINGS_PAGE + i)));
    ListBox_SetCurSel(list, static_cast<int>(page_));
  } else {
    for (const std::uint16_t id : found_) ListBox_AddString(list, Wide(FoundText(id)));
    if (found_.empty()) ListBox_AddString(list, Wide(resources_.String(IDS_SETTING_NOT_FOUND)));
  }
  SetWindowRedraw(list, TRUE);
  InvalidateRect(list, nullptr, TRUE);
}

// Settings of several groups have the same name.
Text BOptionsDlg::FoundText(std::uint16_t id) const {
  const auto group = static_cast<UINT>(FindSetting(id)->group);
  return resources_.String(IDS_SETTING + id) + u"\t" + resources_.String(IDS_SETTING_GROUP + group);
}

void BOptionsDlg::OnSelected() {
  const int at = ListBox_GetCurSel(Item(IDC_OPTIONS_PAGES));
  if (at < 0) return;
  if (!searching_) return Show(static_cast<SettingsPage>(at));
  if (static_cast<std::size_t>(at) >= found_.size()) return;
  Show(PageOf(FindSetting(found_[static_cast<std::size_t>(at)])->group));
}

void BOptionsDlg::GoToFound() {
  const int at = std::max(ListBox_GetCurSel(Item(IDC_OPTIONS_PAGES)), 0);
  if (static_cast<std::size_t>(at) >= found_.size()) return;
  const SettingRow* row = FindSetting(found_[static_cast<std::size_t>(at)]);
  Show(PageOf(row->group));
  PageAt(page_).ShowSetting(row->id);
}

bool BOptionsDlg::OnCommand(UINT control, UINT notification) {
  switch (control) {
    case IDOK:
      if (Apply()) Close();
      return true;
    case IDCANCEL: Close(); return true;
    case IDC_OPTIONS_APPLY: Apply(); return true;
    case IDC_OPTIONS_RESET: Reset(); return true;
    case IDC_OPTIONS_SEARCH:
      if (notification == EN_CHANGE) ShowList();
      return true;
    case IDC_OPTIONS_PAGES:
      if (notification == LBN_SELCHANGE) OnSelected();
      if (notification == LBN_DBLCLK && searching_) GoToFound();
      return true;
    default: return false;
  }
}

void BOptionsDlg::Reset() {
  const Text name = resources_.String(IDS_SETTINGS_PAGE + static_cast<UINT>(page_));
  if (!AskFirst(Handle(), resources_, IDS_SETTING_RESET, name) || !IsOpen()) return;
  draft_->Reset(page_, owner_.FirstOptions());
  PageAt(page_).Fill();
  ShowApply();
}

bool BOptionsDlg::Apply() {
  if (const SettingRow* row = draft_->FirstFault()) {
    Show(PageOf(row->group));
    PageAt(page_).ShowSetting(row->id);
    return false;
  }
  if (choices_.startsWithWindows != startedBefore_ && owner_.SetStartsWithWindows(choices_.startsWithWindows))
    startedBefore_ = choices_.startsWithWindows;
  const Options before = owner_.CurrentOptions();
  draft_->Follow(before, owner_.PolicyNow());
  draft_->Apply(owner_.CurrentOptions());
  owner_.OnOptionsChanged(before);
  if (IsOpen()) ShowApply();
  return true;
}

void BOptionsDlg::OnSettingChanged() { ShowApply(); }

void BOptionsDlg::ShowApply() {
  const HWND apply = Item(IDC_OPTIONS_APPLY);
  const bool changed = draft_->IsChanged() || choices_.startsWithWindows != startedBefore_;
  // A button that cannot be pressed any more would keep the keys from all others.
  if (!changed && GetFocus() == apply) SetFocus(Item(IDOK));
  EnableWindow(apply, changed);
}

std::optional<LRESULT> BOptionsDlg::OnMessage(UINT message, WPARAM, LPARAM) {
  switch (message) {
    case WM_CLOSE: Close(); return 0;
    case WM_DPICHANGED: PlaceInMiddle(); return 0;
    case WM_DESTROY:
      for (auto& page : pages_)
        if (page != nullptr) page->Close();
      return std::nullopt;
    default: return std::nullopt;
  }
}

void BOptionsDlg::OnDrawItem(const DRAWITEMSTRUCT& item) {
  if (item.CtlID != IDC_OPTIONS_PAGES) return;
  const WindowColours& colours = Look().Colours();
  const bool isPage = !searching_ && item.itemID < std::size(kIcons);
  RECT area = DrawViewRow(item, isPage ? kIcons[item.itemID] : Icon::kNothing, colours);
  if (item.itemID == static_cast<UINT>(-1)) return;
  Text text(static_cast<std::size_t>(ListBox_GetTextLen(item.hwndItem, item.itemID)) + 1, u'\0');
  ListBox_GetText(item.hwndItem, item.itemID, WideBuffer(text));
  constexpr UINT kLine = DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;
  const std::size_t tab = text.find(u'\t');
  RECT upper = area;
  if (tab != Text::npos) upper.bottom = (area.top + area.bottom) / 2;
  DrawTextW(item.hDC, Wide(text.substr(0, tab)), -1, &upper,
            kLine | (tab == Text::npos ? DT_VCENTER : DT_BOTTOM));
  if (tab != Text::npos) {
    area.top = upper.bottom;
    if ((item.itemState & ODS_SELECTED) == 0) SetTextColor(item.hDC, ToCOLORREF(colours.quiet));
    DrawTextW(item.hDC, Wide(text.substr(tab + 1)), -1, &area, kLine);
  }
}

bool BOptionsDlg::TranslateKey(const MSG& message) {
  if (!IsOpen() || message.message != WM_KEYDOWN || !IsChild(Handle(), message.hwnd)) return false;
  const bool ctrl = GetKeyState(VK_CONTROL) < 0;
  const bool inSearch = message.hwnd == Item(IDC_OPTIONS_SEARCH);
  if (message.wParam == VK_TAB && ctrl) return Step(GetKeyState(VK_SHIFT) < 0 ? -1 : 1), true;
  if (message.wParam == 'F' && ctrl) return SetFocus(Item(IDC_OPTIONS_SEARCH)), true;
  if (message.wParam == VK_RETURN && searching_ && (inSearch || message.hwnd == Item(IDC_OPTIONS_PAGES)))
    return GoToFound(), true;
  if (message.wParam == VK_ESCAPE && inSearch && searching_) return SetWindowTextW(message.hwnd, L"") != 0;
  if (message.wParam == VK_DOWN && inSearch) {
    SetFocus(Item(IDC_OPTIONS_PAGES));
    if (searching_) ListBox_SetCurSel(Item(IDC_OPTIONS_PAGES), 0);
    return OnSelected(), true;
  }
  if (message.wParam == VK_ESCAPE && inSearch && searching_)
    return SetWindowTextW(Item(IDC_OPTIONS_SEARCH), L""), true;
  return false;
}

bool BOptionsDlg::TranslateRest(MSG& message) {
  if (!IsOpen() || !IsDialogMessageW(Handle(), &message)) return false;
  // Tab goes to controls that are out of sight, too.
  const HWND focus = GetFocus();
  if (message.message == WM_KEYDOWN && IsOpen() && focus != nullptr && IsChild(PageAt(page_).Window(), focus))
    PageAt(page_).ShowControl(focus);
  return true;
}

}  // namespace jotlets

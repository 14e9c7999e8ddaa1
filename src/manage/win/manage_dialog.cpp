#include "manage/win/manage_dialog.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "base/win/wide.h"
#include "note/win/monitor_setup.h"
#include "res/resource.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr UINT kRefreshDelay = 150;
// How long texts are read at a stretch, unless something else is to be done, and the pause after it:
// milliseconds.
constexpr ULONGLONG kReadingSlice = 50;
constexpr UINT kReadingPause = 10;
constexpr int kReadAtOnce = 8;
constexpr int kMargin = 8;  // pixels at 96 dots per inch, as all lengths below
constexpr int kRow = 24;
constexpr int kButtonWidth = 84;
constexpr int kButtonGap = 6;
constexpr int kSmallestWidth = 560;
constexpr int kSmallestHeight = 260;
constexpr int kSearchLabelWidth = 56;
constexpr int kLastColumnWidth = 120;

ManageView ViewAt(int index) { return static_cast<ManageView>(index); }

}  // namespace

struct BManageDlg::KeyRow {
  WORD key;
  bool ctrl;
  bool shift;
  bool alsoInSearch;  // else the search field has a use of its own for it
  void (BManageDlg::*run)();
};

const BManageDlg::KeyRow BManageDlg::kKeys[] = {
    {'F', true, false, true, &BManageDlg::FocusSearch},
    {VK_F3, false, false, true, &BManageDlg::FocusSearch},
    {VK_F5, false, false, true, &BManageDlg::Reload},
    {'A', true, false, false, &BManageDlg::SelectAll},
    {VK_DELETE, false, false, false, &BManageDlg::Delete},
    {'Z', true, false, false, &BManageDlg::Undo},
    {VK_TAB, true, false, true, &BManageDlg::NextView},
    {VK_TAB, true, true, true, &BManageDlg::PreviousView},
    {VK_NEXT, true, false, true, &BManageDlg::NextView},
    {VK_PRIOR, true, false, true, &BManageDlg::PreviousView},
};

bool BManageDlg::OpenWindow(bool activate) {
  if (IsOpen() || !Open(resources_, IDD_MANAGE)) return false;
  const int shown = options_.manageWindowMax ? SW_SHOWMAXIMIZED : activate ? SW_SHOW : SW_SHOWNOACTIVATE;
  ShowWindow(Handle(), shown);
  if (activate) {
    Activate();
    SetFocus(Item(IDC_MANAGE_LIST));
  }
  options_.manageWindowVisible = 1;
  owner_.OnManageSettings();
  return true;
}

bool BManageDlg::CloseWindow() {
  if (!IsOpen()) return false;
  options_.manageWindowVisible = 0;
  Close();
  return true;
}

void BManageDlg::Activate() {
  if (!IsOpen()) return;
  if (IsIconic(Handle())) ShowWindow(Handle(), SW_RESTORE);
  SetForegroundWindow(Handle());
}

void BManageDlg::Enable(bool enabled) {
  if (IsOpen()) EnableWindow(Handle(), enabled);
}

void BManageDlg::OnInit() {
  for (std::size_t i = 0; i < typeNames_.size(); ++i)
    typeNames_[i] = resources_.String(IDS_MANAGE_TYPE + static_cast<UINT>(i));
  const auto icon =
      reinterpret_cast<LPARAM>(LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_JOTLETS)));
  SendMessageW(Handle(), WM_SETICON, ICON_SMALL, icon);
  SendMessageW(Handle(), WM_SETICON, ICON_BIG, icon);
  ListView_SetExtendedListViewStyle(Item(IDC_MANAGE_LIST), LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
  AddColumns();
  AddViews();
  RestorePlace();
  list_.Search({}, options_.manageWindowSearchWhat);
  const std::int32_t sorted = options_.manageSorted;
  const std::int32_t column = sorted < 0 ? -1 - sorted : sorted;
  list_.SortBy(static_cast<ManageColumn>(std::clamp<std::int32_t>(column, 0, kManageColumns - 1)),
               sorted < 0);
  ShowSorting();
  Layout();
  Show(view_);
}

void BManageDlg::AddColumns() {
  for (std::size_t i = 0; i < kManageColumns; ++i) {
    Text title = resources_.String(IDS_MANAGE_COLUMN + static_cast<UINT>(i));
    const bool kept = i < options_.manageWidths.size();
    const int width = kept ? std::clamp(options_.manageWidths[i], 20, 4000) : kLastColumnWidth;
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = WideBuffer(title);
    column.cx = MulDiv(width, static_cast<int>(GetDpiForWindow(Handle())), 96);
    ListView_InsertColumn(Item(IDC_MANAGE_LIST), static_cast<int>(i), &column);
  }
}

void BManageDlg::AddViews() {
  for (std::size_t i = 0; i < kManageViews; ++i) {
    Text name = resources_.String(IDS_MANAGE_VIEW + static_cast<UINT>(i));
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = WideBuffer(name);
    TabCtrl_InsertItem(Item(IDC_MANAGE_VIEWS), static_cast<int>(i), &item);
  }
  TabCtrl_SetCurSel(Item(IDC_MANAGE_VIEWS), static_cast<int>(view_));
}

void BManageDlg::RestorePlace() {
  const auto& [left, top, width, height] = options_.manageWindow;
  const Size size{std::clamp(width, kSmallestWidth, 30000), std::clamp(height, kSmallestHeight, 30000)};
  const Rect place = ShownPlace(RectAt({left, top}, size), ReadMonitors());
  SetWindowPos(Handle(), nullptr, place.left, place.top, place.Width(), place.Height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void BManageDlg::StoreSettings() {
  const Options before = options_;
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(Handle(), &placement);
  // The system gives this place without the room of task bars, which it counts in where it takes one.
  const bool asItIs = placement.showCmd == SW_SHOWNORMAL;
  RECT bounds = placement.rcNormalPosition;
  if (asItIs) GetWindowRect(Handle(), &bounds);
  const Rect place = FromRECT(bounds);
  options_.manageWindow = {place.left, place.top, place.Width(), place.Height()};
  options_.manageWindowMax =
      placement.showCmd == SW_SHOWMAXIMIZED ||
      (placement.showCmd == SW_SHOWMINIMIZED && (placement.flags & WPF_RESTORETOMAXIMIZED) != 0);
  for (std::size_t i = 0; i < options_.manageWidths.size(); ++i) {
    const int width = ListView_GetColumnWidth(Item(IDC_MANAGE_LIST), static_cast<int>(i));
    options_.manageWidths[i] = MulDiv(width, 96, static_cast<int>(GetDpiForWindow(Handle())));
  }
  if (options_ != before) owner_.OnManageSettings();
}

void BManageDlg::Layout() {
  RECT client{};
  GetClientRect(Handle(), &client);
  const auto scaled = [dpi = static_cast<int>(GetDpiForWindow(Handle()))](int length) {
    return MulDiv(length, dpi, 96);
  };
  const int margin = scaled(kMargin);
  const int row = scaled(kRow);
  const int width = client.right - 2 * margin;
  const int label = scaled(kSearchLabelWidth);
  const int views = margin + row + margin / 2;
  const int list = views + row;
  const int bottom = client.bottom - margin - row;
  const auto place = [this](int control, int left, int top, int across, int down) {
    SetWindowPos(Item(control), nullptr, left, top, std::max(across, 0), std::max(down, 0),
                 SWP_NOZORDER | SWP_NOACTIVATE);
  };
  place(IDC_MANAGE_SEARCH_LABEL, margin, margin + scaled(4), label, row - scaled(4));
  place(IDC_MANAGE_SEARCH, margin + label, margin, width - label, row);
  place(IDC_MANAGE_VIEWS, margin, views, width, row);
  place(IDC_MANAGE_LIST, margin, list, width, bottom - margin - list);
  int left = margin;
  for (std::size_t i = 0; i < kManageActions; ++i) {
    const int button = IDC_MANAGE_ACTION + static_cast<int>(i);
    if (!Offers(view_, static_cast<ManageAction>(i))) continue;
    place(button, left, bottom, scaled(kButtonWidth), row);
    left += scaled(kButtonWidth + kButtonGap);
  }
  place(IDC_MANAGE_STATUS, left, bottom + scaled(4), client.right - margin - left, row - scaled(4));
  FitLastColumn();
}

// It takes what the others leave beside the scroll bar.
void BManageDlg::FitLastColumn() {
  const HWND list = Item(IDC_MANAGE_LIST);
  constexpr int kLast = static_cast<int>(kManageColumns) - 1;
  RECT client{};
  GetClientRect(list, &client);
  int width = client.right;
  for (int i = 0; i < kLast; ++i) width -= ListView_GetColumnWidth(list, i);
  const int smallest = MulDiv(kLastColumnWidth, static_cast<int>(GetDpiForWindow(Handle())), 96);
  width = std::max(width, smallest);
  if (ListView_GetColumnWidth(list, kLast) != width) ListView_SetColumnWidth(list, kLast, width);
}

void BManageDlg::Show(ManageView view) {
  view_ = view;
  TabCtrl_SetCurSel(Item(IDC_MANAGE_VIEWS), static_cast<int>(view));
  for (std::size_t i = 0; i < kManageActions; ++i) {
    const bool offered = Offers(view, static_cast<ManageAction>(i));
    ShowWindow(Item(IDC_MANAGE_ACTION + static_cast<int>(i)), offered ? SW_SHOWNA : SW_HIDE);
  }
  Layout();
  owner_.FillManageList(view, list_);
  ShowRows({});
  ListView_EnsureVisible(Item(IDC_MANAGE_LIST), 0, FALSE);
  ReadTexts();
}

void BManageDlg::StepView(int step) {
  constexpr int kViews = static_cast<int>(kManageViews);
  Show(ViewAt((static_cast<int>(view_) + step + kViews) % kViews));
}

BManageDlg::Selection BManageDlg::Selected() const {
  const HWND list = Item(IDC_MANAGE_LIST);
  Selection selection;
  const auto at = [this](int place) -> Text {
    const auto index = static_cast<std::size_t>(place);
    return place >= 0 && index < list_.Size() ? list_.At(index).id : Text();
  };
  const std::size_t count = ListView_GetSelectedCount(list);
  selection.all = count > 1 && count == list_.Size();
  selection.ids.reserve(count);
  for (int place = -1; (place = ListView_GetNextItem(list, place, LVNI_SELECTED)) >= 0;)
    selection.ids.push_back(at(place));
  selection.focusedPlace = ListView_GetNextItem(list, -1, LVNI_FOCUSED);
  selection.focused = at(selection.focusedPlace);
  return selection;
}

// Changes the rows of the list and keeps what is selected, by id.
template <typename Change>
void BManageDlg::ChangeList(Change change) {
  const Selection selection = Selected();
  if (change()) {
    ShowRows(selection);
  } else {
    UpdateState();
  }
}

void BManageDlg::ShowRows(const Selection& selection) {
  const HWND list = Item(IDC_MANAGE_LIST);
  changing_ = true;
  ListView_SetItemState(list, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
  ListView_SetItemCountEx(list, static_cast<int>(list_.Size()), LVSICF_NOSCROLL);
  Restore(selection);
  changing_ = false;
  FitLastColumn();
  UpdateState();
}

void BManageDlg::Restore(const Selection& selection) {
  const HWND list = Item(IDC_MANAGE_LIST);
  if (list_.Size() == 0 || selection.focusedPlace < 0) return;
  const std::vector<std::size_t> places = list_.PlacesOf(selection.ids);
  if (selection.all && places.size() == list_.Size()) {
    ListView_SetItemState(list, -1, LVIS_SELECTED, LVIS_SELECTED);
  } else {
    for (const std::size_t place : places)
      ListView_SetItemState(list, static_cast<int>(place), LVIS_SELECTED, LVIS_SELECTED);
  }
  const std::vector<std::size_t> focused = list_.PlacesOf({selection.focused});
  const int last = static_cast<int>(list_.Size()) - 1;
  const int focus = focused.empty() ? std::min(selection.focusedPlace, last) : static_cast<int>(focused[0]);
  const bool inherits = selection.inherited && places.empty() && !selection.ids.empty();
  const UINT state = LVIS_FOCUSED | (inherits ? LVIS_SELECTED : 0U);
  ListView_SetItemState(list, focus, state, state);
}

void BManageDlg::Select(int place, bool focus) {
  const HWND list = Item(IDC_MANAGE_LIST);
  constexpr UINT kState = LVIS_SELECTED | LVIS_FOCUSED;
  ListView_SetItemState(list, place, kState, kState);
  ListView_EnsureVisible(list, place, FALSE);
  if (focus) SetFocus(list);
}

void BManageDlg::RefreshSoon() {
  if (!IsOpen() || refreshComes_) return;
  refreshComes_ = SetTimer(Handle(), kRefreshTimer, kRefreshDelay, nullptr) != 0;
}

void BManageDlg::Refresh() {
  ChangeList([this] { return owner_.FillManageList(view_, list_); });
  ReadTexts();
}

void BManageDlg::Reload() {
  texts_.Clear();
  list_.SetNotes({});
  Refresh();
}

void BManageDlg::Search() {
  Selection selection = Selected();
  selection.inherited = false;
  list_.Search(ItemText(IDC_MANAGE_SEARCH), options_.manageWindowSearchWhat);
  ShowRows(selection);
  if (ListView_GetSelectedCount(Item(IDC_MANAGE_LIST)) == 0)
    ListView_EnsureVisible(Item(IDC_MANAGE_LIST), 0, FALSE);
  ReadTexts();
}

void BManageDlg::SortBy(ManageColumn column) {
  const auto number = static_cast<std::int32_t>(column);
  const bool backwards = options_.manageSorted == number;
  options_.manageSorted = backwards ? -1 - number : number;
  ChangeList([&] {
    list_.SortBy(column, backwards);
    return true;
  });
  ShowSorting();
  owner_.OnManageSettings();
}

void BManageDlg::ShowSorting() {
  const HWND header = ListView_GetHeader(Item(IDC_MANAGE_LIST));
  const std::int32_t sorted = options_.manageSorted;
  for (std::int32_t i = 0; i < static_cast<std::int32_t>(kManageColumns); ++i) {
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    Header_GetItem(header, i, &item);
    item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
    if (sorted == i) item.fmt |= HDF_SORTUP;
    if (sorted == -1 - i) item.fmt |= HDF_SORTDOWN;
    Header_SetItem(header, i, &item);
  }
}

// Texts are read in slices: what the user does goes first.
void BManageDlg::ReadTexts() {
  if (!list_.IsReading()) return UpdateState();
  ChangeList([this] {
    const ULONGLONG end = GetTickCount64() + kReadingSlice;
    do {
      for (int i = 0; i < kReadAtOnce && list_.IsReading(); ++i) list_.ReadOne();
    } while (list_.IsReading() && GetTickCount64() < end &&
             GetQueueStatus(QS_INPUT | QS_SENDMESSAGE | QS_POSTMESSAGE) == 0);
    return list_.Settle();
  });
  // Titles that came from texts.
  InvalidateRect(Item(IDC_MANAGE_LIST), nullptr, FALSE);
  if (list_.IsReading()) SetTimer(Handle(), kReadTimer, kReadingPause, nullptr);
}

ManageFacts BManageDlg::Facts() const {
  const HWND list = Item(IDC_MANAGE_LIST);
  ManageFacts facts;
  facts.view = view_;
  facts.selected = ListView_GetSelectedCount(list);
  facts.canUndo = owner_.CanUndoManaged();
  facts.attached = view_ == ManageView::kAttached;
  if (view_ != ManageView::kDesktop) return facts;
  for (int place = -1; !facts.attached && (place = ListView_GetNextItem(list, place, LVNI_SELECTED)) >= 0;) {
    const auto index = static_cast<std::size_t>(place);
    facts.attached = index < list_.Size() && list_.At(index).attached;
  }
  return facts;
}

// The buttons and the words below the list and on the tabs. Only what differs is set: nothing may flicker.
void BManageDlg::UpdateState() {
  const ManageFacts facts = Facts();
  for (std::size_t i = 0; i < kManageActions; ++i) {
    const HWND button = Item(IDC_MANAGE_ACTION + static_cast<int>(i));
    const BOOL enabled = IsEnabled(static_cast<ManageAction>(i), facts);
    if (IsWindowEnabled(button) == enabled) continue;
    // A button that can be pressed no more cannot keep the keyboard.
    if (enabled == FALSE && GetFocus() == button) SetFocus(Item(IDC_MANAGE_LIST));
    EnableWindow(button, enabled);
  }
  const auto number = [](std::size_t value) { return IntText(static_cast<std::int64_t>(value)); };
  Text status = ReplaceAll(ReplaceAll(resources_.String(IDS_MANAGE_COUNT), u"%n", number(list_.Size())),
                           u"%m", number(list_.Total()));
  if (facts.selected > 0)
    status += u", " + ReplaceAll(resources_.String(IDS_MANAGE_SELECTED), u"%n", number(facts.selected));
  if (list_.IsReading()) status += u", " + resources_.String(IDS_MANAGE_READING);
  SetItemText(IDC_MANAGE_STATUS, status);
  const auto counts = owner_.CountManaged();
  for (std::size_t i = 0; i < kManageViews; ++i) {
    Text name = resources_.String(IDS_MANAGE_VIEW + static_cast<UINT>(i)) + u" (" + number(counts[i]) + u")";
    wchar_t shown[80] = {};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = shown;
    item.cchTextMax = static_cast<int>(std::size(shown));
    TabCtrl_GetItem(Item(IDC_MANAGE_VIEWS), static_cast<int>(i), &item);
    if (FromWide(shown) == name) continue;
    item.pszText = WideBuffer(name);
    TabCtrl_SetItem(Item(IDC_MANAGE_VIEWS), static_cast<int>(i), &item);
  }
}

void BManageDlg::SetItemText(int control, const Text& text) {
  if (ItemText(control) != text) SetWindowTextW(Item(control), Wide(text));
}

// Not from inside a control's message: a listener that hears of it may close this window.
void BManageDlg::ActSoon(ManageAction action) {
  PostMessageW(Handle(), kActMessage, static_cast<WPARAM>(action), 0);
}

void BManageDlg::Act(ManageAction action) {
  if (!IsEnabled(action, Facts())) return;
  owner_.DoManageAction(action, view_, Selected().ids);
  if (IsOpen()) Refresh();
}

void BManageDlg::ActByDefault() {
  if (ListView_GetSelectedCount(Item(IDC_MANAGE_LIST)) == 0) {
    if (list_.Size() > 0) Select(0, true);
    return;
  }
  if (const auto action = DefaultAction(view_)) ActSoon(*action);
}

bool BManageDlg::OnCommand(UINT control, UINT notification) {
  if (control == IDOK) ActByDefault();
  if (control == IDCANCEL) CloseWindow();
  if (control == IDC_MANAGE_SEARCH && notification == EN_CHANGE) Search();
  const UINT action = control - IDC_MANAGE_ACTION;
  if (action < kManageActions && notification == BN_CLICKED) ActSoon(static_cast<ManageAction>(action));
  return true;
}

std::optional<LRESULT> BManageDlg::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NOTIFY: return AnswerNotify(*reinterpret_cast<NMHDR*>(lParam));
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED) Layout();
      return 0;
    case WM_EXITSIZEMOVE:
    case kStoreMessage: StoreSettings(); return 0;
    case WM_GETMINMAXINFO: {
      const auto dpi = static_cast<int>(GetDpiForWindow(Handle()));
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {MulDiv(kSmallestWidth, dpi, 96),
                                                               MulDiv(kSmallestHeight, dpi, 96)};
      return 0;
    }
    case WM_CONTEXTMENU:
      if (reinterpret_cast<HWND>(wParam) != Item(IDC_MANAGE_LIST)) return std::nullopt;
      OnContextMenu({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      return 0;
    case WM_TIMER: OnWindowTimer(wParam); return 0;
    case kActMessage: Act(static_cast<ManageAction>(wParam)); return 0;
    case WM_DESTROY: OnWindowEnd(); return 0;
    default: return std::nullopt;
  }
}

void BManageDlg::OnWindowTimer(UINT_PTR timer) {
  KillTimer(Handle(), timer);
  if (timer == kReadTimer) ReadTexts();
  if (timer != kRefreshTimer) return;
  refreshComes_ = false;
  Refresh();
}

void BManageDlg::OnWindowEnd() {
  StoreSettings();
  owner_.OnManageSettings();
  refreshComes_ = false;
  list_.SetNotes({});
  texts_.Clear();
}

std::optional<LRESULT> BManageDlg::AnswerNotify(NMHDR& header) {
  switch (header.code) {
    case LVN_GETDISPINFOW: OnDisplayInfo(reinterpret_cast<NMLVDISPINFOW&>(header)); return 0;
    case LVN_COLUMNCLICK:
      SortBy(static_cast<ManageColumn>(reinterpret_cast<NMLISTVIEW&>(header).iSubItem));
      return 0;
    case LVN_ITEMCHANGED:
    case LVN_ODSTATECHANGED:
      if (!changing_) UpdateState();
      return 0;
    case NM_DBLCLK:
      if (header.idFrom == IDC_MANAGE_LIST && reinterpret_cast<NMITEMACTIVATE&>(header).iItem >= 0)
        ActByDefault();
      return 0;
    case HDN_ENDTRACKW:
      // The header tells before the new width holds.
      PostMessageW(Handle(), kStoreMessage, 0, 0);
      return 0;
    case TCN_SELCHANGE: Show(ViewAt(TabCtrl_GetCurSel(header.hwndFrom))); return 0;
    default: return std::nullopt;
  }
}

void BManageDlg::OnDisplayInfo(NMLVDISPINFOW& info) {
  LVITEMW& item = info.item;
  const auto place = static_cast<std::size_t>(item.iItem);
  if ((item.mask & LVIF_TEXT) == 0 || item.cchTextMax <= 0) return;
  const Text text = item.iItem >= 0 && place < list_.Size()
                        ? CellText(list_.At(place), static_cast<ManageColumn>(item.iSubItem))
                        : Text();
  lstrcpynW(item.pszText, Wide(text), item.cchTextMax);
}

Text BManageDlg::CellText(const ManageRow& row, ManageColumn column) const {
  const auto time = [this](std::int32_t utc) { return utc > 0 ? owner_.ManagedTime(utc) : Text(); };
  switch (column) {
    case ManageColumn::kTitle: return row.title;
    case ManageColumn::kType: return typeNames_[static_cast<std::size_t>(row.type)];
    case ManageColumn::kCreated: return time(row.created);
    case ManageColumn::kModified: return time(row.modified);
    case ManageColumn::kNextWake: return time(row.nextWake);
  }
  return {};
}

void BManageDlg::OnContextMenu(POINT at) {
  const HWND list = Item(IDC_MANAGE_LIST);
  if (at.x == -1 && at.y == -1) {  // by the keyboard
    RECT row{8, 8, 8, 8};
    const int focused = ListView_GetNextItem(list, -1, LVNI_FOCUSED);
    if (focused >= 0) ListView_GetItemRect(list, focused, &row, LVIR_LABEL);
    at = {row.left + 8, row.bottom};
    ClientToScreen(list, &at);
  }
  const UniqueMenu menu(CreatePopupMenu());
  const ManageFacts facts = Facts();
  for (std::size_t i = 0; i < kManageActions; ++i) {
    const auto action = static_cast<ManageAction>(i);
    if (!Offers(view_, action)) continue;
    const Text words = ItemText(IDC_MANAGE_ACTION + static_cast<int>(i));
    AppendMenuW(menu.get(), IsEnabled(action, facts) ? MF_ENABLED : MF_GRAYED, i + 1, Wide(words));
    if (DefaultAction(view_) == action) SetMenuDefaultItem(menu.get(), static_cast<UINT>(i + 1), FALSE);
  }
  const int chosen =
      TrackPopupMenu(menu.get(), TPM_RIGHTBUTTON | TPM_RETURNCMD, at.x, at.y, 0, Handle(), nullptr);
  if (chosen > 0 && IsOpen()) ActSoon(static_cast<ManageAction>(chosen - 1));
}

void BManageDlg::FocusSearch() {
  SetFocus(Item(IDC_MANAGE_SEARCH));
  SendMessageW(Item(IDC_MANAGE_SEARCH), EM_SETSEL, 0, -1);
}

void BManageDlg::SelectAll() {
  ListView_SetItemState(Item(IDC_MANAGE_LIST), -1, LVIS_SELECTED, LVIS_SELECTED);
}

// What is typed in the list goes on in the search.
bool BManageDlg::TypeIntoSearch(const MSG& message) {
  constexpr WPARAM kBackspace = 8;
  const HWND search = Item(IDC_MANAGE_SEARCH);
  const bool erases = message.wParam == kBackspace || message.wParam == ' ';
  if (message.wParam < ' ' && message.wParam != kBackspace) return false;
  if (erases && GetWindowTextLengthW(search) == 0) return false;
  SetFocus(search);
  SendMessageW(search, EM_SETSEL, static_cast<WPARAM>(GetWindowTextLengthW(search)), -1);
  SendMessageW(search, WM_CHAR, message.wParam, message.lParam);
  return true;
}

// The keys that go through a list lead from the search into it.
bool BManageDlg::GoIntoList(const MSG& message) {
  const WPARAM key = message.wParam;
  if (key != VK_DOWN && key != VK_UP && key != VK_NEXT && key != VK_PRIOR) return false;
  const HWND list = Item(IDC_MANAGE_LIST);
  SetFocus(list);
  if (ListView_GetNextItem(list, -1, LVNI_FOCUSED) >= 0) {
    SendMessageW(list, message.message, key, message.lParam);
  } else if (list_.Size() > 0) {
    Select(0, false);
  }
  return true;
}

bool BManageDlg::TranslateKey(const MSG& message) {
  if (!IsOpen() || (message.hwnd != Handle() && !IsChild(Handle(), message.hwnd))) return false;
  const bool inSearch = message.hwnd == Item(IDC_MANAGE_SEARCH);
  const bool inList = message.hwnd == Item(IDC_MANAGE_LIST);
  if (message.message == WM_CHAR) return inList && TypeIntoSearch(message);
  if (message.message == WM_SYSKEYDOWN && message.wParam == VK_F4)
    return PostMessageW(Handle(), WM_CLOSE, 0, 0);
  if (message.message != WM_KEYDOWN) return false;
  const bool ctrl = GetKeyState(VK_CONTROL) < 0;
  const bool shift = GetKeyState(VK_SHIFT) < 0;
  for (const KeyRow& row : kKeys) {
    if (row.key != message.wParam || row.ctrl != ctrl || row.shift != shift) continue;
    if (inSearch && !row.alsoInSearch) return false;
    (this->*row.run)();
    return true;
  }
  return inSearch && !ctrl && GoIntoList(message);
}

}  // namespace jotlets

#include "manage/win/manage_dialog.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "base/win/wide.h"
#include "manage/win/manage_buttons.h"
#include "manage/win/manage_settings.h"
#include "res/resource.h"
#include "ui/dialog_look.h"
#include "ui/user_messages.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr UINT kRefreshDelay = 150;

constexpr int kUndoButton = IDC_MANAGE_ACTION + static_cast<int>(ManageAction::kUndo);

}  // namespace

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

void BManageDlg::OnInit() {
  const auto icon =
      reinterpret_cast<LPARAM>(LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_JOTLETS)));
  SendMessageW(Handle(), WM_SETICON, ICON_SMALL, icon);
  SendMessageW(Handle(), WM_SETICON, ICON_BIG, icon);
  table_.SetUp(Item(IDC_MANAGE_LIST), resources_, options_.manageWidths);
  views_.SetUp(Item(IDC_MANAGE_VIEWS));
  preview_.SetUp(Item(IDC_MANAGE_PREVIEW_TITLE));
  RestoreManageWindow(Handle(), options_);
  list_.Search({}, options_.manageWindowSearchWhat);
  const std::int32_t sorted = options_.manageSorted;
  const std::int32_t column = sorted < 0 ? -1 - sorted : sorted;
  list_.SortBy(static_cast<ManageColumn>(std::clamp<std::int32_t>(column, 0, kManageColumns - 1)),
               sorted < 0);
  table_.ShowSorting(options_.manageSorted);
  Layout();
  ShowPlace();
}

void BManageDlg::StoreSettings() {
  const Options before = options_;
  StoreManageWindow(Handle(), options_);
  table_.StoreWidths(options_.manageWidths);
  if (options_ != before) owner_.OnManageSettings();
}

void BManageDlg::ShowPlace() {
  // What is dragged is of the place before.
  if (drag_.IsOn()) ReleaseCapture();
  views_.Follow(resources_, owner_);
  for (std::size_t i = 0; i < kManageActions; ++i) {
    const bool offered = Offers(View(), static_cast<ManageAction>(i));
    ShowWindow(Item(IDC_MANAGE_ACTION + static_cast<int>(i)), offered ? SW_SHOWNA : SW_HIDE);
  }
  Layout();
  constexpr auto kLastColumn = static_cast<UINT>(kManageColumns) - 1;
  table_.NameLastColumn(resources_.String(View() == ManageView::kAll      ? IDS_MANAGE_PLACE
                                          : View() == ManageView::kStored ? IDS_MANAGE_CATEGORY
                                                                          : IDS_MANAGE_COLUMN + kLastColumn));
  owner_.FillManageList(views_.Chosen(), list_);
  if (!asked_.typed.empty()) AskSurvey();
  ShowRows({});
  if (ListView_GetSelectedCount(Item(IDC_MANAGE_LIST)) == 0)
    ListView_EnsureVisible(Item(IDC_MANAGE_LIST), 0, FALSE);
  ReadTexts();
}

void BManageDlg::ShowNote(const ManagePlace& place, const Text& name) {
  if (!IsOpen()) return;
  SetWindowTextW(Item(IDC_MANAGE_SEARCH), L"");
  views_.Choose(place);
  wanted_ = name;
  ShowPlace();
}

// Changes the rows of the list and keeps what is selected, by id.
void BManageDlg::ChangeList(const std::function<bool()>& change) {
  const ManageTable::Selection selection = table_.Selected();
  if (change()) {
    ShowRows(selection);
  } else {
    UpdateState();
  }
}

void BManageDlg::ShowRows(const ManageTable::Selection& selection) {
  table_.ShowRows(selection);
  const std::vector<std::size_t> wanted =
      wanted_.empty() ? std::vector<std::size_t>() : list_.PlacesOf({wanted_});
  if (!wanted.empty()) table_.Select(static_cast<int>(wanted.front()), false);
  // Sorting moves it once more.
  if (!list_.IsByPlace() || (!wanted.empty() && !list_.ByPlace().IsSorting())) wanted_.clear();
  UpdateState();
}

void BManageDlg::RefreshSoon() {
  if (!IsOpen() || refreshComes_) return;
  refreshComes_ = SetTimer(Handle(), kRefreshTimer, kRefreshDelay, nullptr) != 0;
}

void BManageDlg::Refresh() {
  // A category that has gone takes what is shown along.
  views_.Follow(resources_, owner_);
  ChangeList([this] { return owner_.FillManageList(views_.Chosen(), list_); });
  if (!asked_.typed.empty()) AskSurvey();
  ReadTexts();
}

void BManageDlg::SortBy(ManageColumn column) {
  const auto number = static_cast<std::int32_t>(column);
  const bool backwards = options_.manageSorted == number;
  options_.manageSorted = backwards ? -1 - number : number;
  ChangeList([&] {
    list_.SortBy(column, backwards);
    owner_.FillManageList(views_.Chosen(), list_);
    return true;
  });
  table_.ShowSorting(options_.manageSorted);
  owner_.OnManageSettings();
}

ManageFacts BManageDlg::Facts() const {
  const HWND list = Item(IDC_MANAGE_LIST);
  ManageFacts facts;
  facts.view = View();
  facts.selected = ListView_GetSelectedCount(list);
  facts.canUndo = owner_.LastManaged().has_value();
  facts.attached = View() == ManageView::kAttached;
  if (View() != ManageView::kDesktop) return facts;
  for (int place = -1; !facts.attached && (place = ListView_GetNextItem(list, place, LVNI_SELECTED)) >= 0;) {
    const auto index = static_cast<std::size_t>(place);
    facts.attached = index < list_.Size() && list_.At(index).attached;
  }
  return facts;
}

// The buttons and the words below the list. Only what differs is set: nothing may flicker.
void BManageDlg::UpdateState() {
  const ManageFacts facts = Facts();
  // Nobody undoes what they did not mean.
  const std::optional<UndoKind> last = owner_.LastManaged();
  const Text undo =
      resources_.String(last ? IDS_MANAGE_UNDO + static_cast<UINT>(*last) : IDS_MANAGE_UNDO_NOTHING);
  if (ItemText(kUndoButton) != undo) SetDlgItemTextW(Handle(), kUndoButton, Wide(undo));
  for (std::size_t i = 0; i < kManageActions; ++i) {
    const HWND button = Item(IDC_MANAGE_ACTION + static_cast<int>(i));
    const BOOL enabled = IsEnabled(static_cast<ManageAction>(i), facts);
    if (IsWindowEnabled(button) == enabled) continue;
    // A button that can be pressed no more cannot keep the keyboard.
    if (enabled == FALSE && GetFocus() == button) SetFocus(Item(IDC_MANAGE_LIST));
    EnableWindow(button, enabled);
  }
  ShowStatus(facts.selected);
  // Who goes through the list quickly does not wait for each text.
  if (preview_.IsPlaced()) SetTimer(Handle(), kPreviewTimer, kRefreshDelay, nullptr);
}

// Not from inside a control's message: a listener that hears of it may close this window.
void BManageDlg::ActSoon(ManageAction action) {
  PostMessageW(Handle(), kActMessage, static_cast<WPARAM>(action), 0);
}

void BManageDlg::Act(ManageAction action) {
  if (!IsEnabled(action, Facts())) return;
  owner_.DoManageAction(action, View(), table_.SelectedNames());
  if (IsOpen()) Refresh();
}

void BManageDlg::ActByDefault() {
  if (ListView_GetSelectedCount(Item(IDC_MANAGE_LIST)) == 0) {
    if (list_.Size() > 0) table_.Select(0, true);
    return;
  }
  if (const auto action = DefaultAction(View())) ActSoon(*action);
}

bool BManageDlg::OnCommand(UINT control, UINT notification) {
  if (preview_.OnCommand(control, notification)) {
    // What is selected now may be another note.
    if (notification == EN_KILLFOCUS) SetTimer(Handle(), kPreviewTimer, USER_TIMER_MINIMUM, nullptr);
    return true;
  }
  if (control == IDOK) ActByDefault();
  if (control == IDCANCEL) CloseWindow();
  if (control == IDC_MANAGE_SEARCH && notification == EN_CHANGE) Search();
  if (control == IDC_MANAGE_VIEWS && notification == LBN_SELCHANGE) {
    views_.FollowControl();
    ShowPlace();
  }
  if (control == IDC_MANAGE_EVERYWHERE && notification == BN_CLICKED) {
    SetFocus(Item(IDC_MANAGE_LIST));
    views_.Choose({ManageView::kAll, {}});
    ShowPlace();
  }
  const UINT action = control - IDC_MANAGE_ACTION;
  if (action < kManageActions && notification == BN_CLICKED) ActSoon(static_cast<ManageAction>(action));
  return true;
}

HBRUSH BManageDlg::OnColours(HDC dc, HWND control) {
  const bool isEmpty = control != nullptr && control == Item(IDC_MANAGE_EMPTY);
  return isEmpty ? EmptyListColours(dc, Look()) : nullptr;
}

void BManageDlg::OnDrawItem(const DRAWITEMSTRUCT& item) {
  if (item.CtlID == IDC_MANAGE_PREVIEW_TITLE) preview_.DrawTitle(item);
  if (item.CtlID == IDC_MANAGE_VIEWS) views_.Draw(item, Look());
}

std::optional<LRESULT> BManageDlg::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NOTIFY: return AnswerNotify(*reinterpret_cast<NMHDR*>(lParam));
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED) Layout();
      return 0;
    case WM_EXITSIZEMOVE:
    case kStoreMessage:
      StoreSettings();
      table_.FitColumns();
      return 0;
    case WM_GETMINMAXINFO: {
      const Size smallest = SmallestManageWindow(Handle());
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {smallest.width, smallest.height};
      return 0;
    }
    case WM_CONTEXTMENU:
      if (reinterpret_cast<HWND>(wParam) == Item(IDC_MANAGE_LIST))
        return OnContextMenu({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}), 0;
      if (reinterpret_cast<HWND>(wParam) == Item(IDC_MANAGE_VIEWS))
        return OnViewsMenu({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}), 0;
      if (preview_.IsText(reinterpret_cast<HWND>(wParam)))
        return preview_.ShowMenu({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}), 0;
      return std::nullopt;
    case WM_TIMER: OnWindowTimer(wParam); return 0;
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED: return OnDragMessage(message) ? std::optional<LRESULT>(0) : std::nullopt;
    case Theme::kChangedMessage: preview_.FollowLook(); return std::nullopt;
    case ManagePreview::kLinkMessage: preview_.FollowLink(); return 0;
    case ManagePreview::kUnsavedMessage: Tell(Handle(), resources_, IDS_TEXT_UNSAVED, {}); return 0;
    case kActMessage: Act(static_cast<ManageAction>(wParam)); return 0;
    case WM_DESTROY: OnWindowEnd(); return 0;
    default: return std::nullopt;
  }
}

void BManageDlg::ShowPreview() {
  const int place = ListView_GetNextItem(Item(IDC_MANAGE_LIST), -1, LVNI_SELECTED);
  const bool one = place >= 0 && static_cast<std::size_t>(place) < list_.Size();
  const ManageRow* row = one ? &list_.At(static_cast<std::size_t>(place)) : nullptr;
  if (row == nullptr) return preview_.Hide();
  preview_.Show(*row);
}

void BManageDlg::OnWindowTimer(UINT_PTR timer) {
  KillTimer(Handle(), timer);
  if (timer == kReadTimer) ReadTexts();
  if (timer == ManagePreview::kSaveTimer) preview_.Save();
  if (timer == kPreviewTimer) ShowPreview();
  if (timer != kRefreshTimer) return;
  refreshComes_ = false;
  Refresh();
}

void BManageDlg::OnWindowEnd() {
  drag_.End();
  preview_.End();
  StoreSettings();
  owner_.OnManageSettings();
  refreshComes_ = false;
  asked_ = {};
  wanted_.clear();
  owner_.AskSurvey({});
  views_.ShowHits({});
  list_.SetFound({});
  list_.SetNotes({});
  texts_.Clear();
  owner_.OnManageEnd();
}

std::optional<LRESULT> BManageDlg::AnswerNotify(NMHDR& header) {
  preview_.OnNotify(header);
  switch (header.code) {
    case NM_CUSTOMDRAW:
      if (header.idFrom != IDC_MANAGE_LIST) return std::nullopt;
      return table_.Draw(reinterpret_cast<const NMLVCUSTOMDRAW&>(header), Look());
    case LVN_GETDISPINFOW: table_.Answer(reinterpret_cast<NMLVDISPINFOW&>(header)); return 0;
    // Rows come into sight: their texts are read when there is time.
    case LVN_ODCACHEHINT:
      table_.FetchRows();
      if (!list_.IsReading()) SetTimer(Handle(), kReadTimer, USER_TIMER_MINIMUM, nullptr);
      return 0;
    case LVN_BEGINDRAG: drag_.Begin(Handle(), View()); return 0;
    case LVN_COLUMNCLICK:
      SortBy(static_cast<ManageColumn>(reinterpret_cast<NMLISTVIEW&>(header).iSubItem));
      return 0;
    case LVN_ITEMCHANGED:
    case LVN_ODSTATECHANGED:
      if (!table_.IsChanging()) UpdateState();
      return 0;
    case NM_SETFOCUS:
      if (header.idFrom == IDC_MANAGE_LIST) table_.FocusSomeRow();
      return 0;
    case NM_DBLCLK:
      if (header.idFrom == IDC_MANAGE_LIST && reinterpret_cast<NMITEMACTIVATE&>(header).iItem >= 0)
        ActByDefault();
      return 0;
    case HDN_ENDTRACKW:
      // The header tells before the new width holds.
      PostMessageW(Handle(), kStoreMessage, 0, 0);
      return 0;
    default: return std::nullopt;
  }
}

}  // namespace jotlets

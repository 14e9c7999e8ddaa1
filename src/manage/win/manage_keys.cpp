// The keys, the mouse and the menu of the manage window.
#include "base/win/wide.h"
#include "manage/win/category_menu.h"
#include "manage/win/manage_dialog.h"
#include "res/resource.h"
#include "ui/drawn_menu.h"
#include "ui/popup_menu.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// In the order of the actions.
constexpr Icon kIcons[kManageActions] = {Icon::kEye,     Icon::kClock, Icon::kAttach,
                                         Icon::kRestore, Icon::kStore, Icon::kTrash,
                                         Icon::kUndo,    Icon::kDown,  Icon::kImport};

void FocusSearch(HWND search) {
  SetFocus(search);
  SendMessageW(search, EM_SETSEL, 0, -1);
}

// What is typed in the list goes on in the search.
bool TypeIntoSearch(HWND search, const MSG& message) {
  constexpr WPARAM kBackspace = 8;
  const bool erases = message.wParam == kBackspace || message.wParam == ' ';
  if (message.wParam < ' ' && message.wParam != kBackspace) return false;
  if (erases && GetWindowTextLengthW(search) == 0) return false;
  SetFocus(search);
  SendMessageW(search, EM_SETSEL, static_cast<WPARAM>(GetWindowTextLengthW(search)), -1);
  SendMessageW(search, WM_CHAR, message.wParam, message.lParam);
  return true;
}

}  // namespace

struct BManageDlg::KeyRow {
  WORD key;
  bool ctrl;
  bool shift;
  bool alsoInSearch;  // else the search field has a use of its own for it
  void (*run)(BManageDlg& window);
};

const BManageDlg::KeyRow BManageDlg::kKeys[] = {
    {'F', true, false, true, [](BManageDlg& w) { FocusSearch(w.Item(IDC_MANAGE_SEARCH)); }},
    {VK_F3, false, false, true, [](BManageDlg& w) { FocusSearch(w.Item(IDC_MANAGE_SEARCH)); }},
    {VK_F2, false, false, true, [](BManageDlg& w) { w.RenameCategory(); }},
    {VK_F5, false, false, true,
     [](BManageDlg& w) {
       // What is selected is asked for while the rows are there.
       w.ChangeList([&w] {
         w.texts_.Clear();
         w.list_.SetNotes({});
         w.owner_.FillManageList(w.views_.Chosen(), w.list_);
         return true;
       });
       w.Refresh();
     }},
    {'A', true, false, false, [](BManageDlg& w) { w.table_.SelectAll(); }},
    {'1', true, false, true, [](BManageDlg& w) { w.SortBy(ManageColumn::kTitle); }},
    {'2', true, false, true, [](BManageDlg& w) { w.SortBy(ManageColumn::kType); }},
    {'3', true, false, true, [](BManageDlg& w) { w.SortBy(ManageColumn::kCreated); }},
    {'4', true, false, true, [](BManageDlg& w) { w.SortBy(ManageColumn::kModified); }},
    {'5', true, false, true, [](BManageDlg& w) { w.SortBy(ManageColumn::kNextWake); }},
    {VK_DELETE, false, false, false, [](BManageDlg& w) { w.ActSoon(ManageAction::kDelete); }},
    {'Z', true, false, false, [](BManageDlg& w) { w.ActSoon(ManageAction::kUndo); }},
    {VK_TAB, true, false, true, [](BManageDlg& w) { w.views_.Step(1), w.ShowPlace(); }},
    {VK_TAB, true, true, true, [](BManageDlg& w) { w.views_.Step(-1), w.ShowPlace(); }},
    {VK_NEXT, true, false, true, [](BManageDlg& w) { w.views_.Step(1), w.ShowPlace(); }},
    {VK_PRIOR, true, false, true, [](BManageDlg& w) { w.views_.Step(-1), w.ShowPlace(); }},
};

bool BManageDlg::TranslateKey(const MSG& message) {
  if (!IsOpen() || (message.hwnd != Handle() && !IsChild(Handle(), message.hwnd))) return false;
  const bool inSearch = message.hwnd == Item(IDC_MANAGE_SEARCH);
  const bool inList = message.hwnd == Item(IDC_MANAGE_LIST);
  const bool inText = preview_.IsText(message.hwnd);
  if (message.message == WM_CHAR) return inList && TypeIntoSearch(Item(IDC_MANAGE_SEARCH), message);
  if (message.message == WM_SYSKEYDOWN && message.wParam == VK_F4)
    return PostMessageW(Handle(), WM_CLOSE, 0, 0);
  if (message.message != WM_KEYDOWN) return false;
  const bool ctrl = GetKeyState(VK_CONTROL) < 0;
  const bool shift = GetKeyState(VK_SHIFT) < 0;
  if (message.wParam == VK_ESCAPE && drag_.IsOn()) return ReleaseCapture() != FALSE;
  // The text has all keys but those that lead out of it, which move the keyboard here.
  if (inText && message.wParam == VK_ESCAPE) return SetFocus(Item(IDC_MANAGE_LIST)), true;
  if (inText && message.wParam == VK_TAB && !ctrl)
    return SetFocus(GetNextDlgTabItem(Handle(), message.hwnd, shift)), true;
  // The first empties the search, the next closes the window.
  if (message.wParam == VK_ESCAPE && inSearch && GetWindowTextLengthW(message.hwnd) > 0)
    return SetWindowTextW(message.hwnd, L""), true;
  for (const KeyRow& row : kKeys) {
    if (row.key != message.wParam || row.ctrl != ctrl || row.shift != shift) continue;
    if ((inSearch || inText) && !row.alsoInSearch) break;
    row.run(*this);
    return true;
  }
  if (inText) return preview_.ServeKey(message.wParam);
  return inSearch && !ctrl && table_.Enter(message);
}

void BManageDlg::RenameCategory() {
  const std::optional<Text> category = views_.Chosen().category;
  if (!category) return;
  const std::optional<Text> name = owner_.RenameCategory(*category);
  if (!name || !IsOpen()) return;
  views_.Choose({ManageView::kStored, name});
  ShowPlace();
}

// The window may be gone when the owner has asked its questions about what was let go.
bool BManageDlg::OnDragMessage(UINT message) {
  if (!drag_.IsOn()) return false;
  if (message == WM_MOUSEMOVE) return ShowDrag(), true;
  const std::optional<ManageDrag::Target> target = message == WM_LBUTTONUP ? drag_.Follow() : std::nullopt;
  drag_.End();
  if (message == WM_LBUTTONUP) ReleaseCapture();
  const std::vector<Text> names = target ? table_.SelectedNames() : std::vector<Text>();
  if (names.empty()) return UpdateState(), true;
  if (target->row) owner_.DropManaged(View(), names, *target->row);
  if (!target->row) owner_.DropManagedOut(View(), names);
  if (IsOpen()) Refresh();
  return true;
}

Text BManageDlg::CategoryUnderMouse() const {
  const POINT mouse{MousePosition().x, MousePosition().y};
  return views_.PlaceAt(mouse).value_or(views_.Chosen()).category.value_or(Text());
}

void BManageDlg::OnViewsMenu(POINT at) {
  if (!views_.ChooseAt(at)) return;
  ShowPlace();
  if (!views_.Chosen().category) return;
  const Text category = *views_.Chosen().category;
  const CategoryChoice choice = ChooseForCategory(resources_, Handle(), {at.x, at.y}, views_.ChosenLook());
  if (choice.look) owner_.SetCategoryLook(category, *choice.look);
  if (!IsOpen()) return;
  if (choice.look) Refresh();
  if (choice.rename) RenameCategory();
}

void BManageDlg::OnContextMenu(POINT at) {
  if (at.x == -1 && at.y == -1) at = table_.PlaceForMenu();  // by the keyboard
  const UniqueMenu menu(CreatePopupMenu());
  const ManageFacts facts = Facts();
  for (std::size_t i = 0; i < kManageActions; ++i) {
    const auto action = static_cast<ManageAction>(i);
    if (!Offers(View(), action)) continue;
    const Text words = ItemText(IDC_MANAGE_ACTION + static_cast<int>(i));
    AppendMenuW(menu.get(), IsEnabled(action, facts) ? MF_ENABLED : MF_GRAYED, i + 1, Wide(words));
    SetLastMenuIcon(menu.get(), kIcons[i]);
    if (DefaultAction(View()) == action) SetMenuDefaultItem(menu.get(), static_cast<UINT>(i + 1), FALSE);
  }
  const UINT chosen = ChooseFromMenu(Look(), menu.get(), {at.x, at.y}, Handle());
  if (chosen > 0 && IsOpen()) ActSoon(static_cast<ManageAction>(chosen - 1));
}

}  // namespace jotlets

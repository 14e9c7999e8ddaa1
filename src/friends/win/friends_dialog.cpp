#include "friends/win/friends_dialog.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "base/win/wide.h"
#include "res/resource.h"
#include "ui/dialog_look.h"
#include "ui/popup_menu.h"
#include "ui/user_messages.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// The message of each refusal, in their order.
constexpr UINT kRefusals[] = {0,
                              IDS_FRIEND_NAME_MISSING,
                              IDS_FRIEND_EXISTS,
                              IDS_FRIEND_GROUP_EXISTS,
                              IDS_FRIEND_NAME_NOT_HELD,
                              IDS_FRIEND_ADDRESS_NOT_HELD};

}  // namespace

void BFriendDlg::OnInit() {
  SetWindowTextW(Handle(), Wide(ReplaceAll(resources_.String(IDS_FRIEND_TITLE), u"%s", entry_.name)));
  SetDlgItemTextW(Handle(), IDC_FRIEND_NAME, Wide(entry_.name));
  SetDlgItemTextW(Handle(), IDC_FRIEND_ADDRESS, Wide(entry_.address));
  SetDlgItemTextW(Handle(), IDC_FRIEND_EMAIL, Wide(entry_.email));
  for (const int control : {IDC_FRIEND_ADDRESS, IDC_FRIEND_EMAIL})
    EnableWindow(Item(control), entry_.isGroup ? FALSE : TRUE);
}

bool BFriendDlg::OnCommand(UINT control, UINT) {
  if (control != IDOK) return false;
  FriendEntry wanted = entry_;
  wanted.name = ItemText(IDC_FRIEND_NAME);
  wanted.address = ItemText(IDC_FRIEND_ADDRESS);
  wanted.email = ItemText(IDC_FRIEND_EMAIL);
  wanted = Trimmed(std::move(wanted));
  const FriendRefusal refusal = CheckEntry(list_, wanted, at_);
  if (refusal != FriendRefusal::kAccepted) {
    Tell(Handle(), resources_, kRefusals[static_cast<std::size_t>(refusal)], {});
    SetFocus(Item(refusal == FriendRefusal::kAddressNotHeld ? IDC_FRIEND_ADDRESS : IDC_FRIEND_NAME));
    return true;
  }
  entry_ = std::move(wanted);
  End(IDOK);
  return true;
}

struct BFriendsDlg::Button {
  UINT control;
  void (BFriendsDlg::*run)();
};

const BFriendsDlg::Button BFriendsDlg::kButtons[] = {
    {IDC_FRIEND_NEW, &BFriendsDlg::NewFriend},
    {IDC_FRIEND_NEW_SEPARATOR, &BFriendsDlg::NewSeparator},
    {IDC_FRIEND_NEW_GROUP, &BFriendsDlg::NewGroup},
    {IDC_FRIEND_DELETE, &BFriendsDlg::Delete},
    {IDC_FRIEND_PROPERTIES, &BFriendsDlg::EditSelected},
    {IDC_FRIEND_SET_HOME, &BFriendsDlg::SetHome},
    {IDC_FRIEND_CLEAR_HOME, &BFriendsDlg::ClearHome},
    {IDC_FRIEND_SORT, &BFriendsDlg::Sort},
};

void BFriendsDlg::OnInit() {
  window_ = Handle();
  SetDlgItemTextW(Handle(), IDC_FRIEND_EMPTY, Wide(resources_.String(IDS_FRIEND_NONE)));
  PlaceEmpty();
  CheckDlgButton(Handle(), IDC_FRIEND_TAKE_LIST, BST_CHECKED);
  SetDlgItemTextW(Handle(), IDC_FRIEND_UPDATED,
                  Wide(ReplaceAll(resources_.String(IDS_FRIEND_UPDATED), u"%s", list_.lastUpdate)));
  // They need the network, which this version does not have.
  for (const int control : {IDC_FRIEND_GET_NEW, IDC_FRIEND_SYNC}) EnableWindow(Item(control), FALSE);
  ShowTree(0);
}

bool BFriendsDlg::OnCommand(UINT control, UINT notification) {
  const int slot = static_cast<int>(control) - IDC_FRIEND_FAVOURITE;
  if (slot >= 0 && slot < static_cast<int>(kFavouriteSlots)) {
    if (notification == CBN_SELCHANGE) AssignFavourite(static_cast<std::size_t>(slot));
    return true;
  }
  if (control == IDOK) return !ApplyList();
  for (const Button& button : kButtons) {
    if (button.control != control) continue;
    (this->*button.run)();
    return true;
  }
  return false;
}

bool BFriendsDlg::ApplyList() {
  if (IsDlgButtonChecked(Handle(), IDC_FRIEND_TAKE_LIST) != BST_CHECKED) return true;
  const FileStatus written = book_.Replace(list_);
  if (!written) Tell(Handle(), resources_, IDS_NOT_WRITTEN, written.reason);
  return written.ok;
}

void BFriendsDlg::NewFriend() {
  FriendEntry entry;
  entry.name = resources_.String(IDS_FRIEND_NEW);
  BFriendDlg dialog(resources_, list_, entry, kNoFriend);
  if (dialog.Show(resources_, IDD_FRIEND, Handle()) == IDOK) Insert(dialog.Entry());
}

void BFriendsDlg::NewGroup() {
  FriendEntry entry;
  entry.isGroup = true;
  entry.name = resources_.String(IDS_FRIEND_NEW_GROUP);
  BFriendDlg dialog(resources_, list_, entry, kNoFriend);
  if (dialog.Show(resources_, IDD_FRIEND, Handle()) == IDOK) Insert(dialog.Entry());
}

void BFriendsDlg::NewSeparator() {
  FriendEntry entry;
  entry.name = kSeparatorName;
  Insert(std::move(entry));
}

void BFriendsDlg::Insert(FriendEntry entry) { ShowTree(InsertEntry(list_, std::move(entry), Selected())); }

void BFriendsDlg::Delete() {
  const std::size_t at = Selected();
  if (at == kNoFriend) return;
  const bool members = EndOfGroup(list_, at) > at + 1;
  if (members && !Ask(Handle(), resources_, IDS_FRIEND_DELETE_GROUP)) return;
  RemoveEntry(list_, at);
  ShowTree(at);
}

void BFriendsDlg::EditSelected() {
  const std::size_t at = Selected();
  if (at == kNoFriend || list_.entries[at].IsSeparator()) return;
  BFriendDlg dialog(resources_, list_, list_.entries[at], at);
  if (dialog.Show(resources_, IDD_FRIEND, Handle()) != IDOK) return;
  ChangeEntry(list_, at, dialog.Entry());
  ShowTree(at);
}

void BFriendsDlg::SetHome() {
  const std::size_t at = Selected();
  if (at == kNoFriend || !list_.entries[at].isGroup) return;
  SetHomeGroup(list_, at);
  ShowTree(at);
}

void BFriendsDlg::ClearHome() {
  SetHomeGroup(list_, kNoFriend);
  ShowTree(Selected());
}

// The selected group, or the one that the selected entry is in.
void BFriendsDlg::Sort() {
  const std::size_t at = Selected();
  if (at == kNoFriend) return;
  SortGroup(list_, list_.entries[at].isGroup ? at : GroupOf(list_, at));
  ShowTree(at);
}

Text BFriendsDlg::Shown(const FriendEntry& entry) const {
  if (entry.IsSeparator()) return resources_.String(IDS_FRIEND_SEPARATOR);
  return entry.isHome ? ReplaceAll(resources_.String(IDS_FRIEND_HOME), u"%s", entry.name) : entry.name;
}

void BFriendsDlg::ShowTree(std::size_t selected) {
  const HWND tree = Item(IDC_FRIEND_TREE);
  filling_ = true;
  SendMessageW(tree, WM_SETREDRAW, FALSE, 0);
  TreeView_DeleteAllItems(tree);
  items_.clear();
  // The groups that are open at each entry, so that no depth needs a call inside a call.
  std::vector<HTREEITEM> open = {TVI_ROOT};
  for (const FriendEntry& entry : list_.entries) {
    open.resize(static_cast<std::size_t>(entry.level), open.back());
    Text text = Shown(entry);
    TVINSERTSTRUCTW insert{};
    insert.hParent = open.back();
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_STATE;
    insert.item.pszText = WideBuffer(text);
    insert.item.lParam = static_cast<LPARAM>(items_.size());
    insert.item.stateMask = TVIS_EXPANDED | TVIS_BOLD;
    insert.item.state = entry.isGroup ? TVIS_EXPANDED | TVIS_BOLD : 0U;
    items_.push_back(TreeView_InsertItem(tree, &insert));
    if (entry.isGroup) open.push_back(items_.back());
  }
  if (!items_.empty()) {
    const HTREEITEM item = items_[std::min(selected, items_.size() - 1)];
    TreeView_SelectItem(tree, item);
    TreeView_EnsureVisible(tree, item);
  }
  SendMessageW(tree, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(tree, nullptr, TRUE);
  filling_ = false;
  ShowFavourites();
  ShowFacts();
}

void BFriendsDlg::ShowFavourites() {
  for (std::size_t slot = 0; slot < kFavouriteSlots; ++slot) {
    const HWND combo = Item(IDC_FRIEND_FAVOURITE + static_cast<int>(slot));
    const Text& chosen = list_.favourites[slot];
    SendMessageW(combo, CB_RESETCONTENT, 0, 0);
    const auto add = [combo](const Text& name) {
      return SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(name)));
    };
    WPARAM at = static_cast<WPARAM>(add({}));
    for (const FriendEntry& entry : list_.entries) {
      if (!entry.IsFriend()) continue;
      const LRESULT added = add(entry.name);
      if (entry.name == chosen) at = static_cast<WPARAM>(added);
    }
    // The name of somebody who is not in the list is not lost by looking at it.
    if (at == 0 && !chosen.empty()) at = static_cast<WPARAM>(add(chosen));
    SendMessageW(combo, CB_SETCURSEL, at, 0);
  }
}

void BFriendsDlg::AssignFavourite(std::size_t slot) {
  list_.favourites[slot] = ItemText(IDC_FRIEND_FAVOURITE + static_cast<int>(slot));
}

// In the middle of the list, which may have given way.
void BFriendsDlg::PlaceEmpty() {
  constexpr int kHeight = 64;
  constexpr int kMargin = 20;
  const int dpi = static_cast<int>(GetDpiForWindow(Handle()));
  RECT list{};
  GetWindowRect(Item(IDC_FRIEND_TREE), &list);
  MapWindowPoints(nullptr, Handle(), reinterpret_cast<POINT*>(&list), 2);
  const Rect place = FromRECT(list);
  const int margin = MulDiv(kMargin, dpi, USER_DEFAULT_SCREEN_DPI);
  const int height = std::min(MulDiv(kHeight, dpi, USER_DEFAULT_SCREEN_DPI), place.Height() - margin / 2);
  SetWindowPos(Item(IDC_FRIEND_EMPTY), nullptr, place.left + margin,
               place.top + (place.Height() - height) / 2, place.Width() - 2 * margin, height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

HBRUSH BFriendsDlg::OnColours(HDC dc, HWND control) {
  const bool isEmpty = control != nullptr && control == Item(IDC_FRIEND_EMPTY);
  return isEmpty ? EmptyListColours(dc, Look()) : nullptr;
}

void BFriendsDlg::ShowFacts() {
  ShowWindow(Item(IDC_FRIEND_EMPTY), list_.entries.empty() ? SW_SHOWNA : SW_HIDE);
  const auto total = static_cast<std::int64_t>(CountFriends(list_));
  SetDlgItemTextW(Handle(), IDC_FRIEND_STATUS,
                  Wide(ReplaceAll(resources_.String(IDS_FRIEND_TOTAL), u"%i", IntText(total))));
  const std::size_t at = Selected();
  const FriendEntry* entry = at == kNoFriend ? nullptr : &list_.entries[at];
  const auto enable = [this](int control, bool on) {
    // A greyed control that has the focus would keep the keyboard to itself.
    if (!on && GetFocus() == Item(control)) SetFocus(Item(IDC_FRIEND_TREE));
    EnableWindow(Item(control), on ? TRUE : FALSE);
  };
  enable(IDC_FRIEND_DELETE, entry != nullptr);
  enable(IDC_FRIEND_PROPERTIES, entry != nullptr && !entry->IsSeparator());
  enable(IDC_FRIEND_SET_HOME, entry != nullptr && entry->isGroup && !entry->isHome);
  enable(IDC_FRIEND_CLEAR_HOME, HomeGroup(list_) != kNoFriend);
}

std::size_t BFriendsDlg::EntryOf(HTREEITEM item) const {
  if (item == nullptr) return kNoFriend;
  TVITEMW facts{};
  facts.mask = TVIF_PARAM;
  facts.hItem = item;
  if (!TreeView_GetItem(Item(IDC_FRIEND_TREE), &facts)) return kNoFriend;
  const auto at = static_cast<std::size_t>(facts.lParam);
  return at < list_.entries.size() ? at : kNoFriend;
}

std::size_t BFriendsDlg::Selected() const { return EntryOf(TreeView_GetSelection(Item(IDC_FRIEND_TREE))); }

std::optional<LRESULT> BFriendsDlg::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CONTEXTMENU:
      if (reinterpret_cast<HWND>(wParam) != Item(IDC_FRIEND_TREE)) return std::nullopt;
      ShowMenu({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      return 0;
    case WM_SIZE: PlaceEmpty(); return std::nullopt;
    case WM_MOUSEMOVE:
      if (dragged_ != kNoFriend) DragOver();
      return 0;
    case WM_LBUTTONUP: EndDrag(true); return 0;
    case WM_CAPTURECHANGED: EndDrag(false); return 0;
    default: return std::nullopt;
  }
}

void BFriendsDlg::OnNotify(const NMHDR& header) {
  if (header.idFrom != IDC_FRIEND_TREE || filling_) return;
  switch (header.code) {
    case TVN_SELCHANGEDW: ShowFacts(); break;
    case TVN_BEGINDRAGW: BeginDrag(reinterpret_cast<const NMTREEVIEWW&>(header)); break;
    case TVN_KEYDOWN: OnTreeKey(reinterpret_cast<const NMTVKEYDOWN&>(header).wVKey); break;
    case NM_DBLCLK:
      // On a group it opens and closes it.
      if (const std::size_t at = Selected(); at != kNoFriend && !list_.entries[at].isGroup)
        PostMessageW(Handle(), WM_COMMAND, IDC_FRIEND_PROPERTIES, 0);
      break;
    case NM_RCLICK: {
      // The entry under the mouse, which the control itself does not select.
      if (const Target target = TargetAtMouse(); target.item != nullptr)
        TreeView_SelectItem(Item(IDC_FRIEND_TREE), target.item);
      break;
    }
    default: break;
  }
}

void BFriendsDlg::OnTreeKey(WORD key) {
  if (key == VK_DELETE) return Delete();
  const std::size_t at = Selected();
  if (at == kNoFriend || GetKeyState(VK_CONTROL) >= 0) return;
  switch (key) {
    case VK_UP: return ShowTree(StepEntry(list_, at, MoveStep::kUp));
    case VK_DOWN: return ShowTree(StepEntry(list_, at, MoveStep::kDown));
    case VK_LEFT: return ShowTree(StepEntry(list_, at, MoveStep::kOut));
    case VK_RIGHT: return ShowTree(StepEntry(list_, at, MoveStep::kIn));
    default: return;
  }
}

void BFriendsDlg::ShowMenu(POINT at) {
  const std::size_t selected = Selected();
  if (selected == kNoFriend) return;
  if (at.x == -1 && at.y == -1) {
    // From the keyboard.
    RECT row{};
    TreeView_GetItemRect(Item(IDC_FRIEND_TREE), items_[selected], &row, TRUE);
    at = {row.left, row.bottom};
    ClientToScreen(Item(IDC_FRIEND_TREE), &at);
  }
  const UniqueMenu menu = resources_.Menu(IDM_FRIENDS);
  const FriendEntry& entry = list_.entries[selected];
  if (!entry.isGroup || entry.isHome)
    EnableMenuItem(menu.get(), IDC_FRIEND_SET_HOME, MF_BYCOMMAND | MF_GRAYED);
  jotlets::ShowMenu(Look(), GetSubMenu(menu.get(), 0), {at.x, at.y}, Handle());
}

void BFriendsDlg::BeginDrag(const NMTREEVIEWW& drag) {
  const std::size_t at = EntryOf(drag.itemNew.hItem);
  if (at == kNoFriend) return;
  TreeView_SelectItem(Item(IDC_FRIEND_TREE), drag.itemNew.hItem);
  dragged_ = at;
  SetCapture(Handle());
}

BFriendsDlg::Target BFriendsDlg::TargetAtMouse() const {
  const HWND tree = Item(IDC_FRIEND_TREE);
  const Point mouse = MousePosition();
  TVHITTESTINFO hit{};
  hit.pt = {mouse.x, mouse.y};
  ScreenToClient(tree, &hit.pt);
  Target target;
  target.item = TreeView_HitTest(tree, &hit);
  target.entry = EntryOf(target.item);
  RECT row{};
  if (target.entry == kNoFriend || !TreeView_GetItemRect(tree, target.item, &row, FALSE)) return target;
  target.place = DropPlaceAt(hit.pt.y - row.top, row.bottom - row.top, list_.entries[target.entry].isGroup);
  return target;
}

void BFriendsDlg::DragOver() {
  const HWND tree = Item(IDC_FRIEND_TREE);
  const Target target = TargetAtMouse();
  const bool into = target.item != nullptr && target.place == DropPlace::kInto;
  TreeView_SelectDropTarget(tree, into ? target.item : nullptr);
  SendMessageW(tree, TVM_SETINSERTMARK, target.place == DropPlace::kBehind ? TRUE : FALSE,
               reinterpret_cast<LPARAM>(into ? nullptr : target.item));
}

// Also reached when the capture is taken away, which ends the drag without a drop.
void BFriendsDlg::EndDrag(bool drop) {
  if (dragged_ == kNoFriend) return;
  const std::size_t at = std::exchange(dragged_, kNoFriend);
  const Target target = TargetAtMouse();
  ReleaseCapture();
  const HWND tree = Item(IDC_FRIEND_TREE);
  TreeView_SelectDropTarget(tree, nullptr);
  SendMessageW(tree, TVM_SETINSERTMARK, FALSE, 0);
  const Point mouse = MousePosition();
  RECT bounds{};
  GetWindowRect(tree, &bounds);
  if (!drop || !FromRECT(bounds).Contains(mouse)) return;
  ShowTree(MoveEntry(list_, at, target.entry, target.place));
}

}  // namespace jotlets

// "Edit Friends": the friend list as a tree. All changes are made to a copy, which OK puts in its place.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "friends/friend_book.h"
#include "friends/friend_editing.h"
#include "ui/dialog.h"

namespace jotlets {

/// The properties of one friend or group.
class BFriendDlg final : public Dialog {
 public:
  /// Edits `entry`, which stands at `at` of the list, or is new for `kNoFriend`.
  BFriendDlg(const Resources& resources, const FriendList& list, FriendEntry entry, std::size_t at)
      : resources_(resources), list_(list), entry_(std::move(entry)), at_(at) {}

  /// The entry after `Show` answered IDOK; the list can hold it.
  const FriendEntry& Entry() const { return entry_; }

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;

  const Resources& resources_;
  const FriendList& list_;
  FriendEntry entry_;
  std::size_t at_;
};

class BFriendsDlg final : public Dialog {
 public:
  /// `window` is the dialog's while it is open.
  BFriendsDlg(const Resources& resources, FriendBook& book, HWND& window)
      : resources_(resources), book_(book), list_(book.List()), window_(window) {}

 private:
  struct Button;
  static const Button kButtons[];

  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnNotify(const NMHDR& header) override;
  HBRUSH OnColours(HDC dc, HWND control) override;
  void OnTreeKey(WORD key);

  void NewFriend();
  void NewGroup();
  void NewSeparator();
  void Delete();
  void EditSelected();
  void SetHome();
  void ClearHome();
  void Sort();
  bool ApplyList();

  void Insert(FriendEntry entry);
  /// Shows the list anew, with this entry selected.
  void ShowTree(std::size_t selected);
  void ShowFavourites();
  void ShowFacts();
  void PlaceEmpty();
  void AssignFavourite(std::size_t slot);
  Text Shown(const FriendEntry& entry) const;

  std::size_t Selected() const;
  std::size_t EntryOf(HTREEITEM item) const;
  void ShowMenu(POINT at);
  void BeginDrag(const NMTREEVIEWW& drag);
  /// Where the mouse is over the tree: the entry, and what a drop on it means.
  struct Target {
    std::size_t entry = kNoFriend;
    DropPlace place = DropPlace::kBehind;
    HTREEITEM item = nullptr;
  };
  Target TargetAtMouse() const;
  void DragOver();
  void EndDrag(bool drop);

  const Resources& resources_;
  FriendBook& book_;
  FriendList list_;
  HWND& window_;
  std::vector<HTREEITEM> items_;  // of each entry
  std::size_t dragged_ = kNoFriend;
  bool filling_ = false;
};

}  // namespace jotlets

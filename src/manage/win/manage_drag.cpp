// Notes that the mouse drags from the list on to views and categories, or out of the manage window.
#include <utility>

#include "base/win/wide.h"
#include "manage/win/manage_dialog.h"
#include "res/resource.h"
#include "ui/window.h"

namespace jotlets {

void BManageDlg::BeginDrag() {
  if (View() == ManageView::kStacks || table_.SelectedNames().empty()) return;
  dragging_ = true;
  SetCapture(Handle());
  FollowDrag();
}

// Another program's window, or the desktop, takes notes too: they come to lie there.
std::optional<BManageDlg::DropTarget> BManageDlg::TargetUnderMouse() const {
  const POINT mouse{MousePosition().x, MousePosition().y};
  RECT window{};
  GetWindowRect(Handle(), &window);
  if (PtInRect(&window, mouse) == FALSE) return DropTarget{};
  const std::optional<ManagePlace> place = views_.PlaceAt(mouse);
  if (!place || !ActionOfDrop(View(), *place)) return std::nullopt;
  return DropTarget{place};
}

void BManageDlg::FollowDrag() {
  const std::optional<DropTarget> target = TargetUnderMouse();
  SetCursor(LoadCursorW(nullptr, target ? IDC_HAND : IDC_NO));
  views_.ShowTarget(target ? target->place : std::nullopt);
  if (!target) return ShowStatus(ListView_GetSelectedCount(Item(IDC_MANAGE_LIST)));
  const Text words = resources_.String(target->place ? IDS_MANAGE_DROP : IDS_MANAGE_DROP_OUT);
  const Text name = target->place ? views_.NameOf(*target->place) : Text();
  const Text told = ReplaceAll(
      ReplaceAll(words, u"%n", NumberText(ListView_GetSelectedCount(Item(IDC_MANAGE_LIST)))), u"%s", name);
  if (ItemText(IDC_MANAGE_STATUS) != told) SetDlgItemTextW(Handle(), IDC_MANAGE_STATUS, Wide(told));
}

void BManageDlg::EndDrag() {
  if (!std::exchange(dragging_, false)) return;
  views_.ShowTarget(std::nullopt);
  UpdateState();
}

// The window may be gone when the owner has asked its questions.
void BManageDlg::Drop() {
  const std::optional<DropTarget> target = TargetUnderMouse();
  ReleaseCapture();
  if (!target) return;
  const std::vector<Text> names = table_.SelectedNames();
  if (target->place) {
    owner_.DropManaged(View(), names, *target->place);
  } else {
    owner_.DropManagedOut(View(), names);
  }
  if (IsOpen()) Refresh();
}

// Windows that lie above and let the mouse through, as shadows do, are passed over, and so is what is
// dragged.
std::optional<Text> BManageDlg::CategoryUnderMouse(HWND dragged) const {
  if (!IsOpen() || IsIconic(Handle())) return std::nullopt;
  const POINT mouse{MousePosition().x, MousePosition().y};
  for (HWND above = GetTopWindow(nullptr); above != nullptr; above = GetWindow(above, GW_HWNDNEXT)) {
    RECT window{};
    GetWindowRect(above, &window);
    if (above == dragged || !IsWindowVisible(above) || PtInRect(&window, mouse) == FALSE) continue;
    if ((GetWindowLongPtrW(above, GWL_EXSTYLE) & WS_EX_TRANSPARENT) != 0) continue;
    if (above != Handle()) return std::nullopt;
    const ManagePlace place = views_.PlaceAt(mouse).value_or(views_.Chosen());
    return place.category.value_or(Text());
  }
  return std::nullopt;
}

}  // namespace jotlets

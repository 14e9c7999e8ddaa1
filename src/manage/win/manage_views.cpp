#include "manage/win/manage_views.h"

#include <windowsx.h>

#include <algorithm>

#include "base/win/wide.h"
#include "manage/win/category_menu.h"
#include "res/resource.h"
#include "ui/view_row.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// Pixels at 96 dots per inch.
constexpr int kRowHeight = 36;
constexpr int kInset = 12;
// In the order of the views.
constexpr Icon kIcons[kManageViews] = {Icon::kAll,    Icon::kDesktop, Icon::kAttach, Icon::kMoon,
                                       Icon::kRepeat, Icon::kStore,   Icon::kClosed, Icon::kStack};

Text CountText(const ManageViews::Row& row) {
  return row.notes ? IntText(static_cast<std::int64_t>(*row.notes)) : Text();
}

}  // namespace

int ManageViews::Scaled(int length) const {
  return MulDiv(length, static_cast<int>(GetDpiForWindow(control_)), USER_DEFAULT_SCREEN_DPI);
}

void ManageViews::SetUp(HWND control) {
  control_ = control;
  rows_.clear();
  ListBox_SetItemHeight(control_, 0, Scaled(kRowHeight));
}

// The categories stand below the view of the stored notes.
void ManageViews::Follow(const Resources& resources, ManageOwner& owner) {
  const auto counts = owner.CountManaged();
  std::vector<ManageViews::Row> rows;
  const auto add = [&](const ManagePlace& place, Text name, std::optional<std::size_t> notes,
                       const CategoryLook& look = {}) {
    rows.push_back({place, std::move(name), hits_ ? HitsIn(place) : notes, look});
  };
  for (std::size_t i = 0; i < kManageViews; ++i) {
    const auto view = static_cast<ManageView>(i);
    add({view, {}}, resources.String(IDS_MANAGE_VIEW + static_cast<UINT>(i)), counts[i]);
    if (view != ManageView::kStored) continue;
    for (const ManageCategory& category : owner.Categories())
      add({view, category.name},
          category.name.empty() ? resources.String(IDS_NO_CATEGORY) : OneLine(category.name), category.notes,
          category.look);
  }
  ShowRows(std::move(rows));
}

// Stacks are no notes: nobody has looked for them.
std::optional<std::size_t> ManageViews::HitsIn(const ManagePlace& place) const {
  if (place.category) {
    const auto found = hits_->categories.find(*place.category);
    return found == hits_->categories.end() ? 0 : found->second;
  }
  std::optional<std::size_t> sum;
  for (std::size_t i = 0; i < kSearchPlaces; ++i)
    if (((SearchedPlaces(place.view) >> i) & 1) != 0) sum = sum.value_or(0) + hits_->places[i];
  return sum;
}

Text ManageViews::Elsewhere() const {
  Text text;
  for (const Row& row : rows_) {
    if (!hits_ || row.place.category || row.place.view == ManageView::kAll || row.notes.value_or(0) == 0)
      continue;
    if (chosen_.view == ManageView::kAll || row.place == chosen_) continue;
    text += (text.empty() ? u"" : u", ") + row.name + u" " + IntText(static_cast<std::int64_t>(*row.notes));
  }
  return text;
}

void ManageViews::ShowRows(std::vector<Row> rows) {
  if (rows == rows_) return;
  rows_ = std::move(rows);
  const int top = ListBox_GetTopIndex(control_);
  SetWindowRedraw(control_, FALSE);
  ListBox_ResetContent(control_);
  // Who reads the row aloud hears the number, too.
  for (const Row& row : rows_)
    ListBox_AddString(control_, Wide(row.name + (row.notes ? u" (" + CountText(row) + u")" : u"")));
  Select();
  ListBox_SetTopIndex(control_, top);
  SetWindowRedraw(control_, TRUE);
  InvalidateRect(control_, nullptr, TRUE);
}

void ManageViews::Choose(const ManagePlace& place) {
  chosen_ = place;
  Select();
}

void ManageViews::Select() {
  auto at = std::ranges::find(rows_, chosen_, &Row::place);
  if (at == rows_.end() && !rows_.empty()) {
    chosen_.category.reset();
    at = std::ranges::find(rows_, chosen_, &Row::place);
  }
  if (at != rows_.end()) ListBox_SetCurSel(control_, static_cast<int>(at - rows_.begin()));
}

void ManageViews::FollowControl() {
  const int at = ListBox_GetCurSel(control_);
  if (at >= 0 && static_cast<std::size_t>(at) < rows_.size())
    chosen_ = rows_[static_cast<std::size_t>(at)].place;
}

bool ManageViews::ChooseAt(POINT& at) {
  if (at.x == -1 && at.y == -1) {  // by the keyboard
    RECT row{};
    ListBox_GetItemRect(control_, ListBox_GetCurSel(control_), &row);
    at = {row.left + Scaled(kInset), row.bottom};
    ClientToScreen(control_, &at);
    return true;
  }
  const std::optional<ManagePlace> place = PlaceAt(at);
  if (!place) return false;
  Choose(*place);
  return true;
}

std::optional<ManagePlace> ManageViews::PlaceAt(POINT at) const {
  ScreenToClient(control_, &at);
  RECT inside{};
  GetClientRect(control_, &inside);
  const auto found = static_cast<DWORD>(SendMessageW(control_, LB_ITEMFROMPOINT, 0, MAKELPARAM(at.x, at.y)));
  if (PtInRect(&inside, at) == FALSE || HIWORD(found) != 0 || LOWORD(found) >= rows_.size())
    return std::nullopt;
  return rows_[LOWORD(found)].place;
}

void ManageViews::ShowTarget(std::optional<ManagePlace> target) {
  if (target == std::exchange(target_, target)) return;
  InvalidateRect(control_, nullptr, FALSE);
}

Text ManageViews::NameOf(const ManagePlace& place) const {
  const auto row = std::ranges::find(rows_, place, &Row::place);
  return row == rows_.end() ? Text() : row->name;
}

CategoryLook ManageViews::ChosenLook() const {
  const auto row = std::ranges::find(rows_, chosen_, &Row::place);
  return row == rows_.end() ? CategoryLook() : row->look;
}

void ManageViews::Step(int step) {
  const int count = static_cast<int>(rows_.size());
  if (count == 0) return;
  ListBox_SetCurSel(control_, (ListBox_GetCurSel(control_) + step + count) % count);
  FollowControl();
}

void ManageViews::Draw(const DRAWITEMSTRUCT& item, const Theme& theme) const {
  if (item.itemID >= rows_.size()) return;
  const Row& row = rows_[item.itemID];
  const Icon icon = row.place.category ? SignOf(row.look) : kIcons[static_cast<std::size_t>(row.place.view)];
  DRAWITEMSTRUCT shown = item;
  if (row.place == target_) shown.itemState = ODS_SELECTED | ODS_FOCUS;
  // High contrast goes before all colours.
  const std::optional<Colour> mark = theme.Now().contrast ? std::nullopt : row.look.colour;
  RECT area = DrawViewRow(shown, icon, theme.Colours(), row.place.category ? kInset : 0, mark);
  const Text count = CountText(row);
  DrawTextW(item.hDC, Wide(count), -1, &area, DT_SINGLELINE | DT_VCENTER | DT_RIGHT | DT_NOPREFIX);
  SIZE size{};
  GetTextExtentPoint32W(item.hDC, Wide(count), static_cast<int>(count.size()), &size);
  area.right -= size.cx + Scaled(kInset) / 2;
  DrawTextW(item.hDC, Wide(row.name), -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

}  // namespace jotlets

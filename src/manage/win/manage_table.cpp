#include "manage/win/manage_table.h"

#include <algorithm>

#include "base/win/wide.h"
#include "looks/ink.h"
#include "res/resource.h"
#include "ui/areas.h"
#include "ui/dialog_look.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// Pixels at 96 dots per inch.
constexpr int kRowHeight = 44;
constexpr int kInset = 8;
constexpr int kBarWidth = 5;
constexpr int kBarHeight = 28;

}  // namespace

void ManageTable::SetUp(HWND control, const Resources& resources, std::span<const std::int32_t> widths) {
  control_ = control;
  for (std::size_t i = 0; i < typeNames_.size(); ++i)
    typeNames_[i] = resources.String(IDS_MANAGE_TYPE + static_cast<UINT>(i));
  SetUpRows(control_, resources.Look());
  // The rows are as high as the pictures that they could have.
  ListView_SetImageList(control_, ImageList_Create(1, Scaled(kRowHeight), ILC_COLOR32, 1, 0), LVSIL_SMALL);
  titleFont_ = BolderFont(control_);
  AddColumns(resources, widths);
}

int ManageTable::Scaled(int length) const { return MulDiv(length, Dpi(), USER_DEFAULT_SCREEN_DPI); }

int ManageTable::Dpi() const { return static_cast<int>(GetDpiForWindow(control_)); }

void ManageTable::AddColumns(const Resources& resources, std::span<const std::int32_t> widths) {
  constexpr std::int32_t kMinWidth = 20;
  constexpr std::int32_t kMaxWidth = 4000;
  for (std::size_t i = 0; i < kManageColumns; ++i) {
    Text title = resources.String(IDS_MANAGE_COLUMN + static_cast<UINT>(i));
    if (i < widths.size()) wanted_[i] = std::clamp(widths[i], kMinWidth, kMaxWidth);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = WideBuffer(title);
    column.cx = shown_[i] = Scaled(wanted_[i]);
    ListView_InsertColumn(control_, static_cast<int>(i), &column);
  }
}

void ManageTable::StoreWidths(std::span<std::int32_t> widths) {
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const int now = ListView_GetColumnWidth(control_, static_cast<int>(i));
    if (now != shown_[i]) wanted_[i] = MulDiv(now, USER_DEFAULT_SCREEN_DPI, Dpi());
    widths[i] = wanted_[i];
  }
}

void ManageTable::NameLastColumn(Text name) {
  LVCOLUMNW column{};
  column.mask = LVCF_TEXT;
  column.pszText = WideBuffer(name);
  ListView_SetColumn(control_, static_cast<int>(kManageColumns) - 1, &column);
}

void ManageTable::FitColumns() {
  RECT client{};
  GetClientRect(control_, &client);
  const ColumnWidths fitted = FittedColumns(wanted_, MulDiv(client.right, USER_DEFAULT_SCREEN_DPI, Dpi()));
  int left = client.right;
  for (std::size_t i = 0; i < kManageColumns; ++i) {
    const int column = static_cast<int>(i);
    // Rounded, all of them together could be wider than the list.
    const bool last = i + 1 == kManageColumns;
    shown_[i] = last && left > 0 ? std::min(left, Scaled(fitted[i])) : Scaled(fitted[i]);
    left -= shown_[i];
    if (ListView_GetColumnWidth(control_, column) != shown_[i])
      ListView_SetColumnWidth(control_, column, shown_[i]);
  }
}

void ManageTable::ShowSorting(std::int32_t sorted) {
  const HWND header = ListView_GetHeader(control_);
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

Text ManageTable::NameAt(int place) const {
  const auto index = static_cast<std::size_t>(place);
  return place >= 0 && index < list_.Size() ? list_.NameAt(index) : Text();
}

std::vector<Text> ManageTable::SelectedNames() const {
  std::vector<Text> names;
  names.reserve(ListView_GetSelectedCount(control_));
  for (int place = -1; (place = ListView_GetNextItem(control_, place, LVNI_SELECTED)) >= 0;)
    names.push_back(NameAt(place));
  return names;
}

ManageTable::Selection ManageTable::Selected() const {
  Selection selection;
  const std::size_t count = ListView_GetSelectedCount(control_);
  selection.rows = list_.Size();
  selection.all = count > 1 && count == selection.rows;
  if (!selection.all || !list_.IsByPlace()) selection.names = SelectedNames();
  selection.focusedPlace = ListView_GetNextItem(control_, -1, LVNI_FOCUSED);
  selection.focused = NameAt(selection.focusedPlace);
  return selection;
}

// One by one: the control takes its time for all rows.
void ManageTable::Deselect() {
  for (int place = -1; (place = ListView_GetNextItem(control_, -1, LVNI_SELECTED)) >= 0;) {
    constexpr UINT kFew = 100;
    const bool few = ListView_GetSelectedCount(control_) <= kFew;
    ListView_SetItemState(control_, few ? place : -1, 0, LVIS_SELECTED);
  }
  const int focused = ListView_GetNextItem(control_, -1, LVNI_FOCUSED);
  if (focused >= 0) ListView_SetItemState(control_, focused, 0, LVIS_FOCUSED);
}

void ManageTable::ShowRows(const Selection& selection) {
  changing_ = true;
  Deselect();
  ListView_SetItemCountEx(control_, static_cast<int>(list_.Size()), LVSICF_NOSCROLL);
  Restore(selection);
  changing_ = false;
  FitColumns();
}

void ManageTable::Restore(const Selection& selection) {
  if (list_.Size() == 0 || selection.focusedPlace < 0) return;
  const std::vector<std::size_t> places = list_.PlacesOf(selection.names);
  const std::size_t left = selection.names.empty() ? selection.rows : places.size();
  if (selection.all && left == list_.Size()) {
    ListView_SetItemState(control_, -1, LVIS_SELECTED, LVIS_SELECTED);
  } else {
    for (const std::size_t place : places)
      ListView_SetItemState(control_, static_cast<int>(place), LVIS_SELECTED, LVIS_SELECTED);
  }
  const std::vector<std::size_t> focused = list_.PlacesOf({selection.focused});
  const int last = static_cast<int>(list_.Size()) - 1;
  const int focus = focused.empty() ? std::min(selection.focusedPlace, last) : static_cast<int>(focused[0]);
  const bool inherits = selection.inherited && places.empty() && !selection.names.empty();
  const UINT state = LVIS_FOCUSED | (inherits ? LVIS_SELECTED : 0U);
  ListView_SetItemState(control_, focus, state, state);
}

void ManageTable::Select(int place, bool focus) {
  constexpr UINT kState = LVIS_SELECTED | LVIS_FOCUSED;
  ListView_SetItemState(control_, place, kState, kState);
  ListView_EnsureVisible(control_, place, FALSE);
  if (focus) SetFocus(control_);
}

void ManageTable::FocusSomeRow() {
  if (list_.Size() > 0 && ListView_GetNextItem(control_, -1, LVNI_FOCUSED) < 0)
    ListView_SetItemState(control_, 0, LVIS_FOCUSED, LVIS_FOCUSED);
}

void ManageTable::SelectAll() { ListView_SetItemState(control_, -1, LVIS_SELECTED, LVIS_SELECTED); }

void ManageTable::FetchRows() {
  if (!list_.IsByPlace()) return;
  const auto top = static_cast<std::size_t>(std::max(ListView_GetTopIndex(control_), 0));
  const auto count = static_cast<std::size_t>(ListView_GetCountPerPage(control_)) + 1;
  std::vector<std::int64_t> keys = list_.ByPlace().Want(top, top + count);
  if (!keys.empty()) owner_.FetchStored(std::move(keys));
}

bool ManageTable::Enter(const MSG& message) {
  const WPARAM key = message.wParam;
  if (key != VK_DOWN && key != VK_UP && key != VK_NEXT && key != VK_PRIOR) return false;
  SetFocus(control_);
  // A row that has the keyboard without being selected is where one goes in.
  if (ListView_GetSelectedCount(control_) > 0) {
    SendMessageW(control_, message.message, key, message.lParam);
  } else if (list_.Size() > 0) {
    Select(std::max(ListView_GetNextItem(control_, -1, LVNI_FOCUSED), 0), false);
  }
  return true;
}

POINT ManageTable::PlaceForMenu() const {
  RECT row{8, 8, 8, 8};
  const int focused = ListView_GetNextItem(control_, -1, LVNI_FOCUSED);
  if (focused >= 0) ListView_GetItemRect(control_, focused, &row, LVIR_LABEL);
  POINT at{row.left + 8, row.bottom};
  ClientToScreen(control_, &at);
  return at;
}

void ManageTable::Answer(NMLVDISPINFOW& info) const {
  LVITEMW& item = info.item;
  const auto place = static_cast<std::size_t>(item.iItem);
  if ((item.mask & LVIF_TEXT) == 0 || item.cchTextMax <= 0) return;
  const Text text = item.iItem >= 0 && place < list_.Size()
                        ? CellText(list_.At(place), static_cast<ManageColumn>(item.iSubItem))
                        : Text();
  lstrcpynW(item.pszText, Wide(text), item.cchTextMax);
}

LRESULT ManageTable::Draw(const NMLVCUSTOMDRAW& draw, const Theme& theme) const {
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
  DrawRow(draw.nmcd.hdc, static_cast<int>(draw.nmcd.dwItemSpec), theme);
  return CDRF_SKIPDEFAULT;
}

void ManageTable::DrawRow(HDC dc, int place, const Theme& theme) const {
  RECT area{};
  if (!ListView_GetItemRect(control_, place, &area, LVIR_BOUNDS)) return;
  const bool selected = ListView_GetItemState(control_, place, LVIS_SELECTED) != 0;
  const MarkedColours colours = RowColours(theme, selected);
  FillArea(dc, area, colours.paper);
  if (place < 0 || static_cast<std::size_t>(place) >= list_.Size()) return;
  const ManageRow& row = list_.At(static_cast<std::size_t>(place));
  if (row.id.empty()) return;  // it is on its way
  RECT cell = area;
  for (std::size_t i = 0; i < kManageColumns; ++i) {
    cell.right = cell.left + ListView_GetColumnWidth(control_, static_cast<int>(i));
    RECT words{cell.left + Scaled(kInset), cell.top, cell.right - Scaled(kInset) / 2, cell.bottom};
    if (i == 0) {
      DrawNote(dc, row, words, colours, selected ? colours.ink : theme.Colours().quiet);
    } else {
      SetBkMode(dc, TRANSPARENT);
      SetTextColor(dc, ToCOLORREF(colours.ink));
      DrawTextW(dc, Wide(CellText(row, static_cast<ManageColumn>(i))), -1, &words,
                DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
    cell.left = cell.right;
  }
  if (GetFocus() == control_ && ListView_GetItemState(control_, place, LVIS_FOCUSED) != 0)
    DrawFocusRect(dc, &area);
}

void ManageTable::DrawNote(HDC dc, const ManageRow& row, RECT cell, MarkedColours colours,
                           Colour quiet) const {
  const int middle = (cell.top + cell.bottom) / 2;
  if (row.type != ManageRow::Type::kStack) {
    constexpr std::int32_t kLine = 25;  // percent
    const UniqueBrush fill(CreateSolidBrush(ToCOLORREF(row.colour)));
    const UniqueBrush line(CreateSolidBrush(ToCOLORREF(Shaded(row.colour, kLine))));
    const int half = Scaled(kBarHeight) / 2;
    const RECT bar{cell.left, middle - half, cell.left + Scaled(kBarWidth), middle + half};
    FillRect(dc, &bar, fill.get());
    FrameRect(dc, &bar, line.get());
    cell.left = bar.right;
  }
  cell.left += Scaled(kInset);
  const auto plain = static_cast<HFONT>(GetCurrentObject(dc, OBJ_FONT));
  const int height = LineHeight(titleFont_.get());
  const RECT upper{cell.left, row.snippet.empty() ? middle - height / 2 : middle - height, cell.right,
                   cell.bottom};
  DrawMarked(dc, titleFont_.get(), upper, row.title, search_.InTitle(row.title), colours);
  if (row.snippet.empty()) return;
  colours.ink = quiet;
  const RECT lower{cell.left, middle + Scaled(1), cell.right, cell.bottom};
  const MarkedText snippet = search_.Snippet(row.snippet, row.snippet.size());
  DrawMarked(dc, plain, lower, snippet.text, snippet.hits, colours);
}

Text ManageTable::CellText(const ManageRow& row, ManageColumn column) const {
  if (row.id.empty()) return {};
  const auto time = [this](std::int32_t utc) { return utc > 0 ? owner_.ManagedTime(utc) : Text(); };
  switch (column) {
    case ManageColumn::kTitle: return row.title;
    case ManageColumn::kType: return typeNames_[static_cast<std::size_t>(row.type)];
    case ManageColumn::kCreated: return time(row.created);
    case ManageColumn::kModified: return time(row.modified);
    case ManageColumn::kNextWake:
      return row.category + (row.category.empty() || row.nextWake == 0 ? u"" : u", ") + time(row.nextWake);
  }
  return {};
}

}  // namespace jotlets

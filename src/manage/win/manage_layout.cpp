// Where the parts of the manage window stand.
#include <algorithm>

#include "manage/win/manage_buttons.h"
#include "manage/win/manage_dialog.h"
#include "res/resource.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr int kMargin = 8;  // pixels at 96 dots per inch, as all lengths below
constexpr int kRow = 24;
constexpr int kStatusWidth = 90;  // at least
constexpr int kSearchLabelWidth = 56;
constexpr int kViewsWidth = 168;
constexpr int kEmptyHeight = 64;
constexpr int kEverywhereWidth = 150;
constexpr int kPreviewWidth = 240;
// Narrower windows have no room for the preview.
constexpr int kWidthWithPreview = 900;

}  // namespace

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
  const int list = margin + row + margin;
  const int views = scaled(kViewsWidth);
  const int bottom = client.bottom - margin - row;
  const auto place = [this](int control, int left, int top, int across, int down) {
    SetWindowPos(Item(control), nullptr, left, top, std::max(across, 0), std::max(down, 0),
                 SWP_NOZORDER | SWP_NOACTIVATE);
  };
  place(IDC_MANAGE_SEARCH_LABEL, margin, margin + scaled(4), label, row - scaled(4));
  const int field = FieldHeight(FontOf(Item(IDC_MANAGE_SEARCH)));
  place(IDC_MANAGE_SEARCH, margin + label, margin + (row - field) / 2, width - label, field);
  place(IDC_MANAGE_VIEWS, 0, list, margin + views, bottom - margin - list);
  const int preview = client.right >= scaled(kWidthWithPreview) ? scaled(kPreviewWidth) : 0;
  const int right = client.right - margin - (preview > 0 ? preview + margin : 0);
  const int from = margin + views;
  place(IDC_MANAGE_LIST, from, list, right - from, bottom - margin - list);
  const int words = scaled(kEmptyHeight);
  place(IDC_MANAGE_EMPTY, from + margin, list + (bottom - list - words) / 2, right - from - 2 * margin,
        words);
  const int everywhere = scaled(kEverywhereWidth);
  place(IDC_MANAGE_EVERYWHERE, (from + right - everywhere) / 2, list + (bottom - list + words) / 2,
        everywhere, row);
  preview_.Place(preview > 0 ? RectAt({right + margin, list}, {preview, bottom - margin - list}) : Rect());
  int left = margin;
  for (const ManageButton& button :
       ButtonsInRow(Handle(), resources_, View(), width - scaled(kStatusWidth))) {
    // Another view has others there, whose pictures are none of theirs.
    SetWindowPos(Item(button.control), nullptr, left, bottom, button.width, row,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
    left += button.width + scaled(kManageButtonGap);
  }
  place(IDC_MANAGE_STATUS, left, bottom + scaled(4), client.right - margin - left, row - scaled(4));
  // Its words stand at the right: what is kept of the picture as it grows would stand there twice.
  InvalidateRect(Item(IDC_MANAGE_STATUS), nullptr, TRUE);
  table_.FitColumns();
}

}  // namespace jotlets

// The table of the manage window: the rows of a ManageList in a list view, with what is selected of them. It
// knows nothing of views, buttons or commands.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "manage/manage_list.h"
#include "manage/win/manage_owner.h"
#include "manage/win/marked_text.h"
#include "store/search_hits.h"
#include "store/search_query.h"
#include "ui/resources.h"

namespace jotlets {

class ManageTable {
 public:
  struct Selection {
    std::vector<Text> names;  // of rows by their places none, when all are selected
    Text focused;
    int focusedPlace = -1;
    std::size_t rows = 0;  // that there were
    bool all = false;
    bool inherited = true;  // when all of it has gone, by what took its place
  };

  ManageTable(ManageList& list, ManageOwner& owner) : list_(list), owner_(owner) {}

  /// Makes the columns of an empty list view. Widths are pixels at 96 dots per inch; the last column takes
  /// the rest, and where there is little room the others give way.
  void SetUp(HWND control, const Resources& resources, std::span<const std::int32_t> widths);
  /// Those that the user chose, whether they fit or not.
  void StoreWidths(std::span<std::int32_t> widths);
  /// After a change of size, or of a width by the user.
  void FitColumns();
  /// What the last column shows.
  void NameLastColumn(Text name);
  /// Marks the column by which the list is sorted: its number, or -1 less it when sorted backwards.
  void ShowSorting(std::int32_t sorted);

  Selection Selected() const;
  std::vector<Text> SelectedNames() const;
  /// Shows the rows that the list has now, and selects what was selected before.
  void ShowRows(const Selection& selection);
  void Select(int place, bool focus);
  /// Lets the keyboard be seen in a list whose rows never had it.
  void FocusSomeRow();
  void SelectAll();
  /// Of a list by places, has those rows fetched that are seen, and a few around them.
  void FetchRows();
  /// The selection is being put back, which is no change of it.
  bool IsChanging() const { return changing_; }

  /// A key that goes through a list leads into this one; false for any other key.
  bool Enter(const MSG& message);
  /// Where a menu opens that was asked for by the keyboard, on the screen.
  POINT PlaceForMenu() const;
  /// Answers what the control asks about a cell.
  void Answer(NMLVDISPINFOW& info) const;
  /// Draws a row: title and text in two lines beside the colour of the paper, what is searched marked in
  /// both.
  LRESULT Draw(const NMLVCUSTOMDRAW& draw, const Theme& theme) const;
  /// What is searched, as it was typed.
  void ShowSearch(TextView typed) { search_ = SearchHits(ParseSearchQuery(typed)); }

 private:
  int Dpi() const;
  void AddColumns(const Resources& resources, std::span<const std::int32_t> widths);
  Text NameAt(int place) const;
  void Deselect();
  void Restore(const Selection& selection);
  int Scaled(int length) const;
  void DrawRow(HDC dc, int place, const Theme& theme) const;
  void DrawNote(HDC dc, const ManageRow& row, RECT cell, MarkedColours colours, Colour quiet) const;
  Text CellText(const ManageRow& row, ManageColumn column) const;

  ManageList& list_;
  ManageOwner& owner_;
  HWND control_ = nullptr;
  ColumnWidths wanted_{};  // at 96 dots per inch
  ColumnWidths shown_{};   // on the screen
  std::array<Text, 3> typeNames_;
  UniqueFont titleFont_;
  SearchHits search_{SearchQuery{}};
  bool changing_ = false;
};

}  // namespace jotlets

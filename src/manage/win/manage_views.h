// The views of the manage window and the categories of the store, in a list at its side.
#pragma once

#include <windows.h>

#include <optional>
#include <utility>
#include <vector>

#include "looks/window_colours.h"
#include "manage/win/manage_owner.h"
#include "ui/resources.h"

namespace jotlets {

class ManageViews {
 public:
  struct Row {
    ManagePlace place;
    Text name;
    std::optional<std::size_t> notes;
    CategoryLook look = {};
    friend bool operator==(const Row&, const Row&) = default;
  };

  void SetUp(HWND control);
  /// Shows the views and categories as they are now. What was chosen stays so; when it has gone, its view is
  /// chosen.
  void Follow(const Resources& resources, ManageOwner& owner);
  /// What a search has found, in the place of how many notes there are; nothing ends that.
  void ShowHits(std::optional<SearchSurvey> hits) { hits_ = std::move(hits); }
  /// "Stored 3, Closed 1": where notes were found, but for what is chosen; empty when nowhere.
  Text Elsewhere() const;

  /// What is chosen; the first view before there are rows.
  const ManagePlace& Chosen() const { return chosen_; }
  void Choose(const ManagePlace& place);
  /// The user has chosen another row.
  void FollowControl();
  /// Chooses the row at a place of the screen; false where there is none. For a menu that was opened by a
  /// key, `at` becomes the place of the chosen row.
  bool ChooseAt(POINT& at);
  /// The row at a place of the screen.
  std::optional<ManagePlace> PlaceAt(POINT at) const;
  /// Shows that what is dragged can be let go here; nothing ends that.
  void ShowTarget(std::optional<ManagePlace> target);
  Text NameOf(const ManagePlace& place) const;
  /// How the category that is chosen is marked.
  CategoryLook ChosenLook() const;
  void Step(int step);
  void Draw(const DRAWITEMSTRUCT& item, const Theme& theme) const;

 private:
  int Scaled(int length) const;
  void ShowRows(std::vector<Row> rows);
  void Select();

  HWND control_ = nullptr;
  std::optional<std::size_t> HitsIn(const ManagePlace& place) const;

  std::vector<Row> rows_;
  std::optional<SearchSurvey> hits_;
  ManagePlace chosen_;
  std::optional<ManagePlace> target_;
};

}  // namespace jotlets

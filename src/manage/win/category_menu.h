// The menu of a category in the manage window: its name, its colour, its sign.
#pragma once

#include <windows.h>

#include <optional>

#include "looks/icon.h"
#include "store/category_looks.h"
#include "ui/resources.h"

namespace jotlets {

/// The sign of a category; that of all without one for a number that nothing stands for.
Icon SignOf(const CategoryLook& look);

struct CategoryChoice {
  bool rename = false;
  std::optional<CategoryLook> look;
};

/// Shows the menu at a point of the screen and waits; `now` is how the category is marked.
CategoryChoice ChooseForCategory(const Resources& resources, HWND owner, Point at, const CategoryLook& now);

}  // namespace jotlets

// How categories are marked in lists: a colour and a sign each, kept in the store's file beside its notes. A
// store without them is whole.
#pragma once

#include <map>
#include <optional>

#include "base/geometry.h"
#include "base/text.h"
#include "store/database.h"

namespace jotlets {

struct CategoryLook {
  std::optional<Colour> colour;
  std::int32_t sign = 0;  // 0 to 999; what it stands for is a matter of who draws it

  friend bool operator==(const CategoryLook&, const CategoryLook&) = default;
};

/// Those of the categories that have one; what cannot be read counts as none.
std::map<Text, CategoryLook> ReadCategoryLooks(Database& database);

/// Marks a category; without a colour and with the sign 0, not any more. False when that could not be
/// written.
bool WriteCategoryLook(Database& database, TextView category, const CategoryLook& look);

/// A category gets another name; one of that name that is marked already stays as it is.
void MoveCategoryLook(Database& database, TextView from, TextView to);

}  // namespace jotlets

#include "store/category_looks.h"

#include "data/options.h"

namespace jotlets {
namespace {

// A table without numbers of its rows: changes of those are what the search goes by.
constexpr const char* kTable =
    "CREATE TABLE IF NOT EXISTS categories (name TEXT PRIMARY KEY, colour INTEGER NOT NULL,"
    " sign INTEGER NOT NULL) WITHOUT ROWID";

constexpr std::int64_t kNoColour = -1;
constexpr std::int64_t kWhite = 0xFFFFFF;
constexpr std::int64_t kMaxSigns = 1000;
// More than anybody marks: a store may come from anywhere.
constexpr std::size_t kMaxLooks = 10'000;

std::int64_t NumberOf(const std::optional<Colour>& colour) {
  return colour ? ColourNumber(colour->r, colour->g, colour->b) : kNoColour;
}

CategoryLook LookOf(std::int64_t colour, std::int64_t sign) {
  CategoryLook look;
  if (colour >= 0 && colour <= kWhite) look.colour = ColourOfNumber(static_cast<std::int32_t>(colour));
  if (sign >= 0 && sign < kMaxSigns) look.sign = static_cast<std::int32_t>(sign);
  return look;
}

}  // namespace

std::map<Text, CategoryLook> ReadCategoryLooks(Database& database) {
  std::map<Text, CategoryLook> looks;
  Statement select = database.Prepare("SELECT name, colour, sign FROM categories");
  while (looks.size() < kMaxLooks && select.Step() == DatabaseResult::kRow)
    looks.emplace(select.TextAt(0), LookOf(select.NumberAt(1), select.NumberAt(2)));
  return looks;
}

bool WriteCategoryLook(Database& database, TextView category, const CategoryLook& look) {
  if (database.Run(kTable) != DatabaseResult::kDone) return false;
  if (look == CategoryLook()) {
    Statement remove = database.Prepare("DELETE FROM categories WHERE name = ?");
    return remove.Bind(category).Run();
  }
  Statement put = database.Prepare("INSERT OR REPLACE INTO categories (name, colour, sign) VALUES (?, ?, ?)");
  return put.Bind(category).Bind(NumberOf(look.colour)).Bind(std::int64_t{look.sign}).Run();
}

void MoveCategoryLook(Database& database, TextView from, TextView to) {
  Statement move = database.Prepare("UPDATE OR IGNORE categories SET name = ? WHERE name = ?");
  move.Bind(to).Bind(from);
  move.Run();
  Statement remove = database.Prepare("DELETE FROM categories WHERE name = ?");
  remove.Bind(from);
  remove.Run();
}

}  // namespace jotlets

#include "app/win/commands/store_moves.h"

#include <unordered_map>
#include <utility>

#include "manage/win/category_dialog.h"

namespace jotlets {
namespace {

// Written as one change each: few enough that windows stay alive.
constexpr std::size_t kInOneChange = 200;

}  // namespace

std::optional<Text> StoreMoves::AskCategory(HWND owner) {
  const std::vector<StoredNote> last = store_.Newest({}, 1);
  const std::vector<Text> categories = store_.CategoryNames();
  return BCategoryDlg(resources_, categories, last.empty() ? Text() : last.front().category).Ask(owner);
}

std::size_t StoreMoves::Store(ManageView view, const std::vector<Text>& ids, const Text& category) {
  if (view == ManageView::kStored) {
    UndoStep step{UndoKind::kRecategorized};
    const std::size_t left = jobs_.ForEach(ids, kInOneChange, [&](const std::vector<Text>& part) {
      return Recategorize(
          part, [&category](const Text&) { return category; }, step);
    });
    steps_.AddRecategorized(std::move(step.ids), std::move(step.categories));
    return left;
  }
  std::vector<Text> stored;
  const std::size_t left = jobs_.ForEach(ids, 1, [&](const std::vector<Text>& part) {
    if (!desk_.Store(part.front(), category)) return std::size_t{1};
    stored.push_back(part.front());
    return std::size_t{0};
  });
  steps_.Add(UndoKind::kStored, std::move(stored));
  return left;
}

std::size_t StoreMoves::Fetch(const std::vector<Text>& ids) {
  return jobs_.ForEach(ids, 1, [this](const std::vector<Text>& part) {
    const std::optional<std::int64_t> key = store_.KeyOf(part.front());
    return static_cast<std::size_t>(!key || desk_.Fetch(*key).empty());
  });
}

std::size_t StoreMoves::Delete(const std::vector<Text>& ids) {
  return jobs_.ForEach(ids, kInOneChange,
                       [this](const std::vector<Text>& part) { return desk_.DeleteStored(part); });
}

// All of them in one change.
std::size_t StoreMoves::Recategorize(const std::vector<Text>& ids,
                                     const std::function<Text(const Text& id)>& categoryOf, UndoStep& step) {
  std::size_t stay = 0;  // where they are to be
  UndoStep moved;
  store_.EndChange();
  store_.BeginChange();
  for (const Text& id : ids) {
    const std::optional<std::int64_t> key = store_.KeyOf(id);
    const std::optional<StoredNote> note = key ? store_.Find(*key) : std::nullopt;
    if (!note) continue;
    const Text category = categoryOf(id);
    if (note->category == category) {
      ++stay;
      continue;
    }
    // A failure can have undone the whole change, which nothing may be added to then.
    if (!store_.SetCategory(*key, category)) break;
    moved.ids.push_back(id);
    moved.categories.push_back(note->category);
  }
  if (!store_.EndChange()) return ids.size() - stay;
  step.ids.insert(step.ids.end(), moved.ids.begin(), moved.ids.end());
  step.categories.insert(step.categories.end(), moved.categories.begin(), moved.categories.end());
  return ids.size() - stay - moved.ids.size();
}

std::size_t StoreMoves::UndoRecategorized(const UndoStep& step) {
  std::unordered_map<Text, Text> before;
  for (std::size_t i = 0; i < step.ids.size(); ++i) before[step.ids[i]] = step.categories[i];
  UndoStep undone;
  return jobs_.ForEach(step.ids, kInOneChange, [&](const std::vector<Text>& part) {
    return Recategorize(
        part, [&before](const Text& id) { return before.at(id); }, undone);
  });
}

}  // namespace jotlets

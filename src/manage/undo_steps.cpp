#include "manage/undo_steps.h"

#include <algorithm>
#include <utility>

namespace jotlets {
namespace {

constexpr std::size_t kMaximumUndone = 100;

}  // namespace

int UndoSteps::Add(UndoKind kind, std::vector<Text> ids, std::vector<Point> places) {
  if (ids.empty()) return 0;
  steps_.push_back({kind, std::move(ids), ++last_, std::move(places)});
  if (steps_.size() > kMaximumUndone) steps_.erase(steps_.begin());
  return last_;
}

std::optional<UndoStep> UndoSteps::RemoveLast() {
  return steps_.empty() ? std::nullopt : Remove(steps_.back().number);
}

std::optional<UndoStep> UndoSteps::Remove(int number) {
  const auto at = std::ranges::find(steps_, number, &UndoStep::number);
  if (at == steps_.end()) return std::nullopt;
  UndoStep step = std::move(*at);
  steps_.erase(at);
  return step;
}

}  // namespace jotlets

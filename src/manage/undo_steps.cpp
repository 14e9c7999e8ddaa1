#include "manage/undo_steps.h"

#include <algorithm>
#include <utility>

namespace jotlets {
namespace {

constexpr std::size_t kMaximumUndone = 100;

}  // namespace

int UndoSteps::Add(UndoKind kind, std::vector<Text> ids, std::vector<Point> places) {
  return ids.empty() ? 0 : AddStep({kind, std::move(ids), 0, std::move(places), {}, {}});
}

int UndoSteps::AddRecategorized(std::vector<Text> ids, std::vector<Text> categories) {
  return ids.empty() ? 0
                     : AddStep({UndoKind::kRecategorized, std::move(ids), 0, {}, {}, std::move(categories)});
}

int UndoSteps::AddImport(std::vector<std::int64_t> keys) {
  return keys.empty() ? 0 : AddStep({UndoKind::kImported, {}, 0, {}, std::move(keys), {}});
}

int UndoSteps::AddStep(UndoStep step) {
  step.number = ++last_;
  steps_.push_back(std::move(step));
  if (steps_.size() > kMaximumUndone) steps_.erase(steps_.begin());
  return last_;
}

std::optional<UndoKind> UndoSteps::LastKind() const {
  return steps_.empty() ? std::nullopt : std::optional(steps_.back().kind);
}

void UndoSteps::Forget(UndoKind kind) {
  std::erase_if(steps_, [kind](const UndoStep& step) { return step.kind == kind; });
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

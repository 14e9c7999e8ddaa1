// What was done with notes that can be undone: one list for all who offer it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "base/geometry.h"
#include "base/text.h"

namespace jotlets {

/// What became of notes of the desktop, or which waiting ones were closed.
enum class UndoKind : std::uint8_t {
  kClosed,
  kDeleted,
  kHidden,
  kAsleep,
  kStored,
  kClosedSleeping,
  kClosedAttached,
  kArranged,
  kImported,
  kRecategorized
};
inline constexpr unsigned kUndoKinds = static_cast<unsigned>(UndoKind::kRecategorized) + 1;

/// What was done with some notes together.
struct UndoStep {
  UndoKind kind = UndoKind::kClosed;
  std::vector<Text> ids;
  int number = 0;
  std::vector<Point> places;       // of notes that were arranged: where each was
  std::vector<std::int64_t> keys;  // of notes that were imported
  std::vector<Text> categories;    // of notes that went to another one: where each was
};

class UndoSteps {
 public:
  /// The number of the step; 0 when there is nothing to undo. The oldest of too many are forgotten.
  int Add(UndoKind kind, std::vector<Text> ids, std::vector<Point> places = {});
  /// The same for stored notes that went to another category; `categories` were theirs.
  int AddRecategorized(std::vector<Text> ids, std::vector<Text> categories);
  /// The same for stored notes that files were made into.
  int AddImport(std::vector<std::int64_t> keys);
  /// What the latest step did.
  std::optional<UndoKind> LastKind() const;
  /// Removes the latest step; nothing when there is none.
  std::optional<UndoStep> RemoveLast();
  /// The same with the step of a number.
  std::optional<UndoStep> Remove(int number);
  /// Forgets all steps of a kind.
  void Forget(UndoKind kind);

 private:
  int AddStep(UndoStep step);

  std::vector<UndoStep> steps_;  // the latest last
  int last_ = 0;
};

}  // namespace jotlets

#include "desk/undo_import.h"

#include <algorithm>
#include <utility>

namespace jotlets {
namespace {

// The store forgets them together.
constexpr std::size_t kInOneChange = 200;

}  // namespace

UndoImport::UndoImport(NoteDesk& desk, NoteStore& store, std::vector<std::int64_t> keys)
    : desk_(desk), store_(store), keys_(std::move(keys)) {}

// All of one change, whoever asks for less.
Job::State UndoImport::Step(std::size_t) {
  std::vector<Text> ids;
  const std::size_t end = std::min(keys_.size(), next_ + kInOneChange);
  for (; next_ < end; ++next_)
    if (const std::optional<StoredNote> note = store_.Find(keys_[next_])) ids.push_back(note->record.id);
  if (!ids.empty()) left_ += desk_.DeleteStored(ids);
  if (left_ > 0 && reason_.empty()) reason_ = u"the store could not be written";
  if (next_ < keys_.size()) return State::kRunning;
  return reason_.empty() ? State::kDone : State::kFailed;
}

}  // namespace jotlets

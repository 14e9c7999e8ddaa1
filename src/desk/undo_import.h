// An import that is undone: the notes that it made are deleted again.
#pragma once

#include <vector>

#include "base/job.h"
#include "desk/note_desk.h"

namespace jotlets {

/// Notes that have left the store since then are left alone. A job that is given up keeps the notes that it
/// has not come to.
class UndoImport final : public Job {
 public:
  /// `keys` as `FolderImport` had them.
  UndoImport(NoteDesk& desk, NoteStore& store, std::vector<std::int64_t> keys);

  State Step(std::size_t mostFiles) override;
  const Text& Reason() const override { return reason_; }
  int Percent() const override { return PercentOf(next_, keys_.size()); }

  /// How many of the notes are there still.
  std::size_t Left() const { return left_ + keys_.size() - next_; }

 private:
  NoteDesk& desk_;
  NoteStore& store_;
  const std::vector<std::int64_t> keys_;
  std::size_t next_ = 0;
  std::size_t left_ = 0;
  Text reason_;
};

}  // namespace jotlets

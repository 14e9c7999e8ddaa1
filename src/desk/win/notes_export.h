// Copies of many notes as files of their own.
#pragma once

#include <vector>

#include "base/job.h"
#include "desk/win/note_contents.h"

namespace jotlets {

class NotesExport final : public Job {
 public:
  /// The first of `notes` goes to `path`, whose end tells the kind of all. The others go beside it under
  /// their titles, and never on to a file that is there; pictures stay pictures.
  NotesExport(NoteContents& contents, const Files& files, std::vector<JotletData> notes, TextView path);

  State Step(std::size_t mostFiles) override;
  const Text& Reason() const override { return reason_; }
  int Percent() const override { return PercentOf(at_, notes_.size()); }

  /// How many of the notes could not be written, or have not been yet.
  std::size_t Left() const { return notes_.size() - written_; }

 private:
  Text PathOf(const JotletData& note) const;

  NoteContents& contents_;
  const Files& files_;
  const std::vector<JotletData> notes_;
  const Text path_;
  std::size_t at_ = 0;
  std::size_t written_ = 0;
  Text reason_;  // of the first that could not be written
};

}  // namespace jotlets

// Copies of many notes: each as a file of its own, or all in one.
#pragma once

#include <unordered_map>
#include <vector>

#include "base/job.h"
#include "desk/note_copy.h"
#include "desk/note_lists.h"
#include "store/note_store.h"

namespace jotlets {

/// Notes of the lists and of the store alike. No file that is there is replaced: a copy gets a number behind
/// its name then. A job that is given up keeps the copies that are whole.
class NotesExport final : public Job {
 public:
  struct Context {
    Files& files;
    const NoteLists& lists;
    NoteStore& store;
    NoteCopies& copies;
  };
  /// What could not be copied, and why.
  struct Fault {
    Text id;
    Text title;
    Text reason;
  };

  /// The end of `path` tells the kind of all. With ".json" all notes go into that one file, except for
  /// pictures. Else the first goes there, and the others beside it under their titles; pictures stay
  /// pictures, and Markdown begins with what is known of the note.
  NotesExport(Context context, std::vector<Text> ids, TextView path);
  ~NotesExport() override;
  NotesExport(const NotesExport&) = delete;
  NotesExport& operator=(const NotesExport&) = delete;

  State Step(std::size_t mostFiles) override;
  const Text& Reason() const override { return reason_; }
  int Percent() const override { return PercentOf(at_, ids_.size()); }

  /// How many of the notes could not be copied, or have not been yet.
  std::size_t Left() const { return ids_.size() - written_; }
  /// The rest of very many is left out.
  const std::vector<Fault>& Faults() const { return faults_; }

 private:
  struct Note {
    JotletData record;
    Text category;
    std::optional<NoteList> list;  // none for a stored one
    std::int64_t key = 0;          // of that
  };

  std::optional<Note> Find(TextView id);
  FileStatus Write(const Note& note, const Text& title);
  FileStatus Add(const Note& note, const Text& title);
  FileStatus Append();
  void GiveUp(const Text& reason);
  State End();
  Text FreePath(const Text& front, TextView kind);
  void Leave(const Text& id, Text title, Text reason);

  Context context_;
  const std::vector<Text> ids_;
  const Text path_;
  const bool one_;  // all notes in one file
  std::unordered_map<Text, int> numbers_;
  std::string ready_;  // of the one file, what is not written yet
  bool begun_ = false;
  bool ended_ = false;
  std::size_t at_ = 0;
  std::size_t written_ = 0;
  std::vector<Fault> faults_;
  Text reason_;  // of the first that could not be written
};

}  // namespace jotlets

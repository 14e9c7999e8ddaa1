// The files of a folder, and of those inside it, that become stored notes; or one file that holds many.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "base/code_page.h"
#include "base/files.h"
#include "base/job.h"
#include "base/log.h"
#include "data/csv_notes.h"
#include "desk/note_desk.h"
#include "store/note_store.h"

namespace jotlets {

/// Reads note files, rich text, Markdown, pages and plain texts, and those of other note programs that hold
/// many notes (ENEX, OPML, CSV); the files stay where they are. Notes have the folder that they come from as
/// their category, below the one that was chosen, then the name of the file that holds many; a table can name
/// another one for each. A job that is given up keeps what has become notes.
class FolderImport final : public Job {
 public:
  struct Context {
    const Files& files;
    const CodePage& ansi;
    Log& log;
    NoteDesk& desk;
    NoteStore& store;
    std::int32_t maximumWidth;
  };
  struct Fault {
    Text path;
    Text reason;
  };

  /// A folder, with its separator at the end, or one file. Of tables the columns may have been chosen.
  FolderImport(Context context, TextView from, std::optional<CsvColumns> columns = std::nullopt);
  ~FolderImport() override { EndChange(); }
  FolderImport(const FolderImport&) = delete;
  FolderImport& operator=(const FolderImport&) = delete;

  State Step(std::size_t mostFiles) override;
  const Text& Reason() const override { return reason_; }
  int Percent() const override;

  std::size_t Imported() const { return keys_.size(); }
  /// The keys of the notes that it has made, for `UndoImport`.
  const std::vector<std::int64_t>& Keys() const { return keys_; }
  /// What could not be taken; the rest of very many is left out.
  const std::vector<Fault>& Faults() const { return faults_; }

 private:
  struct Place {
    Text path;
    Text category;
    int depth = 0;
  };
  struct Found {
    Text path;
    Text category;
  };

  void LookInto(const Place& place);
  void Open(const Found& file);
  void ReadOn();
  void Import(const CollectedNote& note);
  bool Store(NewNote fresh, TextView category);
  void Leave(Text path, Text reason);
  void EndChange();

  Context context_;
  std::vector<Place> places_;  // that are to be looked into
  std::vector<Found> found_;
  std::size_t next_ = 0;
  // The file that holds many notes which is being read: the last one before `next_`.
  struct Many {
    std::unique_ptr<NoteCollection> notes;
    std::int64_t number = 0;
  };
  Many many_;
  std::optional<CsvColumns> columns_;
  std::vector<std::int64_t> keys_;
  std::size_t inChange_ = 0;
  std::vector<Fault> faults_;
  Text reason_;
};

}  // namespace jotlets

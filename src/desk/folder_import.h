// The files of a folder, and of those inside it, that become stored notes.
#pragma once

#include <vector>

#include "base/code_page.h"
#include "base/files.h"
#include "base/job.h"
#include "base/log.h"
#include "desk/note_desk.h"
#include "store/note_store.h"

namespace jotlets {

/// Reads note files, rich text, Markdown, pages and plain texts; the files stay where they are. Notes have
/// the folder that they come from as their category, below the one that was chosen. A job that is given up
/// keeps what has become notes.
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

  /// `folder` ends in its separator.
  FolderImport(Context context, TextView folder);
  ~FolderImport() override { EndChange(); }
  FolderImport(const FolderImport&) = delete;
  FolderImport& operator=(const FolderImport&) = delete;

  State Step(std::size_t mostFiles) override;
  const Text& Reason() const override { return reason_; }
  int Percent() const override { return PercentOf(next_, found_.size()); }

  std::size_t Imported() const { return imported_; }
  /// What could not be taken.
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
  void Import(const Found& file);
  void EndChange();

  Context context_;
  std::vector<Place> places_;  // that are to be looked into
  std::vector<Found> found_;
  std::size_t next_ = 0;
  std::size_t imported_ = 0;
  std::size_t inChange_ = 0;
  std::vector<Fault> faults_;
  Text reason_;
};

}  // namespace jotlets

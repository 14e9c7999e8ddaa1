// When and how the data file is written: the dirty flag, the order of content and data, and what follows a
// save.
#pragma once

#include <functional>
#include <vector>

#include "base/clock.h"
#include "base/files.h"
#include "base/log.h"
#include "data/options.h"
#include "desk/note_journal.h"
#include "desk/note_lists.h"
#include "desk/note_windows.h"

namespace jotlets {

class NoteSaver {
 public:
  NoteSaver(Files& files, const Clock& clock, Log& log, const Options& options, const NoteLists& lists,
            NoteWindows& windows, NoteJournal& journal)
      : files_(files),
        clock_(clock),
        log_(log),
        options_(options),
        lists_(lists),
        windows_(windows),
        journal_(journal) {}

  /// Where the data file lives and whose it is; before this nothing can be saved.
  void SetFolder(TextView dataFolder, TextView installId);

  /// The data file there could not be read and not be put aside: saving tries again to put it aside first,
  /// and fails as long as that fails.
  void KeepUnreadFile() { unreadFileInPlace_ = true; }

  void SetDirty() { dirty_ = true; }
  bool IsDirty() const { return dirty_ || HasUnsavedContent(); }

  /// A content file to be removed with the next successful save: until then the data file on disk may still
  /// name it.
  void RemoveContentLater(const JotletData& record);

  /// Writes the data file to `path`. The main save brings the journal up to date, writes the open notes'
  /// content files (a data file never names content that is in neither), clears the dirty flag when all went
  /// well, and empties the journal.
  bool SaveJotlets(TextView path, bool isMainSave);
  /// The main save of a session that ends: the journal has everything, on the disk, before anything else is
  /// begun; then as many contents are written as `goesOn` allows. Whether that were all.
  bool SaveBeforeEnd(std::function<bool()> goesOn);
  /// Writes all that is not on the disk, and the data file, to another folder, whose content folders are
  /// there. Nothing counts as saved by that.
  FileStatus SaveElsewhere(TextView folder);

  /// The main save, when anything is dirty; true when there was nothing to do.
  bool SaveIfDirty();

  Text MainPath() const;

 private:
  bool HasUnsavedContent() const;
  void MakeFoldersAgain();
  FileStatus SaveContents();
  DataFileView View();
  bool PutUnreadFileAside();
  void RemoveContents(const DataFileView& view);

  Files& files_;
  const Clock& clock_;
  Log& log_;
  const Options& options_;
  const NoteLists& lists_;
  NoteWindows& windows_;
  NoteJournal& journal_;
  std::function<bool()> goesOn_ = [] { return true; };
  Text folder_;
  Text installId_;
  std::vector<Text> contentToRemove_;
  RecordLines lines_;
  bool dirty_ = false;
  bool unreadFileInPlace_ = false;
};

}  // namespace jotlets

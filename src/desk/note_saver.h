// When and how the data file is written: the dirty flag, the order of content and data, and what follows a
// save.
#pragma once

#include <vector>

#include "base/clock.h"
#include "base/files.h"
#include "base/log.h"
#include "data/options.h"
#include "desk/jotlet_lists.h"

namespace jotlets {

/// What saving needs of the open notes.
class OpenNotes {
 public:
  virtual ~OpenNotes() = default;
  /// Their records, brought up to date with the screen, in list order.
  virtual std::vector<const JotletData*> Records() = 0;
  virtual bool HasUnsavedContent() const = 0;
  /// Writes the content files of the notes whose content has changed; the first failure is returned, the rest
  /// is written all the same.
  virtual FileStatus SaveContents(const Moment& now) = 0;
};

class NoteSaver {
 public:
  NoteSaver(Files& files, const Clock& clock, Log& log, const Options& options, const JotletLists& lists,
            OpenNotes& open)
      : files_(files), clock_(clock), log_(log), options_(options), lists_(lists), open_(open) {}

  /// Where the data file lives and whose it is; before this nothing can be saved.
  void SetFolder(TextView dataFolder, TextView installId);

  /// The data file there could not be read and not be put aside: saving tries again to put it aside first,
  /// and fails as long as that fails.
  void KeepUnreadFile() { unreadFileInPlace_ = true; }

  void SetDirty() { dirty_ = true; }
  bool IsDirty() const { return dirty_ || open_.HasUnsavedContent(); }

  /// A content file to be removed with the next successful save: until then the data file on disk may still
  /// name it.
  void RemoveContentLater(const JotletData& record);

  /// Writes the data file to `path`. The main save writes the open notes' content files first (a data file
  /// never names content that is not there) and clears the dirty flag when all went well.
  bool SaveJotlets(TextView path, bool isMainSave);

  /// The main save, when anything is dirty; true when there was nothing to do.
  bool SaveIfDirty();

  Text MainPath() const;

 private:
  bool PutUnreadFileAside();
  void RemoveContents(const DataFileView& view);

  Files& files_;
  const Clock& clock_;
  Log& log_;
  const Options& options_;
  const JotletLists& lists_;
  OpenNotes& open_;
  Text folder_;
  Text installId_;
  std::vector<Text> contentToRemove_;
  RecordLines lines_;
  bool dirty_ = false;
  bool unreadFileInPlace_ = false;
};

}  // namespace jotlets

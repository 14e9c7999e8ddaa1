// The journal: what happens to notes is on the disk a moment later, long before the data file is written
// again. A frame for each note that has changed; the next start puts them into what it loads.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "base/files.h"
#include "base/journal_file.h"
#include "base/log.h"
#include "data/journal_frames.h"
#include "data/loading.h"
#include "data/options.h"
#include "desk/note_lists.h"
#include "desk/note_windows.h"

namespace jotlets {

class NoteJournal {
 public:
  NoteJournal(JournalFile& file, const Files& files, Log& log, const Options& options, NoteLists& lists,
              NoteWindows& windows)
      : file_(file), files_(files), log_(log), options_(options), lists_(lists), windows_(windows) {}

  /// Where the notes are, and whose they are.
  void SetFolder(TextView dataFolder, TextView installId);
  /// What the file held has been loaded, with a data file of this fingerprint: goes on behind those frames
  /// until a save has made them needless, or, without news among them, begins anew.
  void GoOn(const JournalReplay& replay, Fingerprint dataFile);

  /// What was loaded is no news.
  void ForgetChanges();
  /// Writes frames for what has changed since the last call, note by note as long as `goesOn` says so. A note
  /// whose content cannot be had holds no other back. Whether nothing is left to be written; after a failure,
  /// which is logged once, something is.
  bool WriteChanges(const std::function<bool()>& goesOn);
  /// The content files of these notes are about to be written: where the journal has said something of one,
  /// it says the last of it too, flushed, so that the next start knows the file again.
  void BeforeContents(const std::vector<Text>& ids);
  /// All that was written is on the disk.
  FileStatus Flush() { return file_.Flush(); }

  /// The data file is about to become this: should it, what the journal says of records so far is no news any
  /// more, nor of contents if all of them have been written.
  void BeforeSave(Fingerprint dataFile, bool contentsWritten);
  /// The data file that the journal now goes on from is on the disk, with all contents: the frames have done
  /// their duty.
  void Reset(Fingerprint dataFile);
  /// So large that the next save should not be waited for.
  bool IsLarge() const { return bytes_ > kLarge; }

 private:
  static constexpr std::size_t kLarge = 16 << 20;

  struct Saving {
    Fingerprint dataFile = 0;
    bool contentsWritten = false;
  };

  FileStatus CatchUp();
  /// `fault`: why the content could not be had, and so nothing was written; the file itself takes more.
  FileStatus WriteNote(const Text& id, bool isImage, FileStatus& fault);
  FileStatus WriteStacks();
  JournalFrame RecordFrame(const Text& id, bool isImage) const;
  bool AppendContent(std::string& out, const JotletData& record, const std::string& bytes) const;
  FileStatus Append(const std::string& frames, std::uint64_t count);
  void Report(const FileStatus& status);

  JournalFile& file_;
  const Files& files_;
  Log& log_;
  const Options& options_;
  NoteLists& lists_;
  NoteWindows& windows_;
  Text folder_;
  Text installId_;
  std::unordered_map<Text, bool> pending_;          // folded ids, and whether it is a picture
  std::unordered_map<Text, std::string> contents_;  // by folded id: what the journal says last
  std::unordered_set<Text>
      unknown_;                   // content files that were written without the journal, which was failing
  std::optional<Saving> saving_;  // to be told of
  std::optional<Fingerprint> reset_;  // to be begun anew from
  std::uint64_t sequence_ = 1;
  std::size_t bytes_ = 0;
  bool hasFrames_ = true;  // more than its beginning; what an earlier run left counts
  bool failureTold_ = false;
};

}  // namespace jotlets

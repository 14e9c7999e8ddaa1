// What a note needs before it has a window: an identity that is its own, a place, a size, and a content file.
#pragma once

#include <vector>

#include "base/clock.h"
#include "base/log.h"
#include "data/jotlet_id.h"
#include "data/options.h"
#include "desk/new_note.h"
#include "desk/note_lists.h"
#include "desk/note_windows.h"
#include "store/note_store.h"

namespace jotlets {

class NoteMaker {
 public:
  /// `instance` tells this process from others in the ids that it makes.
  NoteMaker(Files& files, const Clock& clock, Log& log, const Options& options, const NoteLists& lists,
            const NoteWindows& windows, NoteStore& store, std::uint32_t instance)
      : files_(files),
        clock_(clock),
        log_(log),
        options_(options),
        lists_(lists),
        windows_(windows),
        store_(store),
        ids_(instance) {}

  void SetFolder(TextView dataFolder) { folder_ = dataFolder; }

  /// Writes the templates of new notes, "default.rtf" (from `rtf`) and "default.png", unless they are there.
  void ProvideTemplates(std::string_view rtf);

  /// A fresh identity that no note, stored ones among them, and no content file has.
  Text NewJotletId();
  /// Whether a note, stored or not, or a content file has this id.
  bool IsTaken(TextView id) const;
  /// The id under which an orphaned content file can become a note: its own, or, when that cannot be an id, a
  /// fresh one to which the file is moved. Empty when that failed.
  Text AdoptableId(const Orphan& orphan);

  /// A record with the defaults of the options.
  JotletData Blank(Text id) const;
  /// The record of a new note, placed by the options, its content file written; nothing, with a log line,
  /// when that failed.
  std::optional<JotletData> Make(const NewNote& fresh);
  /// Gives a record without a place or a size these, and keeps both usable.
  void Complete(JotletData& record) const;

 private:
  void Place(JotletData& record) const;
  bool ProvideContent(const JotletData& record, std::string_view bytes);

  Files& files_;
  const Clock& clock_;
  Log& log_;
  const Options& options_;
  const NoteLists& lists_;
  const NoteWindows& windows_;
  NoteStore& store_;
  Text folder_;
  IdSource ids_;
};

}  // namespace jotlets

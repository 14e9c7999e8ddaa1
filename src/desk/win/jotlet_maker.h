// Makes new notes: identity, place, default content.
#pragma once

#include <optional>

#include "base/clock.h"
#include "data/jotlet_id.h"
#include "data/loading.h"
#include "data/options.h"
#include "desk/jotlet_lists.h"
#include "desk/note_message.h"
#include "desk/win/desktop_jotlets.h"

namespace jotlets {

/// What is known of a note that is to be made; what is not said takes its default.
struct NewJotlet {
  Text reason;  // who makes it: "api", "user", "welcome", "adopting" ...
  Text text;    // plain text
  Text rtf;     // rich text, in place of `text`
  Text title;
  Text source;
  std::optional<Colour> colour;
  std::int32_t width = 0;
  Text id;  // an existing identity, whose content file is there already
  bool isImage = false;
  std::string picture;  // of a picture note: its PNG, in place of the template
  bool fromClipboard = false;
  bool plainClipboard = false;  // without its formatting
};

/// The note that a note message asks for.
NewJotlet FromNoteMessage(const NoteMessage& message);

class JotletMaker {
 public:
  JotletMaker(Files& files, const Clock& clock, Log& log, const Options& options, const JotletLists& lists,
              DesktopJotlets& desktop);

  void SetFolder(TextView dataFolder) { folder_ = dataFolder; }

  /// Writes the templates of new notes, "default.rtf" (from `rtf`) and "default.png", unless they are there.
  void ProvideTemplates(std::string_view rtf);

  /// A fresh identity that no note and no content file has.
  Text NewJotletId();

  /// Whether a note or a content file has this id.
  bool IsTaken(TextView id) const;

  /// The id under which an orphaned content file can become a note: its own, or, when that cannot be an id, a
  /// fresh one to which the file is moved. Empty when that failed.
  Text AdoptableId(const Orphan& orphan);

  /// Opens a new note, placed by the options, and shows it; nullptr when its window could not be made.
  BJotlet* Make(const NewJotlet& fresh);

  /// Opens a note that was loaded: one without a place or a size gets them.
  BJotlet* OpenLoaded(JotletData record);

 private:
  void Place(JotletData& record) const;
  bool ProvideContent(const JotletData& record, std::string_view picture);

  Files& files_;
  const Clock& clock_;
  Log& log_;
  const Options& options_;
  const JotletLists& lists_;
  DesktopJotlets& desktop_;
  Text folder_;
  IdSource ids_;
};

}  // namespace jotlets

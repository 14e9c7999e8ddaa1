// The words that a note's skin shows in the place of placeholders.
#pragma once

#include "base/clock.h"
#include "data/jotlet_data.h"
#include "note/win/note_context.h"
#include "skin/skin_view.h"

namespace jotlets {

/// TITLE, SOURCE, STACKNAME, TAG, ALARM, CREATED, MODIFIED, WAKE, DATE, TIME, SIZE, USERSTRING1 and ID of a
/// note; DISMISS and SNOOZE for the buttons of one that sounds.
class NoteWords final : public SkinWords {
 public:
  /// All of it outlives the words.
  NoteWords(const NoteContext& context, const JotletData& record, const Text& shownTitle, Size window)
      : context_(context), record_(record), shownTitle_(shownTitle), window_(window) {}
  std::optional<Text> Find(TextView placeholder) const override;

 private:
  const NoteContext& context_;
  const JotletData& record_;
  const Text& shownTitle_;
  Size window_;
};

}  // namespace jotlets

// The words that a note's skin shows in the place of placeholders.
#pragma once

#include "data/jotlet_data.h"
#include "note/win/jotlet_owner.h"
#include "skin/skin_view.h"

namespace jotlets {

/// TITLE, SOURCE, STACKNAME, ALARM, CREATED, MODIFIED, WAKE, DATE, TIME, SIZE, USERSTRING1 and ID of a note.
class NoteWords final : public SkinWords {
 public:
  NoteWords(JotletOwner& owner, const JotletData& record, const Text& shownTitle, Size window)
      : owner_(owner), record_(record), shownTitle_(shownTitle), window_(window) {}
  std::optional<Text> Find(TextView placeholder) const override;

 private:
  JotletOwner& owner_;
  const JotletData& record_;
  const Text& shownTitle_;
  Size window_;
};

}  // namespace jotlets

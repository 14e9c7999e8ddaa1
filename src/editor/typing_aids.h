// What typing brings along in the text of a note: "- " begins a list, Enter goes on with a check list, and so
// on. Given a paragraph and what was typed, these rules say what becomes of it; the editor carries it out.
#pragma once

#include <cstddef>

#include "base/text.h"
#include "editor/edit_facts.h"

namespace jotlets {

/// The boxes of a check list. An item begins with one of them and a blank.
inline constexpr char16_t kOpenBox = u'\u2610';
inline constexpr char16_t kTickedBox = u'\u2611';
inline constexpr std::size_t kBoxLength = 2;

struct TypingAid {
  enum class Does {
    kNothing,
    kBulletList,  // the paragraph joins a list
    kNumberList,
    kEndList,   // it leaves it
    kHeading,   // it takes the style of headings
    kBold,      // what stands between the two marks at the ends of the range becomes bold
    kReplaces,  // nothing but the text
  };
  Does does = Does::kNothing;
  /// The range of the paragraph that `text` takes the place of; for `kBold`, marks included.
  std::size_t first = 0;
  std::size_t last = 0;
  Text text;
  friend bool operator==(const TypingAid&, const TypingAid&) = default;
};

/// The length of the marks around what becomes bold.
inline constexpr std::size_t kBoldMark = 2;

/// Whether typing this character can bring anything along.
bool MayBringAid(char16_t typed);

/// What comes of a character that was typed; it stands before `caret` in the paragraph.
TypingAid AidAfterTyping(TextView paragraph, std::size_t caret, Bullets bullets);

/// What Enter does instead of beginning a new paragraph. In a check list, whose box is to follow the new
/// paragraph, that is still to be begun: see `BoxAfterEnter`.
TypingAid AidForEnter(TextView paragraph, Bullets bullets);

/// Whether a paragraph that Enter begins at `caret` is the next item of a check list.
bool BoxAfterEnter(TextView paragraph, std::size_t caret);

/// Whether the paragraph is an item of a check list.
bool HasBox(TextView paragraph);

/// A box ticked, or no longer.
char16_t OtherBox(char16_t box);

}  // namespace jotlets

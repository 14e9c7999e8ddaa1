// The patterns by which attached notes choose windows: a text with a star at either end.
#pragma once

#include "base/text.h"

namespace jotlets {

/// A pattern made ready to be compared with many texts.
///
///     *word*    the text contains it        *word    the text ends with it
///     word*     the text begins with it     word     the text is it
///
/// A star inside has no meaning of its own, and an empty pattern is met by an empty text only. The case of
/// letters does not count, in titles and classes alike: a user who types a title by hand should not have to
/// look at how it is spelt, and no two programs are told apart by it.
class TextPattern {
 public:
  explicit TextPattern(TextView pattern);

  /// Whether a text meets the pattern, given with its case folded (`FoldCase`).
  bool MatchesFolded(TextView folded) const;
  bool Matches(TextView text) const { return MatchesFolded(FoldCase(text)); }

 private:
  enum class Kind { kIs, kBegins, kEnds, kContains };

  Kind kind_ = Kind::kIs;
  Text word_;  // folded
};

}  // namespace jotlets

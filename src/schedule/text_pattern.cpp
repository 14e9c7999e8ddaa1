#include "schedule/text_pattern.h"

namespace jotlets {

TextPattern::TextPattern(TextView pattern) {
  const bool starBefore = pattern.starts_with(u'*');
  const bool starBehind = pattern.ends_with(u'*');
  if (starBefore) pattern.remove_prefix(1);
  // A lone star is both.
  if (starBehind && !pattern.empty()) pattern.remove_suffix(1);
  if (starBefore) {
    kind_ = starBehind ? Kind::kContains : Kind::kEnds;
  } else if (starBehind) {
    kind_ = Kind::kBegins;
  }
  word_ = FoldCase(pattern);
}

bool TextPattern::MatchesFolded(TextView folded) const {
  switch (kind_) {
    case Kind::kIs: return folded == word_;
    case Kind::kBegins: return folded.starts_with(word_);
    case Kind::kEnds: return folded.ends_with(word_);
    case Kind::kContains: return folded.find(word_) != TextView::npos;
  }
  return false;
}

}  // namespace jotlets

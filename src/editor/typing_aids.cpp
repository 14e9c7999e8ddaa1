#include "editor/typing_aids.h"

namespace jotlets {
namespace {

constexpr TextView kBoldMarks = u"**";

struct Beginning {
  TextView typed;
  TypingAid::Does does;
  TextView text;
};

constexpr Beginning kBeginnings[] = {
    {u"- ", TypingAid::Does::kBulletList, {}},        {u"* ", TypingAid::Does::kBulletList, {}},
    {u"1. ", TypingAid::Does::kNumberList, {}},       {u"# ", TypingAid::Does::kHeading, {}},
    {u"[] ", TypingAid::Does::kReplaces, u"\u2610 "}, {u"[ ] ", TypingAid::Does::kReplaces, u"\u2610 "},
};

// What is typed behind the marks "**" that close what other such marks opened.
TypingAid BoldBefore(TextView before) {
  if (before.size() < 2 * kBoldMark + 1 || !before.ends_with(kBoldMarks)) return {};
  const TextView inside = before.substr(0, before.size() - kBoldMark);
  const std::size_t opened = inside.rfind(kBoldMarks);
  if (opened == TextView::npos) return {};
  const TextView words = inside.substr(opened + kBoldMark);
  // "2 ** 3 ** 4" is arithmetic, and "***" is a line of stars.
  if (words.empty() || words.front() == u' ' || words.back() == u' ') return {};
  if (words.find(u'*') != TextView::npos || (opened > 0 && before[opened - 1] == u'*')) return {};
  return {TypingAid::Does::kBold, opened, before.size(), Text(words)};
}

bool IsBox(char16_t unit) { return unit == kOpenBox || unit == kTickedBox; }

}  // namespace

bool MayBringAid(char16_t typed) { return typed == u' ' || typed == u'*'; }

TypingAid AidAfterTyping(TextView paragraph, std::size_t caret, Bullets bullets) {
  const TextView before = paragraph.substr(0, caret);
  if (before.ends_with(u'*')) return BoldBefore(before);
  if (bullets != Bullets::kNoBullets) return {};
  for (const Beginning& row : kBeginnings)
    if (before == row.typed) return {row.does, 0, row.typed.size(), Text(row.text)};
  return {};
}

TypingAid AidForEnter(TextView paragraph, Bullets bullets) {
  if (HasBox(paragraph) && paragraph.size() == kBoxLength)
    return {TypingAid::Does::kReplaces, 0, kBoxLength, {}};
  if (bullets != Bullets::kNoBullets && paragraph.empty()) return {TypingAid::Does::kEndList, 0, 0, {}};
  return {};
}

bool BoxAfterEnter(TextView paragraph, std::size_t caret) {
  return HasBox(paragraph) && caret >= kBoxLength && paragraph.size() > kBoxLength;
}

bool HasBox(TextView paragraph) {
  return paragraph.size() >= kBoxLength && IsBox(paragraph[0]) && paragraph[1] == u' ';
}

char16_t OtherBox(char16_t box) { return box == kOpenBox ? kTickedBox : kOpenBox; }

}  // namespace jotlets

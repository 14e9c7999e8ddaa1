#include "note/win/note_words.h"

#include "base/win/shown_time.h"

namespace jotlets {
namespace {

struct WordRow {
  TextView placeholder;
  Text (*words)(JotletOwner& owner, const JotletData& record);
};

Text TimeWords(JotletOwner& owner, std::int32_t utc) {
  return utc > 0 ? ShownTime(owner.ToLocal(utc)) : Text();
}

constexpr WordRow kRows[] = {
    {u"SOURCE", [](JotletOwner&, const JotletData& r) { return r.source; }},
    {u"STACKNAME", [](JotletOwner& o, const JotletData& r) { return o.StackName(r.stack); }},
    {u"ALARM", [](JotletOwner& o, const JotletData& r) { return TimeWords(o, r.alarm); }},
    {u"CREATED", [](JotletOwner& o, const JotletData& r) { return TimeWords(o, r.created); }},
    {u"MODIFIED", [](JotletOwner& o, const JotletData& r) { return TimeWords(o, r.modified); }},
    {u"WAKE", [](JotletOwner& o, const JotletData& r) { return TimeWords(o, r.sleep.nextWake); }},
    {u"DATE", [](JotletOwner& o, const JotletData&) { return ShownDate(o.ToLocal(0)); }},
    {u"TIME", [](JotletOwner& o, const JotletData&) { return ShownTimeOfDay(o.ToLocal(0)); }},
    {u"USERSTRING1", [](JotletOwner&, const JotletData& r) { return r.userString1; }},
    {u"ID", [](JotletOwner&, const JotletData& r) { return r.id; }},
};

}  // namespace

std::optional<Text> NoteWords::Find(TextView placeholder) const {
  if (placeholder == u"TITLE") return shownTitle_;
  if (placeholder == u"SIZE") return IntText(window_.width) + u" x " + IntText(window_.height);
  for (const WordRow& row : kRows) {
    if (row.placeholder == placeholder) return OneLine(row.words(owner_, record_));
  }
  return std::nullopt;
}

}  // namespace jotlets

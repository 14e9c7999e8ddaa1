#include "note/win/note_words.h"

#include "base/win/shown_time.h"

namespace jotlets {
namespace {

struct WordRow {
  TextView placeholder;
  Text (*words)(const Clock& clock, const JotletData& record);
};

Text TimeWords(const Clock& clock, std::int32_t utc) {
  return utc > 0 ? ShownTime(clock.ToLocal(utc)) : Text();
}

constexpr WordRow kRows[] = {
    {u"SOURCE", [](const Clock&, const JotletData& r) { return r.source; }},
    {u"ALARM", [](const Clock& c, const JotletData& r) { return TimeWords(c, r.alarm); }},
    {u"CREATED", [](const Clock& c, const JotletData& r) { return TimeWords(c, r.created); }},
    {u"MODIFIED", [](const Clock& c, const JotletData& r) { return TimeWords(c, r.modified); }},
    {u"WAKE", [](const Clock& c, const JotletData& r) { return TimeWords(c, r.sleep.nextWake); }},
    {u"DATE", [](const Clock& c, const JotletData&) { return ShownDate(c.Now().local); }},
    {u"TIME", [](const Clock& c, const JotletData&) { return ShownTimeOfDay(c.Now().local); }},
    {u"USERSTRING1", [](const Clock&, const JotletData& r) { return r.userString1; }},
    {u"ID", [](const Clock&, const JotletData& r) { return r.id; }},
};

}  // namespace

std::optional<Text> NoteWords::Find(TextView placeholder) const {
  if (placeholder == u"TITLE") return shownTitle_;
  if (placeholder == u"SIZE") return IntText(window_.width) + u" x " + IntText(window_.height);
  if (placeholder == u"STACKNAME") return OneLine(stackName_(record_.stack).value_or(Text()));
  for (const WordRow& row : kRows) {
    if (row.placeholder == placeholder) return OneLine(row.words(clock_, record_));
  }
  return std::nullopt;
}

}  // namespace jotlets

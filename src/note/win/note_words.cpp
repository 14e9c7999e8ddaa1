#include "note/win/note_words.h"

#include "base/win/shown_time.h"
#include "res/part_texts.h"

namespace jotlets {
namespace {

struct WordRow {
  TextView placeholder;
  Text (*words)(const Clock& clock, const JotletData& record);
};

Text TimeWords(const Clock& clock, std::int32_t utc) {
  return utc > 0 ? ShownTime(clock.ToLocal(utc)) : Text();
}

// What the line at the foot tells, in the order in which one goes before another.
Text TagWords(const Clock& clock, const JotletData& record, const StackNames& stackName) {
  if (record.alarm > 0) return ShownNear(clock, record.alarm, ShownTime);
  if (record.IsAttached()) return record.attachment.title;
  return stackName(record.stack).value_or(Text());
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
  if (placeholder == u"STACKNAME") return OneLine(context_.stackName(record_.stack).value_or(Text()));
  if (placeholder == u"TAG") return OneLine(TagWords(context_.clock, record_, context_.stackName));
  if (placeholder == u"DISMISS") return context_.textOf(IDS_PART_DISMISS);
  if (placeholder == u"SNOOZE") {
    const Text minutes = IntText(context_.options.snoozeMinutes);
    return ReplaceAll(context_.textOf(IDS_PART_SNOOZE_FOR), u"%s", minutes);
  }
  for (const WordRow& row : kRows) {
    if (row.placeholder == placeholder) return OneLine(row.words(context_.clock, record_));
  }
  return std::nullopt;
}

}  // namespace jotlets

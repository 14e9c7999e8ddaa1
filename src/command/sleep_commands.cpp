#include "command/sleep_commands.h"

#include <array>

#include "command/rows.h"

namespace jotlets {
namespace {

constexpr TextView kSleepingNotFound = u"998 sleeping jotlet not found";

// Words of a line, one after the other; empty ones when there are no more.
class Words {
 public:
  explicit Words(TextView line) : rest_(TrimBlanks(line)) {}
  TextView Next() {
    const Split parts = SplitAtFirst(rest_, u' ');
    rest_ = TrimBlanks(parts.tail);
    return parts.head;
  }
  std::int32_t NextNumber() { return ParseInt(Next()); }
  std::int32_t NextNumberOr(std::int32_t missing) { return rest_.empty() ? missing : NextNumber(); }

 private:
  TextView rest_;
};

void SoundAlarm(const CommandCall& call, bool on, TextView word) {
  const Text id(Words(call.arguments).Next());
  if (call.host.FindDesktop(id) == nullptr) {
    call.reply.SendLine(kNotFound);
    return;
  }
  call.host.SoundAlarm(id, on);
  SavedOk(call, word);
}

struct SleepingField {
  TextView name;
  Text (*read)(const CommandCall& call, const JotletData& record);
};

constexpr std::array kReaders = {
    SleepingField{u"position",
                  [](const CommandCall&, const JotletData& record) {
                    return Numbers({record.x, record.y}, u",");
                  }},
    SleepingField{u"encoded", EncodedNote},
};

void WritePosition(const CommandCall& call, TextView id, TextView value) {
  auto numbers = ParseIntList(value, 2);
  numbers.resize(2);
  call.host.MoveSleeping(id, {numbers[0], numbers[1]});
  SavedOk(call, u"position set");
}

void WriteWakeTime(const CommandCall& call, TextView id, TextView value) {
  call.host.SetWakeTime(id, ParseInt(value));
  SavedOk(call, u"wake time set");
}

struct SleepingWriter {
  TextView name;
  void (*write)(const CommandCall& call, TextView id, TextView value);
};

constexpr std::array kWriters = {SleepingWriter{u"position", WritePosition},
                                 SleepingWriter{u"waketime", WriteWakeTime}};

}  // namespace

void WakeNote(const CommandCall& call) {
  const Text id(Words(call.arguments).Next());
  if (call.host.FindSleeping(id) == nullptr) {
    call.reply.SendLine(kNotFound);
  } else if (!call.host.WakeSleeping(id)) {
    call.reply.SendLine(u"997 unable to wake");
  } else {
    SavedOk(call, u"woken");
  }
}

// "<id> <flags> <seconds from now>"
void SleepNote(const CommandCall& call) {
  Words words(call.arguments);
  const Text id(words.Next());
  const WakeFlags flags = ParseWakeFlags(words.Next());
  const std::int32_t seconds = words.NextNumber();
  if (call.host.FindDesktop(id) == nullptr) {
    call.reply.SendLine(kNotFound);
  } else if (!call.host.Sleep(id, flags, seconds)) {
    call.reply.SendLine(kProblemSaving);
  } else {
    SavedOk(call, u"slept");
  }
}

// "<id> <flags> <type> <hours> <minutes> <day> <end> [<start>]"
void RecurNote(const CommandCall& call) {
  Words words(call.arguments);
  const Text id(words.Next());
  const WakeFlags flags = ParseWakeFlags(words.Next());
  WakeRule rule;
  for (std::int32_t* part : {&rule.type, &rule.hours, &rule.minutes, &rule.day}) *part = words.NextNumber();
  const std::int32_t end = words.NextNumberOr(kNone);
  const std::int32_t start = words.NextNumberOr(kNone);
  if (call.host.FindDesktop(id) == nullptr) {
    call.reply.SendLine(kNotFound);
  } else if (!FaultOf(rule).empty()) {
    call.reply.SendLine(u"997 unable to recur");
  } else if (!call.host.Recur(id, flags, rule, start, end)) {
    call.reply.SendLine(kProblemSaving);
  } else {
    SavedOk(call, u"slept");
  }
}

void StartNoteAlarm(const CommandCall& call) { SoundAlarm(call, true, u"alarmed"); }
void StopNoteAlarm(const CommandCall& call) { SoundAlarm(call, false, u"quieted"); }

void GetSleeping(const CommandCall& call) {
  const Addressed to = SplitAddressed(call.arguments);
  const JotletData* record = call.host.FindSleeping(to.id);
  const SleepingField* field = FindRow(kReaders, to.rest);
  if (record == nullptr) {
    call.reply.SendLine(kSleepingNotFound);
  } else if (field == nullptr) {
    call.reply.SendLine(kNotUnderstood);
  } else {
    call.reply.Value(field->read(call, *record));
  }
}

void SetSleeping(const CommandCall& call) {
  const Addressed to = SplitAddressed(call.arguments);
  const Split field = SplitAtFirst(to.rest, u' ');
  const SleepingWriter* writer = FindRow(kWriters, field.head);
  if (call.host.FindSleeping(to.id) == nullptr) {
    call.reply.SendLine(kSleepingNotFound);
  } else if (writer == nullptr) {
    call.reply.SendLine(kNotUnderstood);
  } else {
    writer->write(call, to.id, field.tail);
  }
}

}  // namespace jotlets

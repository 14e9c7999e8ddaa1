#include "command/command_call.h"

namespace jotlets {

void NotYet(const CommandCall& call) { call.reply.SendLine(kNotUnderstood); }

void SavedOk(const CommandCall& call, TextView word) {
  Answer(call, call.host.SaveNow(), word, kProblemSaving);
}

void Answer(const CommandCall& call, bool done, TextView word, TextView refusal) {
  if (done) {
    call.reply.Ok(word);
  } else {
    call.reply.SendLine(refusal);
  }
}

Addressed SplitAddressed(TextView arguments) {
  const Split parts = SplitAtFirst(TrimBlanks(arguments), u' ');
  return {parts.head, TrimBlanks(parts.tail)};
}

Text EncodedNote(const CommandCall& call, const JotletData& record) {
  return MakeEncodedJotlet(record, call.host.RolledHasAltPosition(), call.host.ContentForTransfer(record));
}

Text Numbers(std::initializer_list<std::int64_t> numbers, TextView separator) {
  Text out;
  for (const std::int64_t number : numbers) {
    if (!out.empty()) out.append(separator);
    AppendInt(out, number);
  }
  return out;
}

}  // namespace jotlets

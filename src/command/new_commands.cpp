#include "command/new_commands.h"

namespace jotlets {
namespace {

constexpr TextView kUnableToCreate = u"997 unable to create";

void Created(const CommandCall& call, const Text& id, TextView suffix, TextView refusal = kUnableToCreate) {
  if (id.empty()) {
    call.reply.SendLine(refusal);
    return;
  }
  SavedOk(call, (u"created: " + id).append(suffix));
}

// Only what follows a blank counts: "do new jotletx" is the bare command, like all trailing text elsewhere.
TextView BehindBlank(TextView arguments) {
  return arguments.starts_with(u' ') ? arguments.substr(1) : TextView();
}

}  // namespace

void NewPastedPicture(const CommandCall& call) {
  const CommandHost::Pasted pasted = call.host.CreateFromClipboard(Paste::kPicture);
  Created(call, pasted.id, pasted.took ? u" and pasted image" : u" but no image in clipboard");
}

void NewPastedPlain(const CommandCall& call) {
  Created(call, call.host.CreateFromClipboard(Paste::kPlain).id, u" and pasted text");
}

void NewPasted(const CommandCall& call) {
  Created(call, call.host.CreateFromClipboard(Paste::kFormatted).id, u" and pasted clipboard");
}

void NewFromPicture(const CommandCall& call) {
  Created(call, call.host.CreateFromPicture(TrimBlanks(BehindBlank(call.arguments))), {}, kUnableToLoad);
}

void NewWithText(const CommandCall& call) {
  Created(call, call.host.CreateDesktop(BehindBlank(call.arguments)), {});
}

void NewSleepingEncoded(const CommandCall& call) {
  Created(call, call.host.CreateEncoded(call.arguments, true), {});
}

void NewEncoded(const CommandCall& call) {
  Created(call, call.host.CreateEncoded(call.arguments, false), {});
}

}  // namespace jotlets

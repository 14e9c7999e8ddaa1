#include "command/desktop_commands.h"

#include <array>

#include "command/desktop_fields.h"
#include "command/rows.h"

namespace jotlets {
namespace {

void CloseJotlet(const CommandCall& call, DesktopJotlet& jotlet) {
  const Text id = jotlet.Record().id;
  if (!call.host.CloseDesktop(id)) {
    call.reply.SendLine(kProblemSaving);
    return;
  }
  SavedOk(call, u"closed");
}

void DeleteJotlet(const CommandCall& call, DesktopJotlet& jotlet) {
  const Text id = jotlet.Record().id;
  call.host.DeleteDesktop(id);
  SavedOk(call, u"deleted");
}

void RollUp(const CommandCall& call, DesktopJotlet& jotlet) {
  if (!jotlet.SetRolled(true)) {
    call.reply.SendLine(u"997 unable to roll up");
    return;
  }
  SavedOk(call, u"rolled");
}

void Unroll(const CommandCall& call, DesktopJotlet& jotlet) {
  jotlet.SetRolled(false);
  SavedOk(call, u"unrolled");
}

void CopyContent(const CommandCall& call, DesktopJotlet& jotlet) {
  jotlet.CopyContent(true);
  call.reply.Ok(u"content copied");
}

void CopyPlainContent(const CommandCall& call, DesktopJotlet& jotlet) {
  if (jotlet.Record().IsImage()) {
    call.reply.SendLine(kIsImage);
    return;
  }
  jotlet.CopyContent(false);
  call.reply.Ok(u"plain content copied");
}

void Append(const CommandCall& call, DesktopJotlet& jotlet, bool formatted, TextView word) {
  const JotletData& record = jotlet.Record();
  if (record.IsImage() || record.readOnly) {
    call.reply.SendLine(record.IsImage() ? kIsImage : kIsReadOnly);
    return;
  }
  jotlet.PasteAtEnd(formatted);
  SavedOk(call, word);
}

void AppendPaste(const CommandCall& call, DesktopJotlet& jotlet) {
  Append(call, jotlet, true, u"pasted at end");
}

void AppendPlainPaste(const CommandCall& call, DesktopJotlet& jotlet) {
  Append(call, jotlet, false, u"pasted plain at end");
}

constexpr std::array kActions = {
    ActionRow{u"close", u"Closes the note: it moves to the closed ones.",
              u"000 OK closed; 995 problem saving", CloseJotlet},
    ActionRow{u"delete", u"Deletes the note for good, after event 502.", u"000 OK deleted", DeleteJotlet},
    ActionRow{u"rolled", u"Rolls the note up.", u"000 OK rolled; 997 unable to roll up", RollUp},
    ActionRow{u"unrolled", u"Unrolls it.", u"000 OK unrolled", Unroll},
    ActionRow{u"copycontent", u"Copies the content to the clipboard, with its formatting.",
              u"000 OK content copied", CopyContent},
    ActionRow{u"copycontentplain", u"Copies the plain text to the clipboard.",
              u"000 OK plain content copied; 997 jotlet is image", CopyPlainContent},
    ActionRow{u"appendpaste", u"Pastes the clipboard at the end of the text.",
              u"000 OK pasted at end; 996 jotlet is read only; 997 jotlet is image", AppendPaste},
    ActionRow{u"appendpasteplain", u"The same, without formatting.",
              u"000 OK pasted plain at end; 996 jotlet is read only; 997 jotlet is image", AppendPlainPaste},
};

}  // namespace

std::span<const ActionRow> DesktopActions() { return kActions; }

void DoDesktop(const CommandCall& call) {
  const Addressed to = SplitAddressed(call.arguments);
  DesktopJotlet* jotlet = call.host.FindDesktop(to.id);
  const ActionRow* action = FindRow(kActions, to.rest);
  if (jotlet == nullptr) {
    call.reply.SendLine(kJotletNotFound);
  } else if (action == nullptr) {
    call.reply.SendLine(kNotUnderstood);
  } else {
    action->run(call, *jotlet);
  }
}

void GetDesktop(const CommandCall& call) {
  const Addressed to = SplitAddressed(call.arguments);
  DesktopJotlet* jotlet = call.host.FindDesktop(to.id);
  const FieldReader* reader = FindFieldReader(to.rest);
  if (jotlet == nullptr) {
    call.reply.SendLine(kJotletNotFound);
  } else if (reader == nullptr) {
    call.reply.SendLine(kNotUnderstood);
  } else {
    reader->read(call, *jotlet);
  }
}

void GetClosed(const CommandCall& call) {
  const Addressed to = SplitAddressed(call.arguments);
  const JotletData* record = call.host.FindClosed(to.id);
  if (record == nullptr) {
    call.reply.SendLine(u"998 closed jotlet not found");
  } else if (!EqualIgnoreCase(to.rest, u"encoded")) {
    call.reply.SendLine(kNotUnderstood);
  } else {
    call.reply.Value(u"<CLOSED>" + IntText(record->deletedTime) + EncodedNote(call, *record));
  }
}

// The value is all that follows the blank behind the field's name.
void SetDesktop(const CommandCall& call) {
  const Addressed to = SplitAddressed(call.arguments);
  const Split field = SplitAtFirst(to.rest, u' ');
  DesktopJotlet* jotlet = call.host.FindDesktop(to.id);
  const FieldWriter* writer = FindFieldWriter(field.head);
  if (jotlet == nullptr) {
    call.reply.SendLine(kJotletNotFound);
  } else if (writer == nullptr) {
    call.reply.SendLine(kNotUnderstood);
  } else {
    writer->write(call, *jotlet, field.tail);
  }
}

}  // namespace jotlets

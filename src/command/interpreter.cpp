#include "command/interpreter.h"

#include <array>

#include "command/desktop_fields.h"
#include "command/place_commands.h"
#include "command/rows.h"
#include "command/sleep_commands.h"

namespace jotlets {
namespace {

void NewJotlet(const CommandCall& call) {
  // Only what follows a blank is text: "do new jotletx" is the bare command, like all trailing text
  // elsewhere.
  const bool hasText = !call.arguments.empty() && call.arguments.front() == u' ';
  const Text id = call.host.CreateDesktop(hasText ? call.arguments.substr(1) : TextView());
  if (id.empty()) {
    call.reply.SendLine(u"997 unable to create");
    return;
  }
  call.host.SaveNow();
  call.reply.Ok(u"created: " + id);
}

void SaveIni(const CommandCall& call) {
  if (call.host.SaveNow()) {
    call.reply.Ok(u"saved");
  } else {
    call.reply.SendLine(u"995 problem saving");
  }
}

void BringForward(const CommandCall& call) {
  call.host.BringForward();
  call.reply.Ok(u"done");
}

void ReplyList(const CommandCall& call, const std::vector<Text>& ids) {
  Text list;
  for (const Text& id : ids) list.append(id).push_back(u',');
  call.reply.Value(list);
}

void ListStacks(const CommandCall& call) {
  std::vector<Text> numbers;
  for (const std::int32_t number : call.host.StackNumbers()) numbers.push_back(IntText(number));
  ReplyList(call, numbers);
}

void Register(const CommandCall& call) {
  if (call.reply.Register()) {
    call.reply.Ok(u"will send events your way");
  } else {
    call.reply.SendLine(u"997 already registered");
  }
}

void Deregister(const CommandCall& call) {
  if (call.reply.Deregister()) {
    call.reply.Ok(u"no more events will be sent");
  } else {
    call.reply.SendLine(u"997 not registered in the first place");
  }
}

void Ping(const CommandCall& call) {
  call.reply.Ok(call.reply.IsRegistered() ? u"pong, with events" : u"pong");
}

void CloseJotlet(const CommandCall& call, TextView id) {
  if (!call.host.CloseDesktop(id)) {
    call.reply.SendLine(u"995 problem saving");
    return;
  }
  call.host.SaveNow();
  call.reply.Ok(u"closed");
}

void DeleteJotlet(const CommandCall& call, TextView id) {
  call.host.DeleteDesktop(id);
  call.host.SaveNow();
  call.reply.Ok(u"deleted");
}

struct ActionRow {
  TextView name;
  void (*run)(const CommandCall& call, TextView id);
};

constexpr std::array kActions = {
    ActionRow{u"close", CloseJotlet},
    ActionRow{u"delete", DeleteJotlet},
};

void DoDesktop(const CommandCall& call) {
  const Addressed to = SplitAddressed(call.arguments);
  const ActionRow* action = FindRow(kActions, to.rest);
  if (call.host.FindDesktop(to.id) == nullptr) {
    call.reply.SendLine(kJotletNotFound);
  } else if (action == nullptr) {
    call.reply.SendLine(kNotUnderstood);
  } else {
    action->run(call, to.id);
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
    call.reply.Value(reader->read(call.host, *jotlet));
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

struct CommandRow {
  TextView keyword;
  void (*run)(const CommandCall& call);
};

// In matching order. A keyword is a prefix of the command, so a longer one stands before its own beginning.
// The rows marked `NotYet` keep their place, so that no shorter keyword takes their commands.
constexpr std::array kCommands = {
    CommandRow{u"do new jotlet_paste_image", NotYet},
    CommandRow{u"do new jotlet_paste_plain", NotYet},
    CommandRow{u"do new jotlet_paste", NotYet},
    CommandRow{u"do new imagejotlet", NotYet},
    CommandRow{u"do new jotlet", NewJotlet},
    CommandRow{u"do new sleeping encoded ", NotYet},
    CommandRow{u"do new encoded ", NotYet},
    CommandRow{u"do wake ", WakeNote},
    CommandRow{u"do sleep ", SleepNote},
    CommandRow{u"do alarmstart ", StartNoteAlarm},
    CommandRow{u"do alarmstop ", StopNoteAlarm},
    CommandRow{u"do recurr ", RecurNote},
    CommandRow{u"do saveini", SaveIni},
    CommandRow{u"do bringforward", BringForward},
    CommandRow{u"do desktop ", DoDesktop},
    CommandRow{u"get desktop ", GetDesktop},
    CommandRow{u"get sleeping ", GetSleeping},
    CommandRow{u"get attached ", GetAttached},
    CommandRow{u"get stack ", GetStack},
    CommandRow{u"set desktop ", SetDesktop},
    CommandRow{u"set sleeping ", SetSleeping},
    CommandRow{u"get list desktop", [](const CommandCall& call) { ReplyList(call, call.host.DesktopIds()); }},
    CommandRow{u"get list attached",
               [](const CommandCall& call) { ReplyList(call, call.host.AttachedIds()); }},
    CommandRow{u"get list sleeping",
               [](const CommandCall& call) { ReplyList(call, call.host.SleepingIds()); }},
    CommandRow{u"get list closed", [](const CommandCall& call) { ReplyList(call, call.host.ClosedIds()); }},
    CommandRow{u"get list stacks", ListStacks},
    CommandRow{u"get version", [](const CommandCall& call) { call.reply.Value(kVersionText); }},
    CommandRow{u"get datapath", [](const CommandCall& call) { call.reply.Value(call.host.DataPath()); }},
    CommandRow{u"get uniqueid", [](const CommandCall& call) { call.reply.Value(call.host.UniqueId()); }},
    CommandRow{u"do register", Register},
    CommandRow{u"do deregister", Deregister},
    CommandRow{u"do ping", Ping},
};

constexpr auto kKeywords = [] {
  std::array<TextView, kCommands.size()> keywords;
  for (std::size_t i = 0; i < kCommands.size(); ++i) keywords[i] = kCommands[i].keyword;
  return keywords;
}();

}  // namespace

void ExecuteApiCommand(CommandHost& host, const ApiReplyChannel& reply, Log& log, TextView command) {
  log.Write(kLogDetail, u"API command received: \"", command, u"\"");
  for (const CommandRow& row : kCommands) {
    if (!StartsWithIgnoreCase(command, row.keyword)) continue;
    row.run({host, reply, command.substr(row.keyword.size())});
    return;
  }
  reply.SendLine(kNotUnderstood);
}

std::span<const TextView> CommandKeywords() { return kKeywords; }

Inbound RouteInbound(TextView text, bool skinFixedByPolicy) {
  constexpr TextView kCommandPrefix = u"api ";
  constexpr TextView kNotePrefix = u"#jotlet ";
  if (StartsWithIgnoreCase(text, kCommandPrefix)) {
    return {InboundKind::kCommand, text.substr(kCommandPrefix.size())};
  }
  const std::size_t dot = text.rfind(u'.');
  if (dot != TextView::npos && EqualIgnoreCase(text.substr(dot + 1), u"jsk") && !skinFixedByPolicy) {
    return {InboundKind::kSkinFile, text};
  }
  if (text.starts_with(kNotePrefix)) text.remove_prefix(kNotePrefix.size());
  return {InboundKind::kNoteMessage, text};
}

}  // namespace jotlets

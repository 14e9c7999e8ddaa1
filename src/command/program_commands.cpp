#include "command/program_commands.h"

namespace jotlets {
namespace {

void ReplyList(const CommandCall& call, const std::vector<Text>& ids) {
  Text list;
  for (const Text& id : ids) list.append(id).push_back(u',');
  call.reply.Value(list);
}

void ReplyManage(const CommandCall& call, bool open, TextView word, TextView refusal) {
  const std::optional<bool> changed = call.host.OpenManageWindow(open);
  if (!changed) return NotYet(call);
  Answer(call, *changed, word, refusal);
}

void AddToMenu(const CommandCall& call, MenuKind kind) {
  const Split entry = SplitAtFirst(TrimBlanks(call.arguments), u' ');
  if (entry.head.empty()) {
    call.reply.SendLine(kNotUnderstood);
    return;
  }
  switch (call.host.CustomMenu(kind).Add(entry.head, TrimBlanks(entry.tail))) {
    case CustomCommands::Added::kYes: call.reply.Ok(u"added"); break;
    case CustomCommands::Added::kExists: call.reply.SendLine(u"996 Menu command already exists"); break;
    case CustomCommands::Added::kNoRoom: call.reply.SendLine(u"997 unable to add"); break;
  }
}

void RemoveFromMenu(const CommandCall& call, MenuKind kind) {
  const TextView word = SplitAtFirst(TrimBlanks(call.arguments), u' ').head;
  Answer(call, call.host.CustomMenu(kind).Remove(word), u"removed", u"997 Not found to remove");
}

}  // namespace

void OpenManage(const CommandCall& call) { ReplyManage(call, true, u"opened", u"997 it's already open"); }
void CloseManage(const CommandCall& call) { ReplyManage(call, false, u"closed", u"997 it's already closed"); }

void RecreateIcon(const CommandCall& call) {
  call.host.RecreateIcon();
  call.reply.Ok(u"recreated");
}

void AddToNoteMenu(const CommandCall& call) { AddToMenu(call, MenuKind::kOfNotes); }
void RemoveFromNoteMenu(const CommandCall& call) { RemoveFromMenu(call, MenuKind::kOfNotes); }
void AddToProgramMenu(const CommandCall& call) { AddToMenu(call, MenuKind::kOfProgram); }
void RemoveFromProgramMenu(const CommandCall& call) { RemoveFromMenu(call, MenuKind::kOfProgram); }

void TakeBackup(const CommandCall& call) {
  Answer(call, call.host.Backup(TrimBlanks(call.arguments)), u"backup taken", u"997 Failure during backup");
}

void FindHandle(const CommandCall& call) {
  const Text id = call.host.DesktopOfWindow(ParseInt(call.arguments));
  if (id.empty()) {
    call.reply.SendLine(kNotFound);
  } else {
    call.reply.Value(id);
  }
}

void ShowAll(const CommandCall& call) {
  call.host.HideAll(false);
  SavedOk(call, u"shown");
}

void HideAll(const CommandCall& call) {
  call.host.HideAll(true);
  SavedOk(call, u"hidden");
}

void SetDefaultSkin(const CommandCall& call) {
  if (call.host.IsSkinFixed()) {
    call.reply.SendLine(kForbidden);
    return;
  }
  if (!call.host.SetDefaultSkin(TrimBlanks(call.arguments))) {
    call.reply.SendLine(kUnableToLoad);
    return;
  }
  SavedOk(call, u"set");
}

void GetDefaultSkin(const CommandCall& call) { call.reply.Value(call.host.DefaultSkinPath()); }

void GetSnapping(const CommandCall& call) {
  const auto snap = call.host.Snapping();
  call.reply.Value(Numbers({snap[0], snap[1], snap[2]}, u","));
}

// Nothing can be sent yet, and nothing is pretended.
void GetNewFriends(const CommandCall& call) { call.reply.SendLine(kUnableToSend); }

void SendOverNet(const CommandCall& call) {
  const Addressed to = SplitAddressed(call.arguments);
  const TextView method = SplitAtFirst(to.rest, u' ').head;
  if (call.host.FindDesktop(to.id) == nullptr) {
    call.reply.SendLine(kNotFound);
  } else if (!EqualIgnoreCase(method, u"address")) {
    call.reply.SendLine(u"997 Unrecognised netsend method");
  } else {
    call.reply.SendLine(kUnableToSend);
  }
}

void FriendFromAddress(const CommandCall& call) {
  const FriendList& friends = call.host.Friends();
  const std::size_t at = FindFriendByAddress(friends, TrimBlanks(call.arguments));
  call.reply.Value(at == kNoFriend ? TextView() : friends.entries[at].name);
}

void AddressFromFriend(const CommandCall& call) {
  const FriendList& friends = call.host.Friends();
  const std::size_t at = FindFriend(friends, TrimBlanks(call.arguments));
  call.reply.Value(at == kNoFriend ? TextView() : friends.entries[at].address);
}

void SaveIni(const CommandCall& call) { Answer(call, call.host.SaveNow(), u"saved", kProblemSaving); }

void BringForward(const CommandCall& call) {
  call.host.BringForward();
  call.reply.Ok(u"done");
}

void ListDesktop(const CommandCall& call) { ReplyList(call, call.host.DesktopIds()); }
void ListAttached(const CommandCall& call) { ReplyList(call, call.host.AttachedIds()); }
void ListSleeping(const CommandCall& call) { ReplyList(call, call.host.SleepingIds()); }
void ListClosed(const CommandCall& call) { ReplyList(call, call.host.ClosedIds()); }

void ListStored(const CommandCall& call) {
  std::vector<Text> keys;
  for (const std::int64_t key : call.host.Stored().KeysOf(TrimBlanks(call.arguments)))
    keys.push_back(IntText(key));
  ReplyList(call, keys);
}

void StoreNote(const CommandCall& call) {
  const Addressed to = SplitAddressed(call.arguments);
  if (call.host.FindDesktop(to.id) == nullptr) return call.reply.SendLine(kNotFound);
  const auto key = call.host.Stored().Store(to.id, TrimBlanks(to.rest));
  if (!key) return call.reply.SendLine(u"997 unable to store");
  SavedOk(call, u"stored: " + IntText(*key));
}

void FetchNote(const CommandCall& call) {
  const TextView number = TrimBlanks(call.arguments);
  const std::int64_t key = ParseInt(number);
  const Text id = call.host.Stored().Fetch(key);
  if (id.empty())
    return call.reply.SendLine(call.host.Stored().IsStored(key) ? TextView(u"997 unable to fetch")
                                                                : kNotFound);
  SavedOk(call, u"fetched: " + id);
}

void ShowStored(const CommandCall& call) {
  call.host.Stored().ShowStored(ParseInt(TrimBlanks(call.arguments)));
  call.reply.Ok(u"done");
}

void FindNotes(const CommandCall& call) {
  const TextView words = TrimBlanks(call.arguments);
  if (words.empty()) return call.reply.SendLine(kNotUnderstood);
  const auto found = call.host.Stored().Find(words);
  if (!found && !call.host.Stored().CanFind()) return call.reply.SendLine(u"997 the search cannot be used");
  if (!found) return call.reply.SendLine(u"997 still reading the notes");
  ReplyList(call, *found);
}

void ListStacks(const CommandCall& call) {
  std::vector<Text> numbers;
  for (const std::int32_t number : call.host.StackNumbers()) numbers.push_back(IntText(number));
  ReplyList(call, numbers);
}

void GetVersion(const CommandCall& call) { call.reply.Value(kVersionText); }
void GetDataPath(const CommandCall& call) { call.reply.Value(call.host.DataPath()); }
void GetUniqueId(const CommandCall& call) { call.reply.Value(call.host.UniqueId()); }

void RegisterClient(const CommandCall& call) {
  Answer(call, call.reply.Register(), u"will send events your way", u"997 already registered");
}

void DeregisterClient(const CommandCall& call) {
  Answer(call, call.reply.Deregister(), u"no more events will be sent",
         u"997 not registered in the first place");
}

void Ping(const CommandCall& call) {
  call.reply.Ok(call.reply.IsRegistered() ? u"pong, with events" : u"pong");
}

}  // namespace jotlets

// The commands about the program as a whole: menus, saving, showing, skins, friends, lists, facts, and
// registering for events.
#pragma once

#include "command/command_call.h"

namespace jotlets {

void OpenManage(const CommandCall& call);
void CloseManage(const CommandCall& call);
void RecreateIcon(const CommandCall& call);
void AddToNoteMenu(const CommandCall& call);
void RemoveFromNoteMenu(const CommandCall& call);
void AddToProgramMenu(const CommandCall& call);
void RemoveFromProgramMenu(const CommandCall& call);
void TakeBackup(const CommandCall& call);
void FindHandle(const CommandCall& call);
void ShowAll(const CommandCall& call);
void HideAll(const CommandCall& call);
void SaveIni(const CommandCall& call);
void BringForward(const CommandCall& call);
void SetDefaultSkin(const CommandCall& call);
void GetDefaultSkin(const CommandCall& call);
void GetSnapping(const CommandCall& call);

void GetNewFriends(const CommandCall& call);
void SendOverNet(const CommandCall& call);
void FriendFromAddress(const CommandCall& call);
void AddressFromFriend(const CommandCall& call);

void ListDesktop(const CommandCall& call);
void ListAttached(const CommandCall& call);
void ListSleeping(const CommandCall& call);
void ListClosed(const CommandCall& call);
void ListStored(const CommandCall& call);
void StoreNote(const CommandCall& call);
void FetchNote(const CommandCall& call);
void ShowStored(const CommandCall& call);
void FindNotes(const CommandCall& call);
void ListStacks(const CommandCall& call);

void GetVersion(const CommandCall& call);
void GetDataPath(const CommandCall& call);
void GetUniqueId(const CommandCall& call);

void RegisterClient(const CommandCall& call);
void DeregisterClient(const CommandCall& call);
void Ping(const CommandCall& call);

}  // namespace jotlets

// The program's end of the command interface: takes copy-data in, runs commands on the notes, sends events.
#pragma once

#include <windows.h>

#include <optional>

#include "app/win/commands/addressed_jotlet.h"
#include "app/win/commands/managed_notes.h"
#include "app/win/commands/tray_commands.h"
#include "app/win/program_search.h"
#include "command/interpreter.h"
#include "command/win/copy_data.h"
#include "desk/sleeping_notes.h"
#include "friends/friend_book.h"

namespace jotlets {

/// What commands reach beside notes.
struct ProgramTools {
  const CodePage& ansi;
  const Clock& clock;
  Log& log;
  Files& files;
  const FriendBook& friends;
  SleepingNotes& sleeping;
  NoteStore& store;
  ProgramSearch& search;
  ProgramSaving& saving;
  ManagedNotes& managed;
  TrayCommands& tray;
  CSystemTray& icon;
  Listeners& listeners;
  ClientLines& clientLines;
  CustomMenus& menus;
  const Text& installId;
};

/// Its view of the store.
class StoreEndpoint final : public StoreHost {
 public:
  StoreEndpoint(NoteDesk& desk, NoteStore& store, ManagedNotes& managed, ProgramSearch& search)
      : desk_(desk), store_(store), managed_(managed), search_(search) {}
  std::optional<std::int64_t> Store(TextView id, TextView category) override {
    return desk_.Store(id, category);
  }
  bool IsStored(std::int64_t key) override { return store_.Find(key).has_value(); }
  Text Fetch(std::int64_t key) override { return desk_.Fetch(key); }
  std::vector<std::int64_t> KeysOf(TextView category) override { return store_.KeysOf(category); }
  void ShowStored(std::int64_t key) override { managed_.ShowStored(key); }
  std::optional<std::vector<Text>> Find(TextView words) override { return search_.Names(words); }
  bool CanFind() override { return search_.IsUsable(); }

 private:
  NoteDesk& desk_;
  NoteStore& store_;
  ManagedNotes& managed_;
  ProgramSearch& search_;
};

/// The command language's view of the program.
class CommandEndpoint final : public CommandHost {
 public:
  CommandEndpoint(const NoteTools& note, const ProgramTools& program)
      : note_(note), program_(program), stored_(note.desk, program.store, program.managed, program.search) {}

  /// Serves a copy-data message; what it answers.
  Taken OnCopyData(HWND sender, const COPYDATASTRUCT& record);

  DesktopJotlet* FindDesktop(TextView id) override;
  const JotletData* FindAttached(TextView id) override;
  const JotletData* FindSleeping(TextView id) override;
  const JotletData* FindClosed(TextView id) override;
  Text DesktopOfWindow(std::int64_t handle) override;
  std::vector<Text> DesktopIds() const override;
  std::vector<Text> AttachedIds() const override;
  std::vector<Text> SleepingIds() const override;
  std::vector<Text> ClosedIds() const override;
  std::vector<std::int32_t> StackNumbers() const override;
  const StackRecord* FindStack(std::int32_t number) const override;
  Text ContentForTransfer(const JotletData& record) override;

  Text CreateDesktop(TextView text) override;
  Pasted CreateFromClipboard(Paste what) override;
  Text CreateFromPicture(TextView path) override;
  Text CreateEncoded(TextView encoded, bool asleep) override;
  bool CloseDesktop(TextView id) override;
  bool DeleteDesktop(TextView id) override;
  Renamed SetDesktopId(TextView id, TextView newId) override;

  bool WakeSleeping(TextView id) override;
  StoreHost& Stored() override { return stored_; }
  bool Sleep(TextView id, const WakeFlags& flags, std::int64_t seconds) override;
  bool Recur(TextView id, const WakeFlags& flags, const WakeRule& rule, std::int32_t start,
             std::int32_t end) override;
  void SoundAlarm(TextView id, bool on) override;
  void MoveSleeping(TextView id, Point position) override;
  void SetWakeTime(TextView id, std::int32_t time) override;

  bool SaveNow() override;
  bool Backup(TextView folder) override;
  void BringForward() override;
  void HideAll(bool hidden) override;
  void RecreateIcon() override;
  std::optional<bool> OpenManageWindow(bool open) override;
  bool IsSkinFixed() override;
  bool SetDefaultSkin(TextView path) override;
  Text DefaultSkinPath() override;
  std::array<std::int32_t, 3> Snapping() const override;
  bool RolledHasAltPosition() const override;
  Text DataPath() const override;
  Text UniqueId() const override;
  LocalTime ToLocal(std::int32_t utc) override;
  const FriendList& Friends() override;
  CustomCommands& CustomMenu(MenuKind kind) override;
  void NotifyMoved(TextView id) override;

 private:
  Taken Serve(const ApiReplyChannel& reply, const COPYDATASTRUCT& record);

  NoteTools note_;
  ProgramTools program_;
  StoreEndpoint stored_;
  std::optional<AddressedJotlet> addressed_;  // the note that the command under way is about
};

}  // namespace jotlets

// The stacks: their windows, in the order of the data file, and what becomes of their notes.
#pragma once

#include <memory>
#include <vector>

#include "desk/note_desk.h"
#include "desk/win/open_notes.h"
#include "schedule/win/stack_window.h"
#include "ui/resources.h"

namespace jotlets {

/// What the stacks ask of the rest of the program.
class StacksOwner {
 public:
  virtual ~StacksOwner() = default;
  /// Carries out a command of the tray menu.
  virtual void DoProgramCommand(UINT command) = 0;
  /// Closes a note for the user, who is told when that is not possible.
  virtual void CloseForUser(const Text& id) = 0;
  /// A colour has been chosen that is to be offered again.
  virtual void RememberColour(Colour colour) = 0;
  /// `OpenStacks::Refresh` and `OpenStacks::Purge` are to be called from the message loop.
  virtual void RefreshStacksSoon() = 0;
  virtual void PurgeSoon() = 0;
};

class OpenStacks final : public StackOwner {
 public:
  OpenStacks(StacksOwner& owner, const Resources& resources, Log& log, NoteDesk& desk, OpenNotes& desktop)
      : owner_(owner), resources_(resources), log_(log), desk_(desk), desktop_(desktop) {}

  /// Opens a window for every stack of the lists, not yet shown.
  void OpenAll();
  BStackDlg* Find(std::int32_t number);
  std::vector<Rect> Bounds() const;

  /// A new, empty stack beside a window of the note; nullptr, with a log line, when there is none to be had.
  BStackDlg* Create(const BJotlet& beside);
  /// The note, and those selected with it, join the stack.
  void Add(std::int32_t number, BJotlet& jotlet);
  /// These join it, if it is there.
  void AddNotes(std::int32_t number, const std::vector<BJotlet*>& notes);
  /// The note, and those selected with it, belong to no stack any more and are shown.
  void RemoveMember(BJotlet& jotlet);
  /// Shows all notes of a stack side by side next to it, or brings all of them in.
  void Spread(BStackDlg& stack);
  void Gather(BStackDlg& stack);
  /// Asks what is to become of the notes, if there are any, and deletes the stack.
  void Close(std::int32_t number);

  /// The mouse moves a note, with Shift or without: the stack under it shows that it would take the note.
  void OnNoteDragged(bool shift);
  /// The mouse has let go of a note; with Shift it joins the stack there.
  void OnNoteDropped(BJotlet& jotlet, bool shift);

  /// The uppermost stack there; nullptr where there is none.
  BStackDlg* UnderMouse();

  /// The notes or their titles may have changed: the lists are read anew, once, when the program gets to it.
  void RefreshSoon();
  void Refresh();

  void ShowAll();
  void HideAll();
  void BringForward();
  /// Brings stacks off `screen` back on to it, each of which is logged.
  void Rescue();
  void FollowMonitors();
  void RefreshSkins();
  /// The options have changed.
  void FollowOptions();
  void Enable(bool enabled);
  void CloseAll();
  /// Throws closed stacks away whose windows no longer serve a message.
  void Purge();

  void OnStackChanged(BStackDlg& stack) override;
  bool OnStackAction(BStackDlg& stack, ActionCode action) override;
  void OnStackMenu(BStackDlg& stack, const std::optional<Text>& member) override;
  void OnMemberClicked(BStackDlg& stack, const Text& id) override;
  void OnMemberDraggedOut(BStackDlg& stack, const Text& id) override;
  void OnMemberTakenOut(BStackDlg& stack, const Text& id) override;
  std::vector<Rect> WindowsToSnapTo(const BStackDlg& stack) override;
  Text EmptyHint() const override;

 private:
  BStackDlg* Open(const StackRecord& record);
  void Remove(BStackDlg& stack);
  std::vector<BJotlet*> NotesOf(std::int32_t number);
  void MoveOut(BStackDlg& stack, const std::vector<BJotlet*>& notes, bool onlyHidden);
  void Settle(BJotlet& jotlet);
  void MoveIn(BStackDlg& stack, BJotlet& jotlet);
  Rect AreaOf(const BStackDlg& stack);
  bool DoMenuCommand(BStackDlg& stack, UINT command, const std::optional<Text>& member);
  void EditTitle(std::int32_t number);
  void ChooseColour(std::int32_t number);

  StacksOwner& owner_;
  const Resources& resources_;
  Log& log_;
  NoteDesk& desk_;
  OpenNotes& desktop_;
  std::vector<std::unique_ptr<BStackDlg>> stacks_;
  // A stack may be closed while one of its messages is being served; it then waits here.
  std::vector<std::unique_ptr<BStackDlg>> removed_;
  bool refreshComes_ = false;
};

}  // namespace jotlets

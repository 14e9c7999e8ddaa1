// The notes as the manage window has them: where its rows and texts come from, and what its actions do.
#pragma once

#include <vector>

#include "desk/jotlet_lists.h"
#include "desk/note_saver.h"
#include "desk/win/desktop_jotlets.h"
#include "desk/win/jotlet_maker.h"
#include "manage/win/manage_dialog.h"

namespace jotlets {

class CMainFrame;

class ManagedNotes final : public ManageOwner, public NoteTexts {
 public:
  ManagedNotes(CMainFrame& frame, const Resources& resources, const Files& files, JotletLists& lists,
               DesktopJotlets& desktop, JotletMaker& maker, NoteSaver& saver, Options& options)
      : frame_(frame),
        resources_(resources),
        files_(files),
        lists_(lists),
        desktop_(desktop),
        maker_(maker),
        saver_(saver),
        options_(options),
        dialog_(resources, *this, *this, options) {}

  BManageDlg& Dialog() { return dialog_; }

  /// Opens closed notes where they were before, and tells the listeners; how many could not be opened and are
  /// closed still.
  std::size_t Restore(const std::vector<Text>& ids);
  /// Deletes closed notes for good, and tells the listeners.
  void DeleteClosed(const std::vector<Text>& ids);
  /// Notes that wait for the windows that they are attached to become plain notes of the desktop, as do those
  /// that are there already; how many did not.
  std::size_t Unattach(const std::vector<Text>& ids);

  bool FillManageList(ManageView view, ManageList& list) override;
  std::array<std::size_t, kManageViews> CountManaged() override;
  void DoManageAction(ManageAction action, ManageView view, const std::vector<Text>& ids) override;
  bool CanUndoManaged() const override { return !deleted_.empty(); }
  Text ManagedTime(std::int32_t utc) override;
  void OnManageSettings() override;

  Text TextOf(const ManageRow& row) override;

 private:
  // Notes that were deleted together, and where they were.
  struct Deleted {
    ManageView view;
    std::vector<Text> ids;
  };

  bool IsAgreed(ManageAction action, ManageView view, std::size_t count);
  std::size_t Do(ManageAction action, ManageView view, const std::vector<Text>& ids);
  void OpenNotes(const std::vector<Text>& ids);
  void OpenStacks(const std::vector<Text>& ids);
  std::size_t Wake(const std::vector<Text>& ids);
  std::size_t Delete(ManageView view, const std::vector<Text>& ids);
  std::size_t CloseOpen(const std::vector<Text>& ids);
  void CloseWaiting(ManageView view, const std::vector<Text>& ids);
  std::vector<JotletData> TakeWaiting(ManageView view, const std::vector<Text>& ids);
  std::size_t Undo();
  void Remember(Deleted step);
  /// Opens records that belong to no list any more, `change`d; those that got no window are returned as they
  /// were.
  std::vector<JotletData> OpenOnDesktop(std::vector<JotletData> records, TextView reason,
                                        void (*change)(JotletData&) = nullptr);

  CMainFrame& frame_;
  const Resources& resources_;
  const Files& files_;
  JotletLists& lists_;
  DesktopJotlets& desktop_;
  JotletMaker& maker_;
  NoteSaver& saver_;
  Options& options_;
  BManageDlg dialog_;
  std::vector<Deleted> deleted_;  // the latest last
};

}  // namespace jotlets

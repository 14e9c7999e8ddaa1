// The manage window: all notes, in views by what they are doing, to be searched, sorted and acted upon.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <optional>
#include <vector>

#include "data/options.h"
#include "manage/manage_actions.h"
#include "manage/manage_list.h"
#include "manage/win/manage_drag.h"
#include "manage/win/manage_owner.h"
#include "manage/win/manage_preview.h"
#include "manage/win/manage_table.h"
#include "manage/win/manage_views.h"
#include "store/stored_browser.h"
#include "ui/dialog.h"

namespace jotlets {

class BManageDlg final : public Dialog {
 public:
  /// Place, widths, sorting and what is searched are kept in `options`.
  BManageDlg(const Resources& resources, ManageOwner& owner, NoteTexts& texts, PreviewSource& shown,
             Options& options)
      : resources_(resources),
        owner_(owner),
        options_(options),
        texts_(texts),
        list_(texts_),
        table_(list_, owner_),
        preview_(resources, shown) {}

  /// Opens the window; false when it is open already, or the system could not. It takes the focus when
  /// `activate`.
  bool OpenWindow(bool activate);
  /// Closes it for the user; false when it is not open.
  bool CloseWindow();
  /// Takes it away at the end of the program, which opens it again at the next start.
  void CloseForExit() { Close(); }
  /// Gives what is being written in the preview to its note.
  void SaveText() { preview_.Save(); }
  /// Brings the open window to the user's eyes.
  void Activate();
  /// Shows a note of a place, by its name in the list, and selects it, in the open window.
  void ShowNote(const ManagePlace& place, const Text& name);
  /// More is known of very many stored notes, and some have been fetched.
  void FollowStored(const std::vector<StoredBrowser::Page>& pages);
  /// Shows where the notes are that were asked for.
  void ShowSurvey(const SearchSurvey& survey);
  /// The category of the store that the mouse is at, or that is shown; "" where there is none.
  Text CategoryUnderMouse() const;
  HWND Window() const { return Handle(); }

  /// The notes may have changed: the open window looks at them once, shortly.
  void RefreshSoon();

  /// Serves the keys of the window itself; true when the message is done with. Before accelerators.
  bool TranslateKey(const MSG& message);
  /// Serves all else that goes to the window. After accelerators.
  bool TranslateRest(MSG& message) { return IsOpen() && IsDialogMessageW(Handle(), &message); }

 private:
  enum Timer : UINT_PTR { kRefreshTimer = 1, kReadTimer, kPreviewTimer };
  enum PrivateMessage : UINT { kActMessage = WM_APP + 1, kStoreMessage };
  struct KeyRow;
  static const KeyRow kKeys[];

  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;
  HBRUSH OnColours(HDC dc, HWND control) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  std::optional<LRESULT> AnswerNotify(NMHDR& header);
  void OnContextMenu(POINT at);
  void OnViewsMenu(POINT at);
  void OnWindowTimer(UINT_PTR timer);
  void OnWindowEnd();

  void StoreSettings();
  void Layout();

  ManageView View() const { return views_.Chosen().view; }
  void ShowPlace();
  void Refresh();
  void Search();
  void SortBy(ManageColumn column);
  void ReadTexts();
  void AskSurvey();
  void ChangeList(const std::function<bool()>& change);
  void ShowRows(const ManageTable::Selection& selection);

  ManageFacts Facts() const;
  void ShowPreview();
  void UpdateState();
  void ShowStatus(std::size_t selected);
  void ActSoon(ManageAction action);
  void Act(ManageAction action);
  void ActByDefault();

  bool OnDragMessage(UINT message);
  void ShowDrag();

  void RenameCategory();

  const Resources& resources_;
  ManageOwner& owner_;
  Options& options_;
  ManageTexts texts_;
  ManageList list_;
  ManageTable table_;
  ManageViews views_;
  ManagePreview preview_;
  SurveyQuestion asked_;
  Text wanted_;  // a note that is to be shown as soon as the list has it
  bool refreshComes_ = false;
  ManageDrag drag_{views_};
};

}  // namespace jotlets

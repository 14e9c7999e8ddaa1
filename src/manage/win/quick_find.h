// Quick find: a small field over everything. What is typed is looked for in all notes at each key; Enter
// opens what is chosen, Ctrl+Enter makes a note of the words.
#pragma once

#include <windows.h>

#include <vector>

#include "store/note_search.h"
#include "ui/dialog.h"
#include "ui/handle.h"

namespace jotlets {

/// What the field asks of the program that opens it.
class QuickFindOwner {
 public:
  virtual ~QuickFindOwner() = default;
  /// Looks for notes; the answer comes to `ShowAnswer`.
  virtual void AskForNotes(TextView typed, std::size_t maximum) = 0;
  /// Shows a note to the user, wherever it is, and where `words` stand in it.
  virtual void OpenFoundNote(const IndexedNote& note, TextView words) = 0;
  virtual void MakeNoteOf(TextView words) = 0;
};

class BQuickFindDlg final : public Dialog {
 public:
  BQuickFindDlg(const Resources& resources, QuickFindOwner& owner) : resources_(resources), owner_(owner) {}

  void OpenWindow();
  void CloseForExit() { Close(); }
  /// What has been found of what was asked; an answer to another question does nothing.
  void ShowAnswer(SearchAnswer answer);

  /// Serves the keys of the field; true when the message is done with. Before accelerators.
  bool TranslateKey(const MSG& message);
  bool TranslateRest(MSG& message) { return IsOpen() && IsDialogMessageW(Handle(), &message); }

 private:
  enum PrivateMessage : UINT { kCloseMessage = WM_APP + 1, kEnterMessage, kOpenMessage, kMakeMessage };

  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;
  HBRUSH OnColours(HDC context, HWND control) override;

  void PlaceWindow();
  void Layout();
  void Ask();
  void ShowResults(const Text& chosen);
  void ShowStatus();
  void Move(int rows);
  std::size_t ChosenRow() const;
  void OnEnter();
  void OpenChosen();
  void MakeNote();
  Text TitleOf(const SearchResult& result) const;
  Text WhereIs(const IndexedNote& note) const;
  int Scaled(int length) const;

  const Resources& resources_;
  QuickFindOwner& owner_;
  SearchAnswer answer_;  // may still be the one to what was typed before
  bool opens_ = false;   // Enter waits for the answer to what is typed now
  UniqueFont font_;
  UniqueFont large_;
  UniqueFont bold_;
};

}  // namespace jotlets

// The window "Keyboard shortcuts": every key with what it does, and a search.
#pragma once

#include "action/key_list.h"
#include "app/win/hot_keys.h"
#include "ui/dialog.h"

namespace jotlets {

class BKeysDlg final : public Dialog {
 public:
  BKeysDlg(const Resources& resources, const HotKeys& hotKeys) : resources_(resources), hotKeys_(hotKeys) {}

  /// Opens the window, or brings the open one to the user's eyes. The hot keys are listed as they hold now.
  void OpenWindow();
  void CloseForExit() { Close(); }

  /// Serves the keys of the window itself, before accelerators; true when the message is done with.
  bool TranslateKey(const MSG& message);
  /// Serves all else that goes to the window, after accelerators.
  bool TranslateRest(MSG& message) { return IsOpen() && IsDialogMessageW(Handle(), &message); }

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  void AddColumns();
  void ReadRows();
  void AddProgramKeys(std::vector<KeyRow>& rows) const;
  void ShowRows();
  void FitColumns();
  void Layout();
  int Scaled(int length) const;

  const Resources& resources_;
  const HotKeys& hotKeys_;
  std::vector<KeyRow> rows_;
};

}  // namespace jotlets

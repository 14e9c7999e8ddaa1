// Asks for one line of text.
#pragma once

#include <optional>

#include "ui/dialog.h"

namespace jotlets {

class BTextDlg final : public Dialog {
 public:
  /// `caption` is the number of the dialog's title, `text` what stands in it at first.
  BTextDlg(const Resources& resources, UINT caption, TextView text)
      : resources_(resources), caption_(caption), text_(text) {}

  /// The text as the user leaves it; nothing when it was cancelled.
  std::optional<Text> Ask(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;

  const Resources& resources_;
  UINT caption_;
  Text text_;
};

}  // namespace jotlets

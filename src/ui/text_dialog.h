// Asks for one line of text.
#pragma once

#include <optional>

#include "ui/dialog.h"

namespace jotlets {

class BTextDlg final : public Dialog {
 public:
  /// `caption` and `label` are the numbers of the dialog's title and of the words before its field, `text` is
  /// what stands in it at first.
  BTextDlg(const Resources& resources, UINT caption, UINT label, TextView text)
      : resources_(resources), caption_(caption), label_(label), text_(text) {}

  /// The text as the user leaves it; nothing when it was cancelled.
  std::optional<Text> Ask(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;

  const Resources& resources_;
  UINT caption_;
  UINT label_;
  Text text_;
};

}  // namespace jotlets

// Asks what is to become of the notes of a stack that is being closed.
#pragma once

#include <optional>

#include "ui/dialog.h"

namespace jotlets {

enum class NotesOfClosedStack { kStay, kClose };

class BCloseStackDlg final : public Dialog {
 public:
  BCloseStackDlg(const Resources& resources, std::size_t notes) : resources_(resources), notes_(notes) {}

  /// Nothing when the stack is to stay as it is.
  std::optional<NotesOfClosedStack> Ask(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;

  const Resources& resources_;
  std::size_t notes_;
};

}  // namespace jotlets

// Lets the user choose the window that a note is attached to: from a list, or by patterns, whose matches the
// list shows at once.
#pragma once

#include <optional>

#include "data/jotlet_data.h"
#include "schedule/win/foreign_windows.h"
#include "schedule/win/window_icons.h"
#include "ui/dialog.h"

namespace jotlets {

/// What a note is to be attached to.
struct AttachChoice {
  Attachment attachment;  // patterns and requirements; no place yet
  HWND window = nullptr;  // that the user pointed at, if any
};

class BAttachDlg final : public Dialog {
 public:
  /// `record` is the note, whose patterns the dialog begins with when it is attached already. `showAll`
  /// lists the system's windows too.
  BAttachDlg(const Resources& resources, FrontWindow& front, const JotletData& record, bool showAll);

  /// What the note is to be attached to; nothing when it was cancelled.
  std::optional<AttachChoice> Choose(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;

  void List();
  void ReadSelected();
  void Preview();
  void Take();

  const Resources& resources_;
  FrontWindow& front_;
  AttachChoice choice_;
  const bool showAll_;
  std::vector<ForeignWindow> listed_;
  std::vector<bool> matches_;  // by the place in the list
  WindowIcons icons_;
  HWND pointedAt_ = nullptr;
};

}  // namespace jotlets

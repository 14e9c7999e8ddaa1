// The size of a picture, in pixels or percent.
#pragma once

#include "picture/picture_sizing.h"
#include "ui/dialog.h"

namespace jotlets {

class BPictureSizeDlg final : public Dialog {
 public:
  BPictureSizeDlg(const Resources& resources, PictureSizing sizing)
      : resources_(resources), sizing_(sizing) {}

  /// Lets the user choose; false when it was cancelled.
  bool Edit(HWND owner);
  /// What was chosen, with the unit and the proportions as they were left.
  const PictureSizing& Chosen() const { return sizing_; }

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  void ShowNumbers(int except);
  void ShowWords();

  const Resources& resources_;
  PictureSizing sizing_;
  bool filling_ = false;
};

}  // namespace jotlets

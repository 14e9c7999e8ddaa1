// Everything of a note that can be set in one place: title, user string, colour, opacity, size, flags; and
// its dates.
#pragma once

#include <functional>

#include "data/jotlet_data.h"
#include "ui/dialog.h"

namespace jotlets {

class BPropertiesDlg final : public Dialog {
 public:
  /// `record` is up to date; `shownTime` gives seconds since 1970 UTC in the user's form.
  BPropertiesDlg(const Resources& resources, JotletData record, std::function<Text(std::int32_t)> shownTime)
      : resources_(resources), record_(std::move(record)), shownTime_(std::move(shownTime)) {}

  /// Lets the user change the record; false when it was cancelled.
  bool Edit(HWND owner) { return Show(resources_, IDD(), owner) == IDOK; }
  const JotletData& Record() const { return record_; }

 private:
  static UINT IDD();
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;
  void Take();

  const Resources& resources_;
  JotletData record_;
  std::function<Text(std::int32_t)> shownTime_;
};

}  // namespace jotlets

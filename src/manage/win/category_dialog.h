// Asks into which category of the store notes go: one that is there, or a new one.
#pragma once

#include <optional>
#include <vector>

#include "ui/dialog.h"

namespace jotlets {

class BCategoryDlg final : public Dialog {
 public:
  /// `proposed` stands in the field at first. The categories outlive the dialog.
  BCategoryDlg(const Resources& resources, const std::vector<Text>& categories, Text proposed)
      : resources_(resources), categories_(categories), category_(std::move(proposed)) {}

  /// The category without blanks at its ends, never empty; nothing when it was cancelled.
  std::optional<Text> Ask(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  Text ChosenInList() const;

  const Resources& resources_;
  const std::vector<Text>& categories_;
  Text category_;
};

}  // namespace jotlets

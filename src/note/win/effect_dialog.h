// How strong an effect on a picture is to be; the picture shows it meanwhile.
#pragma once

#include <functional>
#include <optional>

#include "ui/dialog.h"

namespace jotlets {

class BEffectDlg final : public Dialog {
 public:
  /// `tried` is told of each strength, in pixels from 1, as soon as it is written; also of the first.
  BEffectDlg(const Resources& resources, const Text& title, std::int32_t strength,
             std::function<void(std::int32_t strength)> tried)
      : resources_(resources), title_(title), strength_(strength), tried_(std::move(tried)) {}

  /// Lets the user choose; nothing when it was cancelled.
  std::optional<std::int32_t> Choose(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;

  const Resources& resources_;
  Text title_;
  std::int32_t strength_;
  std::function<void(std::int32_t)> tried_;
};

}  // namespace jotlets

// A message or a question, in the look of the program; the system's own boxes have none but the light one.
#pragma once

#include "ui/dialog.h"

namespace jotlets {

class BMessageDlg final : private Dialog {
 public:
  enum class Kind { kInformation, kWarning, kQuestion, kGraveQuestion };

  BMessageDlg(const Resources& resources, Kind kind, const Text& words)
      : resources_(resources), kind_(kind), words_(words) {}

  /// Shows it, and waits until it is dismissed. A question is answered by "yes" only with its button or key:
  /// Enter and Escape are a no.
  bool Run(HWND owner);

 private:
  bool Asks() const { return kind_ == Kind::kQuestion || kind_ == Kind::kGraveQuestion; }
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  /// Makes room for the words, and as little more as possible.
  void Fit();

  const Resources& resources_;
  const Kind kind_;
  const Text words_;
};

}  // namespace jotlets

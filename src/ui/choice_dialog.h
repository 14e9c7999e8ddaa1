// A question with two or three answers and a way out, each a button with words of its own.
#pragma once

#include "ui/dialog.h"

namespace jotlets {

enum class Choice { kFirst, kSecond, kThird, kNeither };

class BChoiceDlg final : public Dialog {
 public:
  /// The template `dialog` has the question as IDC_CHOICE_QUESTION and the buttons IDOK, IDC_CHOICE_SECOND,
  /// perhaps IDC_CHOICE_THIRD, and IDCANCEL. The one that Enter presses is its default button.
  BChoiceDlg(UINT dialog, Text question) : dialog_(dialog), question_(std::move(question)) {}

  Choice Ask(const Resources& resources, HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;

  UINT dialog_;
  Text question_;
};

}  // namespace jotlets

// The ten text styles: what they are called and look like.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "data/options.h"
#include "editor/text_style.h"
#include "ui/dialog.h"

namespace jotlets {

class BStylesDlg final : public Dialog {
 public:
  /// The styles of `options`. `selection` is the style of the text that is selected, if there is one. All
  /// outlive the dialog.
  BStylesDlg(const Resources& resources, const Options& options, const HighlightColours& highlights,
             std::optional<TextStyle> selection);

  /// Lets the user change the styles; false when that was cancelled.
  bool Edit(HWND owner);
  /// The styles as the options keep them, those above the ten as they were.
  std::vector<Text> Written() const;

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;

  TextStyle& Selected() { return styles_[selected_]; }
  void ShowSelected();
  void Read();
  void ReadParagraphs();
  void Choose(const TextStyle& style);
  void ChooseFont();
  void ChooseColour();
  void FillHighlights();
  void ShowHighlight();
  bool IsChecked(int control) const { return IsDlgButtonChecked(Handle(), control) == BST_CHECKED; }
  std::size_t Chosen(int control) const;
  std::int32_t Twips(int control) const;
  void SetTwips(int control, std::int32_t twips);

  const Resources& resources_;
  const Options& options_;
  HighlightColours highlights_;
  std::optional<TextStyle> selection_;
  std::array<TextStyle, kTextStyles> styles_;
  std::size_t selected_ = 0;
  bool filling_ = false;
};

}  // namespace jotlets

// The skin chooser: the skins of the skins folder and the built-in one, with what their makers say of them
// and a live preview.
#pragma once

#include "skin/win/program_skins.h"
#include "ui/dialog.h"

namespace jotlets {

/// What the user wants: a skin, for this note or as the default of all that
/// name none.
struct SkinChoice {
  Text name;
  bool asDefault = false;
};

class BSkinDlg final : public Dialog {
 public:
  /// `name` is the skin that the note names now, `colour` the note's, `darkColour` its dark form.
  BSkinDlg(const Resources& resources, ProgramSkins& skins, TextView name, Colour colour, Colour darkColour);

  /// Nothing when the user did not want one.
  std::optional<SkinChoice> Choose(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;
  void ShowSelected();
  const SkinSummary* Selected() const;

  const Resources& resources_;
  ProgramSkins& skins_;
  Colour colour_;
  Colour darkColour_;
  std::vector<SkinSummary> listed_;  // the built-in one first
  std::size_t first_ = 0;            // the one that is selected at the beginning
  std::shared_ptr<const LoadedSkin> shown_;
  SkinChoice choice_;
};

}  // namespace jotlets

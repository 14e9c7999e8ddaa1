// The options dialog: a list of pages, a search field that finds settings by their words, and the pages.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "settings/settings_search.h"
#include "settings/win/options_page.h"

namespace jotlets {

class BOptionsDlg final : public Dialog, private PageWatcher {
 public:
  BOptionsDlg(const Resources& resources, OptionsOwner& owner) : resources_(resources), owner_(owner) {}

  /// Opens the dialog at a page, or brings the open one forward and to that page.
  void OpenAt(SettingsPage page);
  /// Takes it away at the end of the program; what was not confirmed is forgotten.
  void CloseForExit() { Close(); }
  void Enable(bool enabled) {
    if (IsOpen()) EnableWindow(Handle(), enabled);
  }
  /// The options were changed elsewhere.
  void Follow();

  /// Serves its own keys and, after accelerators, all else; true when the message is done with.
  bool TranslateKey(const MSG& message);
  bool TranslateRest(MSG& message);

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;
  Colour Surface() const override { return Look().Colours().views; }
  void OnSettingChanged() override;

  void MakePages();
  void Layout();
  void PlaceInMiddle();
  void GatherWords();
  BOpTab& PageAt(SettingsPage page) { return *pages_[static_cast<std::size_t>(page)]; }
  void Show(SettingsPage page);
  void Step(int step);
  void ShowList();
  Text FoundText(std::uint16_t id) const;
  void OnSelected();
  void GoToFound();
  void Reset();
  bool Apply();
  void ShowApply();

  const Resources& resources_;
  OptionsOwner& owner_;
  std::optional<SettingsDraft> draft_;
  SettingChoices choices_;
  bool startedBefore_ = false;  // with Windows
  std::array<std::unique_ptr<BOpTab>, kSettingsPages> pages_;
  SettingsPage page_ = SettingsPage::kNotes;
  std::vector<SettingWords> words_;
  std::vector<std::uint16_t> found_;  // what is listed in the place of the pages
  bool searching_ = false;
};

}  // namespace jotlets

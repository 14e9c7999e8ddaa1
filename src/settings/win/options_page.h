// A page of the options dialog: the controls of its settings under their headings, in a window of its own
// that scrolls when there is no room for all.
#pragma once

#include <optional>
#include <vector>

#include "settings/settings_draft.h"
#include "settings/win/options_owner.h"
#include "settings/win/setting_controls.h"
#include "ui/dialog.h"
#include "ui/handle.h"

namespace jotlets {

/// What a page tells the dialog.
class PageWatcher {
 public:
  virtual ~PageWatcher() = default;
  /// The user has changed something.
  virtual void OnSettingChanged() = 0;
};

/// What the pages share; all of it outlives them.
struct PageContext {
  const Resources& resources;
  SettingsDraft& draft;
  OptionsOwner& owner;
  PageWatcher& watcher;
  SettingChoices& choices;
};

class BOpTab : public Dialog {
 public:
  /// Makes the page in the dialog, not shown; false when the system could not.
  bool OpenIn(HWND dialog);
  HWND Window() const { return Handle(); }
  void Show(bool shown);
  void SetBounds(const Rect& area);

  /// Shows what the draft says.
  void Fill();
  /// Scrolls to a setting and gives it the focus.
  void ShowSetting(std::uint16_t id);
  /// Scrolls so that a control of the page is in sight.
  void ShowControl(HWND control);

 protected:
  BOpTab(SettingsPage page, const PageContext& context) : page_(page), context_(context) {}

 private:
  /// What all was placed for.
  struct LaidOut {
    int width = 0;
    int height = 0;
    UINT dpi = 0;
    friend bool operator==(const LaidOut&, const LaidOut&) = default;
  };
  struct PageText {
    UINT text = 0;
    HWND window = nullptr;  // once it was placed
  };

  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;
  HBRUSH OnColours(HDC dc, HWND control) override;

  void Put(PageText& text, const Rect& area, const UniqueFont& font) const;
  void MakeFonts();
  /// Places all anew, unless its size and scale are those of the last time.
  void Layout();
  void PlaceAll(int width, const PageScale& scale);
  using Line = std::vector<SettingControls>::iterator;
  static int PlaceLine(Line first, Line end, SettingLine line, const PageScale& scale);
  void LayoutAnew();
  void ScrollTo(int position);
  void OnScroll(UINT code);
  void ShowStates();
  SettingControls* Find(UINT control);
  void OnChanged(SettingControls& setting);
  void OnPaperChosen(SettingControls& setting);
  void OnButton(SettingControls& setting, SettingControls::Part part);
  void ChooseColour(SettingControls& setting);
  void Browse(const SettingControls& setting);
  /// What the user ought to know of a value that can be taken; empty for nothing.
  Text Doubt(const SettingControls& setting) const;
  Text FaultText(const SettingRow& row, SettingFault fault) const;
  Text Info(const SettingRow& row) const;

  const SettingsPage page_;
  const PageContext context_;
  PageText head_;
  PageText about_;
  std::vector<PageText> headings_;
  std::vector<SettingControls> settings_;
  UniqueFont font_;
  UniqueFont semibold_;
  UniqueFont large_;
  UINT dpi_ = 0;  // of the fonts
  LaidOut laidOut_;
  int height_ = 0;  // of all of it, in pixels
  int scrolled_ = 0;
  bool filling_ = false;
};

template <SettingsPage page>
class BOpTabOf final : public BOpTab {
 public:
  explicit BOpTabOf(const PageContext& context) : BOpTab(page, context) {}
};
using BOpTab1 = BOpTabOf<SettingsPage::kNotes>;
using BOpTab2 = BOpTabOf<SettingsPage::kEditor>;
using BOpTab3 = BOpTabOf<SettingsPage::kLooks>;
using BOpTab4 = BOpTabOf<SettingsPage::kTime>;
using BOpTab5 = BOpTabOf<SettingsPage::kNetwork>;
using BOpTab6 = BOpTabOf<SettingsPage::kMail>;
using BOpTab7 = BOpTabOf<SettingsPage::kPictures>;
using BOpTab8 = BOpTabOf<SettingsPage::kSystem>;

}  // namespace jotlets

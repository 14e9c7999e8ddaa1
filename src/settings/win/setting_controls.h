// The controls of one setting on its page of the options dialog.
#pragma once

#include <windows.h>

#include <array>
#include <memory>
#include <vector>

#include "settings/settings_draft.h"
#include "ui/hot_key_field.h"
#include "ui/resources.h"

namespace jotlets {

/// What the controls of a setting need to know about the world.
struct SettingChoices {
  std::vector<Text> skins;  // the names; the built-in one is not among them
  bool startsWithWindows = false;
};

/// How a page is drawn at the scale of its monitor.
struct PageScale {
  HDC dc = nullptr;  // with the font of the page, to measure texts
  int dpi = 96;
  int line = 0;   // the height of its texts, in pixels
  int field = 0;  // that of what is typed into
  int Scaled(int length) const { return MulDiv(length, dpi, 96); }
};

/// A line of settings, in pixels. `column`: where controls begin that have a name before them.
struct SettingLine {
  int column = 0;
  int right = 0;
  int top = 0;
  int height = 0;
};

class SettingControls {
 public:
  enum Part { kMain, kLabel, kSpin, kBrowse, kPlay, kUnit, kNotice, kParts };

  /// The controls stand in `page`, with ids from `firstId` on, a `Part` each. They are made where they are
  /// placed first: to make a window and then move it takes half as long again. All outlive the object.
  SettingControls(const SettingRow& row, HWND page, UINT firstId, const Resources& resources,
                  const SettingChoices& choices);

  const SettingRow& Row() const { return *row_; }
  bool Owns(UINT id) const { return id - firstId_ < kParts; }
  Part PartOf(UINT id) const { return static_cast<Part>(id - firstId_); }
  HWND Item(Part part) const { return items_[part]; }

  /// How wide the name is that stands before the control; 0 for one that has none there.
  int LabelWidth(const PageScale& scale) const;
  /// How wide they are on a line that other settings are on, without their unit.
  int Width(const PageScale& scale) const;
  /// Places them on a line from `x` on, narrower where that has no room; where the line goes on behind them.
  int Place(int x, const SettingLine& line, const PageScale& scale);
  /// Places what found no room on its line, and what is told of the setting, below a line; the height that
  /// takes.
  int PlaceBelow(const SettingLine& line, const PageScale& scale);
  /// That of the controls, those that are not made yet included.
  void SetFont(HFONT font);
  /// Of a line that they need, in pixels.
  int Height(const PageScale& scale) const;

  /// Shows a value as it is in the draft, without telling of it as of a change by the user.
  void Show(const SettingsDraft& draft, const Text& info);
  /// Shows whether the user can change it now.
  void ShowState(const SettingsDraft& draft);
  /// What is told of the setting below its line; empty for nothing.
  const Text& Notice() const { return texts_[kNotice]; }
  /// What is wrong with what the user has entered; empty for nothing.
  /// Whether the page is to be placed anew, since the line needs another height.
  bool ShowFault(const Text& fault);

  /// Gives it the focus; what is typed goes in the place of what it says.
  void Focus() const;
  /// What the control says now, where that cannot be wrong.
  SettingValue Read() const;
  /// The text of a control that is typed into.
  Text Entered() const;
  bool IsTyped() const;
  /// The colour that it shows.
  void SetColour(std::int32_t number) const;

 private:
  bool Has(Part part) const;
  void Put(Part part, const Rect& area);
  void Make(Part part, const Rect& area);
  void MakeWindow(Part part, const wchar_t* windowClass, DWORD style, const Rect& area, DWORD extended = 0);
  void MakeMain(const Rect& area);
  void FillChoices() const;
  int MainWidth() const;
  int ControlWidth(const PageScale& scale) const;
  int ButtonsWidth(const PageScale& scale) const;
  int TextWidth(Part part, const PageScale& scale) const;
  int TextHeight(Part part, int width, const PageScale& scale) const;
  void ShowValue(const SettingValue& value) const;
  bool ShowNotice(const Text& text);
  void SelectPaper(std::int32_t number) const;

  const SettingRow* row_;
  HWND page_;
  UINT firstId_;
  const Resources* resources_;
  const SettingChoices* choices_;
  std::array<Text, kParts> texts_;
  std::array<HWND, kParts> items_{};
  bool enabled_ = true;
  bool unitBelow_ = false;  // its unit has no room on the line
  int extra_ = 0;           // that the text of a switch is higher than its line, in pixels
  HFONT font_ = nullptr;
  std::unique_ptr<HotKeyField> hotKey_;  // of a hot key
};

}  // namespace jotlets

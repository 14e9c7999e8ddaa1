// Base class of the program's dialogs.
#pragma once

#include <windows.h>

#include <optional>

#include "ui/resources.h"

namespace jotlets {

class Dialog {
 public:
  virtual ~Dialog() = default;
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  /// Shows the dialog and waits until it ends; the answer is what `End` was given, -1 when it could not be
  /// shown.
  INT_PTR Show(const Resources& resources, UINT id, HWND owner);

  /// Creates the dialog as a window beside the others, not yet shown; false when that failed. It is there
  /// until `Close`, and neither OK nor Cancel ends it by themselves. One with a parent is a part of that.
  bool Open(const Resources& resources, UINT id, HWND parent = nullptr);
  void Close();
  bool IsOpen() const { return dialog_ != nullptr; }

 protected:
  Dialog() = default;

  virtual void OnInit() = 0;
  /// A control or key was used; false: not handled (OK and Cancel then end the dialog with their ids).
  virtual bool OnCommand(UINT control, UINT notification) = 0;
  virtual void OnTimer() {}
  /// A control tells of itself by more than a command.
  virtual void OnNotify(const NMHDR&) {}
  /// Any other message; its answer when it was handled.
  virtual std::optional<LRESULT> OnMessage(UINT, WPARAM, LPARAM) { return std::nullopt; }
  /// A control that the dialog draws itself.
  virtual void OnDrawItem(const DRAWITEMSTRUCT&) {}

  /// The colours of a control or, without one, of the dialog itself: sets those of its text, and returns the
  /// brush behind it, which the dialog keeps; nullptr for those of all dialogs.
  virtual HBRUSH OnColours(HDC, HWND) { return nullptr; }
  /// What the controls stand on.
  virtual Colour Surface() const { return theme_->Colours().surface; }

  HWND Handle() const { return dialog_; }
  HWND Item(int control) const { return GetDlgItem(dialog_, control); }
  /// The text of a control.
  Text ItemText(int control) const;
  void End(INT_PTR answer) { EndDialog(dialog_, answer); }
  const Theme& Look() const { return *theme_; }

 private:
  HBRUSH Colours(UINT message, HDC dc, HWND control);
  /// Where the ground of the buttons at the bottom begins; nothing for a dialog without them.
  std::optional<LONG> FootTop() const;
  bool IsInFoot(HWND control) const;
  RECT AreaOf(HWND control) const;
  bool Erase(HDC dc);
  void Notify(const NMHDR& header);
  void DrawRing(HDC dc) const;
  static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  HWND dialog_ = nullptr;
  HWND cameFrom_ = nullptr;
  bool modal_ = true;
  const Theme* theme_ = nullptr;  // from when it is shown first
};

}  // namespace jotlets

// The strip below the text of a note in which words are typed that are looked for in it.
#pragma once

#include <windows.h>

#include <functional>

#include "note/win/shown_content.h"
#include "ui/handle.h"
#include "ui/window.h"

namespace jotlets {

class FindStrip final : public Window {
 public:
  /// The number of its window in the note, which tells the note of its focus as the editor does.
  static constexpr int kControlId = 101;

  /// Both outlive the strip. `placed` is called when the strip has come or gone.
  FindStrip(BEdit& edit, ContentWatcher& watcher, std::function<void()> placed)
      : edit_(edit), watcher_(watcher), placed_(std::move(placed)) {}

  /// Shows the strip and gives it the keyboard, with these words, or else the selected ones, or else those
  /// that were looked for last.
  void Open(HWND note, TextView wanted);
  bool IsOpen() const { return open_; }
  /// How much of the text's place it takes, in pixels; 0 while it is closed.
  std::int32_t Height() const;
  /// Puts it at a place in client pixels of the note.
  void Place(const Rect& bounds);
  void Show(bool shown);
  /// The paper below has another colour.
  void Repaint();
  /// The text has changed: its places are counted anew.
  void Recount() { Find(FindStep::kNowhere); }

 private:
  static LRESULT CALLBACK WatchKeys(HWND part, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR object) noexcept;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  static LRESULT Paint(WPARAM context, Colour ink, Colour ground);
  bool MakeControls(HWND note);
  void OnCommand(UINT control, UINT notification);
  bool OnKey(HWND part, WPARAM key);
  void StepPart(HWND from, bool back);
  void LayOut();
  RECT FieldEdge() const;
  void Find(FindStep step);
  void CloseStrip();
  std::int32_t Scaled(int pixels) const;
  Text Words() const;

  BEdit& edit_;
  ContentWatcher& watcher_;
  std::function<void()> placed_;
  UniqueFont font_;
  bool open_ = false;
};

}  // namespace jotlets

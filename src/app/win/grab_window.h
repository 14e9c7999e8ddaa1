// A picture of the screen over the screen, on which an area is chosen.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <vector>

#include "picture/pixels.h"
#include "ui/handle.h"
#include "ui/pixel_bitmap.h"
#include "ui/theme.h"
#include "ui/window.h"

namespace jotlets {

class GrabWindow final : public Window {
 public:
  /// What has been chosen, and whether it is meant for the clipboard alone.
  using Chosen = std::function<void(const Picture& picture, bool toClipboard)>;

  /// `theme` outlives the window.
  explicit GrabWindow(const Theme& theme) : theme_(theme) {}

  /// Takes a picture of the screen, shortly, when a menu that was used for it has gone, and shows it. The
  /// area is dragged with the mouse, or chosen by the arrow keys and Enter; a click takes a window. Held Ctrl
  /// means the clipboard, D a new picture in three seconds, Esc nothing. `green`: a green frame, easier to
  /// see on dark windows. An empty picture is given when none can be had.
  void Choose(const Text& title, bool green, Chosen chosen);
  /// The same with all of the screen, which is not shown.
  void GrabAll(Chosen chosen);

 private:
  static constexpr UINT_PTR kDelayTimer = 1;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Begin(UINT delay);
  void Take();
  void Show();
  void Darken();
  void Close();
  void Tell(const Picture& picture, bool toClipboard);
  bool OnKey(WPARAM key);
  void MoveTo(Point at);
  void Press(Point at);
  void Finish();
  Rect Area() const;
  Rect Shown(const Rect& area) const;
  Rect GlassPlace() const;
  void Paint();
  void DrawGlass(HDC dc, HDC grabbed) const;
  std::int32_t Scaled(int pixels) const { return MulDiv(pixels, Dpi(), USER_DEFAULT_SCREEN_DPI); }

  const Theme& theme_;
  Text title_;
  bool green_ = false;
  bool takesAll_ = false;
  Chosen chosen_;
  Rect screen_;  // in screen pixels; all others count from its corner
  PixelBitmap grabbed_;
  PixelBitmap dark_;
  UniqueFont font_;
  std::vector<Rect> windows_;
  std::vector<Rect> monitors_;
  std::optional<Point> from_;  // where a drag began
  Point at_;
};

}  // namespace jotlets

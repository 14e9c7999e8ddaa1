// Base class of the program's windows: one object, one window, messages as a virtual method.
#pragma once

#include <windows.h>

#include "base/geometry.h"
#include "base/text.h"
#include "ui/handle.h"

namespace jotlets {

struct WindowStyle {
  DWORD style = WS_POPUP;
  DWORD extended = 0;
};

class Window {
 public:
  /// Registers a window class served by `Window` objects; false when that failed. Registering again is no
  /// error.
  static bool RegisterWindowClass(const wchar_t* className, HICON icon = nullptr, UINT classStyle = 0);

  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  HWND Handle() const { return window_; }

  /// Whether a message of this window is being served right now: the object must then live on, even when its
  /// window is gone.
  bool IsBusy() const { return depth_ > 0; }

  /// The window's rectangle on the screen.
  Rect Bounds() const;
  std::int32_t Dpi() const;

 protected:
  Window() = default;

  /// Creates the window; false when that failed (the reason is the system's last error).
  bool Create(const wchar_t* className, const wchar_t* title, const Rect& bounds, WindowStyle style,
              HWND owner = nullptr);

  /// Destroys the window now. The object lives on, without a window.
  void Destroy();

  /// Serves one message. Called for every message of the window, WM_CREATE included; `Default` is the rest.
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
  LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  HWND window_ = nullptr;
  int depth_ = 0;
};

/// The text of a window or control; empty when there is none to be had.
Text WindowText(HWND window);

/// The Windows form of a rectangle, and back.
inline RECT ToRECT(const Rect& r) { return {r.left, r.top, r.right, r.bottom}; }
inline Rect FromRECT(const RECT& r) {
  return {static_cast<std::int32_t>(r.left), static_cast<std::int32_t>(r.top),
          static_cast<std::int32_t>(r.right), static_cast<std::int32_t>(r.bottom)};
}

inline HFONT FontOf(HWND control) { return reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)); }

/// A font like that of a control, but bolder.
UniqueFont BolderFont(HWND control);

/// How high a line of a font is, in pixels.
int LineHeight(HFONT font);
/// How high a field of one line with this font is: its text stands at its top, and so in its middle.
int FieldHeight(HFONT font);

/// The Windows form of a colour.
inline COLORREF ToCOLORREF(Colour colour) { return RGB(colour.r, colour.g, colour.b); }

/// Where the mouse is on the screen now.
inline Point MousePosition() {
  POINT at{};
  GetCursorPos(&at);
  return {static_cast<std::int32_t>(at.x), static_cast<std::int32_t>(at.y)};
}

/// Whether the mouse is at `window` and nothing lies between but `dragged`, and what lets the mouse through
/// as shadows do; nullptr is never there.
bool IsUnderMouse(HWND window, HWND dragged);

/// The point packed in a mouse message's lParam.
inline Point PointOf(LPARAM lParam) {
  return {static_cast<std::int16_t>(LOWORD(lParam)), static_cast<std::int16_t>(HIWORD(lParam))};
}

}  // namespace jotlets

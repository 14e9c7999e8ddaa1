#include "note/win/note_shadow.h"

#include "skin/win/picture_bitmap.h"
#include "ui/handle.h"

namespace jotlets {
namespace {

bool IsTopmost(HWND window) { return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }

// Whether nothing is seen before the note but what always lies before its like.
bool IsInFront(HWND note) {
  const bool topmost = IsTopmost(note);
  for (HWND other = GetWindow(note, GW_HWNDPREV); other != nullptr; other = GetWindow(other, GW_HWNDPREV)) {
    if (IsWindowVisible(other) != 0 && IsTopmost(other) == topmost) return false;
  }
  return true;
}

}  // namespace

void NoteShadow::Prepare(Point place, const ShadowCaster& caster) {
  constexpr BYTE kFull = 255;
  const Rect bounds = ShadowBounds(place, caster);
  if (MakeWindow(bounds)) DrawShape(bounds, caster, kFull);
}

bool NoteShadow::MakeWindow(const Rect& bounds) {
  const WindowStyle style{WS_POPUP, WS_EX_TOOLWINDOW | WS_EX_LAYERED | WS_EX_TRANSPARENT | WS_EX_NOACTIVATE};
  return Handle() != nullptr || Create(className_, L"", bounds, style);
}

void NoteShadow::Hide() {
  if (Handle() != nullptr) ShowWindow(Handle(), SW_HIDE);
}

void NoteShadow::Follow(HWND note, const ShadowCaster& caster, BYTE darkness, bool orderChanged) {
  // Told of by the note when it is put before the shadow below.
  if (stacking_) return;
  RECT place{};
  GetWindowRect(note, &place);
  const Rect bounds = ShadowBounds(FromRECT(place).TopLeft(), caster);
  if (MakeWindow(bounds) && DrawShape(bounds, caster, darkness)) Stack(note, bounds, orderChanged);
}

void NoteShadow::Stack(HWND note, const Rect& bounds, bool orderChanged) {
  constexpr UINT kShow = SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW;
  const bool below = IsWindowVisible(Handle()) != 0 && GetWindow(note, GW_HWNDNEXT) == Handle();
  if (below && !orderChanged) {
    SetWindowPos(Handle(), nullptr, bounds.left, bounds.top, 0, 0,
                 SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOZORDER);
    return;
  }
  stacking_ = true;
  if (IsInFront(note)) {
    // Not every screen puts a window below another one, all put it before the others.
    const HWND front = IsTopmost(note) ? HWND_TOPMOST : HWND_TOP;
    SetWindowPos(Handle(), front, bounds.left, bounds.top, 0, 0, kShow);
    SetWindowPos(note, front, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
  SetWindowPos(Handle(), note, bounds.left, bounds.top, 0, 0, kShow);
  stacking_ = false;
}

// A move needs no new pixels, only another shape or darkness does.
bool NoteShadow::DrawShape(const Rect& bounds, const ShadowCaster& caster, BYTE darkness) {
  if (caster == drawn_ && darkness == drawnDarkness_) return true;
  const Picture shape{{bounds.Width(), bounds.Height()}, ShadowPixels(caster)};
  PictureBitmap bitmap;
  if (!bitmap.Load(shape)) return false;
  const UniqueDc memory(CreateCompatibleDC(nullptr));
  const Selected selected(memory.get(), bitmap.Handle());
  POINT from{};
  POINT to{bounds.left, bounds.top};
  SIZE extent{shape.size.width, shape.size.height};
  BLENDFUNCTION blend{AC_SRC_OVER, 0, darkness, AC_SRC_ALPHA};
  if (!UpdateLayeredWindow(Handle(), nullptr, &to, &extent, memory.get(), &from, 0, &blend, ULW_ALPHA))
    return false;
  drawn_ = caster;
  drawnDarkness_ = darkness;
  return true;
}

}  // namespace jotlets

#include "note/win/text_picture.h"

#include <algorithm>
#include <cstring>

#include "ui/areas.h"
#include "ui/pixel_bitmap.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr std::int32_t kMargin = 12;  // pixels at the usual scale
constexpr std::int32_t kMaxHeight = 16'000;

// The control paints what fits into it: for a moment it is as high as its text, and shows nothing of that.
class Unrolled {
 public:
  Unrolled(const BEdit& edit, std::int32_t height) : edit_(edit), scroll_(edit.ScrollPosition()) {
    SendMessageW(edit.Handle(), WM_SETREDRAW, FALSE, 0);
    SendMessageW(edit.Handle(), EM_HIDESELECTION, TRUE, 0);
    GetClientRect(edit.Handle(), &client_);
    Resize(std::max<LONG>(height, client_.bottom));
    SetScroll({0, 0});
  }
  ~Unrolled() {
    Resize(client_.bottom);
    SetScroll({scroll_.x, scroll_.y});
    SendMessageW(edit_.Handle(), EM_HIDESELECTION, FALSE, 0);
    SendMessageW(edit_.Handle(), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(edit_.Handle(), nullptr, TRUE);
  }
  Unrolled(const Unrolled&) = delete;
  Unrolled& operator=(const Unrolled&) = delete;

 private:
  void Resize(LONG height) const {
    SetWindowPos(edit_.Handle(), nullptr, 0, 0, client_.right, height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
  }
  void SetScroll(POINT at) const {
    SendMessageW(edit_.Handle(), EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&at));
  }

  const BEdit& edit_;
  Point scroll_;
  RECT client_{};
};

}  // namespace

std::optional<Picture> PictureOfText(const BEdit& edit) {
  const std::int32_t margin =
      ScaledLength(kMargin, static_cast<std::int32_t>(GetDpiForWindow(edit.Handle())));
  const Unrolled unrolled(edit, std::min(edit.TextHeight(), kMaxHeight));
  RECT client{};
  GetClientRect(edit.Handle(), &client);
  const Size size{static_cast<std::int32_t>(client.right) + 2 * margin,
                  static_cast<std::int32_t>(client.bottom) + 2 * margin};
  const PixelBitmap made = MakePixelBitmap(size);
  if (!made.bitmap || edit.Handle() == nullptr) return std::nullopt;
  {
    const UniqueDc memory(CreateCompatibleDC(nullptr));
    const Selected selected(memory.get(), made.bitmap.get());
    FillArea(memory.get(), ToRECT(WholeOf(size)), edit.MadeWith().background);
    SetViewportOrgEx(memory.get(), margin, margin, nullptr);
    IntersectClipRect(memory.get(), 0, 0, client.right, client.bottom);
    SendMessageW(edit.Handle(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(memory.get()),
                 PRF_CLIENT | PRF_ERASEBKGND);
  }
  GdiFlush();
  Picture picture = BlankPicture(size);
  std::memcpy(picture.pixels.data(), made.pixels, picture.pixels.size());
  for (std::size_t at = 3; at < picture.pixels.size(); at += 4) picture.pixels[at] = 255;
  return picture;
}

}  // namespace jotlets

#include "ui/window.h"

#include <algorithm>

#include "base/win/wide.h"
#include "ui/compositor.h"

namespace jotlets {

bool Window::RegisterWindowClass(const wchar_t* className, HICON icon, UINT classStyle) {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.style = classStyle;
  windowClass.lpfnWndProc = Procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hIcon = icon;
  windowClass.hCursor = LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_ARROW));
  windowClass.lpszClassName = className;
  return RegisterClassExW(&windowClass) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

Window::~Window() { Destroy(); }

bool Window::Create(const wchar_t* className, const wchar_t* title, const Rect& bounds, WindowStyle style,
                    HWND owner) {
  return CreateWindowExW(style.extended, className, title, style.style, bounds.left, bounds.top,
                         bounds.Width(), bounds.Height(), owner, nullptr, GetModuleHandleW(nullptr),
                         this) != nullptr;
}

void Window::Destroy() {
  if (window_ == nullptr) return;
  const HWND window = window_;
  // Messages on the way down would reach an object that is half gone.
  window_ = nullptr;
  SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  DestroyWindow(window);
}

Rect Window::Bounds() const {
  RECT bounds{};
  GetWindowRect(window_, &bounds);
  return FromRECT(bounds);
}

std::int32_t Window::Dpi() const { return static_cast<std::int32_t>(GetDpiForWindow(window_)); }

LRESULT Window::Default(UINT message, WPARAM wParam, LPARAM lParam) {
  return DefWindowProcW(window_, message, wParam, lParam);
}

LRESULT CALLBACK Window::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message == WM_NCCREATE) {
    auto* object = static_cast<Window*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    object->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(object));
  }
  auto* object = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (object == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    object->window_ = nullptr;
    return DefWindowProcW(window, message, wParam, lParam);
  }
  // What throws here is memory running out; an exception must not cross into the system, and the notes that
  // are already safe matter more than this one message.
  struct Depth {
    int& depth;
    explicit Depth(int& d) : depth(d) { ++depth; }
    ~Depth() { --depth; }
    Depth(const Depth&) = delete;
    Depth& operator=(const Depth&) = delete;
  } const inMessage(object->depth_);
  try {
    return object->OnMessage(message, wParam, lParam);
  } catch (...) {
    OutputDebugStringW(L"an exception left a message unserved");
    return DefWindowProcW(window, message, wParam, lParam);
  }
}

Text WindowText(HWND window) {
  Text text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, u'\0');
  const int length = GetWindowTextW(window, WideBuffer(text), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(std::max(length, 0)));
  return text;
}

UniqueFont BolderFont(HWND control) {
  LOGFONTW face{};
  if (GetObjectW(FontOf(control), sizeof face, &face) == 0) return {};
  face.lfWeight = FW_SEMIBOLD;
  return UniqueFont(CreateFontIndirectW(&face));
}

int LineHeight(HFONT font) {
  const HDC dc = GetDC(nullptr);
  TEXTMETRICW metrics{};
  {
    const Selected selected(dc, font);
    GetTextMetricsW(dc, &metrics);
  }
  ReleaseDC(nullptr, dc);
  return metrics.tmHeight;
}

int FieldHeight(HFONT font) {
  constexpr int kAir = 2;
  return LineHeight(font) + 2 * (GetSystemMetrics(SM_CYEDGE) + kAir);
}

bool IsUnderMouse(HWND window, HWND dragged) {
  if (window == nullptr || IsIconic(window)) return false;
  const POINT mouse{MousePosition().x, MousePosition().y};
  for (HWND above = GetTopWindow(nullptr); above != nullptr; above = GetWindow(above, GW_HWNDNEXT)) {
    RECT place{};
    GetWindowRect(above, &place);
    if (above == dragged || !IsWindowVisible(above) || PtInRect(&place, mouse) == FALSE || IsCloaked(above))
      continue;
    if ((GetWindowLongPtrW(above, GWL_EXSTYLE) & WS_EX_TRANSPARENT) == 0) return above == window;
  }
  return false;
}

}  // namespace jotlets

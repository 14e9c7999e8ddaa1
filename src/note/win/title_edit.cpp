#include "note/win/title_edit.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "base/win/wide.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr std::size_t kLongestTitle = 1000;
// Pixels at 96 dots per inch.
constexpr int kPixels = 13;
constexpr int kAir = 4;
constexpr int kInset = 8;

Text TextOf(HWND edit) {
  Text text(kLongestTitle + 1, u'\0');
  const int length = GetWindowTextW(edit, WideBuffer(text), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

}  // namespace

TitleEdit::~TitleEdit() {
  done_ = nullptr;
  if (edit_ != nullptr) DestroyWindow(edit_);
}

bool TitleEdit::Open(HWND window, const Rect& area, const Text& title,
                     std::function<void(const Text* title, HWND focus)> done) {
  if (edit_ != nullptr) return true;
  const int dpi = static_cast<int>(GetDpiForWindow(window));
  const int air = MulDiv(kAir, dpi, 96);
  const int height = std::min(MulDiv(kPixels, dpi, 96), area.Height() - air);
  font_.reset(CreateFontW(-height, 0, 0, 0, FW_SEMIBOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                          CLEARTYPE_QUALITY, 0, L"Segoe UI"));
  const int field = std::min(FieldHeight(font_.get()), area.Height());
  const int inset = std::min(MulDiv(kInset, dpi, 96), area.Width() / 4);
  edit_ = CreateWindowExW(0, L"EDIT", Wide(title), WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL,
                          area.left + inset, area.top + (area.Height() - field) / 2, area.Width() - 2 * inset,
                          field, window, nullptr, GetModuleHandleW(nullptr), nullptr);
  if (edit_ == nullptr) return false;
  done_ = std::move(done);
  SendMessageW(edit_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
  SendMessageW(edit_, EM_LIMITTEXT, kLongestTitle, 0);
  SendMessageW(edit_, EM_SETSEL, 0, -1);
  SetWindowSubclass(edit_, OnMessage, 0, reinterpret_cast<DWORD_PTR>(this));
  SetFocus(edit_);
  return true;
}

// Whoever is told may bring about the end of the note.
void TitleEdit::End(bool taken, HWND focus) {
  if (edit_ == nullptr) return;
  const HWND edit = std::exchange(edit_, nullptr);
  const auto done = std::exchange(done_, nullptr);
  const Text title = TextOf(edit);
  DestroyWindow(edit);
  if (done) done(taken ? &title : nullptr, focus);
}

LRESULT CALLBACK TitleEdit::OnMessage(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR self) noexcept {
  auto& own = *reinterpret_cast<TitleEdit*>(self);
  const bool ends = wParam == VK_RETURN || wParam == VK_ESCAPE;
  try {
    if (message == WM_KEYDOWN && ends) return own.End(wParam == VK_RETURN, nullptr), 0;
    // The control would beep.
    if (message == WM_CHAR && ends) return 0;
    if (message == WM_KILLFOCUS && own.edit_ == edit) return own.End(true, reinterpret_cast<HWND>(wParam)), 0;
  } catch (...) {
    OutputDebugStringW(L"an exception left a title as it was");
  }
  if (message == WM_NCDESTROY && own.edit_ == edit) own.edit_ = nullptr;
  return DefSubclassProc(edit, message, wParam, lParam);
}

}  // namespace jotlets

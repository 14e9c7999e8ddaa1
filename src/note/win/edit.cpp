#include "note/win/edit.h"

#include <commctrl.h>
#include <richedit.h>

#include <algorithm>
#include <cstring>

#include "base/win/wide.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr LONG kTwipsPerPoint = 20;
constexpr LONG kDefaultPoints = 10;
constexpr WPARAM kLongestText = 64 * 1024 * 1024;

DWORD CALLBACK ReadBytes(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* got) noexcept {
  auto& rest = *reinterpret_cast<std::string_view*>(cookie);
  const std::size_t count = std::min<std::size_t>(rest.size(), static_cast<std::size_t>(wanted));
  std::memcpy(buffer, rest.data(), count);
  rest.remove_prefix(count);
  *got = static_cast<LONG>(count);
  return 0;
}

DWORD CALLBACK WriteBytes(DWORD_PTR cookie, LPBYTE buffer, LONG count, LONG* taken) noexcept {
  try {
    reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(buffer),
                                                   static_cast<std::size_t>(count));
  } catch (const std::bad_alloc&) {
    return 1;
  }
  *taken = count;
  return 0;
}

// The control's own default is a bold system font in some implementations.
void SetDefaultFont(HWND edit) {
  CHARFORMAT2W format{};
  format.cbSize = sizeof format;
  format.dwMask = CFM_FACE | CFM_SIZE | CFM_BOLD | CFM_CHARSET;
  format.yHeight = kDefaultPoints * kTwipsPerPoint;
  format.bCharSet = DEFAULT_CHARSET;
  wcscpy(format.szFaceName, L"Segoe UI");
  SendMessageW(edit, EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
}

bool StreamIn(HWND edit, WPARAM format, std::string_view bytes) {
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&bytes), 0, ReadBytes};
  const LRESULT events = SendMessageW(edit, EM_SETEVENTMASK, 0, 0);
  SendMessageW(edit, EM_STREAMIN, format, reinterpret_cast<LPARAM>(&stream));
  SendMessageW(edit, EM_EMPTYUNDOBUFFER, 0, 0);
  SendMessageW(edit, EM_SETEVENTMASK, 0, events);
  SendMessageW(edit, EM_REQUESTRESIZE, 0, 0);
  return stream.dwError == 0;
}

}  // namespace

BEdit::~BEdit() {
  if (edit_ != nullptr) RemoveWindowSubclass(edit_, Watch, 0);
}

bool BEdit::Create(HWND parent, const Rect& bounds, const Look& look, EditWatcher& watcher) {
  const DWORD style = WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN |
                      (look.scrollbar ? WS_VSCROLL : 0u) | (look.readOnly ? ES_READONLY : 0u);
  edit_ = CreateWindowExW(look.seeThrough ? WS_EX_TRANSPARENT : 0u, MSFTEDIT_CLASS, L"", style, bounds.left,
                          bounds.top, bounds.Width(), bounds.Height(), parent,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(kControlId)),
                          GetModuleHandleW(nullptr), nullptr);
  if (edit_ == nullptr) return false;
  watcher_ = &watcher;
  look_ = look;
  SetWindowSubclass(edit_, Watch, 0, reinterpret_cast<DWORD_PTR>(this));
  SetDefaultFont(edit_);
  SetBackground(look.background);
  SendMessageW(edit_, EM_EXLIMITTEXT, 0, kLongestText);
  SendMessageW(edit_, EM_SETEVENTMASK, 0, ENM_CHANGE | ENM_REQUESTRESIZE);
  return true;
}

void BEdit::Recreate(const Look& look) {
  const HWND former = edit_;
  const HWND parent = GetParent(former);
  const bool focus = GetFocus() == former;
  RECT bounds{};
  GetWindowRect(former, &bounds);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&bounds), 2);
  const std::string rtf = Rtf();
  const Point scroll = ScrollPosition();
  RemoveWindowSubclass(former, Watch, 0);
  if (!Create(parent, FromRECT(bounds), look, *watcher_)) {
    edit_ = former;
    SetWindowSubclass(edit_, Watch, 0, reinterpret_cast<DWORD_PTR>(this));
    return;
  }
  SetRtf(rtf);
  SetScrollPosition(scroll);
  if (focus) SetFocus(edit_);
  DestroyWindow(former);
}

LRESULT CALLBACK BEdit::Watch(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                              DWORD_PTR object) noexcept {
  auto& self = *reinterpret_cast<BEdit*>(object);
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(edit, Watch, 0);
    self.edit_ = nullptr;
    return DefSubclassProc(edit, message, wParam, lParam);
  }
  const LRESULT result = DefSubclassProc(edit, message, wParam, lParam);
  try {
    if (message == WM_PAINT) self.watcher_->OnEditScrolled();
    if (message == WM_MOUSEMOVE && !self.trackingMouse_) {
      TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, edit, 0};
      self.trackingMouse_ = TrackMouseEvent(&track) != 0;
      self.watcher_->OnEditMouse();
    } else if (message == WM_MOUSELEAVE) {
      self.trackingMouse_ = false;
      self.watcher_->OnEditMouse();
    }
  } catch (const std::bad_alloc&) {
    OutputDebugStringW(L"out of memory");
  }
  return result;
}

void BEdit::OnNotify(const NMHDR& header) {
  if (header.code != EN_REQUESTRESIZE) return;
  const RECT& wanted = reinterpret_cast<const REQRESIZE&>(header).rc;
  textHeight_ = static_cast<std::int32_t>(wanted.bottom - wanted.top);
  watcher_->OnEditScrolled();
}

void BEdit::Show(bool shown) { ShowWindow(edit_, shown ? SW_SHOWNA : SW_HIDE); }

void BEdit::SetReadOnly(bool readOnly) {
  look_.readOnly = readOnly;
  SendMessageW(edit_, EM_SETREADONLY, readOnly, 0);
}

bool BEdit::SetRtf(std::string_view rtf) { return StreamIn(edit_, SF_RTF, rtf); }

std::string BEdit::Rtf() const {
  std::string rtf;
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&rtf), 0, WriteBytes};
  SendMessageW(edit_, EM_STREAMOUT, SF_RTF, reinterpret_cast<LPARAM>(&stream));
  // The control ends its stream with a NUL or two, which belong to no rich text.
  while (!rtf.empty() && rtf.back() == '\0') rtf.pop_back();
  return rtf;
}

void BEdit::SetPlainText(TextView text) {
  // Streamed, because setting a text would take one that begins with "{\rtf" for rich text.
  StreamIn(edit_, SF_TEXT | SF_UNICODE, {reinterpret_cast<const char*>(text.data()), text.size() * 2});
}

Text BEdit::PlainText() const {
  GETTEXTLENGTHEX length{GTL_USECRLF | GTL_NUMCHARS | GTL_PRECISE, 1200};
  const LRESULT units = SendMessageW(edit_, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&length), 0);
  if (units <= 0) return {};
  Text text(static_cast<std::size_t>(units) + 1, u'\0');
  GETTEXTEX how{};
  how.cb = static_cast<DWORD>(text.size() * 2);
  how.flags = GT_USECRLF;
  how.codepage = 1200;
  const LRESULT got = SendMessageW(edit_, EM_GETTEXTEX, reinterpret_cast<WPARAM>(&how),
                                   reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(std::clamp<LRESULT>(got, 0, units)));
  return text;
}

Text BEdit::TextStart(std::int32_t most) const {
  Text text(static_cast<std::size_t>(most) + 1, u'\0');
  TEXTRANGEW range{{0, most}, WideBuffer(text)};
  const LRESULT got = SendMessageW(edit_, EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range));
  text.resize(static_cast<std::size_t>(std::clamp<LRESULT>(got, 0, most)));
  return text;
}

void BEdit::SetBackground(Colour colour) {
  look_.background = colour;
  SendMessageW(edit_, EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(RGB(colour.r, colour.g, colour.b)));
}

void BEdit::SetBounds(const Rect& bounds) {
  SetWindowPos(edit_, nullptr, bounds.left, bounds.top, bounds.Width(), bounds.Height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
  SendMessageW(edit_, EM_REQUESTRESIZE, 0, 0);
}

Point BEdit::ScrollPosition() const {
  POINT position{};
  SendMessageW(edit_, EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&position));
  return {static_cast<std::int32_t>(position.x), static_cast<std::int32_t>(position.y)};
}

void BEdit::SetScrollPosition(Point position) {
  POINT to{position.x, position.y};
  SendMessageW(edit_, EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&to));
}

void BEdit::Paste() { SendMessageW(edit_, WM_PASTE, 0, 0); }

}  // namespace jotlets

#include "editor/win/edit.h"

#include <richedit.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/win/pressed_key.h"
#include "base/win/wide.h"
#include "data/rtf_bytes.h"
#include "editor/link_text.h"
#include "editor/win/edit_format.h"
#include "editor/win/edit_text.h"
#include "editor/win/editor_bounds.h"
#include "editor/win/link_painting.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr LONG kTwipsPerPoint = 20;
constexpr LONG kDefaultPoints = 10;
constexpr WPARAM kLongestText = 64 * 1024 * 1024;
constexpr LONG kLongestLink = 4096;

UINT RichTextFormat() { return RegisterClipboardFormatW(L"Rich Text Format"); }

UINT PreferredFormat() {
  return IsClipboardFormatAvailable(RichTextFormat()) != 0 ? RichTextFormat() : CF_UNICODETEXT;
}

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

}  // namespace

BEdit::~BEdit() {
  if (edit_ != nullptr) LetGo(edit_);
}

void BEdit::LetGo(HWND edit) {
  SetWindowLongPtrW(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(control_));
  if (objects_) objects_->StopDrops(edit);
}

// By hand: the way of the common controls asks the system several times for every message.
void BEdit::Subclass() {
  SetWindowLongPtrW(edit_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  control_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&BEdit::Watch)));
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
  Subclass();
  objects_ = EditObjects::Guard(edit_);
  SetDefaultFormat();
  SetBackground(look.background);
  SendMessageW(edit_, EM_EXLIMITTEXT, 0, kLongestText);
  SendMessageW(edit_, EM_AUTOURLDETECT, AURL_ENABLEURL, 0);
  SendMessageW(edit_, EM_SETEVENTMASK, 0, ENM_CHANGE | ENM_REQUESTRESIZE | ENM_LINK | ENM_SELCHANGE);
  return true;
}

// The control's own default is a bold system font in some implementations.
void BEdit::SetDefaultFormat() {
  CHARFORMAT2W format{};
  format.cbSize = sizeof format;
  format.dwMask = CFM_FACE | CFM_SIZE | CFM_BOLD | CFM_CHARSET | CFM_COLOR;
  format.yHeight = kDefaultPoints * kTwipsPerPoint;
  format.bCharSet = DEFAULT_CHARSET;
  if (HasLightInk()) {
    format.crTextColor = ToCOLORREF(Ink());
  } else {
    format.dwEffects = CFE_AUTOCOLOR;
  }
  wcscpy(format.szFaceName, L"Segoe UI");
  SendMessageW(edit_, EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
}

void BEdit::Recreate(const Look& look) {
  const HWND former = edit_;
  const LONG notice = notice_;
  const HWND parent = GetParent(former);
  const bool focus = GetFocus() == former;
  RECT bounds{};
  GetWindowRect(former, &bounds);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&bounds), 2);
  const std::optional<std::string> rtf = Rtf();
  if (!rtf) return;
  const Point scroll = ScrollPosition();
  LetGo(former);
  if (!Create(parent, FromRECT(bounds), look, *watcher_)) {
    edit_ = former;
    Subclass();
    objects_->AcceptDrops(edit_);
    return;
  }
  SetRtf(*rtf);
  notice_ = notice;
  SetReadOnly(look.readOnly);
  SetScrollPosition(scroll);
  if (focus) SetFocus(edit_);
  DestroyWindow(former);
}

LRESULT CALLBACK BEdit::Watch(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  auto& self = *reinterpret_cast<BEdit*>(GetWindowLongPtrW(edit, GWLP_USERDATA));
  if (message == WM_DESTROY && self.objects_) self.objects_->StopDrops(edit);
  if (message == WM_NCDESTROY) {
    self.edit_ = nullptr;
    return self.Control(edit, message, wParam, lParam);
  }
  try {
    return self.Serve(edit, message, wParam, lParam);
  } catch (...) {
    OutputDebugStringW(L"an exception left a message unserved");
    return 0;
  }
}

LRESULT BEdit::ServeByControl(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) const {
  const LinkPainting links(*this, message);
  return Control(edit, message, wParam, lParam);
}

LRESULT BEdit::Serve(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
  // The control's own way of pasting takes pictures as well.
  if (message == WM_PASTE) return Paste(), 0;
  if (message == WM_GETDLGCODE) return DLGC_WANTALLKEYS;
  if (ServeTyping(message, wParam, lParam)) return 0;
  if (message == WM_RBUTTONUP || message == WM_CONTEXTMENU) {
    // Posted: the menu may bring about the end of this control.
    PostMessageW(GetParent(edit), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(edit), lParam);
    return 0;
  }
  const LRESULT result = ServeByControl(edit, message, wParam, lParam);
  if (message == WM_PAINT) watcher_->OnEditScrolled();
  if (message == WM_LBUTTONUP) watcher_->OnEditSelection();
  if (message == WM_MOUSEMOVE && !trackingMouse_) {
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, edit, 0};
    trackingMouse_ = TrackMouseEvent(&track) != 0;
    watcher_->OnEditMouse();
  } else if (message == WM_MOUSELEAVE) {
    trackingMouse_ = false;
    watcher_->OnEditMouse();
  }
  return result;
}

bool BEdit::OnKey(WPARAM key) {
  const Shortcut pressed = PressedShortcut(key);
  return Do(pressed == kPasteKey ? EditorKey::kPaste : EditorKeyFrom(pressed));
}

bool BEdit::Do(EditorKey key) {
  switch (key) {
    case EditorKey::kNothing: return false;
    case EditorKey::kPaste: return Paste(), true;
    case EditorKey::kPastePlain: return PastePlain(), true;
    case EditorKey::kCopy: return Copy(*this), true;
    case EditorKey::kCut: return Cut(*this), true;
    case EditorKey::kFindBack: return FindBack(*this, watcher_->Searched()), true;
    default: return aids_.OnKey(*this, key, watcher_->Typing());
  }
}

// Serves keys, and clicks on the boxes of a check list; true when there is nothing left to do.
bool BEdit::ServeTyping(UINT message, WPARAM wParam, LPARAM lParam) {
  if (directionKeys_.Follow(message, wParam, lParam) && !IsReadOnly() && watcher_->HasDirectionKeys())
    SetDirection(*this, directionKeys_.IsRightToLeft());
  if (message == WM_KEYDOWN) return keyServed_ = OnKey(wParam);
  if (message == WM_CHAR && std::exchange(keyServed_, false)) return true;
  if (message == WM_CHAR && !TakesTyped(static_cast<char16_t>(wParam))) return MessageBeep(MB_OK), true;
  if (message == WM_CHAR && MayBringAid(static_cast<char16_t>(wParam)) && !IsReadOnly()) {
    Control(edit_, message, wParam, lParam);
    aids_.AfterTyping(*this, watcher_->Typing());
    return true;
  }
  const bool click = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
  return click && (wParam & (MK_SHIFT | MK_CONTROL)) == 0 && watcher_->Typing().on &&
         aids_.OnClick(*this, PointOf(lParam));
}

// A plain click puts the caret into a text that can be changed.
void BEdit::OnLink(const ENLINK& link) {
  if (link.msg != WM_LBUTTONUP) return;
  const CHARRANGE selection = Selection();
  if (selection.cpMin != selection.cpMax || link.chrg.cpMax - link.chrg.cpMin > kLongestLink) return;
  if (!IsReadOnly() && (link.wParam & MK_CONTROL) == 0) return;
  const Text target = LinkTarget(TextBetween(link.chrg));
  if (!target.empty()) OpenLink(target);
}

void BEdit::OnNotify(const NMHDR& header) {
  if (header.code == EN_LINK) OnLink(reinterpret_cast<const ENLINK&>(header));
  if (header.code == EN_SELCHANGE) watcher_->OnEditSelection();
  if (header.code != EN_REQUESTRESIZE) return;
  const RECT& wanted = reinterpret_cast<const REQRESIZE&>(header).rc;
  textHeight_ = static_cast<std::int32_t>(wanted.bottom - wanted.top);
  watcher_->OnEditScrolled();
}

void BEdit::Show(bool shown) { ShowWindow(edit_, shown ? SW_SHOWNA : SW_HIDE); }

void BEdit::SetReadOnly(bool readOnly) {
  look_.readOnly = readOnly;
  SendMessageW(edit_, EM_SETREADONLY, IsReadOnly(), 0);
}

bool BEdit::StreamIn(WPARAM format, std::string_view bytes) {
  if (edit_ == nullptr) return false;
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&bytes), 0, ReadBytes};
  objects_->ForgetRefused();
  const LRESULT events = SendMessageW(edit_, EM_SETEVENTMASK, 0, 0);
  SendMessageW(edit_, EM_STREAMIN, format, reinterpret_cast<LPARAM>(&stream));
  SendMessageW(edit_, EM_EMPTYUNDOBUFFER, 0, 0);
  SendMessageW(edit_, EM_SETEVENTMASK, 0, events);
  SendMessageW(edit_, EM_REQUESTRESIZE, 0, 0);
  notice_ = 0;
  SetReadOnly(look_.readOnly);
  return stream.dwError == 0 && !objects_->HasRefused();
}

bool BEdit::SetRtf(std::string_view rtf) {
  shownColours_.clear();
  if (!HasLightInk()) return StreamIn(SF_RTF, rtf);
  const auto legible = [this](Colour own) { return look_.Legible(own); };
  return StreamIn(SF_RTF, WithInk(rtf, Ink(), legible, shownColours_));
}

void BEdit::ShowWords(TextView text, TextView notice) {
  // Links would be looked for in all of it.
  SendMessageW(edit_, EM_AUTOURLDETECT, 0, 0);
  const Text before = ShowableWords(Text(notice) + u"\r\n");
  SetPlainText(before + ShowableWords(text));
  SendMessageW(edit_, EM_AUTOURLDETECT, AURL_ENABLEURL, 0);
  notice_ = static_cast<LONG>(before.size() - static_cast<std::size_t>(std::ranges::count(before, u'\r')));
  SetReadOnly(look_.readOnly);
}

std::optional<std::string> BEdit::Rtf(bool selected) const {
  std::string rtf;
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&rtf), 0, WriteBytes};
  SendMessageW(edit_, EM_STREAMOUT, selected ? SF_RTF | SFF_SELECTION : SF_RTF,
               reinterpret_cast<LPARAM>(&stream));
  rtf = MendedRtf(rtf);
  // Some implementations go on after an error of ours, and end well.
  const std::size_t last = rtf.find_last_not_of("\r\n ");
  if (stream.dwError != 0 || last == std::string::npos || rtf[last] != '}') return std::nullopt;
  return HasLightInk() ? WithoutInk(rtf, Ink(), shownColours_) : rtf;
}

void BEdit::SetPlainText(TextView text) {
  // Streamed, because setting a text would take one that begins with "{\rtf" for rich text.
  StreamIn(SF_TEXT | SF_UNICODE, {reinterpret_cast<const char*>(text.data()), text.size() * 2});
}

Text BEdit::PlainText() const {
  if (notice_ > 0) return ReplaceAll(TextBetween({notice_, Length()}), u"\r", u"\r\n");
  GETTEXTLENGTHEX length{GTL_USECRLF | GTL_NUMCHARS | GTL_PRECISE, 1200};
  const LRESULT units = SendMessageW(edit_, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&length), 0);
  if (units <= 0) return {};
  Text text(static_cast<std::size_t>(units) + 1, u'\0');
  GETTEXTEX request{};
  request.cb = static_cast<DWORD>(text.size() * 2);
  request.flags = GT_USECRLF;
  request.codepage = 1200;
  const LRESULT got = SendMessageW(edit_, EM_GETTEXTEX, reinterpret_cast<WPARAM>(&request),
                                   reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(std::clamp<LRESULT>(got, 0, units)));
  return text;
}

LONG BEdit::Length() const {
  const GETTEXTLENGTHEX length{GTL_DEFAULT, 1200};
  return static_cast<LONG>(SendMessageW(edit_, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&length), 0));
}

Text BEdit::TextBetween(CHARRANGE range) const {
  range.cpMax = std::min(range.cpMax, Length());
  if (range.cpMin < 0 || range.cpMin >= range.cpMax) return {};
  const auto units = static_cast<std::size_t>(range.cpMax - range.cpMin);
  Text text(units + 1, u'\0');
  TEXTRANGEW wanted{range, WideBuffer(text)};
  const LRESULT got = SendMessageW(edit_, EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&wanted));
  text.resize(std::min(units, static_cast<std::size_t>(std::max<LRESULT>(got, 0))));
  return text;
}

CHARRANGE BEdit::Selection() const {
  CHARRANGE range{};
  SendMessageW(edit_, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  // All of the text selected counts the end of the last paragraph too, of which nothing can be seen.
  const LONG length = Length();
  return {std::min(range.cpMin, length), std::min(range.cpMax, length)};
}

void BEdit::Select(CHARRANGE range) { SendMessageW(edit_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range)); }

void BEdit::SetBackground(Colour colour) {
  SendMessageW(edit_, EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(ToCOLORREF(colour)));
}

void BEdit::SetPaper(Colour colour, std::optional<Colour> ink) {
  Look wanted = look_;
  wanted.background = colour;
  wanted.ink = ink;
  // The control keeps what it was given in the former ink, and in shades for the former paper.
  const bool same = wanted.Ink() == look_.Ink() && (!HasLightInk() || colour == look_.background);
  const std::optional<std::string> rtf = same ? std::nullopt : Rtf();
  look_ = wanted;
  SetDefaultFormat();
  SetBackground(colour);
  if (!rtf || ShowsBeginning()) return;
  const CHARRANGE selection = Selection();
  const Point scroll = ScrollPosition();
  SetRtf(*rtf);
  Select(selection);
  SetScrollPosition(scroll);
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

void BEdit::ScrollBy(std::int32_t pixels) {
  const Point at = ScrollPosition();
  SetScrollPosition({at.x, std::clamp(at.y + pixels, 0, std::max(textHeight_ - PageHeight(), 0))});
}

std::int32_t BEdit::PageHeight() const {
  RECT client{};
  GetClientRect(edit_, &client);
  return static_cast<std::int32_t>(client.bottom);
}

bool BEdit::CanPaste() const {
  return !IsReadOnly() && (IsClipboardFormatAvailable(CF_UNICODETEXT) != 0 ||
                           IsClipboardFormatAvailable(RichTextFormat()) != 0);
}

void BEdit::PasteFormat(UINT format) {
  if (IsReadOnly()) return;
  if (FindPastable(edit_, format)) {
    SendMessageW(edit_, EM_PASTESPECIAL, format, 0);
  } else {
    MessageBeep(MB_ICONWARNING);
  }
}

void BEdit::Paste() { PasteFormat(PreferredFormat()); }
void BEdit::PastePlain() { PasteFormat(CF_UNICODETEXT); }

void BEdit::TellChanged() {
  SendMessageW(GetParent(edit_), WM_COMMAND, MAKEWPARAM(kControlId, EN_CHANGE),
               reinterpret_cast<LPARAM>(edit_));
}

}  // namespace jotlets

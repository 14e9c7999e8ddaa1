#include "note/win/jotlet.h"

#include <windowsx.h>

#include <algorithm>

#include "base/win/wide.h"
#include "data/loading.h"
#include "data/rtf_bytes.h"
#include "note/opacity.h"

namespace jotlets {
namespace {

// How far into the text the first line that can serve as a title is looked for.
constexpr std::int32_t kTitleSearch = 256;

COLORREF Shade(Colour colour, int percent) {
  const auto part = [percent](int value) {
    return static_cast<BYTE>(std::clamp(value * percent / 100, 0, 255));
  };
  return RGB(part(colour.r), part(colour.g), part(colour.b));
}

// Black or white, whichever is read better on the colour (weights of perceived brightness).
COLORREF ReadableOn(Colour colour) {
  const int brightness = (colour.r * 299 + colour.g * 587 + colour.b * 114) / 1000;
  return brightness >= 128 ? RGB(40, 40, 40) : RGB(245, 245, 245);
}

void Fill(HDC dc, const Rect& area, COLORREF colour) {
  const RECT rect = ToRECT(area);
  SetDCBrushColor(dc, colour);
  FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

LPCWSTR CursorOf(FramePart part) {
  const DraggedEdges edges = EdgesOf(part);
  if (edges.horizontal == 0 && edges.vertical == 0) return IDC_ARROW;
  if (edges.vertical == 0) return IDC_SIZEWE;
  if (edges.horizontal == 0) return IDC_SIZENS;
  return edges.horizontal == edges.vertical ? IDC_SIZENWSE : IDC_SIZENESW;
}

Point MousePosition() {
  POINT at{};
  GetCursorPos(&at);
  return {static_cast<std::int32_t>(at.x), static_cast<std::int32_t>(at.y)};
}

}  // namespace

bool BJotlet::CreateWindowFor() {
  const Rect bounds{record_.x, record_.y, record_.x + record_.width, record_.y + record_.height};
  WindowStyle style{WS_POPUP | WS_CLIPCHILDREN, WS_EX_TOOLWINDOW | WS_EX_LAYERED};
  if (record_.onTop) style.extended |= WS_EX_TOPMOST;
  if (record_.ghost) style.extended |= WS_EX_TRANSPARENT;
  shownTitle_ = ShownTitle(record_.title, {});
  if (!Create(kJotletClass, Wide(shownTitle_), bounds, style)) return false;
  ApplyOpacity();
  if (!record_.IsImage()) {
    edit_.Create(Handle(), LayOutFrame(ClientSize(), Dpi()).content, record_.colour, record_.readOnly);
  }
  return true;
}

void BJotlet::ApplyOpacity() {
  SetLayeredWindowAttributes(Handle(), 0, AlphaOfOpacity(record_.transparency), LWA_ALPHA);
}

void BJotlet::LoadContent(std::string_view bytes) {
  if (record_.IsImage()) {
    if (const auto picture = DecodePng(bytes)) picture_.Load(*picture);
  } else {
    if (!bytes.empty() && !bytes.starts_with("{\\rtf")) {
      edit_.SetPlainText(FromUtf8(bytes));
      KeepOldContent();
    } else if (!edit_.SetRtf(bytes)) {
      KeepOldContent();
    }
    if (record_.scroll != Point{}) edit_.SetScrollPosition(record_.scroll);
  }
  TitleChanged();
}

void BJotlet::Show() { ShowWindow(Handle(), SW_SHOWNOACTIVATE); }

void BJotlet::Hide() { ShowWindow(Handle(), SW_HIDE); }

JotletData& BJotlet::Record() {
  // A minimised window has a place far off every screen.
  if (Handle() != nullptr && !IsIconic(Handle())) {
    const Rect bounds = Bounds();
    record_.x = bounds.left;
    record_.y = bounds.top;
    record_.width = bounds.Width();
    record_.height = bounds.Height();
    if (!record_.IsImage()) record_.scroll = edit_.ScrollPosition();
  }
  return record_;
}

FileStatus BJotlet::SaveContent(Files& files, TextView dataFolder, const Moment& now) {
  if (!contentChanged_ || record_.IsImage() || Handle() == nullptr) return {};
  const Text path = Text(dataFolder) + ContentPath(record_);
  if (keepOldContent_ && files.Exists(path)) {
    const FileStatus kept = files.Copy(path, DatedName(files, path, kDamagedMark, now.local));
    if (!kept) return kept;
  }
  keepOldContent_ = false;
  // Taken back first: typing that arrives while the file is written must count as a change again.
  contentChanged_ = false;
  const FileStatus written = files.Write(path, edit_.Rtf());
  if (written) {
    record_.modified = RecordTime(now.utc);
  } else {
    contentChanged_ = true;
  }
  return written;
}

Text BJotlet::PlainText() const { return record_.IsImage() ? Text() : edit_.PlainText(); }

Text BJotlet::Rtf() const { return record_.IsImage() ? Text() : FromAscii(edit_.Rtf()); }

void BJotlet::SetTitle(TextView title) {
  record_.title = title;
  TitleChanged();
  owner_.OnJotletChanged();
}

void BJotlet::SetColour(Colour colour) {
  record_.colour = colour;
  edit_.SetBackground(colour);
  InvalidateRect(Handle(), nullptr, FALSE);
  owner_.OnJotletChanged();
}

bool BJotlet::SetPlainText(TextView text) {
  if (record_.IsImage()) return false;
  edit_.SetPlainText(text);
  ContentChanged();
  return true;
}

bool BJotlet::SetRtf(TextView rtf) {
  if (record_.IsImage()) return false;
  edit_.SetRtf(RtfBytes(rtf));
  ContentChanged();
  return true;
}

void BJotlet::MoveTo(Point position) {
  SetWindowPos(Handle(), nullptr, position.x, position.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  owner_.OnJotletChanged();
}

void BJotlet::PasteClipboard() {
  edit_.Paste();
  ContentChanged();
}

void BJotlet::BringForward() {
  if (record_.hidden) return;
  SetWindowPos(Handle(), record_.onTop ? HWND_TOPMOST : HWND_TOP, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void BJotlet::TakeFocus() {
  SetForegroundWindow(Handle());
  SetFocus(record_.IsImage() ? Handle() : edit_.Handle());
}

LRESULT BJotlet::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND: return 1;
    case WM_PAINT: return OnPaint();
    case WM_SETCURSOR:
      return LOWORD(lParam) == HTCLIENT ? OnSetCursor(lParam) : Default(message, wParam, lParam);
    case WM_COMMAND: return OnControl(LOWORD(wParam), HIWORD(wParam));
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: OnButtonDown(PointOf(lParam)); return 0;
    case WM_MOUSEMOVE: OnMouseMove(); return 0;
    case WM_LBUTTONUP: OnButtonUp(PointOf(lParam)); return 0;
    case WM_CAPTURECHANGED: EndDrag(); return 0;
    case WM_RBUTTONUP: OnContextMenu(PointOf(lParam)); return 0;
    case WM_SIZE: OnSize(); return 0;
    case WM_SETFOCUS: OnFocus(true); return 0;
    case WM_KILLFOCUS: OnFocus(false); return 0;
    case WM_CLOSE: owner_.OnJotletClose(*this); return 0;
    case WM_DPICHANGED: OnDpiChanged(*reinterpret_cast<const RECT*>(lParam)); return 0;
    default: return Default(message, wParam, lParam);
  }
}

LRESULT BJotlet::OnPaint() {
  PAINTSTRUCT paint{};
  const HDC dc = BeginPaint(Handle(), &paint);
  const Size size = ClientSize();
  const UniqueDc memory(CreateCompatibleDC(dc));
  const UniqueBitmap buffer(CreateCompatibleBitmap(dc, std::max(size.width, 1), std::max(size.height, 1)));
  const Selected selected(memory.get(), buffer.get());
  PaintFrame(memory.get(), size);
  const RECT& part = paint.rcPaint;
  BitBlt(dc, part.left, part.top, part.right - part.left, part.bottom - part.top, memory.get(), part.left,
         part.top, SRCCOPY);
  EndPaint(Handle(), &paint);
  return 0;
}

void BJotlet::PaintFrame(HDC dc, Size size) {
  const FrameLayout layout = LayOutFrame(size, Dpi());
  Fill(dc, {0, 0, size.width, size.height}, Shade(record_.colour, 72));
  Fill(dc, {1, 1, size.width - 1, size.height - 1}, Shade(record_.colour, 100));
  PaintTitle(dc, layout);
  picture_.Draw(dc, layout.content);
}

void BJotlet::PaintTitle(HDC dc, const FrameLayout& layout) {
  const COLORREF ink = ReadableOn(record_.colour);
  Rect bar = layout.title;
  bar = {bar.left + 1, bar.top + 1, bar.right - 1, bar.bottom};
  Fill(dc, bar, Shade(record_.colour, hasFocus_ ? 84 : 93));
  const Selected font(dc, owner_.TitleFont(Dpi()));
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, ink);
  RECT text{layout.content.left, bar.top, layout.closeButton.left, bar.bottom};
  DrawTextW(dc, Wide(shownTitle_), static_cast<int>(shownTitle_.size()), &text,
            DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
  const Rect& button = layout.closeButton;
  const std::int32_t inset = button.Height() * 3 / 8;
  const UniquePen pen(CreatePen(PS_SOLID, std::max(Dpi() / 96, 1), ink));
  const Selected penSelected(dc, pen.get());
  MoveToEx(dc, button.left + inset, button.top + inset, nullptr);
  LineTo(dc, button.right - inset + 1, button.bottom - inset + 1);
  MoveToEx(dc, button.left + inset, button.bottom - inset, nullptr);
  LineTo(dc, button.right - inset + 1, button.top + inset - 1);
}

LRESULT BJotlet::OnSetCursor(LPARAM) {
  POINT at{};
  GetCursorPos(&at);
  ScreenToClient(Handle(), &at);
  const Point point{static_cast<std::int32_t>(at.x), static_cast<std::int32_t>(at.y)};
  SetCursor(LoadCursorW(nullptr, CursorOf(HitTestFrame(point, ClientSize(), Dpi()))));
  return TRUE;
}

LRESULT BJotlet::OnControl(UINT control, UINT notification) {
  if (control != BEdit::kControlId) return 0;
  if (notification == EN_CHANGE) ContentChanged();
  if (notification == EN_SETFOCUS) OnFocus(true);
  if (notification == EN_KILLFOCUS) OnFocus(false);
  return 0;
}

void BJotlet::OnButtonDown(Point at) {
  SetFocus(record_.IsImage() ? Handle() : edit_.Handle());
  dragPart_ = HitTestFrame(at, ClientSize(), Dpi());
  if (dragPart_ == FramePart::kContent) return;
  SetCapture(Handle());
  if (dragPart_ == FramePart::kClose) {
    closePressed_ = true;
    return;
  }
  drag_ = dragPart_ == FramePart::kTitle ? Drag::kMoving : Drag::kSizing;
  dragStart_ = MousePosition();
  dragBounds_ = Bounds();
}

void BJotlet::OnMouseMove() {
  if (drag_ == Drag::kIdle) return;
  const Point mouse = MousePosition();
  const Point offset{mouse.x - dragStart_.x, mouse.y - dragStart_.y};
  Rect bounds = dragBounds_;
  if (drag_ == Drag::kMoving) {
    bounds = {bounds.left + offset.x, bounds.top + offset.y, bounds.right + offset.x,
              bounds.bottom + offset.y};
  } else {
    bounds = SizedBounds(dragBounds_, dragPart_, offset, kMinimumNoteSize);
  }
  if (bounds == Bounds()) return;
  SetWindowPos(Handle(), nullptr, bounds.left, bounds.top, bounds.Width(), bounds.Height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void BJotlet::OnButtonUp(Point at) {
  const bool close = closePressed_ && HitTestFrame(at, ClientSize(), Dpi()) == FramePart::kClose;
  ReleaseCapture();
  if (close) owner_.OnJotletClose(*this);
}

// Also reached when the capture is taken away in the middle of a drag.
void BJotlet::EndDrag() {
  closePressed_ = false;
  const Drag ended = std::exchange(drag_, Drag::kIdle);
  if (ended == Drag::kIdle || Bounds() == dragBounds_) return;
  owner_.OnJotletChanged();
  if (ended == Drag::kMoving) {
    owner_.OnJotletMoved(*this);
  } else {
    owner_.OnJotletSized(*this);
  }
}

void BJotlet::OnSize() {
  if (edit_.Handle() != nullptr) edit_.SetBounds(LayOutFrame(ClientSize(), Dpi()).content);
  InvalidateRect(Handle(), nullptr, FALSE);
}

void BJotlet::OnFocus(bool gained) {
  // The editor tells of its own focus; the frame only passes the focus on to it.
  if (gained && edit_.Handle() != nullptr && GetFocus() == Handle()) {
    SetFocus(edit_.Handle());
    return;
  }
  if (hasFocus_ == gained) return;
  hasFocus_ = gained;
  InvalidateRect(Handle(), nullptr, FALSE);
  owner_.OnJotletFocus(*this, gained);
}

void BJotlet::OnContextMenu(Point at) {
  if (HitTestFrame(at, ClientSize(), Dpi()) != FramePart::kContent || record_.IsImage()) {
    owner_.OnJotletMenu(*this, MousePosition());
  }
}

void BJotlet::OnDpiChanged(const RECT& suggested) {
  const Rect bounds = FromRECT(suggested);
  SetWindowPos(Handle(), nullptr, bounds.left, bounds.top, bounds.Width(), bounds.Height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

Size BJotlet::ClientSize() const {
  RECT client{};
  GetClientRect(Handle(), &client);
  return {static_cast<std::int32_t>(client.right), static_cast<std::int32_t>(client.bottom)};
}

void BJotlet::ContentChanged() {
  contentChanged_ = true;
  if (record_.title.empty()) TitleChanged();
  owner_.OnJotletChanged();
}

// The window text follows the title, for other programs and for accessibility.
void BJotlet::TitleChanged() {
  const bool fromText = record_.title.empty() && edit_.Handle() != nullptr;
  Text title = ShownTitle(record_.title, fromText ? edit_.TextStart(kTitleSearch) : Text());
  if (title == shownTitle_) return;
  shownTitle_ = std::move(title);
  SetWindowTextW(Handle(), Wide(shownTitle_));
  InvalidateRect(Handle(), nullptr, FALSE);
}

}  // namespace jotlets

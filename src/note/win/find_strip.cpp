#include "note/win/find_strip.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>

#include "action/shortcuts.h"
#include "base/win/wide.h"
#include "editor/win/edit_text.h"
#include "looks/icon.h"
#include "looks/ink.h"
#include "res/resource.h"
#include "ui/areas.h"
#include "ui/icons.h"

namespace jotlets {
namespace {

constexpr wchar_t kStripClass[] = L"BraskJotletFind";
constexpr int kHeight = 24;  // at the usual scale, as all of these
constexpr int kWordsHeight = 18;
constexpr int kButton = 22;
constexpr int kCountWidth = 62;
constexpr int kMinWords = 60;
constexpr LONG kLongestSelection = 200;

enum Control { kWords = 1, kFound, kPrevious, kNext, kClose, kLabel };

struct Button {
  int control;
  std::uint32_t name;
  Icon sign;
};
// From the right.
constexpr Button kButtons[] = {{kClose, IDS_FIND_PART + 3, Icon::kClose},
                               {kNext, IDS_FIND_PART + 2, Icon::kChevronRight},
                               {kPrevious, IDS_FIND_PART + 1, Icon::kChevronLeft}};

struct StripColours {
  Colour ground;
  Colour pressed;
  Colour ink;
  Colour field;
  Colour fieldInk;
};

// The strip belongs to its note's paper, as the bar does.
StripColours ColoursOn(Colour paper, const Theme& theme) {
  constexpr std::int32_t kShade = 6;
  constexpr std::int32_t kPressed = 14;
  if (const auto& contrast = theme.Now().contrast)
    return {contrast->paper, contrast->paper, contrast->ink, contrast->paper, contrast->ink};
  const Colour ground = Shaded(paper, kShade);
  return {ground, Shaded(paper, kPressed), TitleInk(ground), paper, InkOn(paper)};
}

// The text of a button is what a screen reader says; what is seen is its sign.
void DrawButton(const DRAWITEMSTRUCT& item, const StripColours& colours) {
  const auto* button = std::ranges::find(kButtons, static_cast<int>(item.CtlID), &Button::control);
  if (button == std::end(kButtons)) return;
  FillArea(item.hDC, item.rcItem, (item.itemState & ODS_SELECTED) != 0 ? colours.pressed : colours.ground);
  RECT area = item.rcItem;
  DrawIcon(item.hDC, button->sign, {(area.left + area.right) / 2, (area.top + area.bottom) / 2},
           static_cast<int>(GetDpiForWindow(item.hwndItem)), colours.ink);
  if ((item.itemState & ODS_FOCUS) == 0) return;
  FrameArea(item.hDC, area, colours.ink);
  InflateRect(&area, -1, -1);
  FrameArea(item.hDC, area, colours.ink);
}

}  // namespace

std::int32_t FindStrip::Scaled(int pixels) const { return MulDiv(pixels, Dpi(), USER_DEFAULT_SCREEN_DPI); }

std::int32_t FindStrip::Height() const { return open_ ? Scaled(kHeight) : 0; }

Text FindStrip::Words() const { return WindowText(GetDlgItem(Handle(), kWords)); }

bool FindStrip::MakeControls(HWND note) {
  if (Handle() != nullptr) return true;
  RegisterWindowClass(kStripClass);
  if (!Create(kStripClass, L"", {},
              {WS_CHILD | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT | watcher_.StripLook().LayoutStyle()}, note))
    return false;
  SetWindowLongPtrW(Handle(), GWLP_ID, kControlId);
  const auto make = [this](const wchar_t* kind, const wchar_t* text, DWORD style, int id) {
    return CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, Handle(),
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr),
                           nullptr);
  };
  font_.reset(CreateFontW(-Scaled(12), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                          CLEARTYPE_QUALITY, 0, L"Segoe UI"));
  // Without room of its own: it gives the field its name.
  make(L"STATIC", Wide(watcher_.WordsOf(IDS_FIND_PART)), 0, kLabel);
  const HWND words = make(L"EDIT", L"", ES_AUTOHSCROLL, kWords);
  make(L"STATIC", L"", SS_CENTER | SS_CENTERIMAGE | SS_NOPREFIX, kFound);
  for (const Button& button : kButtons)
    make(L"BUTTON", Wide(watcher_.WordsOf(button.name)), BS_OWNERDRAW | BS_NOTIFY, button.control);
  for (int control = kWords; control <= kClose; ++control)
    SendDlgItemMessageW(Handle(), control, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), 0);
  for (const HWND part :
       {words, GetDlgItem(Handle(), kPrevious), GetDlgItem(Handle(), kNext), GetDlgItem(Handle(), kClose)})
    SetWindowSubclass(part, WatchKeys, 0, reinterpret_cast<DWORD_PTR>(this));
  return true;
}

void FindStrip::Open(HWND note, TextView wanted) {
  if (!MakeControls(note)) return;
  const CHARRANGE selection = edit_.Selection();
  Text words = selection.cpMax - selection.cpMin > kLongestSelection ? Text() : edit_.TextBetween(selection);
  if (words.empty() || words.find(u'\r') != Text::npos) words = watcher_.Searched();
  if (!wanted.empty()) words = wanted;
  open_ = true;
  // The place that was found can be seen while the words have the keyboard.
  SendMessageW(edit_.Handle(), EM_SETOPTIONS, ECOOP_OR, ECO_NOHIDESEL);
  placed_();
  ShowWindow(Handle(), SW_SHOWNA);
  SetDlgItemTextW(Handle(), kWords, Wide(words));
  SendDlgItemMessageW(Handle(), kWords, EM_SETSEL, 0, -1);
  SetFocus(GetDlgItem(Handle(), kWords));
}

void FindStrip::CloseStrip() {
  if (!open_) return;
  open_ = false;
  // The text has its whole place again before anybody can see that the strip has gone.
  placed_();
  SendMessageW(edit_.Handle(), EM_SETOPTIONS, ECOOP_AND, ~LPARAM{ECO_NOHIDESEL});
  SetFocus(edit_.Handle());
  ShowWindow(Handle(), SW_HIDE);
}

void FindStrip::Show(bool shown) {
  if (open_) ShowWindow(Handle(), shown ? SW_SHOWNA : SW_HIDE);
}

void FindStrip::Place(const Rect& bounds) {
  if (!open_) return;
  SetWindowPos(Handle(), HWND_TOP, bounds.left, bounds.top, bounds.Width(), bounds.Height(), SWP_NOACTIVATE);
  LayOut();
}

void FindStrip::Repaint() {
  if (open_) RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// In a narrow strip the words go before the count.
void FindStrip::LayOut() {
  RECT client{};
  GetClientRect(Handle(), &client);
  const int height = static_cast<int>(client.bottom);
  int right = static_cast<int>(client.right);
  const auto place = [&](int control, int width) {
    right -= width;
    MoveWindow(GetDlgItem(Handle(), control), right, 1, width, std::max(height - 2, 0), TRUE);
  };
  for (const Button& button : kButtons) place(button.control, Scaled(kButton));
  place(kFound, right - Scaled(kCountWidth) >= Scaled(kMinWords) ? Scaled(kCountWidth) : 0);
  // The control writes at its top.
  const int words = std::min(Scaled(kWordsHeight), height);
  const int edge = (height - words) / 2;
  MoveWindow(GetDlgItem(Handle(), kWords), edge, edge, std::max(right - 2 * edge, 0), words, TRUE);
}

void FindStrip::Find(FindStep step) {
  if (!open_) return;
  const Text words = Words();
  const FoundText found = FindText(edit_, words, step);
  SetDlgItemTextW(Handle(), kFound, Wide(words.empty() ? Text() : watcher_.FoundWords(found)));
  const bool moves = step == FindStep::kNext || step == FindStep::kPrevious;
  if (moves && found.count == 0) MessageBeep(MB_OK);
}

void FindStrip::OnCommand(UINT control, UINT notification) {
  if (control == kWords && notification == EN_CHANGE) {
    watcher_.SetSearched(Words());
    Find(FindStep::kStay);
  }
  // The note counts as one that has the focus.
  const bool isButton = control >= kPrevious;
  const bool comes = notification == (isButton ? BN_SETFOCUS : EN_SETFOCUS);
  if (comes || notification == (isButton ? BN_KILLFOCUS : EN_KILLFOCUS))
    SendMessageW(GetParent(Handle()), WM_COMMAND, MAKEWPARAM(kControlId, comes ? EN_SETFOCUS : EN_KILLFOCUS),
                 0);
  // Two quick clicks on a button that is drawn here are told of as one of each kind.
  if ((notification != BN_CLICKED && notification != BN_DOUBLECLICKED) || !isButton) return;
  if (control == kClose) return CloseStrip();
  Find(control == kNext ? FindStep::kNext : FindStep::kPrevious);
  SetFocus(GetDlgItem(Handle(), kWords));
}

// The colours of a control, which its brush fills.
LRESULT FindStrip::Paint(WPARAM context, Colour ink, Colour ground) {
  const auto dc = reinterpret_cast<HDC>(context);
  SetTextColor(dc, ToCOLORREF(ink));
  SetBkColor(dc, ToCOLORREF(ground));
  SetDCBrushColor(dc, ToCOLORREF(ground));
  return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
}

LRESULT FindStrip::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const StripColours colours = ColoursOn(watcher_.StripPaper(), watcher_.StripLook());
  switch (message) {
    case WM_DRAWITEM: DrawButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam), colours); return TRUE;
    case WM_CTLCOLOREDIT: return Paint(wParam, colours.fieldInk, colours.field);
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: return Paint(wParam, colours.ink, colours.ground);
    case WM_COMMAND: OnCommand(LOWORD(wParam), HIWORD(wParam)); return 0;
    case WM_ERASEBKGND: {
      RECT client{};
      GetClientRect(Handle(), &client);
      const auto dc = reinterpret_cast<HDC>(wParam);
      FillArea(dc, client, colours.ground);
      // Where field and strip have one colour its edge is drawn.
      if (colours.field == colours.ground) FrameArea(dc, FieldEdge(), colours.ink);
      return 1;
    }
    // The menu of the words is not the note's.
    case WM_CONTEXTMENU: return 0;
    default: return Default(message, wParam, lParam);
  }
}

RECT FindStrip::FieldEdge() const {
  RECT edge{};
  GetWindowRect(GetDlgItem(Handle(), kWords), &edge);
  MapWindowPoints(nullptr, Handle(), reinterpret_cast<POINT*>(&edge), 2);
  InflateRect(&edge, 1, 1);
  return edge;
}

// From the words to the buttons and round again.
void FindStrip::StepPart(HWND from, bool back) {
  constexpr int kParts[] = {kWords, kPrevious, kNext, kClose};
  constexpr int kCount = static_cast<int>(std::size(kParts));
  const int at = static_cast<int>(std::ranges::find(kParts, GetDlgCtrlID(from)) - std::begin(kParts));
  SetFocus(GetDlgItem(Handle(), kParts[(at + (back ? kCount - 1 : 1)) % kCount]));
}

bool FindStrip::OnKey(HWND part, WPARAM key) {
  const bool shift = GetKeyState(VK_SHIFT) < 0;
  const bool control = GetKeyState(VK_CONTROL) < 0;
  if (key == VK_ESCAPE) return CloseStrip(), true;
  if (key == VK_TAB && !control) return StepPart(part, shift), true;
  if (control && (key == 'F' || key == 'A')) {
    SendDlgItemMessageW(Handle(), kWords, EM_SETSEL, 0, -1);
    return true;
  }
  if (key == VK_RETURN && GetDlgCtrlID(part) != kWords) return SendMessageW(part, BM_CLICK, 0, 0), true;
  if (key != VK_RETURN && key != VK_F3) return false;
  Find(shift ? FindStep::kPrevious : FindStep::kNext);
  return true;
}

LRESULT CALLBACK FindStrip::WatchKeys(HWND part, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR object) noexcept {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(part, WatchKeys, 0);
  // The characters of keys that are served would make the control beep.
  constexpr WPARAM kControlF = 6;
  constexpr WPARAM kControlA = 1;
  const bool served = wParam == VK_ESCAPE || wParam == VK_RETURN || wParam == VK_TAB || wParam == kControlF ||
                      wParam == kControlA;
  if (message == WM_CHAR && served) return 0;
  try {
    if (message == WM_KEYDOWN && reinterpret_cast<FindStrip*>(object)->OnKey(part, wParam)) return 0;
  } catch (...) {
    return 0;
  }
  return DefSubclassProc(part, message, wParam, lParam);
}

}  // namespace jotlets

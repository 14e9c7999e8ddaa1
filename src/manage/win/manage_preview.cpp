#include "manage/win/manage_preview.h"

#include <algorithm>

#include "base/win/wide.h"
#include "data/letter_marks.h"
#include "data/rtf_text.h"
#include "editor/win/editor_bounds.h"
#include "looks/ink.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr int kBarHeight = 32;  // pixels at 96 dots per inch, as below
constexpr int kInset = 10;
constexpr std::int32_t kBarShade = 6;  // percent

Colour BarOf(Colour paper) { return Shaded(paper, kBarShade); }

}  // namespace

void ManagePreview::SetUp(HWND title, HWND words) {
  title_ = title;
  words_ = words;
  place_ = {};
  shown_ = false;
  font_ = BolderFont(title);
  SendMessageW(title_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
}

void ManagePreview::Place(const Rect& place) {
  place_ = place;
  const bool seen = shown_ && IsPlaced();
  for (const HWND control : {title_, words_}) ShowWindow(control, seen ? SW_SHOWNA : SW_HIDE);
  if (!IsPlaced()) return;
  const auto scaled = [dpi = static_cast<int>(GetDpiForWindow(words_))](int length) {
    return MulDiv(length, dpi, USER_DEFAULT_SCREEN_DPI);
  };
  const int bar = scaled(kBarHeight);
  SetWindowPos(title_, nullptr, place.left, place.top, place.Width(), bar, SWP_NOZORDER | SWP_NOACTIVATE);
  SetWindowPos(words_, nullptr, place.left, place.top + bar, place.Width(), std::max(place.Height() - bar, 0),
               SWP_NOZORDER | SWP_NOACTIVATE);
  FitScrollBar();
}

void ManagePreview::Show(const ManageRow& row, Colour paper, const Text& words) {
  if (row.type == ManageRow::Type::kStack) return Hide();
  if (shown_ && paper_ == paper && shownTitle_ == row.title && shownWords_ == words) return;
  shown_ = true;
  paper_ = paper;
  shownTitle_ = row.title;
  shownWords_ = words;
  paperBrush_.reset(CreateSolidBrush(ToCOLORREF(paper_)));
  barBrush_.reset(CreateSolidBrush(ToCOLORREF(BarOf(paper_))));
  // The static control has no inset of its own.
  SetWindowTextW(title_, Wide(u"  " + row.title));
  SetWindowTextW(words_, Wide(BoundsOfEditor().takesMarks ? words : WithoutMarks(words)));
  Place(Rect(place_));
  for (const HWND control : {title_, words_}) InvalidateRect(control, nullptr, TRUE);
}

// Keeps the text off the sides of what is left beside the scroll bar, which the system counts in when the bar
// comes or goes.
RECT ManagePreview::InsetText() const {
  const int inset = MulDiv(kInset, static_cast<int>(GetDpiForWindow(words_)), USER_DEFAULT_SCREEN_DPI);
  RECT inside{};
  GetClientRect(words_, &inside);
  InflateRect(&inside, -inset, -inset / 2);
  SendMessageW(words_, EM_SETRECT, 0, reinterpret_cast<LPARAM>(&inside));
  return inside;
}

// Only a text that goes on below has one.
void ManagePreview::FitScrollBar() const {
  ShowScrollBar(words_, SB_VERT, FALSE);
  const RECT inside = InsetText();
  const auto topOf = [this](WPARAM line) {
    const auto first = static_cast<WPARAM>(SendMessageW(words_, EM_LINEINDEX, line, 0));
    return static_cast<short>(HIWORD(SendMessageW(words_, EM_POSFROMCHAR, first, 0)));
  };
  const LRESULT lines = SendMessageW(words_, EM_GETLINECOUNT, 0, 0);
  const bool goesOn = lines > 1 && lines * (topOf(1) - topOf(0)) > inside.bottom - inside.top;
  if (!goesOn) return;
  ShowScrollBar(words_, SB_VERT, TRUE);
  InsetText();
}

void ManagePreview::Hide() {
  shown_ = false;
  Place(Rect(place_));
}

HBRUSH ManagePreview::Colours(HDC dc, HWND control) const {
  if (control == nullptr || (control != title_ && control != words_)) return nullptr;
  const bool title = control == title_;
  const Colour paper = title ? BarOf(paper_) : paper_;
  SetTextColor(dc, ToCOLORREF(title ? TitleInk(paper) : InkOn(paper)));
  SetBkColor(dc, ToCOLORREF(paper));
  return (title ? barBrush_ : paperBrush_).get();
}

}  // namespace jotlets

#include "manage/win/quick_find.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "base/win/wide.h"
#include "manage/win/marked_text.h"
#include "note/frame_layout.h"
#include "res/find_numbers.h"
#include "res/resource.h"
#include "ui/areas.h"
#include "ui/screen.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr std::size_t kMaximumResults = 50;
constexpr int kWidth = 560;  // pixels at 96 dots per inch, as all lengths here
constexpr int kMargin = 12;
constexpr int kLabel = 18;
constexpr int kField = 30;
constexpr int kStatus = 20;
constexpr int kRow = 46;
constexpr int kRowsShown = 8;
constexpr int kBarWidth = 4;
constexpr int kWhereWidth = 150;

UniqueFont MakeFont(int height, int weight) {
  return UniqueFont(CreateFontW(-height, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                                CLEARTYPE_QUALITY, 0, L"Segoe UI"));
}

}  // namespace

int BQuickFindDlg::Scaled(int length) const {
  return MulDiv(length, static_cast<int>(GetDpiForWindow(Handle())), USER_DEFAULT_SCREEN_DPI);
}

void BQuickFindDlg::OpenWindow() {
  if (!IsOpen() && !Open(resources_, IDD_QUICK_FIND)) return;
  PlaceWindow();
  ShowWindow(Handle(), SW_SHOW);
  SetForegroundWindow(Handle());
  SetFocus(Item(IDC_QUICK_FIND_WORDS));
  SendDlgItemMessageW(Handle(), IDC_QUICK_FIND_WORDS, EM_SETSEL, 0, -1);
}

void BQuickFindDlg::OnInit() {
  // A caption in the resource would be shown.
  SetWindowTextW(Handle(), Wide(resources_.String(IDS_QUICK_FIND_NAME)));
  const auto cue = resources_.String(IDS_QUICK_FIND_CUE);
  SendDlgItemMessageW(Handle(), IDC_QUICK_FIND_WORDS, EM_SETCUEBANNER, TRUE,
                      reinterpret_cast<LPARAM>(Wide(cue)));
  SendDlgItemMessageW(Handle(), IDC_QUICK_FIND_WORDS, EM_LIMITTEXT, 1000, 0);
  answer_ = {};
  opens_ = false;
}

// In the upper part of the screen on which the user works.
void BQuickFindDlg::PlaceWindow() {
  const Rect work = WorkAreaOf(GetForegroundWindow());
  SetWindowPos(Handle(), HWND_TOPMOST, work.left, work.top, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);
  font_ = MakeFont(Scaled(12), FW_NORMAL);
  large_ = MakeFont(Scaled(16), FW_NORMAL);
  bold_ = MakeFont(Scaled(13), FW_SEMIBOLD);
  for (const int control : {IDC_QUICK_FIND_LABEL, IDC_QUICK_FIND_STATUS, IDC_QUICK_FIND_LIST})
    SendDlgItemMessageW(Handle(), control, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
  SendDlgItemMessageW(Handle(), IDC_QUICK_FIND_WORDS, WM_SETFONT, reinterpret_cast<WPARAM>(large_.get()),
                      FALSE);
  SendDlgItemMessageW(Handle(), IDC_QUICK_FIND_LIST, LB_SETITEMHEIGHT, 0, Scaled(kRow));
  const int left = work.left + std::max((work.Width() - Scaled(kWidth)) / 2, 0);
  SetWindowPos(Handle(), nullptr, left, work.top + work.Height() / 6, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  ShowStatus();
  Layout();
}

// As high as what there is to be shown.
void BQuickFindDlg::Layout() {
  RECT own{};
  GetWindowRect(Handle(), &own);
  const int rest = Scaled(kLabel + kField + kStatus + kMargin) + 3 * Scaled(4);
  const int room = (WorkAreaOf(Handle()).bottom - static_cast<int>(own.top) - rest) / Scaled(kRow);
  const int rows = std::min(static_cast<int>(answer_.results.size()), std::clamp(room, 1, kRowsShown));
  const int width = Scaled(kWidth);
  const int inner = width - 2 * Scaled(kMargin);
  int top = Scaled(kMargin) / 2;
  const auto place = [&](int control, int height) {
    SetWindowPos(Item(control), nullptr, Scaled(kMargin), top, inner, height, SWP_NOZORDER | SWP_NOACTIVATE);
    top += height + (height > 0 ? Scaled(4) : 0);
  };
  place(IDC_QUICK_FIND_LABEL, Scaled(kLabel));
  place(IDC_QUICK_FIND_WORDS, Scaled(kField));
  place(IDC_QUICK_FIND_LIST, rows * Scaled(kRow));
  // That nothing was found is said at length.
  place(IDC_QUICK_FIND_STATUS, Scaled(answer_.all && rows == 0 ? 2 * kStatus : kStatus));
  ShowWindow(Item(IDC_QUICK_FIND_LIST), rows > 0 ? SW_SHOWNA : SW_HIDE);
  SetWindowPos(Handle(), nullptr, 0, 0, width, top + Scaled(kMargin) / 2,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  InvalidateRect(Handle(), nullptr, TRUE);
}

void BQuickFindDlg::Ask() {
  const Text typed = ItemText(IDC_QUICK_FIND_WORDS);
  if (ParseSearchQuery(typed).IsEmpty()) {
    answer_ = {};
    ShowResults({});
    return owner_.AskForNotes({}, 0);
  }
  owner_.AskForNotes(typed, kMaximumResults);
}

void BQuickFindDlg::ShowAnswer(SearchAnswer answer) {
  if (!IsOpen() || answer.typed != ItemText(IDC_QUICK_FIND_WORDS)) return;
  // What comes later of an answer stands behind: the choice stays.
  const std::size_t row = answer.typed == answer_.typed ? ChosenRow() : SIZE_MAX;
  const Text chosen = row < answer_.results.size() ? answer_.results[row].note.id : Text();
  answer_ = std::move(answer);
  ShowResults(chosen);
  if (opens_) PostMessageW(Handle(), kEnterMessage, 0, 0);
}

std::size_t BQuickFindDlg::ChosenRow() const {
  return static_cast<std::size_t>(SendMessageW(Item(IDC_QUICK_FIND_LIST), LB_GETCURSEL, 0, 0));
}

Text BQuickFindDlg::TitleOf(const SearchResult& result) const {
  const Text title = ShownTitle(result.note.title, result.beginning);
  return title.empty()
             ? resources_.String(result.note.image ? IDS_QUICK_FIND_PICTURE : IDS_QUICK_FIND_UNTITLED)
             : title;
}

Text BQuickFindDlg::WhereIs(const IndexedNote& note) const {
  const Text place = resources_.String(IDS_QUICK_FIND_PLACE + static_cast<UINT>(note.place));
  return note.category.empty() ? place : place + u": " + note.category;
}

// The texts of the rows are what a screen reader says.
void BQuickFindDlg::ShowResults(const Text& chosen) {
  const HWND list = Item(IDC_QUICK_FIND_LIST);
  SendMessageW(list, WM_SETREDRAW, FALSE, 0);
  SendMessageW(list, LB_RESETCONTENT, 0, 0);
  for (const SearchResult& result : answer_.results) {
    const Text words = TitleOf(result) + u", " + result.snippet.text + u", " + WhereIs(result.note);
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(words)));
  }
  const auto isChosen = [&chosen](const SearchResult& result) { return result.note.id == chosen; };
  const auto found = std::ranges::find_if(answer_.results, isChosen);
  const auto row = found == answer_.results.end() ? 0 : found - answer_.results.begin();
  if (!answer_.results.empty()) SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
  SendMessageW(list, WM_SETREDRAW, TRUE, 0);
  ShowStatus();
  Layout();
}

void BQuickFindDlg::ShowStatus() {
  const Text typed = ItemText(IDC_QUICK_FIND_WORDS);
  Text status;
  if (ParseSearchQuery(typed).IsEmpty()) {
    status = resources_.String(IDS_QUICK_FIND_HINT);
  } else if (!answer_.results.empty()) {
    status = resources_.String(answer_.more ? IDS_QUICK_FIND_MORE : IDS_QUICK_FIND_KEYS);
  } else if (answer_.cannotLook) {
    status = resources_.String(IDS_QUICK_FIND_CANNOT);
  } else if (answer_.all) {
    status = ReplaceAll(ReplaceAll(resources_.String(IDS_QUICK_FIND_NOTHING), u"%s", typed), u"%n",
                        IntText(answer_.searched));
  } else {
    status = resources_.String(IDS_MANAGE_READING);
  }
  SetDlgItemTextW(Handle(), IDC_QUICK_FIND_STATUS, Wide(status));
}

void BQuickFindDlg::Move(int rows) {
  const HWND list = Item(IDC_QUICK_FIND_LIST);
  const auto count = static_cast<int>(answer_.results.size());
  if (count == 0) return;
  const auto at = static_cast<int>(SendMessageW(list, LB_GETCURSEL, 0, 0));
  // Row by row it goes round.
  const int to = rows == 1 || rows == -1 ? (at + rows + count) % count : std::clamp(at + rows, 0, count - 1);
  SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(to), 0);
}

bool BQuickFindDlg::TranslateKey(const MSG& message) {
  if (!IsOpen() || (message.hwnd != Handle() && !IsChild(Handle(), message.hwnd))) return false;
  if (message.message == WM_SYSKEYDOWN && message.wParam == VK_F4)
    return PostMessageW(Handle(), kCloseMessage, 0, 0);
  if (message.message != WM_KEYDOWN) return false;
  opens_ = false;
  switch (message.wParam) {
    case VK_UP: Move(-1); return true;
    case VK_DOWN: Move(1); return true;
    case VK_PRIOR: Move(-kRowsShown); return true;
    case VK_NEXT: Move(kRowsShown); return true;
    case VK_ESCAPE: Close(); return true;
    // Not from inside a message of the field, which goes with it.
    case VK_RETURN:
      PostMessageW(Handle(), GetKeyState(VK_CONTROL) < 0 ? kMakeMessage : kEnterMessage, 0, 0);
      return true;
    default: return false;
  }
}

// Who types fast is ahead of the answers: what is on the list yet is not what was asked for.
void BQuickFindDlg::OnEnter() {
  const bool isThere = answer_.all || !answer_.results.empty();
  opens_ = !isThere || answer_.typed != ItemText(IDC_QUICK_FIND_WORDS);
  if (!opens_) OpenChosen();
}

void BQuickFindDlg::OpenChosen() {
  const std::size_t at = ChosenRow();
  if (at >= answer_.results.size()) return;
  const SearchResult result = answer_.results[at];
  const MarkedText& snippet = result.snippet;
  Text words;
  if (!snippet.hits.empty())
    words = snippet.text.substr(snippet.hits.front().first,
                                snippet.hits.front().last - snippet.hits.front().first);
  Close();
  owner_.OpenFoundNote(result.note, words);
}

void BQuickFindDlg::MakeNote() {
  const Text words(TrimBlanks(ItemText(IDC_QUICK_FIND_WORDS)));
  if (words.empty()) return;
  Close();
  owner_.MakeNoteOf(words);
}

bool BQuickFindDlg::OnCommand(UINT control, UINT notification) {
  if (control == IDCANCEL) Close();
  if (control == IDC_QUICK_FIND_WORDS && notification == EN_CHANGE) Ask();
  if (control == IDC_QUICK_FIND_LIST && notification == LBN_SELCHANGE) {
    opens_ = false;
    SetFocus(Item(IDC_QUICK_FIND_WORDS));
  }
  if (control == IDC_QUICK_FIND_LIST && notification == LBN_DBLCLK)
    PostMessageW(Handle(), kOpenMessage, 0, 0);
  return true;
}

std::optional<LRESULT> BQuickFindDlg::OnMessage(UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_ACTIVATE:
      // Who goes on elsewhere is done with it.
      if (LOWORD(wParam) == WA_INACTIVE) PostMessageW(Handle(), kCloseMessage, 0, 0);
      return std::nullopt;
    case WM_SYSCOMMAND:
      // The Alt of the hot key is let go here, and would open a menu that there is not.
      if ((wParam & 0xFFF0) == SC_KEYMENU) return 0;
      return std::nullopt;
    case kCloseMessage: Close(); return 0;
    case kEnterMessage: OnEnter(); return 0;
    case kOpenMessage: OpenChosen(); return 0;
    case kMakeMessage: MakeNote(); return 0;
    case WM_DESTROY: owner_.AskForNotes({}, 0); return std::nullopt;
    default: return std::nullopt;
  }
}

HBRUSH BQuickFindDlg::OnColours(HDC context, HWND) {
  if (Look().IsDark()) return nullptr;
  SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
  SetBkColor(context, GetSysColor(COLOR_WINDOW));
  return GetSysColorBrush(COLOR_WINDOW);
}

void BQuickFindDlg::OnDrawItem(const DRAWITEMSTRUCT& item) {
  if (item.itemID >= answer_.results.size()) return;
  const SearchResult& result = answer_.results[item.itemID];
  const MarkedColours colours = RowColours(Look(), (item.itemState & ODS_SELECTED) != 0);
  const RECT& row = item.rcItem;
  FillArea(item.hDC, row, colours.paper);
  const int gap = Scaled(8);
  const RECT bar{row.left + gap, row.top + gap, row.left + gap + Scaled(kBarWidth), row.bottom - gap};
  FillArea(item.hDC, bar, result.note.colour);
  FrameArea(item.hDC, bar, Look().Colours().edge);
  const int left = static_cast<int>(bar.right) + gap;
  const int where = static_cast<int>(row.right) - Scaled(kWhereWidth);
  const Text title = TitleOf(result);
  const bool own = title == OneLine(result.note.title);
  DrawMarked(item.hDC, bold_.get(), {left, row.top + Scaled(5), where - gap, row.bottom}, title,
             own ? result.titleHits : std::vector<TextPart>(), colours);
  DrawMarked(item.hDC, font_.get(), {left, row.top + Scaled(24), row.right - gap, row.bottom},
             result.snippet.text, result.snippet.hits, colours);
  DrawMarked(item.hDC, font_.get(), {where, row.top + Scaled(6), row.right - gap, row.bottom},
             WhereIs(result.note), {}, colours);
}

}  // namespace jotlets

#include "schedule/win/attach_dialog.h"

#include <algorithm>

#include "base/win/wide.h"
#include "res/resource.h"
#include "ui/areas.h"

namespace jotlets {
namespace {

constexpr int kIconSide = 16;
constexpr int kMargin = 4;

}  // namespace

BAttachDlg::BAttachDlg(const Resources& resources, FrontWindow& front, const JotletData& record, bool showAll)
    : resources_(resources), front_(front), showAll_(showAll) {
  choice_.attachment.title = record.attachment.title;
  choice_.attachment.className = record.attachment.className;
  choice_.attachment.onlyFocus = record.attachment.onlyFocus;
  choice_.attachment.onlyVisible = !record.IsAttached() || record.attachment.onlyVisible;
}

std::optional<AttachChoice> BAttachDlg::Choose(HWND owner) {
  if (Show(resources_, IDD_ATTACH, owner) != IDOK) return std::nullopt;
  return choice_;
}

void BAttachDlg::OnInit() {
  const int line = MulDiv(kIconSide + 2 * kMargin, static_cast<int>(GetDpiForWindow(Handle())), 96);
  SendMessageW(Item(IDC_ATTACH_LIST), LB_SETITEMHEIGHT, 0, line);
  SetDlgItemTextW(Handle(), IDC_ATTACH_TITLE, Wide(choice_.attachment.title));
  SetDlgItemTextW(Handle(), IDC_ATTACH_CLASS, Wide(choice_.attachment.className));
  CheckDlgButton(Handle(), IDC_ATTACH_FOCUS, choice_.attachment.onlyFocus);
  CheckDlgButton(Handle(), IDC_ATTACH_VISIBLE, choice_.attachment.onlyVisible);
  List();
}

void BAttachDlg::List() {
  listed_.clear();
  for (ForeignWindow& window : ListForeignWindows(front_.Now())) {
    if (showAll_ || IsUserWindow(window)) listed_.push_back(std::move(window));
  }
  const HWND list = Item(IDC_ATTACH_LIST);
  SendMessageW(list, WM_SETREDRAW, FALSE, 0);
  SendMessageW(list, LB_RESETCONTENT, 0, 0);
  for (const ForeignWindow& window : listed_) {
    const Text line = OneLine(window.facts.title) + u" (" + window.facts.className + u")";
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(line)));
  }
  SendMessageW(list, WM_SETREDRAW, TRUE, 0);
  Preview();
}

// The fields take the window's own texts, which the user then turns into patterns.
void BAttachDlg::ReadSelected() {
  const LRESULT at = SendMessageW(Item(IDC_ATTACH_LIST), LB_GETCURSEL, 0, 0);
  if (at < 0 || static_cast<std::size_t>(at) >= listed_.size()) return;
  const ForeignWindow& window = listed_[static_cast<std::size_t>(at)];
  pointedAt_ = window.window;
  SetDlgItemTextW(Handle(), IDC_ATTACH_TITLE, Wide(window.facts.title));
  SetDlgItemTextW(Handle(), IDC_ATTACH_CLASS, Wide(window.facts.className));
}

void BAttachDlg::Preview() {
  const Text className = ItemText(IDC_ATTACH_CLASS);
  const TextPattern title(ItemText(IDC_ATTACH_TITLE));
  const TextPattern classPattern(className);
  matches_.clear();
  for (const ForeignWindow& window : listed_)
    matches_.push_back(!className.empty() && title.Matches(window.facts.title) &&
                       classPattern.Matches(window.facts.className));
  const auto count = std::count(matches_.begin(), matches_.end(), true);
  const Text words = className.empty()
                         ? resources_.String(IDS_ATTACH_NO_CLASS)
                         : ReplaceAll(resources_.String(IDS_ATTACH_MATCHES), u"%s", IntText(count));
  SetDlgItemTextW(Handle(), IDC_ATTACH_PREVIEW, Wide(words));
  // A note without a class pattern would not be attached.
  EnableWindow(Item(IDOK), !className.empty());
  InvalidateRect(Item(IDC_ATTACH_LIST), nullptr, FALSE);
}

bool BAttachDlg::OnCommand(UINT control, UINT notification) {
  switch (control) {
    case IDC_ATTACH_LIST:
      if (notification == LBN_SELCHANGE) ReadSelected();
      if (notification != LBN_DBLCLK) return true;
      ReadSelected();
      Take();
      End(IDOK);
      return true;
    case IDC_ATTACH_TITLE:
    case IDC_ATTACH_CLASS:
      if (notification == EN_CHANGE) Preview();
      return true;
    case IDC_ATTACH_REFRESH: List(); return true;
    case IDOK: Take(); return false;
    default: return false;
  }
}

void BAttachDlg::Take() {
  choice_.attachment.title = OneLine(ItemText(IDC_ATTACH_TITLE));
  choice_.attachment.className = OneLine(ItemText(IDC_ATTACH_CLASS));
  choice_.attachment.onlyFocus = IsDlgButtonChecked(Handle(), IDC_ATTACH_FOCUS) == BST_CHECKED;
  choice_.attachment.onlyVisible = IsDlgButtonChecked(Handle(), IDC_ATTACH_VISIBLE) == BST_CHECKED;
  choice_.window = pointedAt_;
}

void BAttachDlg::OnDrawItem(const DRAWITEMSTRUCT& item) {
  if (item.itemID >= listed_.size()) return;
  const ForeignWindow& window = listed_[item.itemID];
  const bool selected = (item.itemState & ODS_SELECTED) != 0;
  const bool matches = item.itemID < matches_.size() && matches_[item.itemID];
  const WindowColours& colours = Look().Colours();
  FillArea(item.hDC, item.rcItem, selected ? colours.chosen : matches ? colours.match : colours.field);
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, ToCOLORREF(selected ? colours.chosenText : colours.text));
  RECT rest = item.rcItem;
  const int side = static_cast<int>(rest.bottom - rest.top) - 2 * kMargin;
  // A mark, not a colour alone, says which windows match.
  RECT mark{rest.left + kMargin, rest.top, rest.left + kMargin + side, rest.bottom};
  if (matches) DrawTextW(item.hDC, L"\u2713", 1, &mark, DT_SINGLELINE | DT_VCENTER | DT_CENTER);
  DrawIconEx(item.hDC, static_cast<int>(mark.right) + kMargin, static_cast<int>(rest.top) + kMargin,
             icons_.Of(window.window), side, side, 0, nullptr, DI_NORMAL);
  rest.left = mark.right + 2 * kMargin + side;
  RECT classArea = rest;
  rest.right -= (rest.right - rest.left) / 3;
  classArea.left = rest.right + kMargin;
  const Text title = OneLine(window.facts.title);
  constexpr UINT kHow = DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX;
  DrawTextW(item.hDC, Wide(title), static_cast<int>(title.size()), &rest, kHow);
  if (!selected && !matches) SetTextColor(item.hDC, ToCOLORREF(colours.quiet));
  const Text& className = window.facts.className;
  DrawTextW(item.hDC, Wide(className), static_cast<int>(className.size()), &classArea, kHow);
  if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &item.rcItem);
}

}  // namespace jotlets

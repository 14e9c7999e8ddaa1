#include "ui/message_dialog.h"

#include <algorithm>
#include <initializer_list>

#include "base/win/wide.h"
#include "res/resource.h"

namespace jotlets {
namespace {

struct KindRow {
  LPCWSTR icon;
  UINT sound;
};

KindRow RowOf(BMessageDlg::Kind kind) {
  switch (kind) {
    case BMessageDlg::Kind::kInformation: return {IDI_INFORMATION, MB_ICONINFORMATION};
    case BMessageDlg::Kind::kQuestion: return {IDI_QUESTION, MB_ICONQUESTION};
    case BMessageDlg::Kind::kWarning:
    case BMessageDlg::Kind::kGraveQuestion: break;
  }
  return {IDI_WARNING, MB_ICONWARNING};
}

void MoveDown(HWND dialog, HWND control, int by) {
  RECT area{};
  GetWindowRect(control, &area);
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&area), 2);
  SetWindowPos(control, nullptr, area.left, area.top + by, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

}  // namespace

bool BMessageDlg::Run(HWND owner) { return Show(resources_, IDD_MESSAGE, owner) == IDYES; }

void BMessageDlg::OnInit() {
  const KindRow row = RowOf(kind_);
  SetDlgItemTextW(Handle(), IDC_MESSAGE_TEXT, Wide(words_));
  // The system's icons are shared: nobody is to free them.
  SendDlgItemMessageW(Handle(), IDC_MESSAGE_ICON, STM_SETICON,
                      reinterpret_cast<WPARAM>(LoadIconW(nullptr, row.icon)), 0);
  for (const int answer : {IDYES, IDNO}) ShowWindow(Item(answer), Asks() ? SW_SHOW : SW_HIDE);
  ShowWindow(Item(IDOK), Asks() ? SW_HIDE : SW_SHOW);
  SendMessageW(Handle(), DM_SETDEFID, static_cast<WPARAM>(Asks() ? IDNO : IDOK), 0);
  Fit();
  SetFocus(Item(Asks() ? IDNO : IDOK));
  MessageBeep(row.sound);
  NotifyWinEvent(EVENT_SYSTEM_ALERT, Handle(), OBJID_ALERT, CHILDID_SELF);
}

bool BMessageDlg::OnCommand(UINT control, UINT) {
  if (control == IDYES || control == IDNO) End(static_cast<INT_PTR>(control));
  return control == IDYES || control == IDNO;
}

void BMessageDlg::Fit() {
  const HWND words = Item(IDC_MESSAGE_TEXT);
  RECT given{};
  GetClientRect(words, &given);
  RECT needed = given;
  const HDC dc = GetDC(words);
  const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(words, WM_GETFONT, 0, 0)));
  DrawTextW(dc, Wide(words_), -1, &needed, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EXPANDTABS);
  SelectObject(dc, before);
  ReleaseDC(words, dc);
  const int more = std::max(0L, needed.bottom - given.bottom);
  SetWindowPos(words, nullptr, 0, 0, given.right, given.bottom + more, SWP_NOMOVE | SWP_NOZORDER);
  for (const int answer : {IDYES, IDNO, IDOK}) MoveDown(Handle(), Item(answer), more);
  RECT own{};
  GetWindowRect(Handle(), &own);
  SetWindowPos(Handle(), nullptr, own.left, own.top - more / 2, own.right - own.left,
               own.bottom - own.top + more, SWP_NOZORDER);
}

}  // namespace jotlets

#include "ui/hot_key_field.h"

#include <gtest/gtest.h>

#include "desktop.h"

namespace jotlets {
namespace {

// A dialog in this process with the field, and a button whose letter is S.
class HotKeyFieldTest : public ::testing::Test {
 protected:
  static constexpr int kField = 200;
  static constexpr int kButton = 201;

  void SetUp() override {
    struct {
      DLGTEMPLATE head{WS_POPUP | WS_VISIBLE | WS_CAPTION, 0, 0, 50, 50, 150, 60};
      WORD menuClassTitle[3]{};
    } const blank;
    dialog_ = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &blank.head, nullptr, Procedure,
                                         reinterpret_cast<LPARAM>(this));
    ASSERT_NE(dialog_, nullptr);
    ASSERT_TRUE(field_.Create(dialog_, kField, {10, 10, 200, 34}));
    CreateWindowExW(0, L"BUTTON", L"&Save", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 10, 40, 80, 24, dialog_,
                    reinterpret_cast<HMENU>(INT_PTR{kButton}), nullptr, nullptr);
    SetForegroundWindow(dialog_);
    SetFocus(field_.Handle());
    ASSERT_TRUE(Comes([&] { return GetFocus() == field_.Handle() && GetForegroundWindow() == dialog_; }));
  }
  void TearDown() override { DestroyWindow(dialog_); }

  // Serves messages as the loop of a dialog does, until the condition holds.
  bool Comes(const std::function<bool()>& condition) const {
    const ULONGLONG end = GetTickCount64() + kPatience;
    while (!condition()) {
      MSG message{};
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (IsDialogMessageW(dialog_, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
      }
      if (GetTickCount64() > end) return false;
      MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
    return true;
  }

  bool Shows(std::initializer_list<WORD> keys, TextView words) const {
    PressKeys(keys);
    return Comes([&] { return TextOfWindow(field_.Handle()) == words; });
  }

  void PutOnClipboard(const wchar_t (&text)[2]) const {
    ASSERT_TRUE(OpenClipboard(dialog_));
    EmptyClipboard();
    const HGLOBAL data = GlobalAlloc(GMEM_MOVEABLE, sizeof text);
    std::copy(std::begin(text), std::end(text), static_cast<wchar_t*>(GlobalLock(data)));
    GlobalUnlock(data);
    SetClipboardData(CF_UNICODETEXT, data);
    CloseClipboard();
  }

  static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(dialog, DWLP_USER, lParam);
    auto* test = reinterpret_cast<HotKeyFieldTest*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (message == WM_COMMAND && wParam == MAKEWPARAM(kField, EN_CHANGE)) ++test->changes_;
    if (message == WM_COMMAND && LOWORD(wParam) == kButton) ++test->clicks_;
    return FALSE;
  }

  HWND dialog_ = nullptr;
  HotKeyField field_;
  int changes_ = 0;
  int clicks_ = 0;
};

TEST_F(HotKeyFieldTest, TakesWhatIsPressedAndNothingElse) {
  EXPECT_TRUE(Shows({VK_LWIN, VK_MENU, 'S'}, u"Win+Alt+S"));
  EXPECT_TRUE(field_.Key() == (HotKey{true, false, false, true, 'S'}));
  EXPECT_TRUE(Shows({VK_CONTROL, VK_SHIFT, VK_F9}, u"Ctrl+Shift+F9"));
  EXPECT_EQ(changes_, 2);
  // Letters are no hot keys, and what the clipboard holds is none; the key after them shows that they are
  // done.
  TypeText(u"ab");
  PutOnClipboard(L"c");
  SendMessageW(field_.Handle(), WM_PASTE, 0, 0);
  EXPECT_TRUE(Shows({VK_MENU, VK_SHIFT, 'S'}, u"Alt+Shift+S"));
  EXPECT_EQ(changes_, 3);
  EXPECT_TRUE(Shows({VK_BACK}, u""));
  EXPECT_EQ(field_.Key().key, 0);
  EXPECT_EQ(clicks_, 0);
  PressKeys({VK_TAB});
  EXPECT_TRUE(Comes([&] { return GetFocus() == GetDlgItem(dialog_, kButton); }));
}

}  // namespace
}  // namespace jotlets

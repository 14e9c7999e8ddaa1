#include "ui/user_messages.h"

#include "base/win/wide.h"
#include "res/resource.h"
#include "ui/dialog.h"

namespace jotlets {
namespace {

// The system puts its boxes in the middle of the screen, where nobody looks who works with a note.
class BesideOwner {
 public:
  BesideOwner() : hook_(SetWindowsHookExW(WH_CBT, OnEvent, nullptr, GetCurrentThreadId())) {}
  ~BesideOwner() { UnhookWindowsHookEx(hook_); }
  BesideOwner(const BesideOwner&) = delete;
  BesideOwner& operator=(const BesideOwner&) = delete;

 private:
  static LRESULT CALLBACK OnEvent(int code, WPARAM window, LPARAM detail) {
    const auto box = reinterpret_cast<HWND>(window);
    // Shown already, it may have been moved by the user.
    if (code == HCBT_ACTIVATE && !IsWindowVisible(box) && GetDlgItem(box, kWordsOfBox) != nullptr)
      PlaceByOwner(box);
    return CallNextHookEx(nullptr, code, window, detail);
  }
  static constexpr int kWordsOfBox = 0xFFFF;

  HHOOK hook_;
};

int ShowBox(HWND owner, const Resources& resources, const Text& words, UINT kind) {
  const BesideOwner placed;
  if (resources.Look().IsRightToLeft()) kind |= MB_RTLREADING | MB_RIGHT;
  return MessageBoxW(owner, Wide(words), Wide(resources.String(IDS_APP_TITLE)), kind);
}

Text WithCount(const Resources& resources, UINT text, std::size_t count) {
  return ReplaceAll(resources.String(text), u"%n", IntText(static_cast<std::int64_t>(count)));
}

}  // namespace

void TellCount(HWND owner, const Resources& resources, UINT text, std::size_t count) {
  ShowBox(owner, resources, WithCount(resources, text, count), MB_OK | MB_ICONWARNING);
}

bool AskCount(HWND owner, const Resources& resources, UINT question, std::size_t count) {
  return ShowBox(owner, resources, WithCount(resources, question, count),
                 MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

void Tell(HWND owner, const Resources& resources, UINT text, TextView value) {
  ShowBox(owner, resources, ReplaceAll(resources.String(text), u"%s", value), MB_OK | MB_ICONWARNING);
}

void Report(HWND owner, const Resources& resources, const Text& told, bool left) {
  ShowBox(owner, resources, told, MB_OK | (left ? MB_ICONWARNING : MB_ICONINFORMATION));
}

bool AskFirst(HWND owner, const Resources& resources, UINT question, TextView value) {
  return ShowBox(owner, resources, ReplaceAll(resources.String(question), u"%s", value),
                 MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2) == IDYES;
}

bool Ask(HWND owner, const Resources& resources, UINT question) {
  return ShowBox(owner, resources, resources.String(question), MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) ==
         IDYES;
}

}  // namespace jotlets

#include "ui/hot_key_field.h"

#include <commctrl.h>

#include "base/win/wide.h"

namespace jotlets {
namespace {

bool IsHeld(int key) { return GetKeyState(key) < 0; }

HotKey Pressed(WPARAM key) {
  return {IsHeld(VK_LWIN) || IsHeld(VK_RWIN), IsHeld(VK_SHIFT), IsHeld(VK_CONTROL), IsHeld(VK_MENU),
          static_cast<std::int32_t>(key)};
}

}  // namespace

HotKeyField::~HotKeyField() {
  if (edit_ != nullptr) RemoveWindowSubclass(edit_, Watch, 0);
}

bool HotKeyField::Create(HWND parent, int id, const Rect& bounds) {
  edit_ =
      CreateWindowExW(WS_EX_CLIENTEDGE, WC_EDITW, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL,
                      bounds.left, bounds.top, bounds.Width(), bounds.Height(), parent,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
  if (edit_ == nullptr) return false;
  SendMessageW(edit_, WM_SETFONT, static_cast<WPARAM>(SendMessageW(parent, WM_GETFONT, 0, 0)), FALSE);
  SetWindowSubclass(edit_, Watch, 0, reinterpret_cast<DWORD_PTR>(this));
  return true;
}

void HotKeyField::SetCue(const Text& words) {
  SendMessageW(edit_, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(Wide(words)));
}

void HotKeyField::SetKey(const HotKey& key) {
  if (key == key_) return;
  key_ = key;
  const Text english = HotKeyText(key);
  const Text words = words_ ? words_(english) : english;
  SetWindowTextW(edit_, Wide(words));
  SendMessageW(edit_, EM_SETSEL, words.size(), static_cast<LPARAM>(words.size()));
}

// Whether the press is the field's own.
bool HotKeyField::OnPress(const HotKey& pressed) {
  switch (MeaningOfPress(pressed)) {
    case HotKeyPress::kTake: SetKey(pressed); return true;
    case HotKeyPress::kClear: SetKey({}); return true;
    case HotKeyPress::kIgnore: return true;
    case HotKeyPress::kPassOn: break;
  }
  return false;
}

// Nothing changes the text but a key: what an edit control does by itself with signs and the clipboard is
// kept from it.
bool HotKeyField::Serve(UINT message, WPARAM wParam) {
  switch (message) {
    case WM_KEYDOWN: return OnPress(Pressed(wParam));
    case WM_SYSKEYDOWN: {
      const bool isOurs = OnPress(Pressed(wParam));
      // Else the sign would go on to the control that has it as its underlined letter.
      MSG sign{};
      if (isOurs) PeekMessageW(&sign, edit_, WM_SYSCHAR, WM_SYSDEADCHAR, PM_REMOVE);
      return isOurs;
    }
    // A release of Alt would go to the menu of the window.
    case WM_SYSKEYUP: return wParam != VK_F4;
    case WM_CHAR:
    case WM_SYSCHAR:
    case WM_DEADCHAR:
    case WM_SYSDEADCHAR:
    case WM_IME_CHAR:
    case WM_CONTEXTMENU:
    case WM_CUT:
    case WM_PASTE:
    case WM_CLEAR:
    case WM_UNDO:
    case EM_UNDO: return true;
    default: return false;
  }
}

LRESULT CALLBACK HotKeyField::Watch(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                    DWORD_PTR field) noexcept {
  auto* object = reinterpret_cast<HotKeyField*>(field);
  try {
    if (message == WM_GETDLGCODE) {
      const auto* key = reinterpret_cast<const MSG*>(lParam);
      const bool press = key != nullptr && (key->message == WM_KEYDOWN || key->message == WM_SYSKEYDOWN);
      const bool passes = press && MeaningOfPress(Pressed(key->wParam)) == HotKeyPress::kPassOn;
      return passes ? 0 : DLGC_WANTALLKEYS | DLGC_HASSETSEL;
    }
    if (object->Serve(message, wParam)) return 0;
  } catch (...) {
    OutputDebugStringW(L"an exception left a message unserved");
  }
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(edit, Watch, 0);
    object->edit_ = nullptr;
  }
  return DefSubclassProc(edit, message, wParam, lParam);
}

}  // namespace jotlets

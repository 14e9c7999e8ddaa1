// A field that takes a hot key by its being pressed: an edit control that shows the key in words. Delete or
// Backspace clears it.
#pragma once

#include <windows.h>

#include <functional>
#include <utility>

#include "base/geometry.h"
#include "data/hot_key.h"

namespace jotlets {

/// Keys that are hot already do not reach it: who has registered them unregisters them while it has the
/// focus. The object must live as long as its control.
class HotKeyField {
 public:
  HotKeyField() = default;
  ~HotKeyField();
  HotKeyField(const HotKeyField&) = delete;
  HotKeyField& operator=(const HotKeyField&) = delete;

  /// Creates the control; `bounds` are pixels of the parent's client area. The parent gets the notifications
  /// of an edit control: EN_CHANGE for every other key, `SetKey` included, EN_SETFOCUS and EN_KILLFOCUS.
  bool Create(HWND parent, int id, const Rect& bounds);

  HWND Handle() const { return edit_; }
  /// What stands in the field while it holds no key.
  void SetCue(const Text& words);
  /// Has keys shown in the words that this gives for the English ones; before the first `SetKey`.
  void SetWords(std::function<Text(TextView key)> words) { words_ = std::move(words); }
  void SetKey(const HotKey& key);
  /// What the field shows; its `key` is 0 when that is nothing.
  const HotKey& Key() const { return key_; }

 private:
  static LRESULT CALLBACK Watch(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                DWORD_PTR field) noexcept;
  bool Serve(UINT message, WPARAM wParam);
  bool OnPress(const HotKey& pressed);

  HWND edit_ = nullptr;
  HotKey key_;
  std::function<Text(TextView key)> words_;
};

}  // namespace jotlets

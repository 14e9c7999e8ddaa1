#include "app/win/hot_keys.h"

#include "base/win/wide.h"

namespace jotlets {
namespace {

UINT ModifierMask(const HotKey& hook) {
  return (hook.windowsKey ? MOD_WIN : 0u) + (hook.shift ? MOD_SHIFT : 0u) + (hook.ctrl ? MOD_CONTROL : 0u) +
         (hook.alt ? MOD_ALT : 0u);
}

}  // namespace

void RegisterHotKeys(HWND window, const Options& options, Log& log) {
  if (options.useHooks != 1) return;
  for (std::size_t i = 0; i < options.hooks.size(); ++i) {
    const HotKey& hook = options.hooks[i];
    if (hook.key <= 0 || hook.key > 0xFE) continue;
    const int id = kFirstHotKey + static_cast<int>(i);
    if (!RegisterHotKey(window, id, ModifierMask(hook), static_cast<UINT>(hook.key))) {
      log.Write(kLogLifecycle, u"Hot key ", id, u": ", LastErrorText(u"RegisterHotKey"));
    }
  }
}

void UnregisterHotKeys(HWND window) {
  for (int id = kFirstHotKey; id < kFirstHotKey + 6; ++id) UnregisterHotKey(window, id);
}

}  // namespace jotlets

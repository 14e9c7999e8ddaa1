#include "app/win/hot_keys.h"

#include "app/key_tooltip.h"
#include "base/win/wide.h"
#include "data/data_file.h"
#include "res/resource.h"

namespace jotlets {
namespace {

UINT ModifierMask(const HotKey& hook) {
  return (hook.windowsKey ? MOD_WIN : 0u) + (hook.shift ? MOD_SHIFT : 0u) + (hook.ctrl ? MOD_CONTROL : 0u) +
         (hook.alt ? MOD_ALT : 0u);
}

}  // namespace

void HotKeys::Register(HWND window) {
  Unregister(window);
  Text taken;
  for (std::size_t i = 0; i < kCount; ++i) {
    const Text key = HotKeyText(options_.hooks[i]);
    if (options_.useHooks != 1 || key.empty()) continue;
    held_[i] = RegisterOne(window, i);
    if (!held_[i]) taken += (taken.empty() ? u"" : u", ") + resources_.Key(key);
  }
  tray_.SetTooltip(Tooltip());
  TellTaken(taken);
}

bool HotKeys::RegisterOne(HWND window, std::size_t index) {
  const HotKey& hook = options_.hooks[index];
  const int id = kFirstHotKey + static_cast<int>(index);
  if (RegisterHotKey(window, id, ModifierMask(hook), static_cast<UINT>(hook.key))) return true;
  const Text reason = LastErrorText(u"RegisterHotKey");
  log_.Write(kLogLifecycle, u"Hot key ", id, u" (", HotKeyText(hook), u"): ", reason);
  return false;
}

void HotKeys::Unregister(HWND window) {
  for (std::size_t i = 0; i < kCount; ++i) {
    if (held_[i]) UnregisterHotKey(window, kFirstHotKey + static_cast<int>(i));
  }
  held_.reset();
}

Text HotKeys::Held(std::size_t index) const {
  return held_[index] ? resources_.Key(HotKeyText(options_.hooks[index])) : Text();
}

Text HotKeys::Tooltip() const {
  std::vector<Text> lines;
  for (std::size_t i = 0; i < kCount; ++i) {
    if (held_[i]) lines.push_back(resources_.String(IDS_HOT_KEY + static_cast<UINT>(i)) + u": " + Held(i));
  }
  return KeyTooltip(resources_.String(IDS_TOOLTIP), lines);
}

// Only when there is something new in it.
void HotKeys::TellTaken(const Text& taken) {
  if (taken.empty() || taken == told_) return;
  told_ = taken;
  tray_.Balloon(kVersionText, ReplaceAll(resources_.String(IDS_HOT_KEY_TAKEN), u"%s", taken));
}

Text HotKeys::WelcomeWords() const {
  if (options_.useHooks != 1) return resources_.String(IDS_WELCOME_KEYS_OFF);
  const Text key = Held(0);
  return ReplaceAll(resources_.String(key.empty() ? IDS_WELCOME_NO_KEY : IDS_WELCOME_KEY), u"%s", key);
}

}  // namespace jotlets

// The seven global hot keys: registering them, and telling which of them hold.
#pragma once

#include <windows.h>

#include <bitset>

#include "app/win/system_tray.h"
#include "base/log.h"
#include "data/options.h"

namespace jotlets {

inline constexpr int kFirstHotKey = 10;  // the ids are 10 to 16

class HotKeys {
 public:
  static constexpr std::size_t kCount = std::tuple_size_v<decltype(Options::hooks)>;

  HotKeys(const Resources& resources, const Options& options, Log& log, CSystemTray& tray)
      : resources_(resources), options_(options), log_(log), tray_(tray) {}

  /// Registers the keys of the options, in the place of those that held before, and puts what holds into the
  /// tooltip of the tray icon. A key that another program has does no harm: it is logged, and the user is
  /// told of it once.
  void Register(HWND window);
  void Unregister(HWND window);

  /// The key by which a command of `IDS_HOT_KEY` is called now, in words; empty when none holds.
  Text Held(std::size_t index) const;
  /// What the first note says about the keys.
  Text WelcomeWords() const;

 private:
  bool RegisterOne(HWND window, std::size_t index);
  Text Tooltip() const;
  void TellTaken(const Text& taken);

  const Resources& resources_;
  const Options& options_;
  Log& log_;
  CSystemTray& tray_;
  std::bitset<kCount> held_;
  Text told_;  // the keys that the user knows to be taken
};

}  // namespace jotlets

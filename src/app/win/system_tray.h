// The icon in the notification area: its pictures, its balloons, its return after the shell was restarted.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include "ui/resources.h"

namespace jotlets {

class CSystemTray {
 public:
  /// Mouse messages of the icon come to `window` as `message`.
  CSystemTray(const Resources& resources, Text tooltip);
  ~CSystemTray() { Remove(); }
  CSystemTray(const CSystemTray&) = delete;
  CSystemTray& operator=(const CSystemTray&) = delete;

  void Add(HWND window, UINT message);
  /// Adds the icon again: the taskbar has been restarted, or was not there yet.
  void AddAgain();
  void Remove();
  /// What is said while the mouse rests on it.
  void SetTooltip(Text words);

  /// Which icon stands for the notes: the usual one, or the one for hidden notes.
  void ShowHidden(bool hidden);
  /// Changes between the blank icon and the other one.
  void Flash();
  void StopFlashing();
  /// A balloon at the icon; it does not wait for the user.
  void Balloon(TextView title, TextView text);

 private:
  void Fill(NOTIFYICONDATAW& data, UINT flags) const;
  void Update();

  UniqueIcon normal_;
  UniqueIcon blank_;
  UniqueIcon hiddenIcon_;
  Text tooltip_;
  HWND window_ = nullptr;
  UINT message_ = 0;
  bool hidden_ = false;
  bool showsBlank_ = false;
  bool added_ = false;
};

}  // namespace jotlets

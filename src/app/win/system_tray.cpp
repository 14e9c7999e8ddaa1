#include "app/win/system_tray.h"

#include <algorithm>

#include "base/win/wide.h"
#include "res/resource.h"

namespace jotlets {
namespace {

constexpr UINT kIconId = 1;

template <std::size_t Size>
void CopyCut(wchar_t (&to)[Size], TextView text) {
  const std::size_t count = std::min(text.size(), Size - 1);
  std::copy_n(reinterpret_cast<const wchar_t*>(text.data()), count, to);
  to[count] = L'\0';
}

}  // namespace

CSystemTray::CSystemTray(const Resources& resources, Text tooltip)
    : normal_(resources.Icon(IDI_JOTLETS)),
      blank_(resources.Icon(IDI_JOTLETS_BLANK)),
      hiddenIcon_(resources.Icon(IDI_JOTLETS_HIDDEN)),
      tooltip_(std::move(tooltip)) {}

void CSystemTray::Fill(NOTIFYICONDATAW& data, UINT flags) const {
  data.cbSize = sizeof data;
  data.hWnd = window_;
  data.uID = kIconId;
  data.uFlags = flags;
  data.uCallbackMessage = message_;
  data.hIcon = (showsBlank_ ? blank_ : hidden_ ? hiddenIcon_ : normal_).get();
  CopyCut(data.szTip, tooltip_);
}

void CSystemTray::Add(HWND window, UINT message) {
  window_ = window;
  message_ = message;
  AddAgain();
}

void CSystemTray::AddAgain() {
  NOTIFYICONDATAW data{};
  Fill(data, NIF_ICON | NIF_MESSAGE | NIF_TIP);
  // An icon that is still there would make the addition fail.
  Shell_NotifyIconW(NIM_DELETE, &data);
  added_ = Shell_NotifyIconW(NIM_ADD, &data) != 0;
}

void CSystemTray::Remove() {
  if (!added_) return;
  NOTIFYICONDATAW data{};
  Fill(data, 0);
  Shell_NotifyIconW(NIM_DELETE, &data);
  added_ = false;
}

void CSystemTray::SetTooltip(Text words) {
  tooltip_ = std::move(words);
  Update();
}

void CSystemTray::ShowHidden(bool hidden) {
  hidden_ = hidden;
  Update();
}

void CSystemTray::Flash() {
  showsBlank_ = !showsBlank_;
  Update();
}

void CSystemTray::StopFlashing() {
  showsBlank_ = false;
  Update();
}

void CSystemTray::Update() {
  if (!added_) return;
  NOTIFYICONDATAW data{};
  Fill(data, NIF_ICON | NIF_TIP);
  Shell_NotifyIconW(NIM_MODIFY, &data);
}

void CSystemTray::Balloon(TextView title, TextView text) {
  if (!added_) return;
  NOTIFYICONDATAW data{};
  Fill(data, NIF_INFO);
  CopyCut(data.szInfoTitle, title);
  CopyCut(data.szInfo, text);
  data.dwInfoFlags = NIIF_WARNING;
  Shell_NotifyIconW(NIM_MODIFY, &data);
}

}  // namespace jotlets

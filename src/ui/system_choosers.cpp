#include "ui/system_choosers.h"

#include <commdlg.h>
#include <shlobj.h>

#include <algorithm>
#include <memory>

#include "base/win/wide.h"
#include "ui/window.h"

namespace jotlets {
namespace {

struct FreeTaskMemory {
  void operator()(void* memory) const { CoTaskMemFree(memory); }
};

constexpr std::size_t kLongestPath = 32768;

// The dialog wants its pairs ended by NULs.
Text WithNuls(Text filter) {
  std::replace(filter.begin(), filter.end(), u'|', u'\0');
  filter.push_back(u'\0');
  return filter;
}

Text ChooseFile(HWND owner, const Text& filter, const Text& extension, const Text& name, DWORD flags) {
  const Text pairs = WithNuls(filter);
  Text path(kLongestPath, u'\0');
  name.copy(path.data(), std::min(name.size(), kLongestPath - 1));
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = Wide(pairs);
  dialog.lpstrFile = WideBuffer(path);
  dialog.nMaxFile = static_cast<DWORD>(path.size());
  dialog.lpstrDefExt = extension.empty() ? nullptr : Wide(extension);
  dialog.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | flags;
  const bool opens = (flags & OFN_FILEMUSTEXIST) != 0;
  if (!(opens ? GetOpenFileNameW(&dialog) : GetSaveFileNameW(&dialog))) return {};
  path.resize(path.find(u'\0'));
  return path;
}

}  // namespace

std::optional<Colour> ChooseSystemColour(HWND owner, Colour colour) {
  // The user's own sixteen; they live as long as the program.
  static COLORREF custom[16] = {};
  CHOOSECOLORW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.rgbResult = ToCOLORREF(colour);
  dialog.lpCustColors = custom;
  dialog.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ANYCOLOR;
  if (!ChooseColorW(&dialog)) return std::nullopt;
  return Colour{GetRValue(dialog.rgbResult), GetGValue(dialog.rgbResult), GetBValue(dialog.rgbResult)};
}

Text ChooseFileToSave(HWND owner, const Text& filter, const Text& extension, const Text& name) {
  return ChooseFile(owner, filter, extension, name, OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST);
}

Text ChooseNewFile(HWND owner, const Text& filter, const Text& extension, const Text& name) {
  return ChooseFile(owner, filter, extension, name, OFN_PATHMUSTEXIST);
}

Text ChooseFileToOpen(HWND owner, const Text& filter) {
  return ChooseFile(owner, filter, {}, {}, OFN_FILEMUSTEXIST);
}

Text ChooseFolder(HWND owner, const Resources& resources, UINT question, TextView present) {
  const Text title = resources.String(question);
  BROWSEINFOW dialog{};
  dialog.hwndOwner = owner;
  dialog.lpszTitle = Wide(title);
  dialog.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE | BIF_EDITBOX;
  const std::unique_ptr<ITEMIDLIST, FreeTaskMemory> chosen(SHBrowseForFolderW(&dialog));
  Text path(MAX_PATH, u'\0');
  if (!chosen || !SHGetPathFromIDListW(chosen.get(), WideBuffer(path))) return {};
  path = WithSeparator(path.substr(0, path.find(u'\0')));
  return EqualIgnoreCase(path, present) ? Text() : path;
}

}  // namespace jotlets

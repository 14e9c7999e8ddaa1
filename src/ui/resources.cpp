#include "ui/resources.h"

#include <cstring>

#include "base/key_text.h"
#include "base/win/wide.h"
#include "res/resource.h"
#include "ui/screen.h"

namespace jotlets {
namespace {

Text StringOf(HMODULE module, UINT id) {
  // With a size of 0 the system gives a pointer into the resource itself.
  const wchar_t* text = nullptr;
  const int length = LoadStringW(module, id, reinterpret_cast<wchar_t*>(&text), 0);
  return length > 0 ? Text(FromWide(text, static_cast<std::size_t>(length))) : Text();
}

}  // namespace

Resources::Resources(Theme& theme) : theme_(theme), program_(GetModuleHandleW(nullptr)) {
  const Text path = ProgramFolder() + u"language80.dll";
  translation_.reset(
      LoadLibraryExW(Wide(path), nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE));
  theme.SetRightToLeft(String(IDS_READING) == u"rtl");
}

Text Resources::String(UINT id) const {
  Text text;
  if (translation_) text = StringOf(translation_.get(), id);
  return text.empty() ? StringOf(program_, id) : text;
}

Text Resources::Key(TextView key) const {
  return TranslatedKey(key,
                       [this](std::size_t word) { return String(IDS_KEY_WORD + static_cast<UINT>(word)); });
}

UniqueMenu Resources::Menu(UINT id) const {
  HMENU menu = translation_ ? LoadMenuW(translation_.get(), MAKEINTRESOURCEW(id)) : nullptr;
  if (menu == nullptr) menu = LoadMenuW(program_, MAKEINTRESOURCEW(id));
  return UniqueMenu(menu);
}

UniqueAccelerators Resources::Accelerators(UINT id) const {
  HACCEL keys = translation_ ? LoadAcceleratorsW(translation_.get(), MAKEINTRESOURCEW(id)) : nullptr;
  if (keys == nullptr) keys = LoadAcceleratorsW(program_, MAKEINTRESOURCEW(id));
  return UniqueAccelerators(keys);
}

UniqueIcon Resources::Icon(UINT id) const {
  return UniqueIcon(
      static_cast<HICON>(LoadImageW(program_, MAKEINTRESOURCEW(id), IMAGE_ICON, GetSystemMetrics(SM_CXSMICON),
                                    GetSystemMetrics(SM_CYSMICON), 0)));
}

std::string_view Resources::Bytes(UINT id) const {
  const HRSRC found =
      FindResourceW(program_, MAKEINTRESOURCEW(id), reinterpret_cast<const wchar_t*>(RT_RCDATA));
  if (found == nullptr) return {};
  const HGLOBAL loaded = LoadResource(program_, found);
  if (loaded == nullptr) return {};
  return {static_cast<const char*>(LockResource(loaded)), SizeofResource(program_, found)};
}

std::vector<std::byte> Resources::DialogTemplate(UINT id) const {
  const auto type = reinterpret_cast<const wchar_t*>(RT_DIALOG);
  HMODULE module = translation_.get();
  HRSRC found = module == nullptr ? nullptr : FindResourceW(module, MAKEINTRESOURCEW(id), type);
  if (found == nullptr) {
    module = program_;
    found = FindResourceW(module, MAKEINTRESOURCEW(id), type);
  }
  const HGLOBAL loaded = found == nullptr ? nullptr : LoadResource(module, found);
  if (loaded == nullptr) return {};
  const auto* first = static_cast<const std::byte*>(LockResource(loaded));
  std::vector<std::byte> bytes(first, first + SizeofResource(module, found));
  // Of both kinds of template, told apart by their first words.
  constexpr std::size_t kExtendedStyle = 4;
  constexpr std::size_t kExtendedStyleOfEx = 8;
  if (bytes.size() < kExtendedStyleOfEx + sizeof(DWORD)) return {};
  const bool ex = bytes[2] == std::byte{0xFF} && bytes[3] == std::byte{0xFF};
  std::byte* const place = bytes.data() + (ex ? kExtendedStyleOfEx : kExtendedStyle);
  DWORD style = 0;
  std::memcpy(&style, place, sizeof style);
  style |= theme_.LayoutStyle();
  std::memcpy(place, &style, sizeof style);
  return bytes;
}

}  // namespace jotlets

// What windows are made of: texts, menus and dialogs, taken from the translation "language80.dll" when it is
// there, else from the program; and the look that they share.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "ui/handle.h"
#include "ui/theme.h"

namespace jotlets {

struct FreeLibraryDeleter {
  void operator()(HMODULE module) const { FreeLibrary(module); }
};
using UniqueModule = std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeLibraryDeleter>;

class Resources {
 public:
  /// Loads the translation beside the program as data; without one the program's own resources serve. `theme`
  /// outlives them, and is told in which direction the language is read.
  explicit Resources(Theme& theme);

  /// A text of the string table; the program's own when the translation lacks it.
  Text String(UINT id) const;
  /// A key ("Ctrl+Del") as the language calls it.
  Text Key(TextView key) const;
  UniqueMenu Menu(UINT id) const;
  UniqueAccelerators Accelerators(UINT id) const;
  /// A small icon of the program, for the notification area and window classes.
  UniqueIcon Icon(UINT id) const;
  /// The bytes of a raw-data resource of the program.
  std::string_view Bytes(UINT id) const;
  /// The template of a dialog: of the translation, unless it lacks it; mirrored for a language that is read
  /// from right to left.
  std::vector<std::byte> DialogTemplate(UINT id) const;
  /// The look of now.
  const Theme& Look() const { return theme_; }

 private:
  const Theme& theme_;
  UniqueModule translation_;
  HMODULE program_;
};

}  // namespace jotlets

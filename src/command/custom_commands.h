// Menu entries that other programs have added: a word to be told by, and a caption.
#pragma once

#include <vector>

#include "base/text.h"

namespace jotlets {

struct CustomCommand {
  Text word;
  Text caption;
  std::int32_t menuId = -1;  // of its entry, while the menu is built
};

class CustomCommands {
 public:
  /// A client that adds without end must not fill the menus and the memory.
  static constexpr std::size_t kMax = 500;
  static constexpr std::size_t kLongestCaption = 200;

  enum class Added { kYes, kExists, kNoRoom };
  /// Adds an entry behind the others; words are the same without regard to case. An empty caption shows the
  /// word.
  Added Add(TextView word, TextView caption);
  /// False when there is no such word.
  bool Remove(TextView word);

  const std::vector<CustomCommand>& List() const { return commands_; }
  /// Gives the entries consecutive ids from `firstId` and returns them as they are now: a menu that is built
  /// of them stays true when they change while it is open.
  std::vector<CustomCommand> Number(std::int32_t firstId);

 private:
  std::vector<CustomCommand> commands_;
};

/// The word of the entry with this id; empty when there is none.
Text WordOf(const std::vector<CustomCommand>& shown, std::int32_t menuId);

/// The entries of both menus.
struct CustomMenus {
  CustomCommands ofNotes;
  CustomCommands ofProgram;
};

}  // namespace jotlets

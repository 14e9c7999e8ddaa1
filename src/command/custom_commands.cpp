#include "command/custom_commands.h"

#include <algorithm>

namespace jotlets {

CustomCommands::Added CustomCommands::Add(TextView word, TextView caption) {
  const bool exists = std::any_of(commands_.begin(), commands_.end(),
                                  [word](const CustomCommand& c) { return EqualIgnoreCase(c.word, word); });
  if (exists) return Added::kExists;
  if (commands_.size() >= kMax || word.size() > kLongestCaption) return Added::kNoRoom;
  const TextView shown = caption.empty() ? word : caption;
  commands_.push_back({Text(word), Text(shown.substr(0, kLongestCaption)), -1});
  return Added::kYes;
}

bool CustomCommands::Remove(TextView word) {
  return std::erase_if(commands_, [word](const CustomCommand& c) { return EqualIgnoreCase(c.word, word); }) >
         0;
}

std::vector<CustomCommand> CustomCommands::Number(std::int32_t firstId) {
  for (CustomCommand& command : commands_) command.menuId = firstId++;
  return commands_;
}

Text WordOf(const std::vector<CustomCommand>& shown, std::int32_t menuId) {
  const auto found = std::find_if(shown.begin(), shown.end(),
                                  [menuId](const CustomCommand& c) { return c.menuId == menuId; });
  return found == shown.end() ? Text() : found->word;
}

}  // namespace jotlets

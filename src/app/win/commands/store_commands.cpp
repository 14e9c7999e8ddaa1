#include "app/win/commands/store_commands.h"

#include <algorithm>

#include "res/resource.h"
#include "ui/user_messages.h"

namespace jotlets {

void StoreCommands::StoreInAny(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  const std::optional<Text> category = managed_.Moves().AskCategory(jotlet.Handle());
  BJotlet* note = notes_.Find(id);
  if (category && note != nullptr) Store(*note, *category);
}

void StoreCommands::Store(BJotlet& jotlet, const Text& category) {
  const Rect place = jotlet.SettledBounds();
  std::vector<Text> ids;
  for (const BJotlet* note : notes_.GroupOf(jotlet)) ids.push_back(note->StoredRecord().id);
  const auto failed = std::ranges::stable_partition(
      ids, [&](const Text& id) { return desk_.Store(id, category).has_value(); });
  const BJotlet* left = failed.empty() ? nullptr : notes_.Find(failed.front());
  if (left != nullptr) Tell(left->Handle(), resources_, IDS_NOT_STORED, left->TitleShown());
  ids.erase(failed.begin(), failed.end());
  undo_.Offer(UndoKind::kStored, std::move(ids), place);
}

void StoreCommands::AddCategories(MenuExtras& extras) {
  constexpr std::size_t kMaximumShown = 20;
  std::size_t shown = 0;
  for (const Text& category : managed_.Moves().CategoryNames()) {
    if (category.empty()) continue;
    // All others are in the dialog.
    if (++shown > kMaximumShown) return;
    extras.entries.push_back({MenuPart::kCategories, ReplaceAll(OneLine(category), u"&", u"&&"),
                              [this, name = category](BJotlet& note) { Store(note, name); }});
  }
}

}  // namespace jotlets

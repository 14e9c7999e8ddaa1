#include "manage/manage_actions.h"

#include <algorithm>
#include <array>

namespace jotlets {
namespace {

using View = ManageView;
using Action = ManageAction;

struct OfferRow {
  View view;
  Action action;
  bool byDefault = false;
};

// An attached note has no default: to be seen it would have to lose the window that it waits for.
// Where all notes are, each is acted upon as in the view that is its own.
constexpr std::array kOffers = {
    OfferRow{View::kAll, Action::kOpen, true},       OfferRow{View::kAll, Action::kDelete},
    OfferRow{View::kDesktop, Action::kOpen, true},   OfferRow{View::kDesktop, Action::kUnattach},
    OfferRow{View::kDesktop, Action::kStore},        OfferRow{View::kDesktop, Action::kDelete},
    OfferRow{View::kStored, Action::kRestore, true}, OfferRow{View::kStored, Action::kDelete},
    OfferRow{View::kStored, Action::kStore},         OfferRow{View::kAttached, Action::kUnattach},
    OfferRow{View::kAttached, Action::kDelete},      OfferRow{View::kSleeping, Action::kWake, true},
    OfferRow{View::kSleeping, Action::kDelete},      OfferRow{View::kRecurring, Action::kWake, true},
    OfferRow{View::kRecurring, Action::kDelete},     OfferRow{View::kClosed, Action::kRestore, true},
    OfferRow{View::kClosed, Action::kDelete},        OfferRow{View::kStacks, Action::kOpen, true},
    OfferRow{View::kStacks, Action::kDelete},        OfferRow{View::kAll, Action::kImport},
    OfferRow{View::kStored, Action::kImport},
};

constexpr std::size_t kMany = 20;

}  // namespace

SearchPlaces SearchedPlaces(ManageView view) {
  switch (view) {
    case View::kAll: return kAllPlaces;
    case View::kDesktop: return PlaceBit(SearchPlace::kDesktop);
    case View::kAttached: return PlaceBit(SearchPlace::kAttached);
    case View::kSleeping: return PlaceBit(SearchPlace::kSleeping);
    case View::kRecurring: return PlaceBit(SearchPlace::kRecurring);
    case View::kStored: return PlaceBit(SearchPlace::kStored);
    case View::kClosed: return PlaceBit(SearchPlace::kClosed);
    case View::kStacks: break;
  }
  return 0;
}

bool Offers(ManageView view, ManageAction action) {
  if (action == Action::kSaveCopies) return view != View::kStacks;
  return action == Action::kUndo || std::any_of(kOffers.begin(), kOffers.end(), [=](const OfferRow& row) {
           return row.view == view && row.action == action;
         });
}

bool IsEnabled(ManageAction action, const ManageFacts& facts) {
  if (action == Action::kUndo) return facts.canUndo;
  if (action == Action::kImport) return Offers(facts.view, action);
  return facts.selected > 0 && Offers(facts.view, action) && (action != Action::kUnattach || facts.attached);
}

std::optional<ManageAction> DefaultAction(ManageView view) {
  for (const OfferRow& row : kOffers) {
    if (row.view == view && row.byDefault) return row.action;
  }
  return std::nullopt;
}

std::optional<ManageAction> ActionOfDrop(ManageView from, const ManagePlace& to) {
  switch (to.view) {
    case View::kDesktop: {
      if (from == View::kAttached) return Action::kUnattach;
      const std::optional<Action> brings = DefaultAction(from);
      return brings == Action::kOpen ? std::nullopt : brings;
    }
    case View::kStored:
      // Of stored notes only the category can be another one.
      if (!Offers(from, Action::kStore) || (from == View::kStored && !to.category)) return std::nullopt;
      return Action::kStore;
    case View::kClosed:
      if (from == View::kStored || from == View::kClosed || from == View::kStacks || from == View::kAll)
        return std::nullopt;
      return Action::kDelete;
    case View::kAll:
    case View::kAttached:
    case View::kSleeping:
    case View::kRecurring:
    case View::kStacks: break;
  }
  return std::nullopt;
}

ManageQuestion QuestionBefore(ManageAction action, ManageView view, std::size_t count,
                              std::int32_t keepDeleted, bool confirmClosure) {
  // A stored note asks for its category, which can be cancelled.
  if (action == Action::kUndo || action == Action::kSaveCopies || action == Action::kStore ||
      action == Action::kImport || view == View::kStacks)
    return ManageQuestion::kNothing;
  if (action == Action::kDelete) {
    const bool dropsOwn = count > static_cast<std::size_t>(std::max(keepDeleted, 0));
    if (view == View::kClosed || view == View::kStored) return ManageQuestion::kForGood;
    if (dropsOwn) return ManageQuestion::kNoRoom;
    return confirmClosure ? ManageQuestion::kClose : ManageQuestion::kNothing;
  }
  if (action == Action::kWake && view == View::kRecurring) return ManageQuestion::kEndsRecurrence;
  return count >= kMany ? ManageQuestion::kMany : ManageQuestion::kNothing;
}

}  // namespace jotlets

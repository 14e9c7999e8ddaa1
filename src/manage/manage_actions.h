// What the manage window offers to do with the notes of each of its views, and what it asks before.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "base/text.h"
#include "store/search_query.h"

namespace jotlets {

enum class ManageView { kAll, kDesktop, kAttached, kSleeping, kRecurring, kStored, kClosed, kStacks };
inline constexpr std::size_t kManageViews = 8;

/// Where the notes of a view are; none for the stacks.
SearchPlaces SearchedPlaces(ManageView view);

/// What the window shows: a view, or one category of the stored notes.
struct ManagePlace {
  ManageView view = ManageView::kDesktop;
  std::optional<Text> category;
  friend bool operator==(const ManagePlace&, const ManagePlace&) = default;
};

enum class ManageAction { kOpen, kWake, kUnattach, kRestore, kStore, kDelete, kUndo, kSaveCopies, kImport };
inline constexpr std::size_t kManageActions = 9;

/// What the rules need to know of the selection.
struct ManageFacts {
  ManageView view = ManageView::kDesktop;
  std::size_t selected = 0;
  bool attached = false;  // one of them at least is attached to a window
  bool canUndo = false;
};

/// Whether a view has the action at all.
bool Offers(ManageView view, ManageAction action);

/// Whether it can be carried out now.
bool IsEnabled(ManageAction action, const ManageFacts& facts);

/// What Enter and a double click do; nothing where that would change more than can be seen.
std::optional<ManageAction> DefaultAction(ManageView view);

/// What becomes of notes of a view that are dropped on another place of the window; nothing where they cannot
/// be dropped. Stored ones that are dropped on a category go into that.
std::optional<ManageAction> ActionOfDrop(ManageView from, const ManagePlace& to);

enum class ManageQuestion {
  kNothing,
  kMany,            // so many windows at once are seldom meant
  kClose,           // the user wants to be asked before notes are closed
  kForGood,         // what is deleted cannot be had back
  kNoRoom,          // nor can some of it, since so many closed notes are not kept
  kEndsRecurrence,  // a recurring note that is woken comes no more
};

/// What to ask before `count` notes of a view are acted upon. `keepDeleted` is how many closed notes are
/// kept, `confirmClosure` whether the user wants to be asked before notes are closed.
ManageQuestion QuestionBefore(ManageAction action, ManageView view, std::size_t count,
                              std::int32_t keepDeleted, bool confirmClosure);

}  // namespace jotlets

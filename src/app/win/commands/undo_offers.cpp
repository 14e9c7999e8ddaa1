#include "app/win/commands/undo_offers.h"

#include <utility>

#include "action/shortcuts.h"
#include "base/win/pressed_key.h"
#include "res/resource.h"

namespace jotlets {
namespace {

UINT WordsFor(UndoKind kind) {
  switch (kind) {
    case UndoKind::kDeleted: return IDS_UNDO_DELETED;
    case UndoKind::kHidden: return IDS_UNDO_HIDDEN;
    case UndoKind::kAsleep: return IDS_UNDO_ASLEEP;
    case UndoKind::kStored: return IDS_UNDO_STORED;
    case UndoKind::kArranged: return IDS_UNDO_ARRANGED;
    default: return IDS_UNDO_CLOSED;
  }
}

}  // namespace

UndoOffers::UndoOffers(const Resources& resources, const Options& options, NoteDesk& desk,
                       ManagedNotes& managed)
    : resources_(resources), options_(options), desk_(desk), managed_(managed) {
  managed_.WatchUndo([this](int number) { OnUndone(number); });
}

// What happens to several notes at once is one step.
void UndoOffers::Offer(UndoKind kind, std::vector<Text> ids, const Rect& place, const Text& words) {
  constexpr ULONGLONG kAtOnce = 300;  // milliseconds
  const ULONGLONG now = GetTickCount64();
  if (number_ != 0 && kind != UndoKind::kDeleted && kind == kind_ && now - offered_ < kAtOnce) {
    if (const auto before = managed_.RemoveStep(number_))
      ids.insert(ids.begin(), before->ids.begin(), before->ids.end());
  }
  End();
  offered_ = now;
  ShowOffer(kind, managed_.Remember(kind, std::move(ids)), place, words);
}

void UndoOffers::OfferPlaces(std::vector<Text> ids, std::vector<Point> places, const Rect& place) {
  End();
  ShowOffer(UndoKind::kArranged, managed_.Remember(UndoKind::kArranged, std::move(ids), std::move(places)),
            place);
}

void UndoOffers::ShowOffer(UndoKind kind, int number, const Rect& place, const Text& words) {
  kind_ = kind;
  if (!IsOn() || number == 0) return;
  number_ = number;
  isLast_ = true;
  strip_.Show(
      place, words.empty() ? resources_.String(WordsFor(kind)) : words, resources_.String(IDS_UNDO),
      [this, number] { managed_.UndoStepOf(number); }, [this] { End(); });
}

bool UndoOffers::Close(const Text& id, const Rect& place) {
  if (!desk_.Close(id, Reason::kUser)) return false;
  Offer(UndoKind::kClosed, {id}, place);
  return true;
}

bool UndoOffers::Delete(const Text& id, const Rect& place) {
  // One note at a time is kept.
  End();
  // One that cannot be kept is gone at once, as the user has agreed to.
  if (!IsOn() || !desk_.Discard(id, Reason::kDeleted)) return desk_.Delete(id, Reason::kDeleted);
  Offer(UndoKind::kDeleted, {id}, place);
  return true;
}

bool UndoOffers::ServeKey(const MSG& message, OpenNotes& notes) {
  const bool isKey = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
  if (!isLast_ || number_ == 0 || (!isKey && message.message != WM_LBUTTONDOWN)) return false;
  // A key that is only held belongs to the next.
  if (isKey && (message.wParam == VK_CONTROL || message.wParam == VK_SHIFT || message.wParam == VK_MENU))
    return false;
  const BJotlet* note = notes.FindWindowOwner(message.hwnd);
  if (note == nullptr) return false;
  isLast_ = false;
  if (!isKey || ActionFromKey(PressedShortcut(message.wParam)) != kActionUndo || note->IsTitleEdited() ||
      note->OwnsKeysOf(message.hwnd))
    return false;
  managed_.UndoStepOf(number_);
  return true;
}

void UndoOffers::End() {
  strip_.Close();
  // Closed, hidden and sleeping notes are there to be had back from the manage window.
  const int number = std::exchange(number_, 0);
  if (number == 0 || kind_ != UndoKind::kDeleted) return;
  managed_.RemoveStep(number);
  desk_.ForgetDiscarded();
}

void UndoOffers::OnUndone(int number) {
  if (number != number_) return;
  number_ = 0;
  strip_.Close();
}

}  // namespace jotlets

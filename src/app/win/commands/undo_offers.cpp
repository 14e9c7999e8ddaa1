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

void UndoOffers::Offer(UndoKind kind, std::vector<Text> ids, const Rect& place, const Text& words) {
  const Text title = ids.empty() || !IsOn() ? Text() : managed_.TitleOf(ids.front());
  OfferNamed(kind, std::move(ids), title, place, words);
}

// What happens to several notes at once is one step.
void UndoOffers::OfferNamed(UndoKind kind, std::vector<Text> ids, const Text& title, const Rect& place,
                            const Text& words) {
  constexpr ULONGLONG kAtOnce = 300;  // milliseconds
  const ULONGLONG now = GetTickCount64();
  if (number_ != 0 && kind == kind_ && now - offered_ < kAtOnce) {
    if (const auto before = managed_.Steps().Remove(number_))
      ids.insert(ids.begin(), before->ids.begin(), before->ids.end());
  }
  End();
  offered_ = now;
  const Text told =
      ReplaceAll(words.empty() ? resources_.String(WordsFor(kind)) : words, u"%n", NameOf(ids.size(), title));
  ShowOffer(kind, managed_.Steps().Add(kind, std::move(ids)), place, told);
}

// One note by its title, several by their number.
Text UndoOffers::NameOf(std::size_t count, const Text& title) const {
  constexpr std::size_t kLongestTitle = 30;
  if (count > 1)
    return ReplaceAll(resources_.String(IDS_UNDO_SEVERAL), u"%s", IntText(static_cast<int>(count)));
  if (title.empty()) return resources_.String(IDS_UNDO_NAMELESS);
  const bool isLong = title.size() > kLongestTitle;
  const Text shown = isLong ? Text(StartOf(title, kLongestTitle)) + u"\u2026" : title;
  return ReplaceAll(resources_.String(IDS_UNDO_NAMED), u"%s", shown);
}

void UndoOffers::OfferPlaces(std::vector<Text> ids, std::vector<Point> places, const Rect& place) {
  End();
  const Text words = ReplaceAll(resources_.String(IDS_UNDO_ARRANGED), u"%n", NameOf(ids.size(), {}));
  ShowOffer(UndoKind::kArranged, managed_.Steps().Add(UndoKind::kArranged, std::move(ids), std::move(places)),
            place, words);
}

void UndoOffers::ShowOffer(UndoKind kind, int number, const Rect& place, const Text& words) {
  kind_ = kind;
  if (!IsOn() || number == 0) return;
  number_ = number;
  isLast_ = true;
  strip_.Show(
      place, words, resources_.String(IDS_UNDO), [this, number] { managed_.UndoStepOf(number); },
      [this] { End(); });
}

bool UndoOffers::Close(const Text& id, const Rect& place, const Text& words) {
  // The window has it at hand.
  const Text title = managed_.TitleOf(id);
  if (!desk_.Close(id, Reason::kUser)) return false;
  OfferNamed(UndoKind::kClosed, {id}, title, place, words);
  return true;
}

bool UndoOffers::Delete(const Text& id, const Rect& place) {
  const Text title = managed_.TitleOf(id);
  // One that cannot be kept is gone at once, as the user has agreed to.
  if (!desk_.Discard(id, Reason::kDeleted)) return desk_.Delete(id, Reason::kDeleted);
  OfferNamed(UndoKind::kDeleted, {id}, title, place, {});
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
  number_ = 0;
}

void UndoOffers::Forget() {
  End();
  managed_.Steps().Forget(UndoKind::kDeleted);
  desk_.ForgetDiscarded();
}

void UndoOffers::OnUndone(int number) {
  if (number != number_) return;
  number_ = 0;
  strip_.Close();
}

}  // namespace jotlets

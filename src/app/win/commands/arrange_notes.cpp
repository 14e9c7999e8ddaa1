#include "app/win/commands/arrange_notes.h"

namespace jotlets {
namespace {

// Notes that are attached to a window stay with it.
bool MayMove(const BJotlet& note, bool lockingFreezes) {
  const JotletData& record = note.StoredRecord();
  return IsWindowVisible(note.Handle()) != 0 && !record.IsAttached() && !note.IsSounding() &&
         !(record.readOnly && lockingFreezes);
}

std::vector<Text> OpenIds(const OpenNotes& notes) {
  std::vector<Text> ids;
  for (const auto& note : notes.All()) ids.push_back(note->StoredRecord().id);
  return ids;
}

}  // namespace

void ArrangeNotes(Arrangement arrangement, OpenNotes& notes, UndoOffers& undo, const BJotlet& asked) {
  std::vector<ArrangedNote> arranged;
  std::vector<Text> ids;
  std::vector<Point> before;
  const Rect place = asked.Bounds();
  const std::int32_t dpi = asked.Dpi();
  for (const Text& id : OpenIds(notes)) {
    if (BJotlet* note = notes.Find(id)) note->FinishAnimation();
    // What moved may have been on its way out.
    const BJotlet* note = notes.Find(id);
    if (note == nullptr || !MayMove(*note, notes.NoteOptions().lockingFreezes)) continue;
    const Rect bounds = note->Bounds();
    arranged.push_back({bounds, note->StoredRecord().colour, WorkAreaAt(notes.Screens().monitors, bounds)});
    ids.push_back(id);
    before.push_back(bounds.TopLeft());
  }
  const ArrangeSteps usual;
  const ArrangeSteps steps{ScaledLength(usual.gap, dpi), ScaledLength(usual.step, dpi)};
  const std::vector<Point> places = ArrangedPlaces(arrangement, arranged, steps);
  undo.OfferPlaces(ids, before, place);
  for (std::size_t at = 0; at < ids.size(); ++at) {
    BJotlet* note = notes.Find(ids[at]);
    if (note == nullptr) continue;
    // Each note of a pile lies over the one before it.
    note->BringForward();
    note->StartAnimation(before[at], places[at], AnimationKind::kMove);
  }
}

}  // namespace jotlets

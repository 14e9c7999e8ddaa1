// A file that holds many notes: the first byte chooses the kind. What comes of it is bounded by the file, and
// each note is a rich text that can be shown.
#include "data/csv_notes.h"
#include "data/rtf_bounds.h"
#include "data/written_time.h"
#include "fuzz.h"

namespace {

using namespace jotlets;

std::unique_ptr<NoteCollection> Collection(std::uint8_t kind, std::string bytes) {
  switch (kind % 4) {
    case 0: return NotesOfEnex(std::move(bytes));
    case 1: return NotesOfOpml(std::move(bytes));
    case 2: return NotesOfCsv(FromUtf8(bytes), std::nullopt);
    default:
      return NotesOfCsv(FromUtf8(bytes),
                        CsvColumns{.title = kind % 5, .text = kind % 7, .created = kind % 3});
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const auto notes = Collection(data[0], std::string(Bytes(data + 1, size - 1)));
  CollectedNote note;
  std::size_t count = 0;
  for (;;) {
    const NoteCollection::State state = notes->Next(note);
    Check(notes->Percent() >= 0 && notes->Percent() <= 100);
    if (state == NoteCollection::State::kEnd) break;
    if (state == NoteCollection::State::kReading) continue;
    Check(++count <= size);
    Check(note.fault.empty() || note.paragraphs.empty());
    Check(RtfTrouble(RtfOfParagraphs(note.paragraphs), kSystemEditor).empty());
    if (note.created) Check(ParseWrittenTime(WrittenTime(*note.created)) == note.created);
  }
  Check(notes->Next(note) == NoteCollection::State::kEnd);
  return 0;
}

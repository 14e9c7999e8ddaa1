// What the journal knows beyond the data file, put into what was loaded: after a kill, a crash or a power
// failure the next start goes on from there. Replaying twice is the same as replaying once.
#pragma once

#include "data/loading.h"

namespace jotlets {

/// Puts the frames of `journal` into `file`, which was read from a data file with the fingerprint `onDisk` (0
/// for none), and into the content files of `folder`. Records count when the journal goes on from that data
/// file or `damaged`: then nothing newer is known. A content counts when its file is what one of the frames
/// goes on from; a file that is something else is kept beside it before it is replaced. What was done is
/// logged.
JournalReplay ReplayJournal(const LoadContext& context, TextView folder, std::string_view journal,
                            Fingerprint onDisk, bool damaged, DataFile& file);

/// Whether a journal holds notes that no data file has ever held: the program was killed in its first
/// seconds.
bool HoldsFirstNotes(std::string_view journal);

/// Whether a journal holds more than its beginning, be it readable or not.
bool HoldsNews(std::string_view journal);

}  // namespace jotlets

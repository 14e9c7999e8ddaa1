// Arranging the notes on the desktop, which can be undone as one step.
#pragma once

#include "app/win/commands/undo_offers.h"
#include "desk/win/open_notes.h"
#include "note/arranging.h"

namespace jotlets {

/// Moves every note that is in sight and may be moved. The offer to undo it appears at `asked`.
void ArrangeNotes(Arrangement arrangement, OpenNotes& notes, UndoOffers& undo, const BJotlet& asked);

}  // namespace jotlets

// Notes that another program hands over in their encoded form: what they may bring along, and where they go.
#pragma once

#include <functional>
#include <optional>

#include "base/files.h"
#include "base/log.h"
#include "data/data_file.h"
#include "desk/note_lists.h"

namespace jotlets {

struct AdmissionContext {
  Files& files;
  Log& log;
  TextView folder;   // the data folder
  JotletData blank;  // a `Reset` record
  FreshId freshId;   // gives ids that are not taken
  std::function<bool(TextView id)> isTaken;
};

struct AdmittedNote {
  JotletData record;
  NoteList list = NoteList::kDesktop;
};

/// Reads an encoded note, as "get ... encoded" gives it, and provides its content file: an id that is taken,
/// or that names content of another note, is replaced by a fresh one, so nothing is ever written over. A
/// picture does not travel in the line; the picture of the id that the line names is copied when it is here.
/// With `asleep` an open note becomes a sleeping one. Nothing, with a log line, when the content could not be
/// written.
std::optional<AdmittedNote> AdmitEncodedNote(const AdmissionContext& context, TextView encoded, bool asleep);

}  // namespace jotlets

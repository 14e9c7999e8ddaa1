// Reading the data folder's notes at start: the data file, what to do when it cannot be read, and the check
// that every note has its content.
#pragma once

#include <vector>

#include "base/clock.h"
#include "base/code_page.h"
#include "base/files.h"
#include "base/log.h"
#include "data/data_file.h"
#include "data/journal_frames.h"

namespace jotlets {

/// Everything that reading the data folder needs from outside.
struct LoadContext {
  Files& files;
  const CodePage& ansi;
  Options& options;
  FreshId freshId;
  Moment now;
  Log& log;
};

/// What became of the journal, see `ReplayJournal`.
struct JournalReplay {
  bool any = false;              // something was taken from it: that is to be saved
  bool keep = false;             // it holds something that could not be used, or not be read
  Text unwritten;                // why content of it could not be put in its place: it is what was typed last
  std::vector<JotletData> gone;  // notes that were deleted, whose content is to go with the next save
  std::size_t length = 0;        // of the frames that could be read, in bytes
  std::uint64_t nextSequence = 1;  // of the frame that follows them
};

/// What the data folder holds, after `LoadJotlets`.
struct LoadedData {
  DataFile file;  // version above `kDataFileVersion`: nothing may be written, the program ends
  /// A data file was there but could not be read as ours, or only in part.
  bool damaged = false;
  /// Where the damaged file is kept, empty when it could not be put aside: then it must not be replaced.
  Text keptAs;
  /// The file that was loaded in its place ("jotlets.bye", "jotlets.bak"), empty when there was none.
  Text loadedInstead;
  JournalReplay journal;
  Fingerprint fingerprint = 0;  // of the data file that was there
  /// The data file is there but could not be put aside; a save would destroy it.
  bool MustNotBeReplaced() const { return damaged && keptAs.empty(); }
};

/// Reads "jotlets.ini" of `folder`, and what `journal`, all of the journal file, knows beyond it. A missing
/// file loads nothing but that. One that cannot be read as ours, or that is the beginning of one of its
/// copies, is kept beside it under a dated name; what can be read of it is loaded, and what it lacks comes
/// from the best of "jotlets.bye" and "jotlets.bak". Content that older files hold in their lines is moved to
/// content files, notes that share an id get content files of their own, and closed notes beyond
/// `KeepDeleted` are left out. Failures are logged; the rest goes on.
LoadedData LoadJotlets(const LoadContext& context, TextView folder, std::string_view journal);

/// Copies "jotlets.bye" and "jotlets.bak" of `folder` to dated names: before a start that goes on with less
/// than they hold, since the next exit would write over them. Each is logged.
void KeepCopies(Files& files, TextView folder, const LocalTime& now, Log& log);

/// Reads the options file into `options`; those it does not name stay as they are. False: there is none, or
/// it could not be read.
bool LoadOptionsFile(const Files& files, const CodePage& ansi, TextView path, Options& options);

/// The same, for a program that will write the file anew: one that is damaged, so that options may be lost,
/// is kept beside it first. Whether the file may be replaced; a missing one may.
bool LoadOptionsToReplace(Files& files, const CodePage& ansi, Log& log, const LocalTime& now, TextView path,
                          Options& options);

inline constexpr TextView kDamagedMark = u".damaged-";

/// A name beside a file that no file has yet: the path, a word and the minute, and a number when that is
/// taken. Nothing is ever written over a name made this way, so two damaged files cannot displace each other.
Text DatedName(const Files& files, TextView path, TextView word, const LocalTime& now);

/// An empty rich text.
inline constexpr std::string_view kPlaceholderRtf = "{\\rtf1\\ansi }";

}  // namespace jotlets

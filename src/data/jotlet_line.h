// The note record as one line of tagged text, and the older colon-separated form that is still read.
#pragma once

#include <functional>

#include "base/text.h"
#include "data/jotlet_data.h"

namespace jotlets {

/// Appends the line of `record` without a line break. Optional tags are left out when they say nothing; the
/// line always ends in "<RTF>", because the reader drops a last tag that no "<" follows. Line breaks inside
/// free text become blanks, so that a line stays a line. `rolledHasAltPosition` is the option of that name.
void AppendJotletLine(Text& out, const JotletData& record, bool rolledHasAltPosition);
Text MakeJotletLine(const JotletData& record, bool rolledHasAltPosition);

/// Gives a fresh identity.
using FreshId = std::function<Text()>;

/// Reads a line: starts from `blank` (a `Reset` record, its id not looked at) and overwrites what the line
/// states. Any text gives a record: unknown tags are skipped, numbers are decimal prefixes, a missing, empty
/// or unusable id becomes a fresh one.
JotletData ParseJotletLine(TextView line, const JotletData& blank, const FreshId& freshId);

}  // namespace jotlets

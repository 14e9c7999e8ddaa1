// The file form of the options, "options.ini": one "key=value" line each, all of it driven by one table.
#pragma once

#include "base/text.h"
#include "data/options.h"

namespace jotlets {

/// Takes one key and value. Keys match exactly; a value that is no number counts as 0, and any other
/// number is brought into the range of its option.
void LoadOption(Options& options, TextView key, TextView value);

/// Reads the text of an options file: "[Options]" and empty lines are skipped, lines without "=" too.
void LoadOptions(Options& options, TextView text);

/// The text of the options file.
Text ComposeOptions(const Options& options);

/// The reference page of the options: key, written form, default, range and meaning of each row.
Text OptionsPage();

}  // namespace jotlets

// Copies of notes as files of other kinds.
#pragma once

#include <optional>
#include <string>

#include "base/files.h"
#include "data/jotlet_data.h"

namespace jotlets {

/// What copies of notes are made of, as it is now, be they open or not.
class NoteCopies {
 public:
  virtual ~NoteCopies() = default;
  /// The rich text of a note; empty when it has none, or it cannot be read.
  virtual Text RichTextOf(const JotletData& record) const = 0;
  /// The title that a note shows, or would show if it were open.
  virtual Text TitleOf(const JotletData& record) const = 0;
  /// Writes a note's content to a file of the kind that the end of its name tells; one that is there is
  /// replaced.
  virtual FileStatus WriteCopy(const JotletData& record, TextView path) = 0;
};

/// Whether the name is that of a page, of Markdown or of a note file, which `CopyOfText` makes.
bool IsOtherKind(TextView path);
/// The bytes of such a file, of a note with this rich text.
std::string CopyOfText(const JotletData& record, TextView rtf, TextView title, TextView path);

/// "#ffffb4": red, green and blue.
Text ColourForm(const Colour& colour);

/// What stands before the Markdown of a note: its title, its times, its category, its tags and its colour,
/// each in its line, between two of dashes (YAML). What is not known is left out.
Text FrontMatterOf(const JotletData& record, TextView title, TextView category, TextView words);

}  // namespace jotlets

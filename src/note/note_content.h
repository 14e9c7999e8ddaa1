// What a note holds, a text or a picture, as those who work with notes see it: they ask a content to do
// things, and nobody asks which of the two it is in order to do something itself.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/clock.h"
#include "base/files.h"
#include "base/text.h"

namespace jotlets {

/// A copy of a content for a file that the user has named.
struct ContentCopy {
  std::optional<std::string> bytes;  // none: a copy of the content file itself is what is wanted
  TextView fault;                    // why there can be no such copy; empty for no fault
};

struct ContentBytes {
  FileStatus status;
  std::optional<std::string> bytes;
  std::string objects;  // of the file beside a picture; empty when there is to be none
};

/// Writes what a content file and the file beside it are to hold. The old file beside it goes first: it may
/// have what is hidden now. A fault with it fails nothing, the picture being whole without; `fault` tells of
/// it.
FileStatus WriteContent(Files& files, TextView path, const ContentBytes& content, Text& fault);

class NoteContent {
 public:
  virtual ~NoteContent() = default;

  /// The extension of its content file, without a dot.
  virtual TextView Extension() const = 0;
  /// Whether these bytes are of the kind that its content file has.
  virtual bool Fits(std::string_view bytes) const = 0;
  /// Takes the bytes of its content file over, which does not count as a change. What of them could not be
  /// shown as it is, empty for nothing.
  virtual TextView Load(std::string_view bytes) = 0;

  /// Whether all of the content file is here: of a text that is too large only the beginning is.
  virtual bool IsWhole() const = 0;
  virtual bool HasUnsavedChanges() const = 0;
  virtual void SetUnsavedChanges(bool unsaved) = 0;
  /// What the content file is to hold; nothing when there is nothing to save, or the content is not whole.
  /// Not ok when not all of it could be had, memory being short: then nothing may be written.
  virtual ContentBytes BytesToSave() const = 0;
  /// A copy as plain text, or as what it is.
  virtual ContentCopy Copy(bool asPlainText) const = 0;

  /// Its text without formatting, lines ended by "\r\n"; empty for a picture. So the rich text, in ASCII.
  virtual Text PlainText() const = 0;
  virtual Text RichText() const = 0;
  /// Its beginning, of which a title may be made.
  virtual Text TitleWords() const = 0;
  /// Replaces the text; false when it has none.
  virtual bool SetPlainText(TextView text) = 0;
  virtual bool SetRichText(TextView rtf) = 0;
  /// Puts the clipboard in the place of the selection, or at the end, where the selection stays as it is. A
  /// picture or a locked text takes nothing.
  virtual void Paste(bool formatted) = 0;
  virtual void PasteAtEnd(bool formatted) = 0;
};

struct ContentSaved {
  FileStatus status;     // good also when there was nothing to save
  bool written = false;  // the file is a new one
  Text fault;            // with the file beside a picture; empty for none
};

/// Writes the content file at `path` when the content has changed since; after a failure it still counts as
/// changed. `keepOld`: the file there was not read whole and is first kept under another name; false as soon
/// as that is done.
ContentSaved SaveContentFile(NoteContent& content, bool& keepOld, Files& files, TextView path,
                             const LocalTime& now);

}  // namespace jotlets

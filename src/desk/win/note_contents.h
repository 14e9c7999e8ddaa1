// The contents of notes for those who look in from outside, open or not: their bytes, their rich text, their
// pictures.
#pragma once

#include <optional>

#include "base/code_page.h"
#include "desk/note_copy.h"
#include "desk/note_desk.h"
#include "desk/win/open_notes.h"

namespace jotlets {

/// Bytes; larger files are not taken for pictures.
inline constexpr std::uint64_t kLargestPictureFile = 256 * 1024 * 1024;

class NoteContents final : public NoteCopies {
 public:
  NoteContents(Files& files, const CodePage& ansi, const Clock& clock, Log& log, NoteDesk& desk,
               OpenNotes& notes)
      : files_(files), ansi_(ansi), clock_(clock), log_(log), desk_(desk), notes_(notes) {}

  /// The bytes of a note's content file; none when it cannot be read.
  std::string BytesOf(const JotletData& record) const;
  /// The content file of a text; unreadable also when it is larger than any text that is searched.
  FileContent ReadText(const JotletData& record) const;
  /// The bytes of the file with what was drawn on a picture; empty for none.
  std::string ObjectsOf(const JotletData& record) const;
  /// The rich text of a note as it is now, open or not; empty when it has none.
  Text RichTextOf(const JotletData& record) const override;
  /// As much of the plain text of a note as is searched.
  Text WordsOf(TextView id, std::size_t maximum) const;
  /// A picture file as PNG bytes; empty when it is none.
  std::string ReadPicture(TextView path) const;
  /// Puts a picture file in the place of a picture note's content.
  bool SetPicture(BJotlet& jotlet, TextView path);
  /// Writes a note's content to a file, of the kind that the end of its name tells: plain text (".txt",
  /// UTF-8), a web page (".html", ".htm"), Markdown (".md"), a note file (".jtl"), of a picture JPEG (".jpg",
  /// ".jpeg"), or what the content is.
  FileStatus WriteCopy(const JotletData& record, TextView path) override;
  /// The title that a note shows, or would show if it were open.
  Text TitleOf(const JotletData& record) const override;

 private:
  FileStatus WriteJpeg(const JotletData& record, TextView path);

  Files& files_;
  const CodePage& ansi_;
  const Clock& clock_;
  Log& log_;
  NoteDesk& desk_;
  OpenNotes& notes_;
};

}  // namespace jotlets

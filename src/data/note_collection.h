// A file of another program that holds many notes, read one note after the other. What a note is made of is
// the same for all kinds of such files; nothing of a file is fetched or run.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/rtf_paragraphs.h"

namespace jotlets {

/// The largest of such files, in bytes, and the largest note in one, in bytes of its text.
inline constexpr std::size_t kLargestCollection = 64 << 20;
inline constexpr std::size_t kLargestCollectedNote = 4 << 20;

struct CollectedNote {
  Text title;
  std::vector<TextParagraph> paragraphs;
  Text category;                         // empty: that of the file
  std::optional<std::int64_t> created;   // seconds since 1970 UTC
  std::optional<std::int64_t> modified;  // likewise
  std::vector<Text> left;                // what of it does not become part of a note
  Text fault;                            // why it cannot be had at all
};

class NoteCollection {
 public:
  enum class State {
    kNote,
    kReading,  // another piece of the file has been read, but no note is whole by that
    kEnd,
  };

  virtual ~NoteCollection() = default;
  /// Goes on to the next note. Every call reads a piece of the file at most.
  virtual State Next(CollectedNote& note) = 0;
  /// Why what comes now cannot be read; empty when all could be.
  virtual const Text& Fault() const = 0;
  /// How far it is, 0 to 100.
  virtual int Percent() const = 0;
};

/// Notes with their texts as pages and their times, tags and attachments (ENEX).
std::unique_ptr<NoteCollection> NotesOfEnex(std::string bytes);
/// Outlines (OPML): each at the top is a note, those below it are its list.
std::unique_ptr<NoteCollection> NotesOfOpml(std::string bytes);

}  // namespace jotlets

// The frames of the journal "jotlets.jnl": what has happened to notes since the data file was last written,
// one checked frame for each change. A frame is, in little-endian bytes:
//
//     length of the body (4), CRC-32 of the body (4), body:
//       sequence (8), kind (1), base (8), result (8), head (4), tail (4), length of the id (2), id, payload
//
// Ids and texts are UTF-8. Sequence numbers go up by one from frame to frame, also across the emptying of the
// file, so that old bytes that a failing disk brings back are no frames.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/text.h"

namespace jotlets {

/// Tells the bytes of one file from those of another; 0 stands for a file that is not there.
using Fingerprint = std::uint64_t;
Fingerprint FingerprintOf(std::string_view bytes);

enum class FrameKind : std::uint8_t {
  kBegin = 1,    // always the first: `base` is the data file that the journal goes on from, payload the
                 // installation's identity
  kSaving = 2,   // the data file is about to become `result`; `head`: 1 when all contents are on the disk
  kRecord = 3,   // payload: the record line of a note that is open, waits or sleeps
  kClosed = 4,   // payload: the line of a closed note, with its time in front
  kRemoved = 5,  // the note is gone; `head`: 1 for a picture
  kStacks = 6,   // payload: the lines of all stacks
  kText = 7,     // the content file is to become `result`: the first `head` and the last `tail` bytes of what
                 // was `base`, and the payload between them
  kPicture = 8,  // the same for a picture
};

struct JournalFrame {
  FrameKind kind = FrameKind::kBegin;
  Fingerprint base = 0;
  Fingerprint result = 0;
  std::uint32_t head = 0;
  std::uint32_t tail = 0;
  Text id;
  std::string payload;

  friend bool operator==(const JournalFrame&, const JournalFrame&) = default;
};

/// Appends a frame. An id of more than 65,535 bytes is cut, which makes the frame none of that note.
void AppendFrame(std::string& out, const JournalFrame& frame, std::uint64_t sequence);

/// Reads frames until the end or the first that is none. Takes any bytes.
class JournalReader {
 public:
  explicit JournalReader(std::string_view bytes) : rest_(bytes) {}

  std::optional<JournalFrame> Next();
  /// How many bytes the good frames have.
  std::size_t Length() const { return length_; }
  /// The sequence number that follows the last frame.
  std::uint64_t NextSequence() const { return sequence_; }
  /// What is left after the last good frame is more than the beginning of one that was being written.
  bool StoppedInDamage() const { return damaged_; }

 private:
  std::optional<JournalFrame> ParseBody(std::string_view body);

  std::string_view rest_;
  std::size_t length_ = 0;
  std::uint64_t sequence_ = 0;
  bool begun_ = false;
  bool damaged_ = false;
};

/// What one content has in common with the one before, at both ends.
struct ContentChange {
  std::uint32_t head = 0;
  std::uint32_t tail = 0;
};
ContentChange CompareContents(std::string_view before, std::string_view after);

}  // namespace jotlets

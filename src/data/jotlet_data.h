// The note record: every field of one note except its content, which lives in a content file named after the
// id.
#pragma once

#include <cstdint>

#include "base/geometry.h"
#include "base/text.h"

namespace jotlets {

/// "Not set" of positions and of the deletion time.
inline constexpr std::int32_t kNotSet = -65535;
/// "None" of sizes, alarm, stack number, modified time and last wake.
inline constexpr std::int32_t kNone = -1;

/// What a fresh record takes from the current options.
struct RecordDefaults {
  std::int32_t width = 232;
  bool user1 = false;
  bool user2 = false;
  bool user3 = false;
};

/// When a note that sleeps comes back, and how. Times are seconds since 1970-01-01 UTC.
struct SleepState {
  bool asleep = false;
  bool recurring = false;
  std::int32_t nextWake = 0;
  std::int32_t lastWake = kNone;  // the end of a recurrence
  std::int32_t flags = 0;         // see `WakeFlags`
  std::int32_t type = 0;          // this and the rest: the rule of a recurrence
  std::int32_t hours = 0;
  std::int32_t minutes = 0;
  std::int32_t day = 0;

  friend bool operator==(const SleepState&, const SleepState&) = default;
};

/// The window of another program that a note belongs to: patterns of its title and class, what it must be to
/// count, and where the note stands as seen from its upper left corner.
struct Attachment {
  Text title;
  Text className;  // empty: the note is not attached
  bool onlyFocus = false;
  bool onlyVisible = false;
  std::int32_t posType = 0;  // 1: the note keeps its place beside the window
  std::int32_t posX = kNone;
  std::int32_t posY = kNone;

  bool IsSet() const { return !className.empty(); }

  friend bool operator==(const Attachment&, const Attachment&) = default;
};

/// Positions and sizes are screen pixels, times are seconds since 1970-01-01 UTC. Fields stand in the order
/// in which the record has always listed them; `jotlet_line.h` has their written forms.
struct JotletData {
  std::int32_t x = kNotSet;
  std::int32_t y = kNotSet;
  bool onTop = false;
  bool rolled = false;
  Text title;
  Text source;
  Colour colour{255, 255, 180};
  std::int32_t transparency = 0;  // percent of opacity that remains, 0 = opaque
  std::int32_t width = kNone;
  std::int32_t height = kNone;
  std::int32_t alarm = kNone;
  std::int32_t created = 0;
  std::int32_t modified = kNone;
  bool readOnly = false;
  Point scroll;
  bool user1 = false;
  bool user2 = false;
  bool user3 = false;
  Text id;
  std::int32_t isImage = 0;  // 1: the content is a picture
  Text userString1;
  bool hidden = false;
  bool ghost = false;
  Text skin;
  std::int32_t altX = kNotSet;
  std::int32_t altY = kNotSet;
  std::int32_t altWidth = kNotSet;
  bool stang = false;
  std::int32_t stack = kNone;
  Text lastSend;
  Text fromRecurring;
  SleepState sleep;
  Attachment attachment;
  std::int32_t deletedTime = kNotSet;

  /// Every field to its default, with the option-dependent ones from `defaults`, created at `now`.
  void Reset(const RecordDefaults& defaults, std::int32_t now, Text freshId);

  bool IsImage() const { return isImage == 1; }
  bool IsAttached() const { return attachment.IsSet(); }

  friend bool operator==(const JotletData&, const JotletData&) = default;
};

/// Path of the note's content inside the data folder: "rtf\<ID>.rtf" or "images\<ID>.png".
Text ContentPath(const JotletData& record);

}  // namespace jotlets

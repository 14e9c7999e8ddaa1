// What a skin shows of its window: facts that the window collects, and nothing that only it can ask.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "action/actions.h"
#include "base/geometry.h"
#include "base/text.h"
#include "looks/appearance.h"
#include "picture/picture.h"

namespace jotlets {

/// The states of a window that indicators show and conditions ask for.
enum class SkinState : std::uint8_t {
  kOnTop,
  kReadOnly,
  kAlarm,
  kAttached,
  kTransmit,
  kEmail,
  kInStack,
  kSleeping,
  kRecurring,
  kGhost,
  kTitle,
  kImage,
  kStang,
  kUser1,
  kUser2,
  kUser3,
  kOwnTitle,
  kScrollbarRequired,
  // The bar with which texts are formatted is there, can make check lists, and what holds at the caret; none
  // of the others without the first.
  kFormatBar,
  kCheckLists,
  kBold,
  kItalic,
  kUnderline,
  kStrikethrough,
  kBullets,
  kCheckList,
  kHighlight,
  // The line at the foot that tells what the note waits for or belongs to, and which of them.
  kTagLine,
  kTagAlarm,
  kTagAttached,
  kTagInStack,
  kSounding,
  kRolled,
  kPictureBar,  // the bar with the tools of a picture is there
};

/// The state called `name`, without regard to case: "ontop", "readonly", "alarm", "attached", "transmit",
/// "email", "instack", "sleeping", "recurring", "ghost", "title", "image", "stang", "user1" to "user3",
/// "owntitle", "scrollbarrequired", "formatbar", "checklists", "bold", "italic", "underline",
/// "strikethrough", "bullets", "checklist", "highlight", "tagline", "tagalarm", "tagattached", "taginstack",
/// "sounding", "rolled" and "picturebar".
std::optional<SkinState> SkinStateFromName(TextView name);

/// A set of states.
class SkinStates {
 public:
  void Set(SkinState state, bool on) {
    const std::uint64_t bit = std::uint64_t{1} << static_cast<unsigned>(state);
    bits_ = on ? bits_ | bit : bits_ & ~bit;
  }
  bool Has(SkinState state) const { return (bits_ >> static_cast<unsigned>(state) & 1) != 0; }
  friend bool operator==(const SkinStates&, const SkinStates&) = default;

 private:
  std::uint64_t bits_ = 0;
};

inline constexpr std::size_t kNoElement = static_cast<std::size_t>(-1);

/// One window as its skin sees it.
struct SkinView {
  Size window;
  Colour colour;  // of the note: its paper, and the tint of strips and tile areas
  bool rolled = false;
  bool focus = false;
  bool mouseOver = false;
  std::uint8_t hover = 255;            // how far what shows under the mouse alone has come
  std::size_t hotButton = kNoElement;  // the button under the mouse, by its place among the elements
  SkinStates states;
  ActionCode chosen = kActionNone;  // the command of the tool in hand
  Colour pen;                       // that it draws with
  bool canUndo = true;              // else the button for that is faint
  bool canRedo = true;
  Rect thumb;               // of the scroll bar
  Rect focused;             // the part that the keyboard is at; empty for none
  bool clearPaper = false;  // paper in the skin's key colour lets see through
  Sampling sampling = Sampling::kNearest;
  bool rightToLeft = false;                 // words that begin on the left begin on the right
  std::optional<ContrastColours> contrast;  // the inks that all tints are made of instead
  friend bool operator==(const SkinView&, const SkinView&) = default;
};

/// The words that a window puts in the place of placeholders.
class SkinWords {
 public:
  virtual ~SkinWords() = default;
  /// The words for a placeholder, whose name comes without its percent signs and in upper case; nothing for
  /// an unknown one, which then stays as it is written.
  virtual std::optional<Text> Find(TextView placeholder) const = 0;
};

/// `text` with its placeholders ("%TITLE%", in any case) replaced.
Text ExpandPlaceholders(TextView text, const SkinWords& words);

}  // namespace jotlets

// What the command language needs from the program, in the language's own words. The main window implements
// it; tests run the whole interpreter on a fake.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "base/clock.h"
#include "base/geometry.h"
#include "base/text.h"
#include "command/custom_commands.h"
#include "data/data_file.h"
#include "data/jotlet_data.h"
#include "desk/note_lists.h"
#include "friends/friend_list.h"
#include "schedule/sleep_times.h"

namespace jotlets {

/// One open note, as commands see it. A reference to one is good until the next event is sent: a listener may
/// close any note from inside an event.
class DesktopJotlet {
 public:
  virtual ~DesktopJotlet() = default;
  virtual JotletData& Record() = 0;  // place and size brought up to date with the screen
  virtual Point
  ShownAt() = 0;  // its top-left corner, which is not the record's as long as that is off the screen
  virtual Text PlainText() = 0;
  virtual Text Rtf() = 0;                   // empty for a picture
  virtual Text SkinPath() = 0;              // empty for the default skin
  virtual std::int64_t WindowNumber() = 0;  // its handle

  virtual void SetTitle(TextView title) = 0;
  virtual void SetUserString(TextView words) = 0;
  virtual void SetColour(Colour colour) = 0;
  virtual void SetOnTop(bool onTop) = 0;
  virtual void SetGhost(bool ghost) = 0;
  virtual void SetHidden(bool hidden) = 0;
  virtual void SetTransparency(std::int32_t percent) = 0;
  virtual bool SetRolled(bool rolled) = 0;  // false: it cannot be
  virtual void MoveTo(Point position) = 0;
  virtual bool SetPlainText(TextView text) = 0;  // these two: false when the note is a picture
  virtual bool SetRtf(TextView rtf) = 0;
  virtual bool SetSkin(TextView path) = 0;     // empty: the default one; false: no skin
  virtual bool ApplyStyle(TextView name) = 0;  // to the whole text; false: no such style
  virtual bool SetPicture(TextView path) = 0;  // of a picture note; false: no picture file
  virtual void CopyContent(bool formatted) = 0;
  virtual void PasteAtEnd(bool formatted) = 0;
  /// Writes content that is not saved yet, which sets the time of the last change.
  virtual bool SaveContent() = 0;
};

/// How the clipboard becomes a new note.
enum class Paste { kPicture, kPlain, kFormatted };

enum class MenuKind { kOfNotes, kOfProgram };

/// The store, as commands see it.
class StoreHost {
 public:
  virtual ~StoreHost() = default;
  /// Moves an open note into a category; its key, nothing when it could not be written.
  virtual std::optional<std::int64_t> Store(TextView id, TextView category) = 0;
  virtual bool IsStored(std::int64_t key) = 0;
  /// Brings a note back to the desktop; its id, empty when there is none of this key, or the store cannot let
  /// it go.
  virtual Text Fetch(std::int64_t key) = 0;
  virtual std::vector<std::int64_t> KeysOf(TextView category) = 0;
  /// Opens the manage window at the note of this key.
  virtual void ShowStored(std::int64_t key) = 0;
  /// The ids of all notes, of stored ones the keys, that hold the words; nothing while that is not known.
  virtual std::optional<std::vector<Text>> Find(TextView words) = 0;
  /// Whether that can be expected to answer before the next start.
  virtual bool CanFind() = 0;
};

class CommandHost {
 public:
  virtual ~CommandHost() = default;

  // The notes, each list found by id without regard to case; nullptr when there is none.

  virtual DesktopJotlet* FindDesktop(TextView id) = 0;
  virtual const JotletData* FindAttached(TextView id) = 0;
  virtual const JotletData* FindSleeping(TextView id) = 0;
  virtual const JotletData* FindClosed(TextView id) = 0;
  virtual Text DesktopOfWindow(std::int64_t handle) = 0;  // its id, empty for none
  virtual std::vector<Text> DesktopIds() const = 0;
  virtual std::vector<Text> AttachedIds() const = 0;
  virtual std::vector<Text> SleepingIds() const = 0;
  virtual std::vector<Text> ClosedIds() const = 0;
  virtual std::vector<std::int32_t> StackNumbers() const = 0;
  virtual const StackRecord* FindStack(std::int32_t number) const = 0;  // nullptr when there is none
  /// The text of a note's rich-text file as the note has it now, empty when there is none.
  virtual Text ContentForTransfer(const JotletData& record) = 0;

  // Making and ending notes. Ids are empty when that failed; an open note sends event 500.

  virtual Text CreateDesktop(TextView text) = 0;
  struct Pasted {
    Text id;
    bool took = false;  // the clipboard held what was asked for
  };
  virtual Pasted CreateFromClipboard(Paste what) = 0;
  virtual Text CreateFromPicture(TextView path) = 0;
  /// A note from its encoded form, put where it belongs or, when `asleep`, to sleep.
  virtual Text CreateEncoded(TextView encoded, bool asleep) = 0;
  /// Closes an open note and sends event 501; false when its content could not be written and it stays open.
  virtual bool CloseDesktop(TextView id) = 0;
  /// Sends event 502, then deletes an open note; false when it is not there (any more).
  virtual bool DeleteDesktop(TextView id) = 0;
  /// Gives an open note another id, and its content another file.
  virtual Renamed SetDesktopId(TextView id, TextView newId) = 0;

  // Sleep and alarms. Of those that answer, false: the note stays what it is, since its content could not be
  // written, or it gets no window.

  virtual bool WakeSleeping(TextView id) = 0;
  virtual StoreHost& Stored() = 0;
  virtual bool Sleep(TextView id, const WakeFlags& flags, std::int64_t seconds) = 0;
  /// From `start`, now for `kNone`, until `end`, for good for `kNone`; seconds since 1970 UTC.
  virtual bool Recur(TextView id, const WakeFlags& flags, const WakeRule& rule, std::int32_t start,
                     std::int32_t end) = 0;
  virtual void SoundAlarm(TextView id, bool on) = 0;
  virtual void MoveSleeping(TextView id, Point position) = 0;
  virtual void SetWakeTime(TextView id, std::int32_t time) = 0;

  // The program.

  /// Saves the data file now, whatever has changed, and the options when they have; false when the first
  /// failed.
  virtual bool SaveNow() = 0;
  virtual bool Backup(TextView folder) = 0;
  virtual void BringForward() = 0;
  virtual void HideAll(bool hidden) = 0;
  virtual void RecreateIcon() = 0;
  /// Opens or closes the manage window: whether it was not so already. Nothing where there is none.
  virtual std::optional<bool> OpenManageWindow(bool open) = 0;
  virtual bool IsSkinFixed() = 0;  // by policy
  virtual bool SetDefaultSkin(TextView path) = 0;
  virtual Text DefaultSkinPath() = 0;
  virtual std::array<std::int32_t, 3> Snapping() const = 0;
  virtual bool RolledHasAltPosition() const = 0;
  virtual Text DataPath() const = 0;
  virtual Text UniqueId() const = 0;
  virtual LocalTime ToLocal(std::int32_t utc) = 0;
  virtual const FriendList& Friends() = 0;
  virtual CustomCommands& CustomMenu(MenuKind kind) = 0;
  virtual void NotifyMoved(TextView id) = 0;
};

}  // namespace jotlets

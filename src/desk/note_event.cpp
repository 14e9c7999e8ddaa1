#include "desk/note_event.h"

#include <algorithm>
#include <array>

namespace jotlets {
namespace {

enum class Carries { kNothing, kReasonAndId, kWord, kWordAndId, kId, kIds };

struct ReasonRow {
  Reason reason;
  TextView word;
};

constexpr std::array kReasons = {
    ReasonRow{Reason::kNotGiven, u""},
    ReasonRow{Reason::kApi, u"api"},
    ReasonRow{Reason::kUser, u"user"},
    ReasonRow{Reason::kClipboard, u"clipboard"},
    ReasonRow{Reason::kWelcome, u"welcome"},
    ReasonRow{Reason::kAdopting, u"adopting"},
    ReasonRow{Reason::kImport, u"import"},
    ReasonRow{Reason::kWaking, u"waking"},
    ReasonRow{Reason::kRecurring, u"recurring"},
    ReasonRow{Reason::kAttached, u"attached"},
    ReasonRow{Reason::kRestored, u"restored"},
    ReasonRow{Reason::kUnattached, u"unattached"},
    ReasonRow{Reason::kDeleted, u"deleted"},
    ReasonRow{Reason::kSlept, u"slept"},
    ReasonRow{Reason::kMovedToFile, u"movedToFile"},
    ReasonRow{Reason::kEndOfTrans, u"endOfTrans"},
    ReasonRow{Reason::kAppExit, u"appExit"},
    ReasonRow{Reason::kStored, u"stored"},
};

struct ReasonUse {
  Reason reason;
  TextView meaning;
};

constexpr ReasonUse kCreatedFor[] = {
    {Reason::kApi, u"by a command"},
    {Reason::kUser, u"by the user"},
    {Reason::kClipboard, u"of the clipboard"},
    {Reason::kWelcome, u"at the first start"},
    {Reason::kAdopting, u"of a content file that had no note"},
    {Reason::kImport, u"of a file or a message"},
    {Reason::kWaking, u"it slept"},
    {Reason::kRecurring, u"a copy of a recurring note"},
    {Reason::kAttached, u"the window that it is attached to has come"},
    {Reason::kRestored, u"it was closed"},
    {Reason::kUnattached, u"it waited for a window and waits no more"},
};
constexpr ReasonUse kClosedFor[] = {
    {Reason::kApi, u"by a command"},
    {Reason::kUser, u"by the user"},
    {Reason::kMovedToFile, u"it was written to a file"},
    {Reason::kEndOfTrans, u"it was sent"},
    {Reason::kAppExit, u"the program ends"},
};
constexpr ReasonUse kDeletedFor[] = {
    {Reason::kApi, u"by a command"},
    {Reason::kDeleted, u"by the user"},
    {Reason::kEndOfTrans, u"it was sent"},
    {Reason::kSlept, u"it sleeps"},
    {Reason::kStored, u"it went into the store"},
    {Reason::kUnattached, u"the window that it is attached to is gone"},
};

struct EventRow {
  EventKind kind;
  TextView text;  // before what it carries
  Carries carries;
  TextView purpose;
  std::span<const ReasonUse> reasons = {};
};

constexpr std::array kEvents = {
    EventRow{EventKind::kCreated, u"500 created desktop jotlet", Carries::kReasonAndId,
             u"A note has appeared on the desktop.", kCreatedFor},
    EventRow{EventKind::kClosed, u"501 closed desktop jotlet", Carries::kReasonAndId, u"A note was closed.",
             kClosedFor},
    EventRow{EventKind::kDeleted, u"502 deleted desktop jotlet", Carries::kReasonAndId,
             u"A note is about to be deleted for good, or has left the desktop.", kDeletedFor},
    EventRow{EventKind::kExiting, u"503 jotlets is exiting, so long", Carries::kNothing,
             u"The program ends."},
    EventRow{EventKind::kRestoring, u"503 jotlets is exiting for a restore", Carries::kNothing,
             u"The program ends to put a backup back."},
    EventRow{EventKind::kProgramCommand, u"504 custom Jotlets command:", Carries::kWord,
             u"The user chose an entry that `do jotletsmenuadd` has added."},
    EventRow{EventKind::kNoteCommand, u"505 custom jotlet command:", Carries::kWordAndId,
             u"The user chose an entry that `do jotletmenuadd` has added, on this note."},
    EventRow{EventKind::kFocus, u"506 desktop jotlet focus", Carries::kId,
             u"A note gained the keyboard focus."},
    EventRow{EventKind::kLostFocus, u"507 desktop jotlet losefocus", Carries::kId, u"A note lost it."},
    EventRow{EventKind::kDeletedClosed, u"508 deleted closed jotlet", Carries::kId,
             u"A closed note was deleted for good: by the user, or because it fell off the end of the closed "
             u"ones."},
    EventRow{EventKind::kMoved, u"509 desktop jotlet moved", Carries::kIds,
             u"A note was moved by the user or by `set desktop`; of several that move together the ids, each "
             u"followed by a comma."},
    EventRow{EventKind::kSized, u"510 desktop jotlet sized", Carries::kIds,
             u"A note got another size; as 509 for several."},
};

const EventRow& RowOf(EventKind kind) {
  return *std::find_if(kEvents.begin(), kEvents.end(),
                       [kind](const EventRow& row) { return row.kind == kind; });
}

TextView Shown(Carries carries) {
  switch (carries) {
    case Carries::kNothing: return u"";
    case Carries::kReasonAndId: return u" *reason* *id*";
    case Carries::kWord: return u" *word*";
    case Carries::kWordAndId: return u" *word* *id*";
    case Carries::kId:
    case Carries::kIds: return u" *id*";
  }
  return u"";
}

}  // namespace

TextView WordOf(Reason reason) {
  return std::find_if(kReasons.begin(), kReasons.end(),
                      [reason](const ReasonRow& r) { return r.reason == reason; })
      ->word;
}

Text EventLine(const NoteEvent& event) {
  const EventRow& row = RowOf(event.kind);
  Text line(row.text);
  if (row.carries == Carries::kReasonAndId) line.append(u" ").append(WordOf(event.reason));
  if (row.carries == Carries::kWord || row.carries == Carries::kWordAndId)
    line.append(u" ").append(event.word);
  if (row.carries == Carries::kNothing || row.carries == Carries::kWord) return line;
  line.append(u" ");
  if (event.ids.size() == 1) return line.append(event.ids.front());
  for (const Text& id : event.ids) line.append(id).append(u",");
  return line;
}

bool IsListed(EventKind kind, Reason reason) {
  const EventRow& row = RowOf(kind);
  if (row.carries != Carries::kReasonAndId) return reason == Reason::kNotGiven;
  return std::any_of(row.reasons.begin(), row.reasons.end(),
                     [reason](const ReasonUse& use) { return use.reason == reason; });
}

std::vector<EventPageRow> EventPage() {
  std::vector<EventPageRow> page;
  for (const EventRow& row : kEvents) {
    Text purpose(row.purpose);
    for (const ReasonUse& use : row.reasons) {
      purpose.append(&use == row.reasons.data() ? u" Reasons: " : u", ");
      purpose.append(WordOf(use.reason)).append(u" (").append(use.meaning).append(u")");
    }
    if (!row.reasons.empty()) purpose.append(u".");
    page.push_back({Text(row.text).append(Shown(row.carries)), std::move(purpose)});
  }
  return page;
}

}  // namespace jotlets

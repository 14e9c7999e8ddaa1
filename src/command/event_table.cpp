#include "command/event_table.h"

#include <array>

namespace jotlets {
namespace {

constexpr std::array kEvents = {
    EventRow{
        u"500 created desktop jotlet *reason* *id*",
        u"A note has appeared; reasons: api, user, clipboard, welcome, adopting, import, waking, recurring "
        u"(a copy of a recurring note)."},
    EventRow{u"501 closed desktop jotlet *reason* *id*", u"A note was closed; reasons: api, user, appExit."},
    EventRow{u"502 deleted desktop jotlet *reason* *id*",
             u"A note is about to leave the desktop for good; reasons: api, deleted, slept, endOfTrans."},
    EventRow{u"503 jotlets is exiting, so long", u"The program ends."},
    EventRow{u"503 jotlets is exiting for a restore", u"The program ends to put a backup back."},
    EventRow{u"504 custom Jotlets command: *word*",
             u"The user chose an entry that `do jotletsmenuadd` has added."},
    EventRow{u"505 custom jotlet command: *word* *id*",
             u"The user chose an entry that `do jotletmenuadd` has added, on this note."},
    EventRow{u"506 desktop jotlet focus *id*", u"A note gained the keyboard focus."},
    EventRow{u"507 desktop jotlet losefocus *id*", u"A note lost it."},
    EventRow{u"508 deleted closed jotlet *id*", u"A closed note fell off the end of the closed ones."},
    EventRow{u"509 desktop jotlet moved *id*",
             u"A note was moved by the user or by `set desktop`; of several that move together the ids, each "
             u"followed by a comma."},
    EventRow{u"510 desktop jotlet sized *id*", u"A note got another size; as 509 for several."},
};

}  // namespace

std::span<const EventRow> EventRows() { return kEvents; }

}  // namespace jotlets

#include "data/options_table.h"

#include <algorithm>
#include <array>

namespace jotlets {
namespace {

template <auto Member>
constexpr OptionRow Number(TextView key, TextView meaning, OptionRange range = {}) {
  return {key,
          u"number",
          [](Options& o, TextView value, const OptionRange& r) {
            // 0 stays 0 in every range: it is what a value that is no number reads as.
            const std::int32_t number = ParseInt(value);
            o.*Member = number == 0 ? 0 : std::clamp(number, r.minimum, r.maximum);
          },
          [](const Options& o, Text& out) {
            AppendInt(out, o.*Member);
            return true;
          },
          range,
          meaning};
}

template <auto Member>
constexpr OptionRow Words(TextView key, TextView meaning) {
  return {key,
          u"text",
          [](Options& o, TextView value, const OptionRange&) { o.*Member = value; },
          [](const Options& o, Text& out) {
            out.append(o.*Member);
            return true;
          },
          {},
          meaning};
}

// On exactly when the line is there and says 1.
template <auto Member>
constexpr OptionRow OnFlag(TextView key, TextView meaning) {
  return {key,
          u"1, only when on",
          [](Options& o, TextView value, const OptionRange&) { o.*Member = ParseInt(value) == 1; },
          [](const Options& o, Text& out) {
            out.push_back(u'1');
            return o.*Member;
          },
          {},
          meaning};
}

// Off exactly when the line is there and says 0.
template <auto Member>
constexpr OptionRow OffFlag(TextView key, TextView meaning) {
  return {key,
          u"0, only when off",
          [](Options& o, TextView value, const OptionRange&) { o.*Member = ParseInt(value) != 0; },
          [](const Options& o, Text& out) {
            out.push_back(u'0');
            return !(o.*Member);
          },
          {},
          meaning};
}

// Numbers separated by commas; missing ones are 0.
template <auto Member>
constexpr OptionRow Numbers(TextView key, TextView meaning) {
  return {key,
          u"numbers",
          [](Options& o, TextView value, const OptionRange&) {
            auto numbers = ParseIntList(value, (o.*Member).size());
            numbers.resize((o.*Member).size());
            std::copy(numbers.begin(), numbers.end(), (o.*Member).begin());
          },
          [](const Options& o, Text& out) {
            for (std::size_t i = 0; i < (o.*Member).size(); ++i) {
              if (i > 0) out.push_back(u',');
              AppendInt(out, (o.*Member)[i]);
            }
            return true;
          },
          {},
          meaning};
}

template <auto Member>
constexpr OptionRow Pair(TextView key, TextView meaning) {
  return {key,
          u"two texts joined by \\|",
          [](Options& o, TextView value, const OptionRange&) {
            const Split parts = SplitAtFirst(value, u'|');
            (o.*Member).first = parts.head;
            (o.*Member).second = parts.tail;
          },
          [](const Options& o, Text& out) {
            out.append((o.*Member).first).append(u"|").append((o.*Member).second);
            return true;
          },
          {},
          meaning};
}

template <auto Member>
constexpr OptionRow NumberPair(TextView key, TextView meaning) {
  return {key,
          u"two numbers joined by \\|",
          [](Options& o, TextView value, const OptionRange&) {
            const Split parts = SplitAtFirst(value, u'|');
            o.*Member = {ParseInt(parts.head), ParseInt(parts.tail)};
          },
          [](const Options& o, Text& out) {
            AppendInt(out, (o.*Member)[0]);
            out.push_back(u'|');
            AppendInt(out, (o.*Member)[1]);
            return true;
          },
          {},
          meaning};
}

// The number stands behind the last comma: a file name may hold commas of its own.
template <auto Member>
constexpr OptionRow WordsAndNumber(TextView key, TextView meaning) {
  return {key,
          u"text,number",
          [](Options& o, TextView value, const OptionRange&) {
            const std::size_t comma = value.rfind(u',');
            (o.*Member).text = value.substr(0, comma);
            (o.*Member).number = comma == TextView::npos ? 0 : ParseInt(value.substr(comma + 1));
          },
          [](const Options& o, Text& out) {
            out.append((o.*Member).text).push_back(u',');
            AppendInt(out, (o.*Member).number);
            return true;
          },
          {},
          meaning};
}

// Four modifier digits (Windows key, Shift, Ctrl, Alt), then the key code. A value too short to hold a key
// code is no hot key and changes nothing.
template <std::size_t Index>
constexpr OptionRow Hook(TextView key, TextView meaning) {
  return {key,
          u"four digits and a key code",
          [](Options& o, TextView value, const OptionRange&) {
            if (value.size() < 5) return;
            o.hooks[Index] = {value[0] == u'1', value[1] == u'1', value[2] == u'1', value[3] == u'1',
                              ParseInt(value.substr(4))};
          },
          [](const Options& o, Text& out) {
            const HotKey& hook = o.hooks[Index];
            for (const bool on : {hook.windowsKey, hook.shift, hook.ctrl, hook.alt}) {
              out.push_back(on ? u'1' : u'0');
            }
            AppendInt(out, hook.key);
            return true;
          },
          {},
          meaning};
}

template <std::size_t Index>
constexpr OptionRow Hilite(TextView key, TextView meaning) {
  return {key,
          u"colour number",
          [](Options& o, TextView value, const OptionRange&) { o.hilites[Index] = ParseInt(value); },
          [](const Options& o, Text& out) {
            AppendInt(out, o.hilites[Index]);
            return true;
          },
          {},
          meaning};
}

// A number below 0 says nothing: brought into the range it would drop every closed note.
constexpr OptionRow KeepDeleted() {
  OptionRow row = Number<&Options::keepDeleted>(
      u"KeepDeleted", u"How many closed notes are kept; below 0 counts as the default.", {0, 100000});
  row.read = [](Options& o, TextView value, const OptionRange& r) {
    const std::int32_t number = ParseInt(value);
    o.keepDeleted = number < 0 ? Options().keepDeleted : std::min(number, r.maximum);
  };
  return row;
}

using O = Options;
constexpr OptionRange kSwitch{0, 1};
constexpr OptionRange kPercentOrMore{0, 1000};
constexpr OptionRange kMinuteOfDay{0, 1439};
constexpr OptionRange kLength{1, 32000};

constexpr std::array kOptions = {
    Words<&O::transferFile>(u"Transfer file", u"File that hands notes between machines."),
    OnFlag<&O::confirmClosure>(u"Confirm closure", u"Ask before a note is closed."),
    Number<&O::debug>(
        u"Debug",
        u"Highest level that is written to the activity log: 0 nothing, 1 start, exit and trouble, 3 all."),
    Words<&O::signature>(u"Signature", u"Text added to sent notes."),
    KeepDeleted(),
    Number<&O::makeAllVisible>(u"MakeAllVisible", u"Clicking one note brings all forward.", kSwitch),
    Number<&O::useHooks>(u"UseHooks", u"Global hot keys on or off.", kSwitch),
    Hook<0>(u"Hook", u"Hot key: new note. The digits stand for the Windows key, Shift, Ctrl and Alt."),
    Hook<1>(u"Hook1", u"Hot key: new note from the clipboard."),
    Hook<2>(u"Hook2", u"Hot key: hide or show all notes."),
    Hook<3>(u"Hook3", u"Hot key: bring all notes forward."),
    Hook<4>(u"Hook4", u"Hot key: manage window."),
    Hook<5>(u"Hook5", u"Hot key: rescue notes that lie off the screen."),
    Hook<6>(u"Hook6", u"Hot key: find in all notes."),
    Hook<7>(u"Hook7", u"Hot key: picture of an area of the screen."),
    WordsAndNumber<&O::alarm>(u"Alarm",
                              u"Sound file of a note that wakes, and whether the sleep dialog proposes it."),
    Number<&O::soundAlarmOnWake>(u"SoundAlarmOnWake",
                                 u"The sleep dialog proposes to start the alarm on wake.", kSwitch),
    Number<&O::aotDefault>(u"AOTdefault", u"The sleep dialog proposes to put the note on top on wake.",
                           kSwitch),
    Words<&O::alarmAlarm>(u"AlarmAlarm", u"Sound file of an alarm; beep, or none, is the system's own."),
    Number<&O::loopAlarm>(u"LoopAlarm", u"An alarm repeats its sound.", kSwitch),
    Number<&O::jiggleAlarm>(u"JiggleAlarm", u"An alarm shakes its note.", kSwitch),
    Number<&O::flashAlarm>(u"FlashAlarm", u"An alarm flashes its note.", kSwitch),
    Number<&O::soundAlarm>(u"SoundAlarm", u"An alarm plays its sound.", kSwitch),
    Number<&O::snoozeMinutes>(u"SnoozeMinutes", u"Minutes of a snooze.", {1, 100000}),
    Number<&O::preventDuplicates>(
        u"PreventDuplicates", u"A recurring note sends no copy while an untouched one lies on the desktop.",
        kSwitch),
    Number<&O::preventOverlap>(u"PreventOverlap", u"A new note does not sit exactly on another.", kSwitch),
    Number<&O::newJotletsAppear>(u"NewJotletsAppear",
                                 u"Where new notes appear: 0 middle of the primary monitor, 1 middle of the "
                                 u"virtual screen, 2 at NewJotletsCoords."),
    Numbers<&O::newJotletsCoords>(u"NewJotletsCoords", u"Left and top of new notes."),
    Words<&O::skin>(u"Skin", u"Default skin; empty: the built-in one."),
    OnFlag<&O::singleClickCreates>(u"SingleClickCreates",
                                   u"One click on the tray icon makes a note (else two)."),
    OnFlag<&O::opaqueEdit>(u"OpaqueEdit", u"A transparent note is opaque while it has the focus."),
    Number<&O::titlebar>(
        u"Titlebar",
        u"What the title bar shows: 0 the title, 1 the title and when the note was changed, 2 nothing.",
        {0, 2}),
    Number<&O::hidden>(u"Hidden", u"All notes are hidden.", kSwitch),
    Number<&O::defaultWidth>(u"DefaultWidth", u"Width of a new note in pixels at 100 %.", kLength),
    Number<&O::defaultHeight>(u"DefaultHeight", u"Height of a new note in pixels at 100 %.", kLength),
    Numbers<&O::snap>(u"Snap", u"Snapping while notes are moved: on, distance and gap in pixels."),
    Number<&O::newJotletAction>(
        u"NewJotletAction", u"What a new note starts with: 0 its text, 1 its title, 2 neither has the focus.",
        {0, 2}),
    Numbers<&O::sleepValues>(u"SleepValues", u"Last number and unit of the sleep dialog."),
    Number<&O::allowFixedSizing>(
        u"AllowFixedSizing",
        u"Notes keep their size: edges and keys move them only, the properties change it.", kSwitch),
    OnFlag<&O::noRtlKeys>(u"NoRTLKeys", u"The keys for right-to-left text are off."),
    OnFlag<&O::rtl>(u"RTL", u"New text runs from right to left."),
    OnFlag<&O::user1>(u"User1", u"New notes have the first user flag."),
    OnFlag<&O::user2>(u"User2", u"New notes have the second user flag."),
    OnFlag<&O::user3>(u"User3", u"New notes have the third user flag."),
    OnFlag<&O::attachShowSystemWindows>(u"AttachShowSystemWindows",
                                        u"The attach dialog lists system windows too."),
    OnFlag<&O::allowTransparentBackgrounds>(
        u"AllowTransparentBackgrounds",
        u"Paper of a skin's key colour lets see through it; else it is shown a hair off that colour."),
    OnFlag<&O::dontFadeToTransparent>(u"DontFadeToTransparent",
                                      u"A note that loses the focus is transparent at once."),
    OnFlag<&O::defaultImage>(u"DefaultImage", u"New notes are pictures."),
    OnFlag<&O::lockingFreezes>(u"LockingFreezes", u"A locked note cannot be moved either."),
    Number<&O::animationSpeed>(u"AnimationSpeed", u"Steps of an animated move; 0: none.", kPercentOrMore),
    Number<&O::syncPeriod>(u"SyncPeriod", u"Minutes between server synchronisations.", {1, 100000}),
    OnFlag<&O::alternateGetPixel>(
        u"AlternateGetPixel",
        u"Pictures that a skin stretches are smoothed; else each pixel is the nearest one."),
    OffFlag<&O::takeBackups>(u"TakeBackups", u"Automatic backups."),
    Words<&O::backupDir>(
        u"BackupDir",
        u"Folder of the backups, also as a path inside the data folder; empty: \"backups\" there."),
    Number<&O::backupPeriod>(u"BackupPeriod", u"Hours between automatic backups.", {1, 100000}),
    Number<&O::keepBackups>(u"KeepBackups", u"How many backups are kept.", {1, 100000}),
    Numbers<&O::imageJotletDefaultSize>(u"ImageJotletDefaultSize",
                                        u"Width and height of a new picture note."),
    OnFlag<&O::rolledHasAltPosition>(u"RolledHasAltPosition",
                                     u"A rolled note has a place and width of its own."),
    OnFlag<&O::shadows>(u"Shadows", u"Notes throw shadows."),
    Number<&O::appearance>(u"Appearance",
                           u"Notes and windows are light or dark as the system (0), light (1) or dark (2).",
                           {0, 2}),
    Number<&O::bulletIndent>(u"BulletIndent", u"Indent of bullets in twips.", {0, 10000}),
    Pair<&O::google>(u"Google", u"Web search settings."),
    Words<&O::fontMru>(u"FontMRU", u"Fonts used lately."),
    Numbers<&O::manageWindow>(u"ManageWindow", u"Left, top, width and height of the manage window."),
    Numbers<&O::manageWidths>(
        u"ManageWidths", u"Widths of its first four columns at a scale of 100 %; the last takes the rest."),
    Number<&O::manageSorted>(
        u"ManageSorted",
        u"Column by which it is sorted, counted from 0; backwards -1 for the first, -2 for the second ...",
        {-5, 4}),
    Number<&O::manageWindowVisible>(u"ManageWindowVisible", u"It is open.", kSwitch),
    Number<&O::manageWindowSearchWhat>(
        u"ManageWindowSearchWhat",
        u"What its search looks at, added up: 1 titles, 2 texts, 4 user texts, 8 sources.", {0, 15}),
    OnFlag<&O::manageWindowMax>(u"ManageWindowMax", u"It is maximised."),
    OnFlag<&O::networking>(u"Networking", u"Notes can be exchanged with friends."),
    Number<&O::netPort>(u"NetPort", u"TCP port for that.", {1, 65535}),
    OnFlag<&O::useDns>(u"Use DNS", u"Friends are found by name."),
    OnFlag<&O::useSignature>(u"Use signature", u"Sent notes carry the signature."),
    Words<&O::sound>(u"Sound", u"Sound file of a note that arrives."),
    NumberPair<&O::statistics>(u"Statistics", u"Notes sent and received."),
    Number<&O::networkTimeout>(u"Network timeout", u"Seconds until a connection is given up.", {1, 3600}),
    Number<&O::balloonOnSecret>(u"BalloonOnSecret", u"A balloon tells of a note that arrives hidden.",
                                kSwitch),
    Number<&O::balloonPreview>(u"BalloonPreview", u"The balloon shows the beginning of the note.", kSwitch),
    Number<&O::preventOverlapNetwork>(u"PreventOverlapNetwork", u"As PreventOverlap, for notes that arrive.",
                                      kSwitch),
    Number<&O::newJotletsAppearNetwork>(u"NewJotletsAppearNetwork",
                                        u"As NewJotletsAppear, for notes that arrive."),
    Numbers<&O::newJotletsCoordsNetwork>(u"NewJotletsCoordsNetwork",
                                         u"As NewJotletsCoords, for notes that arrive."),
    Words<&O::serverIp>(u"ServerIP", u"Address of the friend-list server."),
    Number<&O::useEmail>(u"Use email", u"Notes can be sent by e-mail."),
    Words<&O::smtpServer>(u"SMTPServer", u"Mail server."),
    OnFlag<&O::mailSignature>(u"Mail signature", u"Mailed notes carry the signature."),
    Number<&O::askBeforeMailing>(u"Ask before mailing", u"Ask before a note is mailed.", kSwitch),
    Words<&O::emailAddress>(u"EmailAddress", u"Your own e-mail address."),
    OnFlag<&O::openBeforeSend>(u"Open before send", u"The mail program shows the mail first."),
    OffFlag<&O::attachSti>(u"AttachSTI", u"The note is attached to the mail as a file."),
    Number<&O::sortOrder>(u"Sort order", u"Order of lists of notes."),
    Numbers<&O::inStyle>(u"In style", u"Style of notes that arrive."),
    OnFlag<&O::closeOnSend>(u"Close on send", u"A sent note is closed."),
    OnFlag<&O::allSecret>(u"All secret", u"All notes that arrive are hidden at first."),
    OnFlag<&O::sendSecret>(u"SendSecret", u"Sent notes arrive hidden."),
    Numbers<&O::penColour>(u"Pen colour", u"Red, green and blue of the pen."),
    Number<&O::penWidth>(u"Pen width", u"Width of the pen in pixels.", {1, 100}),
    Number<&O::sizeType>(u"Size type", u"Unit of the picture size dialog."),
    Number<&O::keepAspect>(u"Keep aspect", u"Pictures keep their proportions.", kSwitch),
    Number<&O::textSize>(u"Text size", u"Size of text drawn into pictures.", {1, 1000}),
    Number<&O::imageUndo>(u"ImageUndo", u"Steps that can be undone in a picture.", {0, 1000}),
    Hilite<0>(u"Hilite01", u"First highlight colour: red in the low byte, then green, then blue."),
    Hilite<1>(u"Hilite02", u"Second highlight colour."),
    Hilite<2>(u"Hilite03", u"Third highlight colour."),
    Hilite<3>(u"Hilite04", u"Fourth highlight colour."),
    Hilite<4>(u"Hilite05", u"Fifth highlight colour."),
    OnFlag<&O::greenRectSs>(u"GreenRectSS", u"A green rectangle marks the area of a screen picture."),
    Number<&O::newJotletColour>(
        u"NewJotletColour", u"Paper of a new note, as a highlight colour is written; -1: the program's own.",
        {-1, 0xFFFFFF}),
    Number<&O::eveningTime>(u"EveningTime", u"When \"this evening\" is: minutes since midnight.",
                            kMinuteOfDay),
    Number<&O::morningTime>(u"MorningTime", u"When \"tomorrow morning\" is: minutes since midnight.",
                            kMinuteOfDay),
    OffFlag<&O::undoStrip>(
        u"UndoStrip",
        u"A note that is closed, deleted, hidden or put to sleep can be had back for some seconds."),
    OnFlag<&O::altF4Leaves>(u"AltF4Leaves", u"Alt+F4 in a note leaves Jotlets without a question."),
    Numbers<&O::recentColours>(u"RecentColours",
                               u"The own colours of notes that were chosen last, as Hilite01; -1 is none."),
    OffFlag<&O::typingAids>(u"TypingAids", u"What is typed may begin lists, check lists, headings and bold."),
    OffFlag<&O::formatBar>(u"FormatBar",
                           u"A note in which one writes has a bar to format its text, if its skin has one."),
};

}  // namespace

std::span<const OptionRow> OptionRows() { return kOptions; }

}  // namespace jotlets

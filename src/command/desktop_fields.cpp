#include "command/desktop_fields.h"

#include <algorithm>
#include <array>

#include "command/rows.h"

namespace jotlets {
namespace {

constexpr TextView kDefaultSkin = u"<default>";

void ReadHexTitle(const CommandCall& call, DesktopJotlet& jotlet) {
  call.reply.Value(HexTitle(jotlet.Record().title));
}

void ReadColour(const CommandCall& call, DesktopJotlet& jotlet) {
  const Colour colour = jotlet.Record().colour;
  call.reply.Value(Numbers({colour.r, colour.g, colour.b}, u","));
}

void ReadText(const CommandCall& call, DesktopJotlet& jotlet) { call.reply.Value(jotlet.PlainText()); }

void ReadHexText(const CommandCall& call, DesktopJotlet& jotlet) {
  call.reply.Value(HexTitle(jotlet.PlainText()));
}

void ReadPosition(const CommandCall& call, DesktopJotlet& jotlet) {
  const Point at = jotlet.ShownAt();
  call.reply.Value(Numbers({at.x, at.y}, u","));
}

void ReadSize(const CommandCall& call, DesktopJotlet& jotlet) {
  const JotletData& record = jotlet.Record();
  call.reply.Value(Numbers({record.width, record.height}, u"x"));
}

void ReadRtf(const CommandCall& call, DesktopJotlet& jotlet) { call.reply.Value(jotlet.Rtf()); }

template <auto Member>
void ReadMember(const CommandCall& call, DesktopJotlet& jotlet) {
  call.reply.Value(jotlet.Record().*Member);
}

template <auto Member>
void ReadNumber(const CommandCall& call, DesktopJotlet& jotlet) {
  call.reply.Value(IntText(static_cast<std::int64_t>(jotlet.Record().*Member)));
}

// The halves of the time, low one first, then the local date and time. The day of the week does not belong to
// it.
void ReadModified(const CommandCall& call, DesktopJotlet& jotlet) {
  const std::int32_t time = jotlet.Record().modified;
  if (time == kNone) {
    call.reply.SendLine(u"997 no data");
    return;
  }
  const LocalTime local = call.host.ToLocal(time);
  call.reply.Value(Numbers(
      {time, time < 0 ? -1 : 0, local.year, local.month, local.day, local.hour, local.minute, local.second},
      u" "));
}

void ReadType(const CommandCall& call, DesktopJotlet& jotlet) {
  call.reply.Value(jotlet.Record().IsImage() ? u"image" : u"text");
}

void ReadSkinPath(const CommandCall& call, DesktopJotlet& jotlet) {
  const Text path = jotlet.SkinPath();
  call.reply.Value(path.empty() ? kDefaultSkin : TextView(path));
}

void ReadHandle(const CommandCall& call, DesktopJotlet& jotlet) {
  call.reply.Value(IntText(jotlet.WindowNumber()));
}

void ReadEncoded(const CommandCall& call, DesktopJotlet& jotlet) {
  call.reply.Value(EncodedNote(call, jotlet.Record()));
}

using D = JotletData;

constexpr std::array kReaders = {
    FieldReader{u"title", u"001 text", ReadMember<&D::title>},
    FieldReader{u"utitle", u"001 hex form", ReadHexTitle},
    FieldReader{u"userstring1", u"001 text", ReadMember<&D::userString1>},
    FieldReader{u"source", u"001 text", ReadMember<&D::source>},
    FieldReader{u"ontop", u"001 1 or 0", ReadNumber<&D::onTop>},
    FieldReader{u"hidden", u"001 1 or 0", ReadNumber<&D::hidden>},
    FieldReader{u"ghost", u"001 1 or 0", ReadNumber<&D::ghost>},
    FieldReader{u"transparency", u"001 percent of opacity that remains, 0 for all of it",
                ReadNumber<&D::transparency>},
    FieldReader{u"colour", u"001 red,green,blue", ReadColour},
    FieldReader{u"text", u"001 plain text", ReadText},
    FieldReader{u"utext", u"001 hex form", ReadHexText},
    FieldReader{u"position", u"001 x,y", ReadPosition},
    FieldReader{u"size", u"001 width`x`height", ReadSize},
    FieldReader{u"rolled", u"001 1 or 0", ReadNumber<&D::rolled>},
    FieldReader{u"rtf", u"001 rich text", ReadRtf},
    FieldReader{u"modified",
                u"001 low half, high half, year, month, day, hour, minute, second, with blanks between: the "
                u"time of the last change as seconds since 1970 UTC and in local time; 997 no data",
                ReadModified},
    FieldReader{u"type", u"001 text, or image", ReadType},
    FieldReader{u"encoded", u"001 the whole note in one line", ReadEncoded},
    FieldReader{u"skinpath", u"001 path, or `<default>`", ReadSkinPath},
    FieldReader{u"handle", u"001 the window's handle as a decimal number", ReadHandle},
};

void WriteTitle(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  jotlet.SetTitle(value);
  SavedOk(call, u"title set");
}

void WriteHexTitle(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  WriteTitle(call, jotlet, UnhexTitle(TrimBlanks(value)));
}

// "r,g,b", each number cut to 0 to 255; missing ones are 0.
Colour ParseColour(TextView text) {
  auto numbers = ParseIntList(text, 3);
  numbers.resize(3);
  const auto byte = [](std::int32_t number) { return static_cast<std::uint8_t>(std::clamp(number, 0, 255)); };
  return {byte(numbers[0]), byte(numbers[1]), byte(numbers[2])};
}

void WriteColour(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  jotlet.SetColour(ParseColour(value));
  SavedOk(call, u"colour set");
}

void WriteText(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  if (!jotlet.SetPlainText(value)) {
    call.reply.SendLine(kIsImage);
    return;
  }
  SavedOk(call, u"text set");
}

void WriteHexText(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  WriteText(call, jotlet, UnhexTitle(TrimBlanks(value)));
}

void WritePosition(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  const auto numbers = ParseIntList(value, 2);
  const Text id = jotlet.Record().id;
  jotlet.MoveTo({numbers[0], numbers.size() > 1 ? numbers[1] : 0});
  // The event follows the reply.
  SavedOk(call, u"position set");
  call.host.NotifyMoved(id);
}

void WriteRtf(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  if (!jotlet.SetRtf(value)) {
    call.reply.SendLine(kIsImage);
    return;
  }
  SavedOk(call, u"rtf set");
}

template <auto Set>
void WriteFlag(const CommandCall& call, DesktopJotlet& jotlet, TextView value, TextView word) {
  (jotlet.*Set)(TrimBlanks(value) == u"1");
  SavedOk(call, word);
}

void WriteOnTop(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  WriteFlag<&DesktopJotlet::SetOnTop>(call, jotlet, value, u"ontop set");
}

void WriteGhost(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  WriteFlag<&DesktopJotlet::SetGhost>(call, jotlet, value, u"ghost set");
}

void WriteHidden(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  WriteFlag<&DesktopJotlet::SetHidden>(call, jotlet, value, u"hidden set");
}

void WriteUserString(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  jotlet.SetUserString(value);
  SavedOk(call, u"userstring1 set");
}

void WriteSource(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  jotlet.Record().source = value;
  SavedOk(call, u"source set");
}

// A note of less than a tenth could not be found again.
void WriteTransparency(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  const std::int32_t percent = std::clamp(ParseInt(value), 0, 100);
  jotlet.SetTransparency(percent == 0 ? 0 : std::max(percent, 10));
  SavedOk(call, u"transparency set");
}

void WriteId(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  const Text id = jotlet.Record().id;
  switch (call.host.SetDesktopId(id, TrimBlanks(value))) {
    case Renamed::kYes: SavedOk(call, u"id set"); break;
    case Renamed::kTaken: call.reply.SendLine(u"996 id already exists"); break;
    case Renamed::kNoName: call.reply.SendLine(u"997 unable to set id"); break;
    case Renamed::kFailed: call.reply.SendLine(kProblemSaving); break;
  }
}

// What "get desktop" gives is taken as it is; its first number alone serves as well.
void WriteModified(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  const Split low = SplitAtFirst(TrimBlanks(value), u' ');
  std::int64_t time = ParseInt(low.head);
  if (!low.tail.empty()) {
    time = (std::int64_t{ParseInt(low.tail)} << 32) | static_cast<std::uint32_t>(ParseInt(low.head));
  }
  // A content that is written later would count as the last change.
  jotlet.SaveContent();
  jotlet.Record().modified = RecordTime(time);
  SavedOk(call, u"modified set");
}

void WriteSkinPath(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  if (call.host.IsSkinFixed()) {
    call.reply.SendLine(kForbidden);
    return;
  }
  const TextView path = TrimBlanks(value);
  if (!jotlet.SetSkin(EqualIgnoreCase(path, kDefaultSkin) ? TextView() : path)) {
    call.reply.SendLine(u"997 unable to set skin");
    return;
  }
  SavedOk(call, u"skin set");
}

void WriteStyle(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  const JotletData& record = jotlet.Record();
  if (record.IsImage() || record.readOnly) {
    call.reply.SendLine(record.IsImage() ? kIsImage : kIsReadOnly);
    return;
  }
  if (!jotlet.ApplyStyle(TrimBlanks(value))) {
    call.reply.SendLine(u"997 style not found");
    return;
  }
  SavedOk(call, u"style set");
}

// A text is not thrown away for a picture.
void WritePicture(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  if (!jotlet.Record().IsImage()) {
    call.reply.SendLine(u"997 jotlet is not image");
    return;
  }
  if (!jotlet.SetPicture(TrimBlanks(value))) {
    call.reply.SendLine(kUnableToLoad);
    return;
  }
  SavedOk(call, u"image set");
}

constexpr std::array kWriters = {
    FieldWriter{u"title", u"text", u"000 OK title set", WriteTitle},
    FieldWriter{u"utitle", u"hex form", u"000 OK title set", WriteHexTitle},
    FieldWriter{u"userstring1", u"text", u"000 OK userstring1 set", WriteUserString},
    FieldWriter{u"ontop", u"1 or 0", u"000 OK ontop set", WriteOnTop},
    FieldWriter{u"ghost", u"1 or 0", u"000 OK ghost set", WriteGhost},
    FieldWriter{u"hidden", u"1 or 0", u"000 OK hidden set", WriteHidden},
    FieldWriter{u"source", u"text", u"000 OK source set", WriteSource},
    FieldWriter{u"colour", u"red,green,blue", u"000 OK colour set", WriteColour},
    FieldWriter{u"transparency", u"percent of opacity that remains, 0 for all of it",
                u"000 OK transparency set", WriteTransparency},
    FieldWriter{u"text", u"plain text", u"000 OK text set; 997 jotlet is image", WriteText},
    FieldWriter{u"utext", u"hex form", u"000 OK text set; 997 jotlet is image", WriteHexText},
    FieldWriter{u"position", u"x,y", u"000 OK position set, then event 509", WritePosition},
    FieldWriter{u"rtf", u"rich text", u"000 OK rtf set; 997 jotlet is image", WriteRtf},
    FieldWriter{u"id", u"a plain file name without blanks and commas that no note has",
                u"000 OK id set; 995 problem saving; 996 id already exists; 997 unable to set id", WriteId},
    FieldWriter{u"modified", u"seconds since 1970 UTC, or what `get desktop` gives", u"000 OK modified set",
                WriteModified},
    FieldWriter{u"skinpath", u"a skin file or the name of a skin, or `<default>`",
                u"000 OK skin set; 997 unable to set skin; 997 forbidden by GPO", WriteSkinPath},
    FieldWriter{u"style", u"`Style00` to `Style09`",
                u"000 OK style set; 996 jotlet is read only; 997 style not found; 997 jotlet is image",
                WriteStyle},
    FieldWriter{u"image", u"path of a picture file",
                u"000 OK image set; 997 jotlet is not image; 997 unable to load file", WritePicture},
};

}  // namespace

std::span<const FieldReader> DesktopReaders() { return kReaders; }
std::span<const FieldWriter> DesktopWriters() { return kWriters; }

const FieldReader* FindFieldReader(TextView name) { return FindRow(kReaders, name); }

const FieldWriter* FindFieldWriter(TextView name) { return FindRow(kWriters, name); }

}  // namespace jotlets

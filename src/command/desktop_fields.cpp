#include "command/desktop_fields.h"

#include <algorithm>
#include <array>

#include "command/rows.h"

namespace jotlets {
namespace {

Text ReadColour(CommandHost&, DesktopJotlet& jotlet) {
  const Colour colour = jotlet.Record().colour;
  return Numbers({colour.r, colour.g, colour.b}, u",");
}

Text ReadPosition(CommandHost&, DesktopJotlet& jotlet) {
  const JotletData& record = jotlet.Record();
  return Numbers({record.x, record.y}, u",");
}

Text ReadSize(CommandHost&, DesktopJotlet& jotlet) {
  const JotletData& record = jotlet.Record();
  return Numbers({record.width, record.height}, u"x");
}

Text ReadEncoded(CommandHost& host, DesktopJotlet& jotlet) {
  const JotletData& record = jotlet.Record();
  return MakeEncodedJotlet(record, host.RolledHasAltPosition(), host.ContentForTransfer(record));
}

constexpr std::array kReaders = {
    FieldReader{u"title", [](CommandHost&, DesktopJotlet& jotlet) { return jotlet.Record().title; }},
    FieldReader{u"utitle",
                [](CommandHost&, DesktopJotlet& jotlet) { return HexTitle(jotlet.Record().title); }},
    FieldReader{u"colour", ReadColour},
    FieldReader{u"text", [](CommandHost&, DesktopJotlet& jotlet) { return jotlet.PlainText(); }},
    FieldReader{u"utext", [](CommandHost&, DesktopJotlet& jotlet) { return HexTitle(jotlet.PlainText()); }},
    FieldReader{u"position", ReadPosition},
    FieldReader{u"size", ReadSize},
    FieldReader{u"rtf", [](CommandHost&, DesktopJotlet& jotlet) { return jotlet.Rtf(); }},
    FieldReader{u"encoded", ReadEncoded},
};

void WriteTitle(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  jotlet.SetTitle(value);
  SavedOk(call, u"title set");
}

void WriteText(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  if (!jotlet.SetPlainText(value)) {
    call.reply.SendLine(kIsImage);
    return;
  }
  SavedOk(call, u"text set");
}

void WriteColour(const CommandCall& call, DesktopJotlet& jotlet, TextView value) {
  jotlet.SetColour(ParseColour(value));
  SavedOk(call, u"colour set");
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

constexpr std::array kWriters = {
    FieldWriter{u"title", WriteTitle},
    FieldWriter{u"utitle", [](const CommandCall& call, DesktopJotlet& jotlet,
                              TextView value) { WriteTitle(call, jotlet, UnhexTitle(TrimBlanks(value))); }},
    FieldWriter{u"colour", WriteColour},
    FieldWriter{u"text", WriteText},
    FieldWriter{u"utext", [](const CommandCall& call, DesktopJotlet& jotlet,
                             TextView value) { WriteText(call, jotlet, UnhexTitle(TrimBlanks(value))); }},
    FieldWriter{u"position", WritePosition},
    FieldWriter{u"rtf", WriteRtf},
};

}  // namespace

const FieldReader* FindFieldReader(TextView name) { return FindRow(kReaders, name); }

const FieldWriter* FindFieldWriter(TextView name) { return FindRow(kWriters, name); }

Colour ParseColour(TextView text) {
  auto numbers = ParseIntList(text, 3);
  numbers.resize(3);
  const auto byte = [](std::int32_t number) { return static_cast<std::uint8_t>(std::clamp(number, 0, 255)); };
  return {byte(numbers[0]), byte(numbers[1]), byte(numbers[2])};
}

}  // namespace jotlets

#include "data/jotlet_line.h"

#include <array>

#include "data/jotlet_id.h"

namespace jotlets {
namespace {

using Apply = void (*)(JotletData&, TextView);

// A member of the record, or of one of its parts.
template <auto... Member>
void Number(JotletData& record, TextView value) {
  (record.*....*Member) = ParseInt(value);
}

// The low 8 bits of the number replace this byte of the colour and no other.
template <auto Member>
void ColourByte(JotletData& record, TextView value) {
  record.colour.*Member = static_cast<std::uint8_t>(static_cast<std::uint32_t>(ParseInt(value)) & 0xFF);
}

template <auto... Member>
void Flag(JotletData& record, TextView value) {
  (record.*....*Member) = value == u"1";
}

template <auto Member>
void Presence(JotletData& record, TextView) {
  record.*Member = true;
}

template <auto Member>
void AsItIs(JotletData& record, TextView value) {
  record.*Member = value;
}

template <auto... Member>
void Unescaped(JotletData& record, TextView value) {
  (record.*....*Member) = UnescapeAngles(value);
}

struct TagRow {
  TextView tag;
  Apply apply;
};

using J = JotletData;

// <USERSTRING1> is deliberately read without unescaping: a "<" that the user wrote comes back as "&lt".
constexpr std::array kTags = {
    TagRow{u"<X>", Number<&J::x>},
    TagRow{u"<Y>", Number<&J::y>},
    TagRow{u"<WIDTH>", Number<&J::width>},
    TagRow{u"<HEIGHT>", Number<&J::height>},
    TagRow{u"<ID>", AsItIs<&J::id>},
    TagRow{u"<CREATED>", Number<&J::created>},
    TagRow{u"<MODIFIED>", Number<&J::modified>},
    TagRow{u"<COLR>", ColourByte<&Colour::r>},
    TagRow{u"<COLG>", ColourByte<&Colour::g>},
    TagRow{u"<COLB>", ColourByte<&Colour::b>},
    TagRow{u"<UTITLE>", [](J& record, TextView value) { record.title = UnhexTitle(value); }},
    TagRow{u"<TRANSPARENCY>", Number<&J::transparency>},
    TagRow{u"<TITLE>", AsItIs<&J::title>},
    TagRow{u"<SOURCE>", Unescaped<&J::source>},
    TagRow{u"<ONTOP>", Flag<&J::onTop>},
    TagRow{u"<ROLLED>", Flag<&J::rolled>},
    TagRow{u"<ALARM>", Number<&J::alarm>},
    TagRow{u"<READONLY>", Flag<&J::readOnly>},
    TagRow{u"<SCROLLY>", [](J& record, TextView value) { record.scroll.y = ParseInt(value); }},
    TagRow{u"<USER1>", Flag<&J::user1>},
    TagRow{u"<USER2>", Flag<&J::user2>},
    TagRow{u"<USER3>", Flag<&J::user3>},
    TagRow{u"<IMAGE>", [](J& record, TextView) { record.isImage = 1; }},
    TagRow{u"<USERSTRING1>", AsItIs<&J::userString1>},
    TagRow{u"<HIDDEN>", Presence<&J::hidden>},
    TagRow{u"<GHOST>", Presence<&J::ghost>},
    TagRow{u"<STANG>", Presence<&J::stang>},
    TagRow{u"<SKIN>", AsItIs<&J::skin>},
    TagRow{u"<ALTX>", Number<&J::altX>},
    TagRow{u"<ALTY>", Number<&J::altY>},
    TagRow{u"<ALTWIDTH>", Number<&J::altWidth>},
    TagRow{u"<STACK>", Number<&J::stack>},
    TagRow{u"<LASTSEND>",
           [](J& record, TextView value) { record.lastSend = ReplaceAll(value, u"^M", u"\n"); }},
    TagRow{u"<FROMRECURRING>", AsItIs<&J::fromRecurring>},
    TagRow{u"<SLEEPING>", Flag<&J::sleep, &SleepState::asleep>},
    TagRow{u"<RECURRING>", Flag<&J::sleep, &SleepState::recurring>},
    TagRow{u"<SLEEPNEXTWAKE>", Number<&J::sleep, &SleepState::nextWake>},
    TagRow{u"<SLEEPLASTWAKE>", Number<&J::sleep, &SleepState::lastWake>},
    TagRow{u"<SLEEPALARM>", Number<&J::sleep, &SleepState::flags>},
    TagRow{u"<SLEEPTYPE>", Number<&J::sleep, &SleepState::type>},
    TagRow{u"<SLEEPHOURS>", Number<&J::sleep, &SleepState::hours>},
    TagRow{u"<SLEEPMINUTES>", Number<&J::sleep, &SleepState::minutes>},
    TagRow{u"<SLEEPDAY>", Number<&J::sleep, &SleepState::day>},
    TagRow{u"<ATTACHTITLE>", Unescaped<&J::attachment, &Attachment::title>},
    TagRow{u"<ATTACHCLASS>", Unescaped<&J::attachment, &Attachment::className>},
    TagRow{u"<ATTACHFOCUS>", Flag<&J::attachment, &Attachment::onlyFocus>},
    TagRow{u"<ATTACHVISIBLE>", Flag<&J::attachment, &Attachment::onlyVisible>},
    TagRow{u"<ATTACHPOSTYPE>", Number<&J::attachment, &Attachment::posType>},
    TagRow{u"<ATTACHPOSX>", Number<&J::attachment, &Attachment::posX>},
    TagRow{u"<ATTACHPOSY>", Number<&J::attachment, &Attachment::posY>},
};

void ApplyToken(JotletData& record, TextView token) {
  const std::size_t close = token.find(u'>');
  if (close == TextView::npos) return;
  const TextView tag = token.substr(0, close + 1);
  for (const TagRow& row : kTags) {
    if (EqualIgnoreCase(row.tag, tag)) {
      row.apply(record, token.substr(close + 1));
      return;
    }
  }
}

void ParseTagged(JotletData& record, TextView rest) {
  while (!rest.empty() && !StartsWithIgnoreCase(rest, u"<RTF>")) {
    const std::size_t next = rest.find(u'<', 1);
    if (next == TextView::npos) return;
    ApplyToken(record, rest.substr(0, next));
    rest.remove_prefix(next);
  }
}

// The style field of the colon-separated form: style number, then width and alarm when there is a comma.
void ParseStyle(JotletData& record, TextView field) {
  record.transparency = 0;
  record.width = kNone;
  record.height = kNone;
  record.alarm = kNone;
  record.created = 0;
  const Split style = SplitAtFirst(field, u',');
  if (field.find(u',') != TextView::npos) {
    const Split size = SplitAtFirst(style.tail, u',');
    record.width = ParseInt(size.head);
    if (style.tail.find(u',') != TextView::npos) record.alarm = ParseInt(size.tail);
  }
  std::int32_t number = ParseInt(style.head);
  if (number > 9) {
    record.transparency = number / 10;
    number %= 10;
  }
  if (number > 3) number -= 4;
  if (number > 1) number -= 2;
  record.onTop = number == 1;
}

void ParseAsleep(JotletData& record, TextView field) {
  std::array<std::int32_t, 6> numbers;
  numbers.fill(kNotSet);
  std::size_t count = 0;
  for (bool more = true; more && count < numbers.size(); ++count) {
    const Split part = SplitAtFirst(field, u';');
    numbers[count] = ParseInt(part.head);
    more = part.head.size() < field.size();
    field = part.tail;
  }
  record.sleep.asleep = true;
  record.sleep.recurring = count > 2;
  record.sleep.nextWake = numbers[0];
  record.sleep.flags = numbers[1];
  record.sleep.type = numbers[2];
  record.sleep.hours = numbers[3];
  record.sleep.minutes = numbers[4];
  record.sleep.day = numbers[5];
}

void ParseColonSeparated(JotletData& record, TextView rest) {
  const auto nextField = [&rest] {
    const Split split = SplitAtFirst(rest, u':');
    rest = split.tail;
    return split.head;
  };
  record.x = ParseInt(nextField());
  record.y = ParseInt(nextField());
  ParseStyle(record, nextField());
  record.sleep.nextWake = kNotSet;
  record.sleep.flags = kNotSet;
  while (!rest.empty()) {
    const TextView field = nextField();
    if (field.substr(0, 3) == u"ZZZ") ParseAsleep(record, field.substr(3));
  }
}

void Put(Text& out, TextView tag, std::int32_t value) {
  out.append(tag);
  AppendInt(out, value);
}

void PutPadded(Text& out, TextView tag, std::int32_t value) {
  out.append(tag);
  AppendPaddedInt(out, value);
}

void PutFlag(Text& out, TextView tag, bool set) {
  if (set) out.append(tag).push_back(u'1');
}

void PutPresence(Text& out, TextView tag, bool set) {
  if (set) out.append(tag);
}

void PutText(Text& out, TextView tag, TextView value) {
  out.append(tag);
  constexpr TextView kBreaks(u"\r\n\0", 3);
  if (value.find_first_of(kBreaks) == TextView::npos) {
    out.append(value);
  } else {
    out.append(OneLine(value));
  }
}

void PutTextIfAny(Text& out, TextView tag, TextView value) {
  if (!value.empty()) PutText(out, tag, value);
}

void PutEscapedIfAny(Text& out, TextView tag, const Text& value) {
  if (!value.empty()) PutText(out, tag, EscapeAngles(value));
}

void PutSleep(Text& out, const JotletData& r) {
  if (!r.sleep.asleep) return;
  out.append(u"<SLEEPING>1");
  if (r.sleep.recurring) out.append(u"<RECURRING>1");
  Put(out, u"<SLEEPNEXTWAKE>", r.sleep.nextWake);
  Put(out, u"<SLEEPALARM>", r.sleep.flags);
  if (!r.sleep.recurring) return;
  Put(out, u"<SLEEPTYPE>", r.sleep.type);
  Put(out, u"<SLEEPHOURS>", r.sleep.hours);
  Put(out, u"<SLEEPMINUTES>", r.sleep.minutes);
  Put(out, u"<SLEEPDAY>", r.sleep.day);
  Put(out, u"<SLEEPLASTWAKE>", r.sleep.lastWake);
}

void PutAttachment(Text& out, const JotletData& r) {
  if (!r.IsAttached()) return;
  PutText(out, u"<ATTACHTITLE>", EscapeAngles(r.attachment.title));
  PutText(out, u"<ATTACHCLASS>", EscapeAngles(r.attachment.className));
  Put(out, u"<ATTACHFOCUS>", r.attachment.onlyFocus ? 1 : 0);
  Put(out, u"<ATTACHVISIBLE>", r.attachment.onlyVisible ? 1 : 0);
  if (r.attachment.posType != 1) return;
  Put(out, u"<ATTACHPOSTYPE>", r.attachment.posType);
  Put(out, u"<ATTACHPOSX>", r.attachment.posX);
  Put(out, u"<ATTACHPOSY>", r.attachment.posY);
}

}  // namespace

void AppendJotletLine(Text& out, const JotletData& r, bool rolledHasAltPosition) {
  PutPadded(out, u"<X>", r.x);
  PutPadded(out, u"<Y>", r.y);
  Put(out, u"<WIDTH>", r.width);
  Put(out, u"<HEIGHT>", r.height);
  PutText(out, u"<ID>", r.id);
  Put(out, u"<CREATED>", r.created);
  Put(out, u"<MODIFIED>", r.modified);
  Put(out, u"<COLR>", r.colour.r);
  Put(out, u"<COLG>", r.colour.g);
  Put(out, u"<COLB>", r.colour.b);
  PutSleep(out, r);
  if (r.scroll != Point{}) Put(out, u"<SCROLLY>", r.scroll.y);
  PutFlag(out, u"<USER1>", r.user1);
  PutFlag(out, u"<USER2>", r.user2);
  PutFlag(out, u"<USER3>", r.user3);
  PutPresence(out, u"<IMAGE>", r.IsImage());
  PutEscapedIfAny(out, u"<USERSTRING1>", r.userString1);
  PutFlag(out, u"<ONTOP>", r.onTop);
  PutFlag(out, u"<READONLY>", r.readOnly);
  PutFlag(out, u"<ROLLED>", r.rolled);
  PutPresence(out, u"<HIDDEN>", r.hidden);
  PutPresence(out, u"<GHOST>", r.ghost);
  PutPresence(out, u"<STANG>", r.stang);
  PutTextIfAny(out, u"<SKIN>", r.skin);
  PutTextIfAny(out, u"<LASTSEND>", ReplaceAll(r.lastSend, u"\n", u"^M"));
  PutTextIfAny(out, u"<FROMRECURRING>", r.fromRecurring);
  if (r.stack != kNone) Put(out, u"<STACK>", r.stack);
  if (r.altX != kNotSet && rolledHasAltPosition) {
    Put(out, u"<ALTX>", r.altX);
    Put(out, u"<ALTY>", r.altY);
    Put(out, u"<ALTWIDTH>", r.altWidth);
  }
  PutAttachment(out, r);
  PutEscapedIfAny(out, u"<SOURCE>", r.source);
  if (r.alarm != kNone) Put(out, u"<ALARM>", r.alarm);
  if (!r.title.empty()) out.append(u"<UTITLE>").append(HexTitle(r.title));
  Put(out, u"<TRANSPARENCY>", r.transparency);
  out.append(u"<RTF>");
}

Text MakeJotletLine(const JotletData& record, bool rolledHasAltPosition) {
  Text line;
  AppendJotletLine(line, record, rolledHasAltPosition);
  return line;
}

JotletData ParseJotletLine(TextView line, const JotletData& blank, const FreshId& freshId) {
  JotletData record = blank;
  record.id.clear();
  if (!line.empty() && line.front() == u'<') {
    ParseTagged(record, line);
  } else {
    ParseColonSeparated(record, line);
  }
  if (!IsPlainFileName(record.id)) record.id = freshId();
  return record;
}

}  // namespace jotlets

#include "data/jotlet_line.h"

#include <gtest/gtest.h>

#include "fakes.h"

namespace jotlets {
namespace {

JotletData Blank() {
  JotletData record;
  record.Reset({232, false, false, false}, 1000, u"A1");
  return record;
}

// A blank record with some fields changed.
JotletData With(const std::function<void(JotletData&)>& change) {
  JotletData record = Blank();
  change(record);
  return record;
}

JotletData Parse(TextView line) { return ParseJotletLine(line, Blank(), CountingIds()); }

// What stands between the colour and <TRANSPARENCY>.
Text OptionalPart(const JotletData& record, bool alt = false) {
  const Text line = MakeJotletLine(record, alt);
  const std::size_t from = line.find(u"<COLB>180") + 9;
  return line.substr(from, line.rfind(u"<TRANSPARENCY>") - from);
}

TEST(JotletLine, OfABlankRecordHasNoOptionalTag) {
  EXPECT_EQ(
      MakeJotletLine(Blank(), true),
      u"<X>-65535<Y>-65535<WIDTH>232<HEIGHT>-1<ID>A1<CREATED>1000<MODIFIED>-1<COLR>255<COLG>255<COLB>180"
      u"<TRANSPARENCY>0<RTF>");
}

TEST(JotletLine, HasEveryTagInItsPlace) {
  JotletData r = Blank();
  r.x = 5, r.y = -7, r.width = 300, r.height = 20, r.id = u"B2", r.created = 11, r.modified = 12,
  r.colour = {1, 2, 3};
  r.sleep.asleep = r.sleep.recurring = true;
  r.sleep.nextWake = 21, r.sleep.flags = 22, r.sleep.type = 23, r.sleep.hours = 24, r.sleep.minutes = 25,
  r.sleep.day = 26;
  r.sleep.lastWake = 27, r.scroll = {31, 32}, r.user1 = r.user2 = r.user3 = true, r.isImage = 1;
  r.userString1 = u"u<s", r.onTop = r.readOnly = r.rolled = r.hidden = r.ghost = r.stang = true;
  r.skin = u"skin", r.lastSend = u"a\nb", r.fromRecurring = u"C3", r.stack = 4, r.altX = 41, r.altY = 42,
  r.altWidth = 43;
  r.attachment.title = u"t<", r.attachment.className = u"c>", r.attachment.onlyFocus = true,
  r.attachment.posType = 1, r.attachment.posX = 51;
  r.attachment.posY = 52, r.source = u"s>", r.alarm = 6, r.title = u"Hi", r.transparency = 70;
  EXPECT_EQ(
      MakeJotletLine(r, true),
      u"<X>0005<Y>-007<WIDTH>300<HEIGHT>20<ID>B2<CREATED>11<MODIFIED>12<COLR>1<COLG>2<COLB>3<SLEEPING>1<"
      u"RECURRING>1"
      u"<SLEEPNEXTWAKE>21<SLEEPALARM>22<SLEEPTYPE>23<SLEEPHOURS>24<SLEEPMINUTES>25<SLEEPDAY>26<SLEEPLASTWAKE>"
      u"27"
      u"<SCROLLY>32<USER1>1<USER2>1<USER3>1<IMAGE><USERSTRING1>u&lts<ONTOP>1<READONLY>1<ROLLED>1<HIDDEN><"
      u"GHOST>"
      u"<STANG><SKIN>skin<LASTSEND>a^Mb<FROMRECURRING>C3<STACK>4<ALTX>41<ALTY>42<ALTWIDTH>43<ATTACHTITLE>t&lt"
      u"<ATTACHCLASS>c&gt<ATTACHFOCUS>1<ATTACHVISIBLE>0<ATTACHPOSTYPE>1<ATTACHPOSX>51<ATTACHPOSY>52<SOURCE>s&"
      u"gt"
      u"<ALARM>6<UTITLE>00480069<TRANSPARENCY>70<RTF>");
}

TEST(JotletLine, LeavesOutWhatHasNoMeaning) {
  const auto part = [](const std::function<void(JotletData&)>& change) { return OptionalPart(With(change)); };
  EXPECT_EQ(part([](JotletData& r) { r.sleep.recurring = true, r.sleep.nextWake = 9; }), u"");
  EXPECT_EQ(part([](JotletData& r) { r.sleep.asleep = true, r.sleep.nextWake = 9, r.sleep.type = 3; }),
            u"<SLEEPING>1<SLEEPNEXTWAKE>9<SLEEPALARM>0");
  EXPECT_EQ(part([](JotletData& r) { r.isImage = 2; }), u"");
  EXPECT_EQ(part([](JotletData& r) { r.altX = 1, r.altY = 2; }), u"");
  EXPECT_EQ(part([](JotletData& r) { r.attachment.title = u"t", r.attachment.onlyFocus = true; }), u"");
  EXPECT_EQ(part([](JotletData& r) {
              r.attachment.className = u"c", r.attachment.posType = 2, r.attachment.posX = 5;
            }),
            u"<ATTACHTITLE><ATTACHCLASS>c<ATTACHFOCUS>0<ATTACHVISIBLE>0");
  EXPECT_EQ(part([](JotletData& r) { r.stack = 0, r.alarm = 0; }), u"<STACK>0<ALARM>0");
  EXPECT_EQ(part([](JotletData& r) { r.scroll.x = 5; }), u"<SCROLLY>0");
  EXPECT_EQ(OptionalPart(With([](JotletData& r) { r.altY = 2; }), true), u"");
}

TEST(JotletLine, StaysOneLineWhateverItsTexts) {
  const Text broken(u"a\r\nb\nc\rd\0e", 10);
  const Text line = MakeJotletLine(With([&](JotletData& r) {
                                     r.userString1 = r.skin = r.lastSend = r.fromRecurring =
                                         r.attachment.title = r.attachment.className = r.source = r.title =
                                             broken;
                                   }),
                                   true);
  EXPECT_EQ(line.find_first_of(Text(u"\r\n\0", 3)), Text::npos);
  EXPECT_EQ(Parse(line).source, u"a b c d e");
  EXPECT_EQ(Parse(line).title, broken);
}

TEST(ReadJotletLine, TagsHaveNoOrderAndNoCase) {
  const JotletData read =
      Parse(u"<rtfx>9<alarm>6<Utitle>00480069<id>B2<oNtOP>1<y>-007<HIDDEN><x>0005<rtf><WIDTH>1<");
  EXPECT_TRUE(read == With([](JotletData& r) {
                r.alarm = 6, r.title = u"Hi", r.id = u"B2", r.onTop = r.hidden = true, r.x = 5, r.y = -7;
              }));
}

TEST(ReadJotletLine, FlagsAreSetByOneOnlyAndPresenceTagsByAnything) {
  JotletData allSet = Blank();
  allSet.user1 = allSet.user2 = allSet.user3 = true;
  const TextView line =
      u"<USER1>0<USER2>11<ONTOP>1<ONTOP>x<ROLLED>01<SLEEPING>1<HIDDEN>0<GHOST><STANG>x<IMAGE>0<RTF>";
  const JotletData read = ParseJotletLine(line, allSet, CountingIds());
  EXPECT_FALSE(read.user1 || read.user2 || read.onTop || read.rolled);
  EXPECT_TRUE(read.user3 && read.sleep.asleep && read.hidden && read.ghost && read.stang &&
              read.isImage == 1);
}

TEST(ReadJotletLine, NumbersArePrefixesAndColoursLowBytes) {
  const JotletData read = Parse(u"<WIDTH>12px<HEIGHT><MODIFIED>x<STACK>99999999999<COLG>300<COLB>-1<RTF>");
  EXPECT_EQ(read.width, 12);
  EXPECT_EQ(read.height, 0);
  EXPECT_EQ(read.modified, 0);
  EXPECT_EQ(read.stack, 0x7FFFFFFF);
  EXPECT_TRUE(read.colour == (Colour{255, 44, 255}));
}

TEST(ReadJotletLine, ALastTagWithNothingBehindItIsLost) {
  const JotletData read = Parse(u"<X>5<Y>6");
  EXPECT_EQ(read.x, 5);
  EXPECT_EQ(read.y, kNotSet);
  EXPECT_EQ(Parse(u"<X>5<RTF>rest<Y>6<").y, kNotSet);
}

TEST(ReadJotletLine, SkipsWhatItDoesNotKnow) {
  const JotletData read = Parse(u"<NEWER>1<X>5<broken 7<<Y>6<>8<SKIN>a>b<RTF>");
  EXPECT_EQ(read.x, 5);
  EXPECT_EQ(read.y, 6);
  EXPECT_EQ(read.skin, u"a>b");
}

TEST(ReadJotletLine, TheLastOfTwoEqualTagsCounts) {
  EXPECT_EQ(Parse(u"<TITLE>old <&lt<UTITLE>00480069<RTF>").title, u"Hi");
  EXPECT_EQ(Parse(u"<UTITLE>00480069<TITLE>a&ltb<RTF>").title, u"a&ltb");
  EXPECT_EQ(Parse(u"<ID>B2<ID>B3<RTF>").id, u"B3");
  EXPECT_EQ(Parse(u"<ID>B2<ID><RTF>").id, u"FRESH1");
}

TEST(ReadJotletLine, TheUserStringIsNotUnescapedAsTheOthersAre) {
  const JotletData read =
      Parse(u"<USERSTRING1>a&ltb&gtc<SOURCE>a&ltb&gtc<ATTACHTITLE>&lt<ATTACHCLASS>&gt<LASTSEND>a^M^Mb<RTF>");
  EXPECT_EQ(read.userString1, u"a&ltb&gtc");
  EXPECT_EQ(read.source, u"a<b>c");
  EXPECT_EQ(read.attachment.title, u"<");
  EXPECT_EQ(read.attachment.className, u">");
  EXPECT_EQ(read.lastSend, u"a\n\nb");
}

TEST(ReadJotletLine, AnIdThatIsNoFileNameIsReplaced) {
  for (const TextView line :
       {u"<X>5<RTF>", u"<ID><RTF>", u"<ID>..\\..\\x<RTF>", u"<ID>NUL<RTF>", u"<ID>a/b<RTF>", u""}) {
    EXPECT_EQ(Parse(line).id, u"FRESH1") << ToUtf8(line);
  }
  EXPECT_EQ(Parse(u"<ID>any note<RTF>").id, u"any note");
}

JotletData RandomRecord(Random& random) {
  // No "l", "g" or "t": an escape sequence written by the user is the one text that does not come back.
  const Text escaped = u"a<>&;: |^\u00fc\u6f22" + Text{0xD800};
  const Text raw = u"a>&;: |\u00fc\u6f22" + Text{0xDC00};
  const auto number = [&]() -> std::int32_t {
    constexpr std::array<std::int32_t, 6> kEdges = {0, -1, 1, kNotSet, 0x7FFFFFFF, -0x7FFFFFFF - 1};
    return random.Below(2) == 0 ? kEdges[random.Below(kEdges.size())]
                                : static_cast<std::int32_t>(random.Below(20000)) - 10000;
  };
  const auto flag = [&] { return random.Below(2) == 0; };
  JotletData r = Blank();
  for (auto member :
       {&JotletData::x, &JotletData::y, &JotletData::transparency, &JotletData::width, &JotletData::height,
        &JotletData::alarm, &JotletData::created, &JotletData::modified, &JotletData::altX, &JotletData::altY,
        &JotletData::altWidth, &JotletData::stack, &JotletData::deletedTime}) {
    r.*member = number();
  }
  for (auto member : {&JotletData::onTop, &JotletData::rolled, &JotletData::readOnly, &JotletData::user1,
                      &JotletData::user2, &JotletData::user3, &JotletData::hidden, &JotletData::ghost,
                      &JotletData::stang}) {
    r.*member = flag();
  }
  r.sleep = {flag(), flag(), number(), number(), number(), number(), number(), number(), number()};
  r.attachment = {{}, {}, flag(), flag(), 0, number(), number()};
  r.scroll = {number(), number()};
  r.isImage = flag() ? 1 : 0;
  r.attachment.posType = flag() ? 1 : 0;
  const auto byte = [&] { return static_cast<std::uint8_t>(random.Below(256)); };
  r.colour = {byte(), byte(), byte()};
  r.title = random.Pick(escaped + Text{u'\0', u'\r', u'\n'}, 9);
  r.id = u"N" + IntText(number()) + random.Pick(u"aB_\u00fc-", 9) + u"x";
  r.source = random.Pick(escaped, 9);
  r.attachment.title = random.Pick(escaped, 9);
  r.attachment.className = random.Pick(escaped, 9);
  r.userString1 = random.Pick(escaped, 9);
  r.skin = random.Pick(raw, 9);
  r.fromRecurring = random.Pick(raw, 9);
  r.lastSend = random.Pick(raw + u"\nM", 9);
  return r;
}

// What the line cannot say goes back to what a blank record has.
JotletData WithoutTheUnwritten(JotletData r, bool alt) {
  const JotletData blank = Blank();
  r.scroll.x = 0;
  r.deletedTime = blank.deletedTime;
  r.userString1 = EscapeAngles(r.userString1);
  if (!r.sleep.asleep)
    r.sleep.recurring = false, r.sleep.nextWake = blank.sleep.nextWake, r.sleep.flags = blank.sleep.flags;
  if (!r.sleep.recurring) {
    r.sleep.type = r.sleep.hours = r.sleep.minutes = r.sleep.day = 0;
    r.sleep.lastWake = blank.sleep.lastWake;
  }
  if (!alt || r.altX == kNotSet) r.altX = r.altY = r.altWidth = kNotSet;
  if (!r.IsAttached())
    r.attachment.title.clear(), r.attachment.onlyFocus = r.attachment.onlyVisible = false,
                                r.attachment.posType = 0;
  if (r.attachment.posType != 1) r.attachment.posX = r.attachment.posY = kNone;
  return r;
}

TEST(JotletLineProperty, ReadingGivesBackWhatWasWritten) {
  Random random(20261121);
  for (int round = 0; round < 5000; ++round) {
    const bool alt = round % 2 == 0;
    const JotletData record = RandomRecord(random);
    const Text line = MakeJotletLine(record, alt);
    const JotletData read = Parse(line);
    ASSERT_TRUE(read == WithoutTheUnwritten(record, alt)) << ToUtf8(line) << "\n"
                                                          << ToUtf8(MakeJotletLine(read, alt));
  }
}

TEST(ColonForm, HasPositionAndStyleInFront) {
  const auto read = [](TextView style) {
    const JotletData r = Parse(Text(u"12:-34:").append(style).append(u":a title"));
    EXPECT_TRUE(r.x == 12 && r.y == -34 && r.height == -1 && r.created == 0 && r.id == u"FRESH1" &&
                !r.sleep.asleep);
    EXPECT_TRUE(r.sleep.nextWake == kNotSet && r.sleep.flags == kNotSet);
    return (r.onTop ? u"top " : u"") + IntText(r.transparency) + u" " + IntText(r.width) + u" " +
           IntText(r.alarm);
  };
  for (const TextView style : {u"0", u"2", u"4", u"6"}) EXPECT_EQ(read(style), u"0 -1 -1") << ToUtf8(style);
  for (const TextView style : {u"1", u"3", u"5", u"7"})
    EXPECT_EQ(read(style), u"top 0 -1 -1") << ToUtf8(style);
  EXPECT_EQ(read(u"35"), u"top 3 -1 -1");
  EXPECT_EQ(read(u"74,200"), u"7 200 -1");
  EXPECT_EQ(read(u"91,200,3"), u"top 9 200 3");
}

TEST(ColonForm, TellsASleepingNote) {
  const JotletData once = Parse(u"1:2:0:x:ZZZ500;3");
  EXPECT_TRUE(once.sleep.asleep && !once.sleep.recurring && once.sleep.nextWake == 500 &&
              once.sleep.flags == 3);
  EXPECT_TRUE(once.sleep.type == kNotSet && once.sleep.day == kNotSet);
  const JotletData often = Parse(u"1:2:0:ZZZ500;3;1;8;30;2");
  EXPECT_TRUE(often.sleep.asleep && often.sleep.recurring && often.sleep.type == 1 && often.sleep.hours == 8);
  EXPECT_TRUE(often.sleep.minutes == 30 && often.sleep.day == 2);
}

}  // namespace
}  // namespace jotlets

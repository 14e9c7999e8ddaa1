#include <gtest/gtest.h>

#include "command/completion.h"
#include "command/reply_json.h"

namespace jotlets {
namespace {

TEST(Json, TellsThePartsOfRepliesApart) {
  EXPECT_EQ(ReplyAsJson(u"do ping", u"000 OK pong"), R"({"code":0,"ok":true,"text":"OK pong"})");
  EXPECT_EQ(ReplyAsJson(u"do fly", u"999 Not understood"),
            R"({"code":999,"ok":false,"text":"Not understood"})");
  EXPECT_EQ(ReplyAsJson(u"do new jotlet_paste", u"000 OK created: A1 and pasted clipboard"),
            R"({"code":0,"ok":true,"text":"OK created: A1 and pasted clipboard","id":"A1"})");
  EXPECT_EQ(ReplyAsJson(u"get list desktop", u"001 a,b,"),
            R"({"code":1,"ok":true,"text":"a,b,","list":["a","b"]})");
  EXPECT_EQ(ReplyAsJson(u"GET LIST closed", u"001 "), R"({"code":1,"ok":true,"text":"","list":[]})");
  EXPECT_EQ(ReplyAsJson(u"get desktop A Position ", u"001 -5,7"),
            R"({"code":1,"ok":true,"text":"-5,7","x":-5,"y":7})");
  EXPECT_EQ(ReplyAsJson(u"get desktop A size", u"001 20x30"),
            R"({"code":1,"ok":true,"text":"20x30","width":20,"height":30})");
  EXPECT_EQ(ReplyAsJson(u"get desktop A ghost", u"001 1"), R"({"code":1,"ok":true,"text":"1","value":true})");
  EXPECT_EQ(ReplyAsJson(u"get desktop A modified", u"001 9 0 2026 11 21 9 5 7"),
            R"({"code":1,"ok":true,"text":"9 0 2026 11 21 9 5 7","time":9,"timeHigh":0,"year":2026,)"
            R"("month":11,"day":21,"hour":9,"minute":5,"second":7})");
  EXPECT_EQ(ReplyAsJson(u"get desktop A utitle", u"001 0022005C000AD83DDE00D800"),
            R"({"code":1,"ok":true,"text":"0022005C000AD83DDE00D800",)"
            R"("value":"\"\\\u000a\ud83d\ude00\ud800"})");
  EXPECT_EQ(ReplyAsJson(u"", u"0"), R"({"code":0,"ok":false,"text":""})");
}

TEST(Json, TellsThePartsOfEventsApart) {
  EXPECT_EQ(EventAsJson(u"500 created desktop jotlet api A1"),
            R"({"code":500,"text":"created desktop jotlet api A1","id":"A1","reason":"api"})");
  EXPECT_EQ(EventAsJson(u"502 deleted desktop jotlet setting change delete A1"),
            R"({"code":502,"text":"deleted desktop jotlet setting change delete A1","id":"A1",)"
            R"("reason":"setting change delete"})");
  EXPECT_EQ(EventAsJson(u"503 jotlets is exiting, so long"),
            R"({"code":503,"text":"jotlets is exiting, so long"})");
  EXPECT_EQ(EventAsJson(u"504 custom Jotlets command: go"),
            R"({"code":504,"text":"custom Jotlets command: go","word":"go"})");
  EXPECT_EQ(EventAsJson(u"505 custom jotlet command: go A1"),
            R"({"code":505,"text":"custom jotlet command: go A1","id":"A1","word":"go"})");
  EXPECT_EQ(EventAsJson(u"509 desktop jotlet moved A,B,"),
            R"({"code":509,"text":"desktop jotlet moved A,B,","ids":["A","B"]})");
}

TEST(Completion, OffersKeywordsIdsActionsAndFields) {
  const auto complete = [](std::vector<Text> words, TextView begun) {
    const std::vector<Text> found = CompleteCommand(words, begun, [](TextView kind) {
      return std::vector<Text>{Text(kind) + u"1", u"A7"};
    });
    Text all;
    for (const Text& word : found) all.append(word).append(u" ");
    return all;
  };
  EXPECT_EQ(complete({}, u""), u"do set get ");
  EXPECT_EQ(complete({u"DO"}, u"jotlets"), u"jotletsmenuadd jotletsmenudel ");
  EXPECT_EQ(complete({u"get"}, u"s"), u"skin snap sleeping stack ");
  EXPECT_EQ(complete({u"get", u"list"}, u"s"), u"sleeping stored stacks ");
  EXPECT_EQ(complete({u"get", u"desktop"}, u"d"), u"desktop1 ");
  EXPECT_EQ(complete({u"do", u"wake"}, u""), u"sleeping1 A7 ");
  EXPECT_EQ(complete({u"get", u"stack"}, u"s"), u"stacks1 ");
  EXPECT_EQ(complete({u"do", u"desktop", u"A7"}, u"cl"), u"close ");
  EXPECT_EQ(complete({u"set", u"desktop", u"A7"}, u"u"), u"utitle userstring1 utext ");
  EXPECT_EQ(complete({u"get", u"sleeping", u"A7"}, u""), u"position encoded ");
  EXPECT_EQ(complete({u"do", u"netsend", u"A7"}, u""), u"address ");
  EXPECT_EQ(complete({u"do", u"ping"}, u"") + complete({u"fly"}, u""), u"");
}

}  // namespace
}  // namespace jotlets

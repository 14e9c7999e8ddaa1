#include "command/reply_channel.h"

#include <gtest/gtest.h>

#include "fakes.h"

namespace jotlets {
namespace {

class Events : public testing::Test {
 protected:
  // The clients that got the last lines, in order.
  std::vector<ClientWindow> SentTo(TextView event = u"x") {
    transport.sent.clear();
    listeners.NotifyListeners(event);
    std::vector<ClientWindow> clients;
    for (const auto& sent : transport.sent) clients.push_back(sent.client);
    return clients;
  }

  FakeTransport transport;
  FakeLog log;
  ClientLines lines{transport, log};
  Listeners listeners{lines};
};

using Clients = std::vector<ClientWindow>;

TEST_F(Events, GoToEveryListenerInOrderOfRegistration) {
  for (const ClientWindow client : {3u, 1u, 2u}) EXPECT_TRUE(listeners.Register(client));
  EXPECT_FALSE(listeners.Register(1));
  EXPECT_FALSE(listeners.Register(0));
  EXPECT_EQ(SentTo(), (Clients{3, 1, 2}));
  EXPECT_TRUE(listeners.Deregister(1));
  EXPECT_FALSE(listeners.Deregister(1));
  listeners.Register(1);
  EXPECT_EQ(SentTo(), (Clients{3, 2, 1}));
}

TEST_F(Events, HaveTheirFormAndNoTag) {
  listeners.Register(5);
  listeners.Send({EventKind::kCreated, Reason::kNotGiven, {u"A"}, {}});
  listeners.Send({EventKind::kMoved, Reason::kNotGiven, {u"A", u"B"}, {}});
  listeners.Send({EventKind::kExiting});
  EXPECT_EQ(transport.sent, (std::vector<FakeTransport::Sent>{{5, 0, u"500 created desktop jotlet  A"},
                                                              {5, 0, u"509 desktop jotlet moved A,B,"},
                                                              {5, 0, u"503 jotlets is exiting, so long"}}));
  EXPECT_TRUE(log.Holds(u"API sending: \"509 desktop jotlet moved A,B,\""));
}

TEST_F(Events, AListenerThatIsGoneIsDroppedInSilence) {
  for (const ClientWindow client : {1u, 2u, 3u, 4u}) listeners.Register(client);
  transport.gone = {2};
  transport.dying = {3};
  EXPECT_EQ(SentTo(), (Clients{1, 3, 4}));
  EXPECT_FALSE(listeners.IsRegistered(2) || listeners.IsRegistered(3));
  EXPECT_EQ(SentTo(), (Clients{1, 4}));
}

TEST_F(Events, OneWaitsTwoSecondsInSumAndWhoWasPassedOverGetsItLater) {
  for (const ClientWindow client : {1u, 2u, 3u, 4u}) listeners.Register(client);
  for (const ClientWindow client : {1u, 2u, 3u}) transport.slow[client] = 1900;
  // Everybody has a moment; what those who need longer were sent lies among their messages.
  EXPECT_EQ(SentTo(u"a"), (Clients{1, 2, 3, 4}));
  EXPECT_LE(transport.now, 2000u);
  EXPECT_EQ(transport.asked, (Clients{1, 2, 3}));
  EXPECT_EQ(SentTo(u"b"), (Clients{4}));
  transport.slow.clear();
  transport.sent.clear();
  for (const ClientWindow client : {3u, 1u}) lines.OnAnswers(client);
  EXPECT_EQ(transport.sent, (std::vector<FakeTransport::Sent>{{3, 0, u"b"}, {1, 0, u"b"}}));
  EXPECT_EQ(SentTo(u"c"), (Clients{1, 3, 4}));

  // Far more of them than there are moments.
  for (ClientWindow client = 10; client < 200; ++client)
    listeners.Register(client), transport.hung.insert(client);
  const std::uint64_t before = transport.now;
  SentTo();
  EXPECT_LE(transport.now - before, 2000u);
}

TEST_F(Events, WhoHangsIsNotWaitedForAgainAndGetsTheRestInOrder) {
  listeners.Register(1);
  listeners.Register(2);
  transport.hung = {1};
  EXPECT_EQ(SentTo(u"a"), (Clients{1, 2}));
  EXPECT_EQ(transport.now, 1950u);
  for (const TextView line : {u"b", u"c", u"d"}) EXPECT_EQ(SentTo(line), (Clients{2}));
  ApiReplyChannel(lines, listeners, 9, 1).Ok(u"pong");
  // It has looked at its messages once, and hangs again at the next line.
  transport.sent.clear();
  lines.OnAnswers(1);
  EXPECT_EQ(transport.now, 3950u);
  EXPECT_EQ(transport.asked, (Clients{1, 1}));
  transport.hung.clear();
  transport.onSend = [this](ClientWindow client, TextView line) {
    if (client == 1 && line == u"c") listeners.NotifyListeners(u"e");
  };
  lines.OnAnswers(1);
  std::erase_if(transport.sent, [](const auto& sent) { return sent.client == 2; });
  EXPECT_EQ(transport.sent,
            (std::vector<FakeTransport::Sent>{
                {1, 0, u"b"}, {1, 0, u"c"}, {1, 0, u"d"}, {1, 9, u"000 OK pong"}, {1, 0, u"e"}}));
  transport.onSend = nullptr;
  EXPECT_EQ(SentTo(u"f"), (Clients{1, 2}));
}

TEST_F(Events, WhatIsKeptForOneWhoHangsIsBoundedAndItLeavesWithItsWindow) {
  listeners.Register(1);
  transport.hung = {1};
  for (std::size_t i = 0; i < ClientLines::kMaxLines + 3; ++i)
    listeners.NotifyListeners(IntText(static_cast<int>(i)));
  EXPECT_TRUE(log.Holds(u"A client does not answer, and no more lines are kept for it"));
  EXPECT_TRUE(listeners.IsRegistered(1));
  transport.hung.clear();
  transport.sent.clear();
  lines.OnAnswers(1);
  EXPECT_EQ(transport.sent.size(), ClientLines::kMaxLines);
  EXPECT_EQ(transport.sent.back().line, IntText(static_cast<int>(ClientLines::kMaxLines)));
  EXPECT_TRUE(log.Holds(u"A client answers again; lines left out: 2"));

  transport.hung = {1};
  SentTo();
  for (int i = 0; i < 3; ++i) listeners.NotifyListeners(Text(ClientLines::kMaxUnits / 2, u'x'));
  transport.gone = {1};
  EXPECT_EQ(SentTo(), Clients());
  EXPECT_FALSE(listeners.IsRegistered(1));
  transport.gone.clear();
  lines.OnAnswers(1);
  EXPECT_EQ(transport.sent.size(), 0u);
}

TEST_F(Events, ListenersMayComeAndGoFromInsideAnEvent) {
  for (const ClientWindow client : {1u, 2u, 3u}) listeners.Register(client);
  transport.onSend = [this](ClientWindow client, TextView) {
    if (client != 1) return;
    listeners.Deregister(1);
    listeners.Deregister(2);
    for (ClientWindow more = 10; more < 40; ++more) listeners.Register(more);
  };
  EXPECT_EQ(SentTo(), (Clients{1, 3}));
  transport.onSend = nullptr;
  EXPECT_EQ(SentTo().size(), 31u);
}

TEST_F(Events, AnEventInsideAnEventReachesEveryoneOnce) {
  for (const ClientWindow client : {1u, 2u}) listeners.Register(client);
  transport.onSend = [this](ClientWindow client, TextView line) {
    if (client == 1 && line == u"outer") listeners.NotifyListeners(u"inner");
  };
  listeners.NotifyListeners(u"outer");
  Text order;
  for (const auto& sent : transport.sent)
    order.append(sent.line).append(IntText(static_cast<int>(sent.client))).push_back(u' ');
  EXPECT_EQ(order, u"outer1 inner1 inner2 outer2 ");
}

TEST_F(Events, RepliesCarryTheTagOfTheirCommand) {
  const ApiReplyChannel reply(lines, listeners, 0xFFFFFFFF, 5);
  reply.Ok(u"pong");
  reply.Value(u"");
  EXPECT_EQ(transport.sent,
            (std::vector<FakeTransport::Sent>{{5, 0xFFFFFFFF, u"000 OK pong"}, {5, 0xFFFFFFFF, u"001 "}}));
  EXPECT_TRUE(log.Holds(u"API sending: \"000 OK pong\""));
  ApiReplyChannel(lines, listeners, 1, 0).Ok(u"to nobody");
  EXPECT_EQ(transport.sent.size(), 2u);
}

}  // namespace
}  // namespace jotlets

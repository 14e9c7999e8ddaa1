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
  Listeners listeners{transport, log};
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

TEST_F(Events, AListenerThatHangsTwiceInARowIsDropped) {
  listeners.Register(1);
  listeners.Register(2);
  for (const bool hangs : {true, false, true, true}) {
    EXPECT_TRUE(listeners.IsRegistered(1));
    transport.hung = hangs ? std::set<ClientWindow>{1} : std::set<ClientWindow>{};
    EXPECT_EQ(SentTo(), (Clients{1, 2}));
  }
  EXPECT_EQ(SentTo(), (Clients{2}));
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
  const ApiReplyChannel reply(transport, listeners, log, 0xFFFFFFFF, 5);
  reply.Ok(u"pong");
  reply.Value(u"");
  EXPECT_EQ(transport.sent,
            (std::vector<FakeTransport::Sent>{{5, 0xFFFFFFFF, u"000 OK pong"}, {5, 0xFFFFFFFF, u"001 "}}));
  EXPECT_TRUE(log.Holds(u"API sending: \"000 OK pong\""));
  ApiReplyChannel(transport, listeners, log, 1, 0).Ok(u"to nobody");
  EXPECT_EQ(transport.sent.size(), 2u);
}

}  // namespace
}  // namespace jotlets

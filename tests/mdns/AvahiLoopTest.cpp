#include "mdns/AvahiLoop.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

// What the library hides, as this test has it.
struct AvahiClient {
  AvahiClientCallback OnState = nullptr;
  void* Listener = nullptr;
  int Error = 0;
};
struct AvahiWatch {};
struct AvahiSimplePoll {
  AvahiPoll Functions{};
  AvahiWatch Watch;
  int Watched = -1;
  AvahiWatchCallback OnWatched = nullptr;
  void* Watcher = nullptr;

  int Answer = 0; // of the turns to come
  int Turns = 0;
  bool IsToQuit = false;
};

namespace portico::mdns {
namespace {

AvahiSimplePoll poll; // there can be only one
AvahiClient client;

/// A library without a network.
AvahiLibrary Library() {
  AvahiLibrary avahi;
  avahi.SimplePollNew = [] {
    poll = {};
    poll.Functions.watch_new = [](const AvahiPoll*, int descriptor, AvahiWatchEvent, AvahiWatchCallback onEvent,
                                  void* self) {
      poll.Watched = descriptor;
      poll.OnWatched = onEvent;
      poll.Watcher = self;
      return &poll.Watch;
    };
    return &poll;
  };
  avahi.SimplePollFree = [](AvahiSimplePoll*) {};
  avahi.SimplePollGet = [](AvahiSimplePoll*) -> const AvahiPoll* { return &poll.Functions; };
  avahi.SimplePollIterate = [](AvahiSimplePoll*, int) {
    ++poll.Turns;
    return poll.IsToQuit ? 1 : poll.Answer;
  };
  avahi.SimplePollQuit = [](AvahiSimplePoll*) { poll.IsToQuit = true; };
  avahi.ClientNew = [](const AvahiPoll*, AvahiClientFlags, AvahiClientCallback onState, void* listener, int*) {
    client = {onState, listener, 0};
    onState(&client, AVAHI_CLIENT_S_RUNNING, listener);
    return &client;
  };
  avahi.ClientFree = [](AvahiClient*) {};
  avahi.ClientErrno = [](AvahiClient*) { return client.Error; };
  return avahi;
}

class AvahiLoopTest : public testing::Test {
protected:
  const AvahiLibrary Avahi = Library();
  system::Cancellation Order;
  AvahiLoop Loop{Avahi, Order};
};

TEST_F(AvahiLoopTest, EndsWithoutAnErrorAtTheOrder) {
  ASSERT_EQ(poll.Watched, Order.Descriptor());
  poll.OnWatched(&poll.Watch, poll.Watched, AVAHI_WATCH_IN, poll.Watcher);
  EXPECT_EQ(Loop.Run(), 0);
}

TEST_F(AvahiLoopTest, EndsWithAnErrorWhenItCannotWait) {
  poll.Answer = -1;
  EXPECT_EQ(Loop.Run(), AVAHI_ERR_OS);
  EXPECT_EQ(poll.Turns, 1);
}

TEST_F(AvahiLoopTest, EndsWithTheErrorOfAConnectionThatHasFailed) {
  std::vector<AvahiClientState> states;
  ASSERT_EQ(Loop.Connect({}, [&](AvahiClient&, AvahiClientState state) { states.push_back(state); }), 0);
  client.Error = AVAHI_ERR_DISCONNECTED;
  client.OnState(&client, AVAHI_CLIENT_FAILURE, client.Listener);
  EXPECT_EQ(Loop.Run(), AVAHI_ERR_DISCONNECTED);
  EXPECT_EQ(states, (std::vector{AVAHI_CLIENT_S_RUNNING, AVAHI_CLIENT_FAILURE}));
}

TEST_F(AvahiLoopTest, ThrowsWhatAHandlerHasThrown) {
  ASSERT_EQ(Loop.Connect({}, [](AvahiClient&, AvahiClientState) { throw std::runtime_error("no"); }), 0);
  EXPECT_THROW(Loop.Run(), std::runtime_error);
}

} // namespace
} // namespace portico::mdns

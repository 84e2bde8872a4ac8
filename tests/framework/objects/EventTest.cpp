#include "framework/objects/Event.h"

#include <gmock/gmock.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace portico {
namespace {

using ::testing::ElementsAre;

TEST(Event, WithoutHandlersFiringDoesNothing) { EXPECT_NO_THROW(Event<int>()(1)); }

TEST(Event, HandlersRunInTheOrderOfTheirConnection) {
  Event<int> event;
  std::vector<int> calls;
  event.Connect([&](int value) { calls.push_back(10 + value); });
  event.Connect([&](int value) { calls.push_back(20 + value); });
  event(1);
  EXPECT_THAT(calls, ElementsAre(11, 21));
}

TEST(Event, ArgumentsByReferenceReachEveryHandler) {
  Event<std::string&> event;
  event.Connect([](std::string& text) { text += 'a'; });
  event.Connect([](std::string& text) { text += 'b'; });
  std::string text;
  event(text);
  EXPECT_EQ(text, "ab");
}

TEST(Event, ADisconnectedHandlerIsNotCalled) {
  Event<> event;
  int calls = 0;
  const auto connection = event.Connect([&] { ++calls; });
  event.Disconnect(connection);
  event.Disconnect(connection);
  event();
  EXPECT_EQ(calls, 0);
}

TEST(Event, ConnectionsKeepTheirNamesWhenAnEarlierOneGoes) {
  Event<> event;
  std::vector<int> calls;
  const auto first = event.Connect([&] { calls.push_back(1); });
  const auto second = event.Connect([&] { calls.push_back(2); });
  event.Connect([&] { calls.push_back(3); });
  event.Disconnect(first);
  event.Disconnect(second);
  event();
  EXPECT_THAT(calls, ElementsAre(3));
}

TEST(Event, AHandlerMayDisconnectItself) {
  Event<> event;
  std::vector<int> calls;
  Event<>::Connection self = 0;
  self = event.Connect([&] {
    event.Disconnect(self);
    calls.push_back(1); // what it has captured is still there
  });
  event.Connect([&] { calls.push_back(2); });
  event();
  event();
  EXPECT_THAT(calls, ElementsAre(1, 2, 2));
}

TEST(Event, AHandlerDisconnectedDuringFiringIsNotCalledAnyMore) {
  Event<> event;
  std::vector<int> calls;
  Event<>::Connection later = 0;
  event.Connect([&] {
    calls.push_back(1);
    event.Disconnect(later);
  });
  later = event.Connect([&] { calls.push_back(2); });
  event.Connect([&] { calls.push_back(3); });
  event();
  EXPECT_THAT(calls, ElementsAre(1, 3));
}

TEST(Event, AHandlerConnectedDuringFiringIsCalledAtTheNext) {
  Event<> event;
  std::vector<int> calls;
  bool connected = false;
  event.Connect([&] {
    calls.push_back(1);
    if (!std::exchange(connected, true)) event.Connect([&] { calls.push_back(2); });
  });
  event();
  EXPECT_THAT(calls, ElementsAre(1));
  event();
  EXPECT_THAT(calls, ElementsAre(1, 1, 2));
}

TEST(Event, FiringsNest) {
  Event<int> event;
  std::vector<int> calls;
  event.Connect([&](int depth) {
    calls.push_back(depth);
    if (depth < 3) event(depth + 1);
  });
  event.Connect([&](int depth) { calls.push_back(-depth); });
  event(1);
  EXPECT_THAT(calls, ElementsAre(1, 2, 3, -3, -2, -1));
}

TEST(Event, ADisconnectionInANestedFiringHoldsInTheOuterOne) {
  Event<int> event;
  std::vector<int> calls;
  Event<int>::Connection last = 0;
  event.Connect([&](int depth) {
    if (depth == 1) {
      event(2);
    } else {
      event.Disconnect(last);
    }
  });
  event.Connect([&](int depth) { calls.push_back(depth); });
  last = event.Connect([&](int depth) { calls.push_back(100 + depth); });
  event(1);
  EXPECT_THAT(calls, ElementsAre(2, 1));
}

TEST(Event, AHandlerMayLetTheOwnerGo) {
  auto event = std::make_unique<Event<>>();
  int calls = 0;
  event->Connect([&] {
    ++calls;
    event.reset();
  });
  event->Connect([&] { ++calls; });
  (*event)();
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(event, nullptr);
}

TEST(Event, AHandlerThatThrowsStopsTheFiringAndNothingElse) {
  Event<> event;
  int calls = 0;
  const auto thrower = event.Connect([] { throw std::runtime_error("refused"); });
  event.Connect([&] { ++calls; });
  EXPECT_THROW(event(), std::runtime_error);
  EXPECT_EQ(calls, 0);
  event.Disconnect(thrower);
  event();
  EXPECT_EQ(calls, 1);
}

TEST(Event, ADisconnectedHandlerIsReleased) {
  Event<> event;
  auto held = std::make_shared<int>(1);
  const auto connection = event.Connect([held] {});
  EXPECT_EQ(held.use_count(), 2);
  event.Disconnect(connection);
  EXPECT_EQ(held.use_count(), 1);
}

TEST(Event, TellsWhetherItHasAHandler) {
  Event<> event;
  EXPECT_FALSE(event.IsConnected());
  const auto first = event.Connect([] {});
  const auto second = event.Connect([] {});
  event.Disconnect(first);
  EXPECT_TRUE(event.IsConnected());
  event.Disconnect(second);
  EXPECT_FALSE(event.IsConnected());
}

TEST(Event, HandlerThatDisconnectsItselfIsNoneAtOnce) {
  Event<> event;
  Event<>::Connection connection = 0;
  bool connected = true;
  connection = event.Connect([&] {
    event.Disconnect(connection);
    connected = event.IsConnected();
  });
  event();
  EXPECT_FALSE(connected);
}

} // namespace
} // namespace portico

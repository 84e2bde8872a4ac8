#pragma once

#include "drivers/MockObserver.h"
#include "drivers/session/InstrumentSession.h"
#include "support/doubles/ManualClock.h"
#include "support/doubles/ScriptedTransport.h"

#include <chrono>
#include <gmock/gmock.h>
#include <memory>
#include <string>

namespace portico::test {

/// An open session over a transport that does what the test lays down.
class SessionFixture : public testing::Test {
protected:
  static constexpr auto Timeout = std::chrono::milliseconds(700);

  void SetUp() override { ASSERT_TRUE(session.Open().Succeeded()); }

  drivers::DriverResult Read(std::size_t size = 16) {
    buffer.assign(size, '~');
    return session.Read(buffer, count);
  }

  ManualClock clock;
  system::Cancellation cancellation;
  testing::StrictMock<MockObserver> observer;
  ScriptedTransport::Record transport;
  drivers::InstrumentSession session{drivers::ResourceName(drivers::SocketAddress{0, "bench", 5025}),
                                     std::make_unique<ScriptedTransport>(transport),
                                     {clock, Timeout, &observer, &cancellation}};
  std::string buffer;
  std::int32_t count = -1;
};

} // namespace portico::test

#pragma once

#include "channel/CDriverSession.h"
#include "channel/FakeDriver.h"
#include "framework/errors/HuntERR.h"
#include "support/Labels.h"

#include <gmock/gmock.h>

#include <memory>

namespace portico::test {

using Calls = std::vector<std::string>;

inline constexpr std::int32_t BufferSize = 1048576;

/// A session over a driver that answers as it is told.
class DriverSessionTest : public ::testing::Test {
protected:
  DriverSessionTest() {
    gInstrumentDriver = Driver;
    Session = New<CDriverSession>();
  }
  ~DriverSessionTest() override {
    Session = nullptr;
    gInstrumentDriver = nullptr;
    HuntERR::Reset();
  }

  /// Opens and forgets the call.
  void Open() {
    Session->OpenChannel(u"GPIB0::7");
    Driver->Calls.clear();
  }

  /// The text is followed by a zero byte, as the driver's contract has it.
  static std::string Terminated(const std::string& text) { return text + '\0'; }

  static void ExpectSuccess(const Ref<IResponse>& response, StringView data) {
    EXPECT_EQ(response->ErrorCode(), 0);
    EXPECT_EQ(response->ErrorMessage(), u"Success");
    EXPECT_EQ(response->ResponseData(), data);
  }
  static void ExpectFailure(const Ref<IResponse>& response, std::int32_t code, StringView message) {
    EXPECT_EQ(response->ErrorCode(), code);
    EXPECT_EQ(response->ErrorMessage(), message);
    EXPECT_EQ(response->ResponseData(), message);
  }

  std::shared_ptr<FakeDriver> Driver = std::make_shared<FakeDriver>();
  Ref<CDriverSession> Session;
};

} // namespace portico::test

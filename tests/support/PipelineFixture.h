#pragma once

#include "application/Startup.h"
#include "channel/IChannel.h"
#include "configuration/CConfigurationClient.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IMainWindow.h"
#include "memory/EventLoop.h"
#include "memory/HeadlessWindow.h"
#include "memory/SettingsStore.h"
#include "support/InstructionErrors.h"
#include "support/PipelineDriver.h"

#include <gtest/gtest.h>

namespace portico::support {

/// The platform in memory, on a clock that stands still, with a driver that writes down its calls.
class PlatformFixture : public ::testing::Test {
protected:
  void SetUp() override {
    HuntERR::Reset();
    gInstrumentDriver = Driver;
    gEventLoop = Loop;
    gSettingsStore = std::make_shared<memory::SettingsStore>();
    const auto window = New<memory::HeadlessWindow>();
    gMainForm = window;
    gScratchArea = window;
  }
  void TearDown() override {
    modAppGlobals::ReleaseObjectFactory();
    modAppGlobals::ReleaseMainForm();
    gSettingsStore.reset();
    gEventLoop.reset();
    gInstrumentDriver.reset();
    HuntERR::Reset();
  }

  Journal Calls;
  memory::ManualClock Clock;
  std::shared_ptr<memory::EventLoop> Loop = std::make_shared<memory::EventLoop>(Clock);
  std::shared_ptr<PipelineDriver> Driver = std::make_shared<PipelineDriver>(Calls);
};

/// The whole factory on that platform, the window's view of the configuration, and a subscriber to all reports.
class PipelineFixture : public PlatformFixture {
protected:
  void SetUp() override {
    PlatformFixture::SetUp();
    modAppGlobals::CreateObjectFactory();
    gConfiguration = New<CConfigurationClient>();
    Create<IPublisher>(u"CmdSubscriptionAgent")->Subscribe(Subscriber);
  }
  void TearDown() override {
    gConfiguration = nullptr;
    PlatformFixture::TearDown();
  }

  /// A working item, as the protocol's options would set it.
  void Set(const String& item, const String& value) { gConfiguration->ItemValue(item, value); }
  /// All of the protocol's four options off.
  void SetAllOff() {
    for (const auto* item : {u"IntervalPacing", u"OPCPacing", u"AutoReadAfterQueryMode", u"AutoErrorCheckingMode"}) {
      Set(item, u"Off");
    }
  }

  std::int32_t Send(const Ref<CInstContainer>& instruction) {
    return Create<IInstProcessor>(u"InstructionProcessor")->Send(instruction);
  }
  std::int32_t SendLine(const String& line) { return Send(MakeInstruction(u"SCPI", u"Send", {{u"Data", line}})); }

  Ref<PipelineSubscriber> Subscriber = New<PipelineSubscriber>(Calls);
};

} // namespace portico::support

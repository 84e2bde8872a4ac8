#pragma once

#include "application/Startup.h"
#include "configuration/CConfigurationClient.h"
#include "memory/EventLoop.h"
#include "memory/RichTextBox.h"
#include "memory/SettingsStore.h"
#include "terminal/BatchRun.h"

#include "support/fixtures/FrameworkTest.h"
#include "terminal/RecordingDriver.h"

#include <sstream>

namespace portico::test {

/// The whole system on a driver that records, in time that stands still.
class BatchRunBench : public FrameworkTest {
protected:
  /// Another driver takes the place of `Driver`.
  explicit BatchRunBench(const std::shared_ptr<IInstrumentDriver>& driver = nullptr) {
    gEventLoop = Loop;
    gSettingsStore = std::make_shared<memory::SettingsStore>();
    gInstrumentDriver = driver ? driver : Driver;
    gMainForm = Window;
    gScratchArea = Window;
    gXMLParserAvailable = true;
    modAppGlobals::CreateObjectFactory();
    gConfiguration = New<CConfigurationClient>();
    Options.Instrument = u"the instrument";
  }
  ~BatchRunBench() override {
    gConfiguration = nullptr;
    modAppGlobals::ReleaseObjectFactory();
    modAppGlobals::ReleaseMainForm();
    gInstrumentDriver = nullptr;
    gSettingsStore = nullptr;
    gEventLoop = nullptr;
  }

  using Sources = std::vector<std::unique_ptr<terminal::LineSource>>;

  int RunSources(const Sources& sources) {
    terminal::BatchRun run(Options, Window, Interrupts, News, Out, Err);
    return static_cast<int>(run.Run(sources));
  }
  int Run(std::vector<String> lines) {
    Sources sources;
    sources.push_back(std::make_unique<terminal::FileLines>("lines.cmd", std::move(lines)));
    return RunSources(sources);
  }

  void TurnOff(std::initializer_list<const char16_t*> options) {
    for (const char16_t* option : options) Options.Options.emplace_back(option, u"Off");
  }
  /// Lines go out alone.
  void TurnOffPacingAndChecking() { TurnOff({u"SCPIProtocolOPCPacing", u"SCPIProtocolAutoErrorChecking"}); }

  using Calls = std::vector<std::string>;

  memory::ManualClock Clock;
  const std::shared_ptr<memory::EventLoop> Loop = std::make_shared<memory::EventLoop>(Clock);
  const terminal::Interrupts Interrupts{[this] { Loop->RequestQuit(); }};
  const Ref<memory::RichTextBox> Future = New<memory::RichTextBox>();
  const Ref<memory::RichTextBox> Past = New<memory::RichTextBox>();
  const Ref<terminal::TerminalWindow> Window = New<terminal::TerminalWindow>(Future, Past, New<memory::RichTextBox>(),
                                                                             [this] { return Interrupts.Requested(); });
  const std::shared_ptr<RecordingDriver> Driver = std::make_shared<RecordingDriver>();
  terminal::DriverNews News;
  terminal::RunOptions Options;
  std::ostringstream Out;
  std::ostringstream Err;
};

} // namespace portico::test

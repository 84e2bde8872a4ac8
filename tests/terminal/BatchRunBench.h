#pragma once

#include "application/Startup.h"
#include "configuration/CConfigurationClient.h"
#include "memory/EventLoop.h"
#include "memory/RichTextBox.h"
#include "memory/SettingsStore.h"
#include "terminal/BatchRun.h"

#include "support/doubles/ManualClock.h"
#include "support/fixtures/FrameworkTest.h"
#include "terminal/ListedAnswers.h"

#include <sstream>

namespace portico::test {

/// The whole system on a driver that records, in time that stands still.
class BatchRunBench : public FrameworkTest {
protected:
  BatchRunBench();
  ~BatchRunBench() override;

  using Sources = std::vector<std::unique_ptr<terminal::LineSource>>;

  int RunSources(const Sources& sources);
  int Run(std::vector<String> lines);

  void TurnOff(std::initializer_list<const char16_t*> options);
  /// Lines go out alone.
  void TurnOffPacingAndChecking();

  using Calls = std::vector<std::string>;

  ManualClock Clock;
  const std::shared_ptr<memory::EventLoop> Loop = std::make_shared<memory::EventLoop>(Clock);
  const terminal::Interrupts Interrupts{[this] { Loop->RequestQuit(); }, [this] { Clock.Wake(); }};
  const Ref<memory::RichTextBox> Future = New<memory::RichTextBox>();
  const Ref<memory::RichTextBox> Past = New<memory::RichTextBox>();
  const Ref<terminal::TerminalWindow> Window = New<terminal::TerminalWindow>(Future, Past, New<memory::RichTextBox>(),
                                                                             [this] { return Interrupts.Requested(); });
  Journal Wire;
  const std::shared_ptr<DriverDouble> Driver = std::make_shared<DriverDouble>(Wire);
  ListedAnswers Answers;
  terminal::DriverNews News;
  terminal::RunOptions Options;
  std::ostringstream Out;
  std::ostringstream Err;
};

} // namespace portico::test

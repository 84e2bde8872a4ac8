#include "terminal/BatchRunBench.h"

namespace portico::test {

BatchRunBench::BatchRunBench() {
  Answers.Attach(*Driver);
  gEventLoop = Loop;
  gSettingsStore = std::make_shared<memory::SettingsStore>();
  gInstrumentDriver = Driver;
  gMainForm = Window;
  gScratchArea = Window;
  gXMLParserAvailable = true;
  modAppGlobals::CreateObjectFactory();
  gConfiguration = New<CConfigurationClient>();
  Options.Instrument = u"the instrument";
}

BatchRunBench::~BatchRunBench() {
  gConfiguration = nullptr;
  modAppGlobals::ReleaseObjectFactory();
  modAppGlobals::ReleaseMainForm();
  gInstrumentDriver = nullptr;
  gSettingsStore = nullptr;
  gEventLoop = nullptr;
}

int BatchRunBench::RunSources(const Sources& sources) {
  terminal::BatchRun run(Options, Window, Interrupts, News, Out, Err, [this] { return Clock.Now(); });
  return static_cast<int>(run.Run(sources));
}

int BatchRunBench::Run(std::vector<String> lines) {
  Sources sources;
  sources.push_back(std::make_unique<terminal::FileLines>("lines.cmd", std::move(lines)));
  return RunSources(sources);
}

void BatchRunBench::TurnOff(std::initializer_list<const char16_t*> options) {
  for (const char16_t* option : options) Options.Options.emplace_back(option, u"Off");
}

void BatchRunBench::TurnOffPacingAndChecking() {
  TurnOff({u"SCPIProtocolOPCPacing", u"SCPIProtocolAutoErrorChecking"});
}

} // namespace portico::test

// Stands between a program and an instrument. Only wires: the work is done in src/.

#include "application/HostEnvironment.h"
#include "document/log/CMockTimeStampServer.h"
#include "framework/errors/HuntERR.h"
#include "framework/text/Printable.h"
#include "server/SocketServer.h"
#include "system/Cancellation.h"
#include "system/FileSizeLimit.h"
#include "tap/TapOptions.h"
#include "tap/TapProtocols.h"
#include "terminal/console/Diagnostic.h"
#include "terminal/console/Interrupts.h"
#include "terminal/console/StandardStreams.h"

#include <csignal>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <system_error>

namespace {

using namespace portico;
using namespace portico::tap;

constexpr int UsageStatus = 2;
constexpr int InternalStatus = 5;

/// In one piece, since conversations with instruments have threads of their own.
void Tell(const std::string& text) { std::cerr << Diagnostic("portico-tap", text) + "\n" << std::flush; }

int Fail(const std::string& text) {
  Tell(text);
  return UsageStatus;
}

/// The log, or why there is none. Null if none is wanted.
std::variant<Ref<CXMLDataStore>, std::string> OpenLog(const TapOptions& options) try {
  if (options.LogFile.empty()) return Ref<CXMLDataStore>();
  auto log = New<CXMLDataStore>();
  log->Initialize(options.LogFile, options.Overwrite);
  return log;
} catch (...) {
  StopHere(u"OpenLog(options)");
  return "cannot log to " + ToUtf8(options.LogFile) + ": " + terminal::WhatFailed();
}

int Serve(const TapOptions& options) {
  system::Cancellation cancellation;
  server::SocketServer server;
  const terminal::Interrupts interrupts([] {},
                                        [&] {
                                          cancellation.Request();
                                          server.Stop();
                                        });
  static HostEnvironment environment; // error reports are read to the very end
  HuntERR::SetEnvironment(&environment);
  gTimeStamper = New<CMockTimeStampServer>();
  const auto log = OpenLog(options);
  if (const auto* reason = std::get_if<std::string>(&log)) return Fail(*reason);
  Recorder recorder(
      {std::get<Ref<CXMLDataStore>>(log), options.Show ? &std::cout : nullptr, terminal::IsOutputShown(), Tell});
  const auto line = MakeLine(options.Instrument, options.Client, {server, options.Timeout, &cancellation, Tell});
  Place place(*line, recorder);
  const auto [name, option, help] = Protocols[static_cast<std::size_t>(options.Client)];
  try {
    server.Listen({options.Address, options.Port, MakeFactory(options.Instrument, options.Client, place)});
  } catch (const std::invalid_argument& error) {
    return Fail(error.what());
  } catch (const std::system_error& error) {
    return Fail(std::string(error.what()) + "; give another " + option + ", 0 for a free one, or another --bind");
  }
  std::cout << "listening on " << server.Endpoint() << (*name == 0 ? "" : " ") << name << std::endl;
  std::signal(SIGPIPE, SIG_IGN); // who watches may go, and the conversation goes on
  server.Run();
  recorder.Finish();
  if (!std::cout.flush()) Tell("standard output cannot be written");
  if (recorder.IsIncomplete()) Tell("the log is incomplete");
  return std::cout && !recorder.IsIncomplete() ? 0 : InternalStatus;
}

} // namespace

int main(int argc, char** argv) try {
  terminal::HoldClosedStandardStreams();
  portico::system::SurviveFileSizeLimit();
  const auto request = ParseTapOptions(argc, argv);
  if (const auto* help = std::get_if<HelpText>(&request)) {
    std::cout << help->Text << std::flush;
    return 0;
  }
  if (const auto* error = std::get_if<UsageError>(&request)) return Fail(error->Text);
  return Serve(std::get<TapOptions>(request));
} catch (const std::exception& error) {
  std::cerr << "portico-tap: internal error\n" << error.what() << std::endl;
  return InternalStatus;
}

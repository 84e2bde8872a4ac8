#include "logtool/LogTool.h"

#include "logtool/LogDiff.h"
#include "logtool/Outputs.h"
#include "logtool/Spool.h"

#include <cerrno>

namespace portico::logtool {
namespace {

void Print(const ToolOptions& options, const Streams& streams, ExitStatus& status) {
  const auto output = MakeOutput(options, streams.Out);
  for (const std::string& name : options.Files) {
    output->BeginFile(name);
    const std::string fault = ReadLog(name, *output, streams);
    output->EndFile();
    if (fault.empty()) continue;
    TellFault(name, fault, streams);
    status = ExitStatus::Damaged;
  }
  output->End();
}

void Compare(const ToolOptions& options, const Streams& streams, ExitStatus& status) {
  LogDiff diff(options.Tolerance);
  for (const std::string& name : options.Files) {
    diff.BeginFile(name);
    const std::string fault = ReadLog(name, diff, streams);
    if (fault.empty()) continue;
    TellFault(name, fault, streams);
    status = ExitStatus::Unreadable;
  }
  if (diff.Print(streams.Out) && status == ExitStatus::Success) status = ExitStatus::Different;
}

} // namespace

ExitStatus Run(const ToolOptions& options, const Streams& streams) {
  const bool compares = options.Wanted == Output::Differences;
  const auto failure = compares ? ExitStatus::Unreadable : ExitStatus::Damaged;
  auto status = ExitStatus::Success;
  int outputFault = 0;
  try {
    (compares ? Compare : Print)(options, streams, status);
    if (!streams.Out.flush()) outputFault = errno;
  } catch (const OutputEnded& ended) {
    outputFault = ended.Number;
  } catch (const Spool::Failed&) {
    streams.Err << Diagnostic("a temporary file cannot be written") << std::endl;
    status = failure;
  }
  if (!streams.Out) {
    if (outputFault == EPIPE) return status; // whoever reads has seen enough
    streams.Err << Diagnostic("the output cannot be written") << std::endl;
    status = failure;
  }
  return status;
}

} // namespace portico::logtool

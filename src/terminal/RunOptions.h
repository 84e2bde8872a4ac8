#pragma once

#include "commandline/CommandLine.h"
#include "framework/text/text.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace portico::terminal {

using commandline::HelpText;
using commandline::UsageError;

/// A measurement in place of a run.
struct BenchOptions {
  std::size_t Queries = 0;
  String Query;
  std::string CsvFile; ///< the path for the samples; empty for none
};

/// An answer of any size that goes to a file at the end of the run.
struct GetOptions {
  String Query;
  std::string File; ///< its path
};

/// A run that is repeated.
struct RepeatOptions {
  /// Without a number for ever.
  std::optional<std::uint64_t> Turns;
  /// From the start of a turn to that of the next; 0 to begin it at once.
  std::chrono::milliseconds Every{0};
};

/// What the command line of `portico-run` asks for, checked.
struct RunOptions {
  String Instrument;
  /// Paths; "-" is standard input. Empty only where an answer is all that is wanted.
  std::vector<std::string> Files;
  String Protocol = u"SCPI";
  /// Persisted options of that protocol with the values to write.
  std::vector<std::pair<String, String>> Options;
  /// With the protocol Other: read after each instruction that is a query.
  bool ReadAfterQuery = false;
  int TimeoutMilliseconds = 5000;
  /// Not a run: the instruments that can be found are listed. Then there is no instrument.
  bool List = false;
  int ListMilliseconds = 3000;
  bool StopOnError = false;
  bool Quiet = false;
  /// Print at the end what the queries took.
  bool Timing = false;
  /// The XML log; empty for none.
  String LogFile;
  /// Begin the log anew.
  bool Overwrite = false;
  std::optional<BenchOptions> Bench;
  std::optional<RepeatOptions> Repeat;
  std::optional<GetOptions> Get;
  /// Not an option of the command line: it follows from what the standard streams are.
  bool ShowProgress = false;
  /// Likewise: the conversation is shown on a terminal.
  bool ToTerminal = false;
};

std::variant<RunOptions, HelpText, UsageError> ParseRunOptions(int argc, const char* const* argv);

} // namespace portico::terminal

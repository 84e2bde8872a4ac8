#include "terminal/RunOptions.h"

#include "configuration/Options.h"
#include "framework/shared/Application.h"
#include "platform/IEventLoop.h"
#include "platform/IExtendedDriver.h"
#include "platform/Termination.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <optional>

namespace portico::terminal {
namespace {

constexpr int MostQueries = 1'000'000;
constexpr int MostTurns = 1'000'000'000;
constexpr double ShortestEvery = 0.001; // seconds
constexpr double LongestEvery = 1'000'000;

std::optional<int> ReadWhole(std::string_view text) {
  int number = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (fault != std::errc{} || end != text.data() + text.size()) return {};
  return number;
}

/// What would be right, for an option value that is not; empty if it is.
std::string Complaint(ItemType type, const std::string& value) {
  const auto oneOf = [&](std::initializer_list<std::string_view> allowed, const char* complaint) {
    return std::find(allowed.begin(), allowed.end(), value) != allowed.end() ? "" : complaint;
  };
  switch (type) {
  case ItemType::Switch:
    return oneOf({"On", "Off"}, "use On or Off");
  case ItemType::Termination:
    return std::any_of(Terminations.begin(), Terminations.end(),
                       [&](const auto& known) { return ToUtf8(known.Name) == value; })
               ? ""
               : "use Auto, CR, LF, CRLF or LFCR";
  case ItemType::Interval: {
    const auto interval = ReadWhole(value);
    return interval && *interval >= 1 && *interval <= LongestInterval ? "" : "use 1 to 65535 milliseconds";
  }
  case ItemType::Command: {
    const Utf8Text text = FromUtf8(value);
    const bool sendable = !text.BadByte && !FindOutsideCodePage(text.Text) &&
                          text.Text.find_first_of(StringView(u"\0\r\n", 3)) == String::npos;
    return sendable ? "" : "use characters of the instrument's code page on one line";
  }
  default: // the protocol
    break;
  }
  return "use --protocol";
}

std::string NamesOf(StringView protocol) {
  std::string names;
  for (const PersistedOption& option : PersistedOptions()) {
    if (option.Key.Name.substr(0, protocol.size()) != protocol) continue;
    names += (names.empty() ? "" : ", ") + ToUtf8(option.Key.Name);
  }
  return names;
}

/// Appends the option, or says what is wrong with it.
std::optional<UsageError> AddOption(RunOptions& options, const std::string& text) {
  const auto equals = text.find('=');
  if (equals == std::string::npos) return UsageError{"--option " + text + ": use NAME=VALUE"};
  const std::string name = text.substr(0, equals);
  const std::string value = text.substr(equals + 1);
  const String prefix = options.Protocol + u"Protocol";
  const String wanted = FromUtf8(name).Text;
  const auto known = PersistedOptions();
  const auto found = std::find_if(known.begin(), known.end(), [&](const PersistedOption& option) {
    return option.Key.Name == wanted && option.Key.Name.substr(0, prefix.size()) == prefix;
  });
  if (found == known.end()) {
    return UsageError{"--option " + name + ": the protocol " + ToUtf8(options.Protocol) +
                      " has no such option; it has " + NamesOf(prefix)};
  }
  if (const std::string complaint = Complaint(found->Key.Type, value); !complaint.empty()) {
    return UsageError{"--option " + name + ": '" + value + "' is not a value of it; " + complaint};
  }
  options.Options.emplace_back(wanted, FromUtf8(value).Text);
  return {};
}

/// Sets what is to be measured, or says what is wrong with it.
std::optional<UsageError> AddBench(RunOptions& options, const std::pair<std::string, std::string>& numberAndQuery,
                                   const std::string& csv) {
  const auto& [count, query] = numberAndQuery;
  const auto number = ReadWhole(count);
  if (!number || *number < 1 || *number > MostQueries) {
    return UsageError{"--bench " + count + ": use 1 to 1000000 queries"};
  }
  if (const std::string complaint = Complaint(ItemType::Command, query); !complaint.empty()) {
    return UsageError{"--bench: '" + query + "' cannot be sent; " + complaint};
  }
  options.Bench = {static_cast<std::size_t>(*number), FromUtf8(query).Text, csv};
  return {};
}

/// Sets which answer is wanted, or says what is wrong with it.
std::optional<UsageError> AddGet(RunOptions& options, const std::pair<std::string, std::string>& queryAndFile) {
  const auto& [query, file] = queryAndFile;
  if (const std::string complaint = Complaint(ItemType::Command, query); !complaint.empty()) {
    return UsageError{"--get: '" + query + "' cannot be sent; " + complaint};
  }
  if (file.empty() || file == "-") return UsageError{"--get: '" + file + "' is no file; name one, or /dev/stdout"};
  options.Get = {FromUtf8(query).Text, file};
  return {};
}

/// Sets how the run is repeated, or says what is wrong with that.
std::optional<UsageError> AddRepeat(RunOptions& options, const std::string& turns,
                                    const std::optional<std::string>& every) {
  RepeatOptions repeat;
  if (turns != "forever") {
    const auto number = ReadWhole(turns);
    if (!number || *number < 1 || *number > MostTurns) {
      return UsageError{"--repeat " + turns + ": use 1 to 1000000000 turns, or forever"};
    }
    repeat.Turns = static_cast<std::uint64_t>(*number);
  }
  if (every) {
    double seconds = 0;
    const char* const end = every->data() + every->size();
    const auto [behind, fault] = std::from_chars(every->data(), end, seconds, std::chars_format::fixed);
    if (fault != std::errc{} || behind != end || !(seconds >= ShortestEvery && seconds <= LongestEvery)) {
      return UsageError{"--every " + *every + ": use 0.001 to 1000000 seconds"};
    }
    repeat.Every = std::chrono::round<std::chrono::milliseconds>(std::chrono::duration<double>(seconds));
  }
  options.Repeat = repeat;
  return {};
}

} // namespace

std::variant<RunOptions, HelpText, UsageError> ParseRunOptions(int argc, const char* const* argv) {
  RunOptions options;
  std::string instrument;
  std::string protocol = "SCPI";
  std::string timeout = "5000";
  std::string listTime = "3000";
  std::string log;
  std::vector<std::string> settings;
  std::pair<std::string, std::string> bench;
  std::string benchCsv;
  std::string turns;
  std::string every;
  std::pair<std::string, std::string> get;

  CLI::App app("Runs SCPI command files, or standard input, on an instrument and prints the conversation.",
               "portico-run");
  app.set_version_flag("--version", "portico-run " + ToUtf8(ApplicationVersion()), "Print the version and end");
  auto* instrumentOption = app.add_option(
      "INSTRUMENT", instrument, "Instrument name, such as TCPIP::192.168.1.5::5025::SOCKET or SIM::dmm::INSTR");
  instrumentOption->required();
  auto* files = app.add_option("FILE", options.Files, "Command files; - or none is standard input");
  auto* protocolOption = app.add_option("--protocol", protocol, "SCPI or Other");
  protocolOption->type_name("NAME")->capture_default_str();
  auto* settingOption = app.add_option("--option", settings,
                                       "A persisted option of the protocol, e.g. SCPIProtocolOPCPacing=Off; repeatable")
                            ->type_name("NAME=VALUE")
                            ->allow_extra_args(false);
  auto* readOption =
      app.add_flag("--read-after-query", options.ReadAfterQuery, "With --protocol Other: read after each query");
  auto* logOption = app.add_option("--log", log, "Log the conversation to an XML file; an existing log is extended");
  logOption->type_name("FILE");
  app.add_flag("--overwrite", options.Overwrite, "Begin the log anew")->needs(logOption);
  app.add_option("--timeout", timeout, "The driver's time-out for one operation")
      ->type_name("MS")
      ->capture_default_str();
  auto* stopOption = app.add_flag("--stop-on-error", options.StopOnError,
                                  "End at the first error that the error query reports, or the first driver failure");
  auto* repeatOption = app.add_option("--repeat", turns, "Run all command files N times over, or forever");
  repeatOption->type_name("N");
  auto* everyOption = app.add_option("--every", every, "With --repeat: the time from one start to the next");
  everyOption->type_name("SECONDS")->needs(repeatOption);
  auto* getOption = app.add_option("--get", get,
                                   "Behind the command files, if there are any: ask a query, and write its answer, of "
                                   "any size, to a file; of a block its bytes");
  getOption->type_name("QUERY FILE")->excludes(repeatOption);
  auto* quietOption = app.add_flag("--quiet", options.Quiet, "No conversation on standard output");
  auto* timingOption = app.add_flag("--timing", options.Timing,
                                    "Print on standard error, at the end, what each query took in the driver");
  auto* benchOption =
      app.add_option("--bench", bench, "Run no commands: ask a query N times and print what one takes in the driver");
  benchOption->type_name("N QUERY");
  app.add_option("--bench-csv", benchCsv, "Write what each query took to a file")
      ->type_name("FILE")
      ->needs(benchOption);
  auto* list = app.add_flag_callback(
      "--list",
      [&] {
        options.List = true;
        instrumentOption->required(false);
      },
      "Print the instruments that can be found, a name a line, and what they say of themselves behind a tab");
  list->trigger_on_parse()
      ->excludes(instrumentOption)
      ->excludes(timingOption)
      ->excludes(repeatOption)
      ->excludes(getOption);
  app.add_option("--list-time", listTime, "How long --list waits for answers")
      ->type_name("MS")
      ->capture_default_str()
      ->needs(list);
  if (const auto ending = commandline::Parse(app, argc, argv)) {
    return std::visit([](const auto& text) { return std::variant<RunOptions, HelpText, UsageError>(text); }, *ending);
  }

  const auto listMilliseconds = ReadWhole(listTime);
  if (!listMilliseconds || *listMilliseconds < 1 || *listMilliseconds > LongestInterval) {
    return UsageError{"--list-time " + listTime + ": use 1 to 65535 milliseconds"};
  }
  options.ListMilliseconds = *listMilliseconds;
  if (options.List) return options;

  const Utf8Text name = FromUtf8(instrument);
  if (name.BadByte || Trim(name.Text).empty() || FindOutsideCodePage(name.Text)) {
    return UsageError{"'" + instrument + "' is no instrument name; use one such as TCPIP::HOST::5025::SOCKET"};
  }
  options.Instrument = name.Text;
  if (logOption->count() > 0) {
    const Utf8Text file = FromUtf8(log);
    if (file.BadByte || file.Text.empty()) return UsageError{"--log '" + log + "': name a file in UTF-8"};
    options.LogFile = file.Text;
  }
  if (protocol != "SCPI" && protocol != "Other") {
    return UsageError{"--protocol " + protocol + ": use SCPI or Other"};
  }
  options.Protocol = FromAscii(protocol);
  const auto milliseconds = ReadWhole(timeout);
  if (!milliseconds || *milliseconds < ShortestTimeout || *milliseconds > LongestTimeout) {
    return UsageError{"--timeout " + timeout + ": use 1 to 3600000 milliseconds"};
  }
  options.TimeoutMilliseconds = *milliseconds;
  for (const std::string& setting : settings) {
    if (auto error = AddOption(options, setting)) return *error;
  }
  if (benchOption->count() > 0) {
    for (const CLI::Option* other : {files, protocolOption, settingOption, readOption, logOption, stopOption,
                                     repeatOption, getOption, quietOption, timingOption}) {
      if (other->count() > 0) return UsageError{"--bench runs no commands; leave out " + other->get_name()};
    }
    if (auto error = AddBench(options, bench, benchCsv)) return *error;
  }
  if (repeatOption->count() > 0) {
    if (auto error = AddRepeat(options, turns, everyOption->count() > 0 ? std::optional(every) : std::nullopt)) {
      return *error;
    }
  }
  if (options.ReadAfterQuery && options.Protocol != ItemText::Other) {
    return UsageError{"--read-after-query: the protocol SCPI reads after queries by its option "
                      "SCPIProtocolAutoReadAfterQuery; use --protocol Other"};
  }
  if (getOption->count() > 0) {
    if (auto error = AddGet(options, get)) return *error;
  }
  if (options.Files.empty() && !options.Get) options.Files.emplace_back("-");
  return options;
}

} // namespace portico::terminal

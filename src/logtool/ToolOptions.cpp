#include "logtool/ToolOptions.h"

#include "framework/shared/Application.h"

#include <CLI/CLI.hpp>

#include <map>

namespace portico::logtool {

std::variant<ToolOptions, HelpText, UsageError> ParseToolOptions(int argc, const char* const* argv) {
  ToolOptions options;
  std::string format;
  std::string file;
  std::string query;

  CLI::App app("Reads logs of conversations with instruments.", "portico-log");
  app.set_version_flag("--version", "portico-log " + ToUtf8(ApplicationVersion()), "Print the version and end");
  app.require_subcommand(1);
  const auto command = [&](const char* name, const char* does) {
    CLI::App* sub = app.add_subcommand(name, does);
    sub->add_option("FILE", options.Files, "Logs; - is standard input")->required();
    return sub;
  };
  command("show", "Print the conversation as text");
  CLI::App* exporting = command("export", "Print the conversation for other programs");
  exporting->add_option("--format", format, "csv, json, or cmd: the typed instructions as a command file")
      ->type_name("FORMAT")
      ->required();
  CLI::App* counting = command("stats", "Print counts, durations and error answers");
  CLI::App* finding = command("errors", "Print the errors that the instrument reported, and those of the driver");
  CLI::App* tabling = app.add_subcommand("table", "Print the answers to a query as a table of numbers");
  tabling->add_option("FILE", file, "The log; - is standard input")->required();
  tabling->add_option("QUERY", query, "The query, as it was sent")->required();
  CLI::App* comparing = app.add_subcommand("diff", "Print what two conversations asked and answered differently");
  comparing->add_option("FILE", options.Files, "The two logs; - is standard input")->required()->expected(2);
  comparing->add_option("--tolerance", options.Tolerance, "By what part of the larger numbers may differ")
      ->type_name("RATIO")
      ->check(CLI::NonNegativeNumber);
  CLI::App* cutting = app.add_subcommand("cut", "Print a part of a log, as a log");
  cutting->add_option("FILE", file, "The log; - is standard input")->required();
  const auto takesSession = [&options](CLI::App* sub) {
    sub->add_option("--session", options.Selection.Session, "The number of the session that is wanted, from 1")
        ->type_name("N")
        ->check(CLI::PositiveNumber);
  };
  takesSession(cutting);
  cutting->add_option("--from", options.Selection.From, "The first time that is wanted, as in 2004-11-01T16:42")
      ->type_name("TIME");
  cutting->add_option("--to", options.Selection.To, "The last time that is wanted")->type_name("TIME");
  CLI::App* merging = command("merge", "Print several logs as one");
  CLI::App* writing = app.add_subcommand("blocks", "Write the binary blocks of the answers to files");
  writing->add_option("FILE", file, "The log; - is standard input")->required();
  writing->add_option("--to", options.Folder, "The folder of the files, which is made if there is none")
      ->type_name("DIR")
      ->required();
  takesSession(writing);
  if (const auto ending = commandline::Parse(app, argc, argv)) {
    return std::visit([](const auto& text) { return std::variant<ToolOptions, HelpText, UsageError>(text); }, *ending);
  }

  if (counting->parsed()) options.Wanted = Output::Statistics;
  if (finding->parsed()) options.Wanted = Output::Errors;
  if (comparing->parsed()) options.Wanted = Output::Differences;
  if (tabling->parsed()) {
    options.Wanted = Output::Table;
    options.Files = {file};
    options.Query = FromUtf8(query).Text;
  }
  if (cutting->parsed()) {
    options.Wanted = Output::Part;
    options.Files = {file};
    for (const std::string& time : {options.Selection.From, options.Selection.To}) {
      if (!time.empty() && !IsTime(time)) return UsageError{time + ": use a time as in 2004-11-01T16:42:09"};
    }
  }
  if (writing->parsed()) {
    options.Wanted = Output::Blocks;
    options.Files = {file};
  }
  if (merging->parsed()) options.Wanted = Output::Merged;
  if (exporting->parsed()) {
    const std::map<std::string, Output> formats = {
        {"csv", Output::Csv}, {"json", Output::Json}, {"cmd", Output::Commands}};
    const auto found = formats.find(format);
    if (found == formats.end()) return UsageError{"--format " + format + ": use csv, json or cmd"};
    options.Wanted = found->second;
  }
  return options;
}

} // namespace portico::logtool

#include "terminal/RunOptions.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace portico::terminal {
namespace {

using Request = std::variant<RunOptions, HelpText, UsageError>;

Request Parse(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "portico-run");
  std::vector<const char*> argv;
  argv.reserve(arguments.size());
  for (const std::string& argument : arguments) argv.push_back(argument.c_str());
  return ParseRunOptions(static_cast<int>(argv.size()), argv.data());
}

RunOptions OptionsOf(const std::vector<std::string>& arguments) {
  const Request request = Parse(arguments);
  if (const auto* error = std::get_if<UsageError>(&request)) ADD_FAILURE() << error->Text;
  const auto* options = std::get_if<RunOptions>(&request);
  return options != nullptr ? *options : RunOptions();
}

std::string ErrorOf(const std::vector<std::string>& arguments) {
  const Request request = Parse(arguments);
  const auto* error = std::get_if<UsageError>(&request);
  return error != nullptr ? error->Text : "(none)";
}

std::string HelpOf(const std::vector<std::string>& arguments) {
  const Request request = Parse(arguments);
  const auto* help = std::get_if<HelpText>(&request);
  return help != nullptr ? help->Text : "(none)";
}

using Written = std::vector<std::pair<String, String>>;

constexpr char SimulatedMeter[] = "SIM::dmm::INSTR";

TEST(RunOptions, DefaultsNeedNoMoreThanAnInstrument) {
  const RunOptions options = OptionsOf({SimulatedMeter});
  EXPECT_EQ(options.Instrument, u"SIM::dmm::INSTR");
  EXPECT_EQ(options.Files, std::vector<std::string>{"-"});
  EXPECT_EQ(options.Protocol, u"SCPI");
  EXPECT_TRUE(options.Options.empty());
  EXPECT_EQ(options.TimeoutMilliseconds, 5000);
  EXPECT_FALSE(options.StopOnError);
  EXPECT_FALSE(options.Quiet);
}

TEST(RunOptions, FilesKeepTheirOrder) {
  EXPECT_EQ(OptionsOf({SimulatedMeter, "b.cmd", "-", "a.cmd"}).Files,
            (std::vector<std::string>{"b.cmd", "-", "a.cmd"}));
}

TEST(RunOptions, ABenchIsANumberAndAQueryWhereverItStands) {
  EXPECT_FALSE(OptionsOf({SimulatedMeter}).Bench);
  const RunOptions options = OptionsOf({"--bench", "50", "*IDN?", SimulatedMeter, "--bench-csv", "s.csv"});
  ASSERT_TRUE(options.Bench);
  EXPECT_EQ(options.Instrument, u"SIM::dmm::INSTR");
  EXPECT_EQ(options.Bench->Queries, 50U);
  EXPECT_EQ(options.Bench->Query, u"*IDN?");
  EXPECT_EQ(options.Bench->CsvFile, "s.csv");
  EXPECT_TRUE(OptionsOf({SimulatedMeter, "--bench", "50", "*IDN?"}).Bench);
}

TEST(RunOptions, AnAnswerIsGotByAQueryForAFile) {
  EXPECT_FALSE(OptionsOf({SimulatedMeter}).Get);
  const RunOptions options = OptionsOf({"--get", "*IDN?", "a.bin", SimulatedMeter});
  ASSERT_TRUE(options.Get);
  EXPECT_EQ(options.Instrument, u"SIM::dmm::INSTR");
  EXPECT_EQ(options.Get->Query, u"*IDN?");
  EXPECT_EQ(options.Get->File, "a.bin");
  EXPECT_TRUE(options.Files.empty()) << "standard input is not waited for";
  EXPECT_EQ(OptionsOf({SimulatedMeter, "--get", "*IDN?", "a.bin"}).Files, std::vector<std::string>());
  EXPECT_EQ(OptionsOf({SimulatedMeter, "a.cmd", "-", "--get", "*IDN?", "a.bin"}).Files,
            (std::vector<std::string>{"a.cmd", "-"}));
}

TEST(RunOptions, WhatCannotBeGotIsToldWhatWouldBeRight) {
  EXPECT_EQ(ErrorOf({SimulatedMeter, "--get", "\xCE\x94?", "a.bin"}),
            "--get: '\xCE\x94?' cannot be sent; use characters of the instrument's code page on one line");
  for (const std::string file : {"", "-"}) {
    EXPECT_EQ(ErrorOf({SimulatedMeter, "--get", "Q?", file}),
              "--get: '" + file + "' is no file; name one, or /dev/stdout");
  }
  EXPECT_EQ(ErrorOf({SimulatedMeter, "--get", "Q?", "a.bin", "--bench", "3", "*IDN?"}),
            "--bench runs no commands; leave out --get");
  EXPECT_EQ(ErrorOf({SimulatedMeter, "--get", "Q?", "a.bin", "--repeat", "3"}),
            "--repeat excludes --get; see portico-run --help");
  EXPECT_EQ(ErrorOf({"--list", "--get", "Q?", "a.bin"}), "--get excludes --list; see portico-run --help");
}

TEST(RunOptions, LogIsOffUnlessAskedFor) {
  EXPECT_EQ(OptionsOf({"SIM::dmm::INSTR"}).LogFile, u"");
  const RunOptions options = OptionsOf({"--log", "\xC3\xA9tude.xml", "SIM::dmm::INSTR"});
  EXPECT_EQ(options.LogFile, u"\u00E9tude.xml");
  EXPECT_FALSE(options.Overwrite);
  EXPECT_TRUE(OptionsOf({"--log", "a.xml", "--overwrite", "SIM::dmm::INSTR"}).Overwrite);
}

TEST(RunOptions, LogNeedsAName) {
  EXPECT_EQ(ErrorOf({"--log", "", "SIM::dmm::INSTR"}), "--log '': name a file in UTF-8");
  EXPECT_EQ(ErrorOf({"--log", "\xFF.xml", "SIM::dmm::INSTR"}), "--log '\xFF.xml': name a file in UTF-8");
}

TEST(RunOptions, OverwritingWithoutALogIsAMistake) {
  EXPECT_EQ(ErrorOf({"--overwrite", "SIM::dmm::INSTR"}), "--overwrite requires --log; see portico-run --help");
}

TEST(RunOptions, FlagsMayStandAnywhere) {
  const RunOptions options = OptionsOf({"--quiet", SimulatedMeter, "a.cmd", "--stop-on-error"});
  EXPECT_TRUE(options.Quiet);
  EXPECT_TRUE(options.StopOnError);
  EXPECT_EQ(options.Files, std::vector<std::string>{"a.cmd"});
}

TEST(RunOptions, InstrumentNameIsUtf8) {
  EXPECT_EQ(OptionsOf({"TCPIP::m\xC3\xA4ss::5025::SOCKET"}).Instrument, u"TCPIP::m\u00E4ss::5025::SOCKET");
}

TEST(RunOptions, ProtocolIsOneOfTwo) {
  EXPECT_EQ(OptionsOf({SimulatedMeter, "--protocol", "SCPI"}).Protocol, u"SCPI");
  EXPECT_EQ(OptionsOf({SimulatedMeter, "--protocol=Other"}).Protocol, u"Other");
  EXPECT_EQ(ErrorOf({SimulatedMeter, "--protocol", "scpi"}), "--protocol scpi: use SCPI or Other");
}

TEST(RunOptions, ReadAfterQueryIsForTheOtherProtocol) {
  EXPECT_FALSE(OptionsOf({SimulatedMeter, "--protocol", "Other"}).ReadAfterQuery);
  EXPECT_TRUE(OptionsOf({SimulatedMeter, "--protocol", "Other", "--read-after-query"}).ReadAfterQuery);
  EXPECT_TRUE(OptionsOf({"--read-after-query", SimulatedMeter, "--protocol=Other"}).ReadAfterQuery);
  const std::string complaint = "--read-after-query: the protocol SCPI reads after queries by its option "
                                "SCPIProtocolAutoReadAfterQuery; use --protocol Other";
  EXPECT_EQ(ErrorOf({SimulatedMeter, "--read-after-query"}), complaint);
  EXPECT_EQ(ErrorOf({SimulatedMeter, "--read-after-query", "--protocol", "SCPI"}), complaint);
  EXPECT_EQ(ErrorOf({SimulatedMeter, "--read-after-query", "--bench", "3", "*IDN?"}),
            "--bench runs no commands; leave out --read-after-query");
}

TEST(RunOptions, TimesAreOnlyPrintedOnDemandAndOfARun) {
  EXPECT_FALSE(OptionsOf({SimulatedMeter}).Timing);
  EXPECT_TRUE(OptionsOf({SimulatedMeter, "--timing"}).Timing);
  EXPECT_EQ(ErrorOf({SimulatedMeter, "--timing", "--bench", "3", "*IDN?"}),
            "--bench runs no commands; leave out --timing");
  EXPECT_EQ(ErrorOf({"--list", "--timing"}), "--timing excludes --list; see portico-run --help");
}

TEST(RunOptions, ARunIsRepeatedSoManyTimesOrForEver) {
  using namespace std::chrono_literals;
  EXPECT_FALSE(OptionsOf({SimulatedMeter}).Repeat);
  const auto repeatOf = [](std::vector<std::string> arguments) {
    arguments.emplace_back(SimulatedMeter);
    return OptionsOf(arguments).Repeat.value_or(RepeatOptions{0, -1ms});
  };
  EXPECT_EQ(repeatOf({"--repeat", "3"}).Turns, 3U);
  EXPECT_EQ(repeatOf({"--repeat", "3"}).Every, 0ms);
  EXPECT_EQ(repeatOf({"--repeat", "1000000000"}).Turns, 1'000'000'000U);
  EXPECT_EQ(repeatOf({"--repeat", "forever"}).Turns, std::nullopt);
  EXPECT_EQ(repeatOf({"--every", "60", "--repeat", "forever"}).Every, 60s);
  EXPECT_EQ(repeatOf({"--repeat", "2", "--every", "0.001"}).Every, 1ms);
  EXPECT_EQ(repeatOf({"--repeat", "2", "--every", "2.5"}).Every, 2500ms);
  EXPECT_EQ(repeatOf({"--repeat", "2", "--every", "1000000"}).Every, 1'000'000s);
}

TEST(RunOptions, WhatIsNoRepetitionIsToldWhatWouldBeRight) {
  for (const std::string turns : {"0", "-1", "1000000001", "Forever", "2.5", "3 "}) {
    EXPECT_EQ(ErrorOf({SimulatedMeter, "--repeat=" + turns, "--every=1"}),
              "--repeat " + turns + ": use 1 to 1000000000 turns, or forever");
  }
  for (const std::string every : {"0", "0.0004", "-1", "1000001", "1e3", "inf", "nan", "1s", "0x1", " 1", "1,5"}) {
    EXPECT_EQ(ErrorOf({SimulatedMeter, "--repeat=3", "--every=" + every}),
              "--every " + every + ": use 0.001 to 1000000 seconds");
  }
  EXPECT_EQ(ErrorOf({SimulatedMeter, "--every", "1"}), "--every requires --repeat; see portico-run --help");
  EXPECT_EQ(ErrorOf({SimulatedMeter, "--repeat", "3", "--bench", "3", "*IDN?"}),
            "--bench runs no commands; leave out --repeat");
  EXPECT_EQ(ErrorOf({"--list", "--repeat", "3"}), "--repeat excludes --list; see portico-run --help");
}

TEST(RunOptions, TimeoutIsFromOneMillisecondToAnHour) {
  EXPECT_EQ(OptionsOf({SimulatedMeter, "--timeout", "1"}).TimeoutMilliseconds, 1);
  EXPECT_EQ(OptionsOf({SimulatedMeter, "--timeout=3600000"}).TimeoutMilliseconds, 3600000);
  for (const std::string value : {"0", "-5", "3600001", "99999999999999999999", "1.5", "1s", "0x10", "five", " 5"}) {
    EXPECT_EQ(ErrorOf({SimulatedMeter, "--timeout=" + value}),
              "--timeout " + value + ": use 1 to 3600000 milliseconds");
  }
}

TEST(RunOptions, EveryOptionOfTheProtocolIsTaken) {
  EXPECT_EQ(
      OptionsOf({SimulatedMeter, "--option", "SCPIProtocolOPCPacing=Off", "--option", "SCPIProtocolIntervalPacing=On",
                 "--option", "SCPIProtocolPacingInterval=65535", "--option", "SCPIProtocolAutoReadAfterQuery=Off",
                 "--option", "SCPIProtocolAutoErrorChecking=Off", "--option",
                 "SCPIProtocolErrorCheckingCommand=STAT:QUE?", "--option", "SCPIProtocolTerminationCharacter=LFCR"})
          .Options,
      (Written{{u"SCPIProtocolOPCPacing", u"Off"},
               {u"SCPIProtocolIntervalPacing", u"On"},
               {u"SCPIProtocolPacingInterval", u"65535"},
               {u"SCPIProtocolAutoReadAfterQuery", u"Off"},
               {u"SCPIProtocolAutoErrorChecking", u"Off"},
               {u"SCPIProtocolErrorCheckingCommand", u"STAT:QUE?"},
               {u"SCPIProtocolTerminationCharacter", u"LFCR"}}));
  EXPECT_EQ(OptionsOf({SimulatedMeter, "--protocol", "Other", "--option", "OtherProtocolIntervalPacing=On", "--option",
                       "OtherProtocolPacingInterval=1", "--option", "OtherProtocolTerminationCharacter=Auto"})
                .Options,
            (Written{{u"OtherProtocolIntervalPacing", u"On"},
                     {u"OtherProtocolPacingInterval", u"1"},
                     {u"OtherProtocolTerminationCharacter", u"Auto"}}));
}

TEST(RunOptions, EveryTerminationIsTaken) {
  for (const std::string value : {"Auto", "CR", "LF", "CRLF", "LFCR"}) {
    const auto options = OptionsOf({SimulatedMeter, "--option", "SCPIProtocolTerminationCharacter=" + value}).Options;
    EXPECT_EQ(options, (Written{{u"SCPIProtocolTerminationCharacter", FromAscii(value)}}));
  }
}

TEST(RunOptions, ProtocolOfTheOptionsMayFollowThem) {
  EXPECT_EQ(
      OptionsOf({SimulatedMeter, "--option", "OtherProtocolPacingInterval=7", "--protocol", "Other"}).Options.size(),
      1U);
}

TEST(RunOptions, ValueMayHoldAnEqualsSign) {
  EXPECT_EQ(OptionsOf({SimulatedMeter, "--option", "SCPIProtocolErrorCheckingCommand=A=B?"}).Options,
            (Written{{u"SCPIProtocolErrorCheckingCommand", u"A=B?"}}));
}

TEST(RunOptions, OneOptionTakesOneValue) {
  const RunOptions options = OptionsOf({"--option", "SCPIProtocolOPCPacing=Off", SimulatedMeter, "a.cmd"});
  EXPECT_EQ(options.Instrument, u"SIM::dmm::INSTR");
  EXPECT_EQ(options.Files, std::vector<std::string>{"a.cmd"});
}

struct BadOption {
  const char* Name;
  const char* Setting;
  const char* Message;
};

void PrintTo(const BadOption& option, std::ostream* out) { *out << option.Name; }

class BadOptionValue : public testing::TestWithParam<BadOption> {};

TEST_P(BadOptionValue, IsAUsageErrorThatSaysWhatWouldBeRight) {
  EXPECT_EQ(ErrorOf({SimulatedMeter, "--option", GetParam().Setting}), GetParam().Message);
}

INSTANTIATE_TEST_SUITE_P(
    RunOptions, BadOptionValue,
    testing::Values(
        BadOption{"SwitchInLowerCase", "SCPIProtocolOPCPacing=on",
                  "--option SCPIProtocolOPCPacing: 'on' is not a value of it; use On or Off"},
        BadOption{"SwitchAsNumber", "SCPIProtocolIntervalPacing=1",
                  "--option SCPIProtocolIntervalPacing: '1' is not a value of it; use On or Off"},
        BadOption{"SwitchEmpty", "SCPIProtocolAutoReadAfterQuery=",
                  "--option SCPIProtocolAutoReadAfterQuery: '' is not a value of it; use On or Off"},
        BadOption{"SwitchAsTrue", "SCPIProtocolAutoErrorChecking=True",
                  "--option SCPIProtocolAutoErrorChecking: 'True' is not a value of it; use On or Off"},
        BadOption{"IntervalZero", "SCPIProtocolPacingInterval=0",
                  "--option SCPIProtocolPacingInterval: '0' is not a value of it; use 1 to 65535 milliseconds"},
        BadOption{"IntervalNegative", "SCPIProtocolPacingInterval=-1",
                  "--option SCPIProtocolPacingInterval: '-1' is not a value of it; use 1 to 65535 milliseconds"},
        BadOption{"IntervalTooLong", "SCPIProtocolPacingInterval=65536",
                  "--option SCPIProtocolPacingInterval: '65536' is not a value of it; use 1 to 65535 milliseconds"},
        BadOption{"IntervalWithExponent", "SCPIProtocolPacingInterval=1e3",
                  "--option SCPIProtocolPacingInterval: '1e3' is not a value of it; use 1 to 65535 milliseconds"},
        BadOption{"IntervalEmpty", "SCPIProtocolPacingInterval=",
                  "--option SCPIProtocolPacingInterval: '' is not a value of it; use 1 to 65535 milliseconds"},
        BadOption{"TerminationInLowerCase", "SCPIProtocolTerminationCharacter=lf",
                  "--option SCPIProtocolTerminationCharacter: 'lf' is not a value of it; "
                  "use Auto, CR, LF, CRLF or LFCR"},
        BadOption{"CommandOfTwoLines", "SCPIProtocolErrorCheckingCommand=ERR?\n*RST",
                  "--option SCPIProtocolErrorCheckingCommand: 'ERR?\n*RST' is not a value of it; "
                  "use characters of the instrument's code page on one line"},
        BadOption{"CommandOutsideTheCodePage", "SCPIProtocolErrorCheckingCommand=\xCE\xA9?",
                  "--option SCPIProtocolErrorCheckingCommand: '\xCE\xA9?' is not a value of it; "
                  "use characters of the instrument's code page on one line"},
        BadOption{"CommandNotUtf8", "SCPIProtocolErrorCheckingCommand=\xFF",
                  "--option SCPIProtocolErrorCheckingCommand: '\xFF' is not a value of it; "
                  "use characters of the instrument's code page on one line"},
        BadOption{"NoEqualsSign", "SCPIProtocolOPCPacing", "--option SCPIProtocolOPCPacing: use NAME=VALUE"},
        BadOption{"Nothing", "", "--option : use NAME=VALUE"}),
    [](const auto& test) { return std::string(test.param.Name); });

constexpr char ScpiNames[] =
    "SCPIProtocolOPCPacing, SCPIProtocolIntervalPacing, SCPIProtocolPacingInterval, SCPIProtocolAutoReadAfterQuery, "
    "SCPIProtocolAutoErrorChecking, SCPIProtocolErrorCheckingCommand, SCPIProtocolTerminationCharacter";

TEST(RunOptions, UnknownOptionIsToldTheKnownOnes) {
  for (const std::string name :
       {"SCPIProtocolPacing", "scpiprotocolopcpacing", "OPCPacing", "ProtocolName", "", "OtherProtocolPacingInterval",
        "SCPIProtocolOPCPacing ", "SCPIProtocolOPCPacing\xFF", "SCPIProtocolOPCPacing\xFFjunk"}) {
    EXPECT_EQ(ErrorOf({SimulatedMeter, "--option", name + "=On"}),
              "--option " + name + ": the protocol SCPI has no such option; it has " + ScpiNames);
  }
}

TEST(RunOptions, OptionOfTheOtherProtocolIsUnknown) {
  EXPECT_EQ(ErrorOf({SimulatedMeter, "--protocol", "Other", "--option", "SCPIProtocolOPCPacing=On"}),
            "--option SCPIProtocolOPCPacing: the protocol Other has no such option; it has "
            "OtherProtocolIntervalPacing, OtherProtocolPacingInterval, OtherProtocolTerminationCharacter");
}

TEST(RunOptions, FirstBadOptionIsTold) {
  EXPECT_EQ(ErrorOf({SimulatedMeter, "--option", "SCPIProtocolOPCPacing=Off", "--option",
                     "SCPIProtocolPacingInterval=x", "--option", "nonsense"}),
            "--option SCPIProtocolPacingInterval: 'x' is not a value of it; use 1 to 65535 milliseconds");
}

TEST(RunOptions, InstrumentNameMustBeSendable) {
  EXPECT_EQ(ErrorOf({""}), "'' is no instrument name; use one such as TCPIP::HOST::5025::SOCKET");
  EXPECT_EQ(ErrorOf({"   "}), "'   ' is no instrument name; use one such as TCPIP::HOST::5025::SOCKET");
  EXPECT_EQ(ErrorOf({"SIM::\xFF::INSTR"}),
            "'SIM::\xFF::INSTR' is no instrument name; use one such as TCPIP::HOST::5025::SOCKET");
  EXPECT_EQ(ErrorOf({"SIM::\xCE\xA9::INSTR"}),
            "'SIM::\xCE\xA9::INSTR' is no instrument name; use one such as TCPIP::HOST::5025::SOCKET");
}

TEST(RunOptions, MistakenCommandLineIsToldInOneLineThatPointsToTheHelp) {
  const std::vector<std::vector<std::string>> mistakes = {
      {},
      {"--quiet"},
      {SimulatedMeter, "--bogus"},
      {SimulatedMeter, "--timeout"},
      {SimulatedMeter, "--option"},
      {SimulatedMeter, "--protocol"},
      {SimulatedMeter, "--protocol="},
      {SimulatedMeter, "--quiet=maybe"},
      {SimulatedMeter, "--timeout", "1", "--timeout", "2"},
      {SimulatedMeter, "-x"},
  };
  const std::string help = "; see portico-run --help";
  for (const auto& mistake : mistakes) {
    const std::string text = ErrorOf(mistake);
    EXPECT_TRUE(text.ends_with(help)) << text;
    EXPECT_GT(text.size(), help.size());
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 0) << text;
  }
}

TEST(RunOptions, MissingInstrumentIsNamed) { EXPECT_EQ(ErrorOf({}), "INSTRUMENT is required; see portico-run --help"); }

TEST(RunOptions, ListNeedsNoInstrument) {
  EXPECT_FALSE(OptionsOf({"SIM::dmm::INSTR"}).List);
  EXPECT_TRUE(OptionsOf({"--list"}).List);
  EXPECT_EQ(OptionsOf({"--list"}).ListMilliseconds, 3000);
  EXPECT_EQ(OptionsOf({"--list-time", "65535", "--list"}).ListMilliseconds, 65535);
  EXPECT_EQ(OptionsOf({"--list", "--list-time", "1"}).ListMilliseconds, 1);
}

TEST(RunOptions, ListTimeIsFromOneMillisecondToTheLongestInterval) {
  for (const char* const time : {"0", "-1", "65536", "3s", ""}) {
    EXPECT_EQ(ErrorOf({"--list", "--list-time", time}),
              std::string("--list-time ") + time + ": use 1 to 65535 milliseconds");
  }
}

TEST(RunOptions, ListGoesWithNoInstrumentAndItsTimeWithNothingElse) {
  EXPECT_EQ(ErrorOf({"--list", "SIM::dmm::INSTR"}), "INSTRUMENT excludes --list; see portico-run --help");
  EXPECT_EQ(ErrorOf({"--list-time", "5", "SIM::dmm::INSTR"}), "--list-time requires --list; see portico-run --help");
}

TEST(RunOptions, HelpNamesEveryOption) {
  const std::string help = HelpOf({"--help"});
  for (const char* const word : {"portico-run", "INSTRUMENT", "FILE", "--protocol", "--option", "--read-after-query",
                                 "--timeout", "--stop-on-error", "--quiet", "--timing", "--repeat", "--every", "--list",
                                 "--list-time", "--help", "--version", "NAME=VALUE", "5000"}) {
    EXPECT_NE(help.find(word), std::string::npos) << word;
  }
  EXPECT_EQ(help.back(), '\n');
}

TEST(RunOptions, VersionIsOneLine) { EXPECT_EQ(HelpOf({"--version"}), "portico-run 1.0.5\n"); }

TEST(RunOptions, HelpCountsBeforeAMissingInstrument) { EXPECT_NE(HelpOf({"--quiet", "--help"}), "(none)"); }

} // namespace
} // namespace portico::terminal

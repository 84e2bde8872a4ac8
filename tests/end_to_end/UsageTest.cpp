#include "end_to_end/Programs.h"

namespace portico::test {
namespace {

struct Mistake {
  const char* name;
  Arguments arguments;
  /// What the one line says.
  std::string says;
};

void PrintTo(const Mistake& mistake, std::ostream* out) { *out << mistake.name; }

class BadUsage : public testing::TestWithParam<Mistake> {};

TEST_P(BadUsage, IsOneLineOnStandardErrorAndStatus2) {
  const Outcome outcome = RunPortico(GetParam().arguments, "*CLS\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "portico-run: " + GetParam().says + "\n");
}

const std::string ScpiOptions =
    "SCPIProtocolOPCPacing, SCPIProtocolIntervalPacing, SCPIProtocolPacingInterval, SCPIProtocolAutoReadAfterQuery, "
    "SCPIProtocolAutoErrorChecking, SCPIProtocolErrorCheckingCommand, SCPIProtocolTerminationCharacter";

INSTANTIATE_TEST_SUITE_P(
    Usage, BadUsage,
    testing::Values(
        Mistake{"NoInstrument", {}, "INSTRUMENT is required; see portico-run --help"},
        Mistake{"UnknownOption",
                {SimulatedMeter, "--bogus"},
                "The following argument was not expected: --bogus; see portico-run --help"},
        Mistake{"EmptyInstrument", {""}, "'' is no instrument name; use one such as TCPIP::HOST::5025::SOCKET"},
        Mistake{"InstrumentNotUtf8",
                {"SIM::\xFF::INSTR"},
                "'SIM::\xFF::INSTR' is no instrument name; use one such as TCPIP::HOST::5025::SOCKET"},
        Mistake{"Protocol", {SimulatedMeter, "--protocol", "scpi"}, "--protocol scpi: use SCPI or Other"},
        Mistake{"TimeoutZero", {SimulatedMeter, "--timeout", "0"}, "--timeout 0: use 1 to 3600000 milliseconds"},
        Mistake{"TimeoutText", {SimulatedMeter, "--timeout", "5s"}, "--timeout 5s: use 1 to 3600000 milliseconds"},
        Mistake{"TimeoutTooLong",
                {SimulatedMeter, "--timeout", "3600001"},
                "--timeout 3600001: use 1 to 3600000 milliseconds"},
        Mistake{"OptionWithoutValue",
                {SimulatedMeter, "--option", "SCPIProtocolOPCPacing"},
                "--option SCPIProtocolOPCPacing: use NAME=VALUE"},
        Mistake{"OptionUnknown",
                {SimulatedMeter, "--option", "Pacing=On"},
                "--option Pacing: the protocol SCPI has no such option; it has " + ScpiOptions},
        Mistake{"OptionNameNotUtf8",
                {SimulatedMeter, "--option", "SCPIProtocolOPCPacing\xFFjunk=Off"},
                "--option SCPIProtocolOPCPacing\xFFjunk: the protocol SCPI has no such option; it has " + ScpiOptions},
        Mistake{"OptionValueNotUtf8",
                {SimulatedMeter, "--option", "SCPIProtocolErrorCheckingCommand=ERR?\xFF"},
                "--option SCPIProtocolErrorCheckingCommand: 'ERR?\xFF' is not a value of it; "
                "use characters of the instrument's code page on one line"},
        Mistake{"OptionOfTheOtherProtocol",
                {SimulatedMeter, "--option", "OtherProtocolPacingInterval=5"},
                "--option OtherProtocolPacingInterval: the protocol SCPI has no such option; it has " + ScpiOptions},
        Mistake{"OptionValue",
                {SimulatedMeter, "--option", "SCPIProtocolAutoErrorChecking=yes"},
                "--option SCPIProtocolAutoErrorChecking: 'yes' is not a value of it; use On or Off"},
        Mistake{"IntervalZero",
                {SimulatedMeter, "--option", "SCPIProtocolPacingInterval=0"},
                "--option SCPIProtocolPacingInterval: '0' is not a value of it; use 1 to 65535 milliseconds"},
        Mistake{"Termination",
                {SimulatedMeter, "--protocol", "Other", "--option", "OtherProtocolTerminationCharacter=NUL"},
                "--option OtherProtocolTerminationCharacter: 'NUL' is not a value of it; "
                "use Auto, CR, LF, CRLF or LFCR"},
        Mistake{"ReadAfterQueryWithScpi",
                {SimulatedMeter, "--read-after-query"},
                "--read-after-query: the protocol SCPI reads after queries by its option "
                "SCPIProtocolAutoReadAfterQuery; use --protocol Other"},
        Mistake{"NoTurn", {SimulatedMeter, "--repeat", "0"}, "--repeat 0: use 1 to 1000000000 turns, or forever"},
        Mistake{"TurnsTooSoon",
                {SimulatedMeter, "--repeat", "forever", "--every", "0"},
                "--every 0: use 0.001 to 1000000 seconds"},
        Mistake{"TurnsWithBench",
                {SimulatedMeter, "--repeat", "2", "--bench", "1", "*IDN?"},
                "--bench runs no commands; leave out --repeat"},
        Mistake{"BenchNumber", {SimulatedMeter, "--bench", "0", "*IDN?"}, "--bench 0: use 1 to 1000000 queries"},
        Mistake{"BenchTooMany",
                {SimulatedMeter, "--bench", "1000001", "*IDN?"},
                "--bench 1000001: use 1 to 1000000 queries"},
        Mistake{"BenchQuery",
                {SimulatedMeter, "--bench", "1", "*CLS\n"},
                "--bench: '*CLS?' cannot be sent; use characters of the instrument's code page on one line"},
        Mistake{"BenchWithFile",
                {SimulatedMeter, "--bench", "1", "*IDN?", "-"},
                "--bench runs no commands; leave out FILE"},
        Mistake{"BenchWithLog",
                {"--log", "x.log", "--bench", "1", "*IDN?", SimulatedMeter},
                "--bench runs no commands; leave out --log"},
        Mistake{"BenchFileAlone",
                {SimulatedMeter, "--bench-csv", "x.csv"},
                "--bench-csv requires --bench; see portico-run --help"},
        Mistake{"MissingFile",
                {SimulatedMeter, "/no/such/file.cmd"},
                "/no/such/file.cmd: cannot be opened: No such file or directory"},
        Mistake{"Directory", {SimulatedMeter, "/"}, "/: is a directory; name a command file"}),
    [](const auto& test) { return test.param.name; });

struct BadText {
  const char* name;
  std::string bytes;
  /// What is said behind the place.
  std::string says;
};

void PrintTo(const BadText& text, std::ostream* out) { *out << text.name; }

class BadCommandFile : public testing::TestWithParam<BadText> {};

TEST_P(BadCommandFile, IsRefusedWithItsPlaceBeforeAnythingIsSent) {
  const CommandFiles files;
  const std::string path = files.Add("bad.cmd", GetParam().bytes);
  const Outcome outcome = RunPortico({SimulatedMeter, path});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "portico-run: " + path + GetParam().says + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Usage, BadCommandFile,
    testing::Values(BadText{"NotUtf8", "*CLS\nDISP \"\xB5V\"\n", ":2:7: not UTF-8; save the file as UTF-8"},
                    BadText{"Utf16", {"\xFF\xFE*\0C\0", 6}, ":1:1: not UTF-8; save the file as UTF-8"},
                    BadText{"ZeroByte", {"*C\0S\n", 5}, ":1:3: a line cannot hold a zero character"},
                    BadText{"BareCarriageReturn", "*CLS\n*RST\r*CLS\n",
                            ":2:5: a carriage return without a line feed; end lines with CR LF or LF"},
                    BadText{"EndOfText", "*CLS\n\n \x1A\n", ":3:2: a line cannot begin with U+001A"},
                    BadText{"OutsideTheCodePage", "RES 5 k\xCE\xA9\n",
                            ":1:8: U+03A9 cannot be sent: the instrument's code page lacks it"}),
    [](const auto& test) { return test.param.name; });

struct BadName {
  const char* name;
  std::string instrument;
  std::string says;
};

void PrintTo(const BadName& name, std::ostream* out) { *out << name.name; }

class BadInstrumentName : public testing::TestWithParam<BadName> {};

TEST_P(BadInstrumentName, IsOneLineOnStandardErrorAndStatus3) {
  const Outcome outcome = RunPortico({GetParam().instrument}, "*CLS\n");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.out, "! " + GetParam().says + "\n");
  EXPECT_EQ(outcome.err, "portico-run: cannot open " + GetParam().instrument + ": " + GetParam().says + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Usage, BadInstrumentName,
    testing::Values(BadName{"PortWithoutSocket", "TCPIP::127.0.0.1::5025",
                            "The instrument name is not valid: a port needs the class SOCKET; "
                            "write TCPIP::127.0.0.1::5025::SOCKET."},
                    BadName{"PortTooHigh", "TCPIP::127.0.0.1::70000::SOCKET",
                            "The instrument name is not valid: the port \"70000\" is not a number from 1 to 65535."},
                    BadName{"NoInterface", "dmm",
                            "The instrument name is not valid: \"dmm\" is no interface; "
                            "write TCPIP::HOST::PORT::SOCKET or SIM::DEVICE::INSTR."},
                    BadName{"UnknownDevice", "SIM::toaster::INSTR",
                            "There is no such simulated instrument: toaster; write dmm, psu or scope."},
                    BadName{
                        "UnpluggedInstrument", "USB::1::2::SN1::INSTR",
                        "The connection could not be made: USB 0x0001::0x0002::SN1, no such instrument is connected; "
                        "check its cable and its name, and that it is switched on."}),
    [](const auto& test) { return test.param.name; });

TEST(Usage, HelpAndVersionGoToStandardOutput) {
  const Outcome help = RunPortico({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.err, "");
  EXPECT_NE(help.out.find("--stop-on-error"), std::string::npos);
  const Outcome version = RunPortico({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out, "portico-run 1.0.5\n");
}

} // namespace
} // namespace portico::test

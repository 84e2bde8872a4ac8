#include "end_to_end/RunLogs.h"
#include "support/doubles/ScriptedServer.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>

namespace portico::test {
namespace {

/// A terminal that programs can write to by its name.
class PseudoTerminal {
public:
  PseudoTerminal() : m_end(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    if (m_end < 0 || ::grantpt(m_end) != 0 || ::unlockpt(m_end) != 0) throw std::runtime_error("no pseudo-terminal");
  }
  ~PseudoTerminal() { ::close(m_end); }
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  std::string Name() const { return ::ptsname(m_end); }

  /// All that was shown, once no program has the terminal any more; there must have been one.
  std::string Shown() const {
    std::string text;
    std::array<char, 4096> bytes = {};
    for (ssize_t count = 0; (count = ::read(m_end, bytes.data(), bytes.size())) > 0;) {
      text.append(bytes.data(), static_cast<std::size_t>(count));
    }
    return text;
  }

private:
  int m_end;
};

/// The program with a terminal for some of its streams.
class OnATerminal : public testing::Test {
protected:
  /// Runs portico-run on the lines of a file, with the streams that a shell makes of `redirections`; $T is the
  /// terminal, $F a file.
  Outcome Run(const std::string& redirections, const Arguments& arguments, const std::string& input = {}) const {
    const std::string assignments = "T='" + Terminal.Name() + "' F='" + OutputFile() + "'; ";
    Process process(Arguments{"/bin/sh", "-c", assignments + "exec \"$0\" \"$@\" " + redirections, PORTICO_RUN} +
                    BareOptions + arguments);
    process.Write(input);
    return process.Wait();
  }
  std::string OutputFile() const { return Files.Folder() + "/output"; }

  const CommandFiles Files;
  const std::string Lines = Files.Add("lines.cmd", "*CLS\n*OPC?\n\nREM three\n*RST\n");
  const PseudoTerminal Terminal;
};

class ProgressLine : public OnATerminal {};

TEST_F(ProgressLine, StandsOnTheTerminalWhileTheConversationGoesElsewhere) {
  EXPECT_EQ(Run("2>\"$T\" >\"$F\"", {SimulatedMeter, Lines}).status, 0);
  const std::string shown = Terminal.Shown();
  EXPECT_EQ(shown.find("\r1 of 5 lines"), 0U) << shown;
  EXPECT_EQ(shown.find('\n'), std::string::npos) << shown;
  EXPECT_EQ(shown.substr(shown.rfind('\r')), "\r\x1B[K") << shown; // it is gone at the end
  EXPECT_EQ(BytesOf(OutputFile()), "> *CLS\n> *OPC?\n< 1\n# \n# REM three\n> *RST\n");
}

TEST_F(ProgressLine, KnowsNoTotalOfStandardInput) {
  EXPECT_EQ(Run("2>\"$T\" >\"$F\"", {SimulatedMeter}, "*CLS\n*RST\n").status, 0);
  const std::string shown = Terminal.Shown();
  EXPECT_EQ(shown.find("\r1 line"), 0U) << shown;
  EXPECT_EQ(shown.find(" of "), std::string::npos) << shown;
}

TEST_F(ProgressLine, GivesWayToAMessage) {
  const std::string bad = Files.Add("bad.cmd", "*CLS\nFOO\n*CLS\n");
  EXPECT_EQ(Run("2>\"$T\" >\"$F\"", {"--option", "SCPIProtocolAutoErrorChecking=On", SimulatedMeter, bad}).status, 1);
  const std::string shown = Terminal.Shown();
  EXPECT_NE(shown.find("\r\x1B[Kportico-run: " + bad + ":2: the instrument reports -113,\"Undefined header\"\r\n"),
            std::string::npos)
      << shown;
}

TEST_F(ProgressLine, IsMissingWhenTheConversationIsOnTheTerminalToo) {
  EXPECT_EQ(Run("2>\"$T\" >\"$T\"", {SimulatedMeter, Lines}).status, 0);
  EXPECT_EQ(Terminal.Shown(), "> *CLS\r\n> *OPC?\r\n< 1\r\n# \r\n# REM three\r\n> *RST\r\n");
}

TEST_F(ProgressLine, IsMissingWhenMessagesGoElsewhere) {
  EXPECT_EQ(Run("2>\"$F\" >\"$T\"", {SimulatedMeter, Lines}).status, 0);
  EXPECT_EQ(BytesOf(OutputFile()), "");
  EXPECT_EQ(CountOf(Terminal.Shown(), "lines"), 0);
}

TEST_F(ProgressLine, IsMissingWithoutATerminal) {
  const Outcome outcome = Run("", {SimulatedMeter, Lines});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
}

class ControlCharacters : public OnATerminal {
protected:
  /// Of an answer and of a remark: an escape sequence, a bell, a tab, and a control of the upper half.
  const ScriptedServer Instrument{{{"Q?", Reaction::Answer("\x1B[31mred\a\tend\x81.\n")}}};
  const std::string Remark = "REM \x1B]0;title\a\n";
};

TEST_F(ControlCharacters, AreQuestionMarksWhereTheyWouldSpoilTheTerminal) {
  EXPECT_EQ(Run(">\"$T\"", {Instrument.ResourceName()}, "Q?\n" + Remark).status, 0);
  EXPECT_EQ(Terminal.Shown(), "> Q?\r\n< ?[31mred?\tend?.\r\n# REM ?]0;title?\r\n");
}

TEST_F(ControlCharacters, AreAsTheyCameElsewhere) {
  EXPECT_EQ(Run(">\"$F\" 2>\"$T\"", {Instrument.ResourceName()}, "Q?\n" + Remark).status, 0);
  EXPECT_EQ(BytesOf(OutputFile()), "> Q?\n< \x1B[31mred\a\tend\xC2\x81.\n# " + Remark);
}

} // namespace
} // namespace portico::test

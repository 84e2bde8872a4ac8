#include "logtool/Logs.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <streambuf>

namespace portico::logtool {
namespace {

std::string Asked(const std::string& instruction, const std::string& answer) {
  return Element("Instruction", "01", instruction) + Element("Response", "02", answer);
}

class DiffTest : public testing::Test {
protected:
  /// The second log comes from standard input.
  Result Diff(const std::string& a, const std::string& b, std::optional<double> tolerance = {}) const {
    const std::string path = m_folder.At("a.log");
    test::WriteFile(path, a);
    auto result = RunOn({.Wanted = Output::Differences, .Files = {path, "-"}, .Tolerance = tolerance}, b);
    for (std::string* text : {&result.Out, &result.Err}) {
      for (auto place = text->find(path); place != std::string::npos; place = text->find(path))
        text->replace(place, path.size(), "a.log");
    }
    return result;
  }
  Result DiffOf(const std::string& a, const std::string& b) const { return Diff(Log(SessionOf(a)), Log(SessionOf(b))); }

private:
  test::TemporaryFolder m_folder;
};

TEST_F(DiffTest, TheSameConversationIsTheSame) {
  const auto result = DiffOf(Asked("*IDN?", "x\r\n"), Asked("*idn? ", "x"));
  EXPECT_EQ(result.Out, "");
  EXPECT_EQ(result.Err, "");
  EXPECT_EQ(result.Status, 0);
}

TEST_F(DiffTest, AnotherAnswerIsADifference) {
  const auto result = DiffOf(Asked("*RST", "") + Asked("MEAS?", "1.0"), Asked("*RST", "") + Asked("MEAS?", "1.1"));
  EXPECT_EQ(result.Out, "< a.log:3: MEAS? -> 1.0\n> standard input:3: MEAS? -> 1.1\n");
  EXPECT_EQ(result.Status, 1);
}

TEST_F(DiffTest, WhatOnlyOneAskedIsADifference) {
  const auto only = Asked("A?", "1") + Asked("B?", "2") + Asked("C?", "3");
  const auto without = Asked("A?", "1") + Asked("C?", "3");
  EXPECT_EQ(DiffOf(only, without).Out, "< a.log:3: B? -> 2\n");
  EXPECT_EQ(DiffOf(without, only).Out, "> standard input:3: B? -> 2\n");
  EXPECT_EQ(DiffOf(without, only).Status, 1);
  EXPECT_EQ(DiffOf(without, without + Element("Instruction", "05", "*RST")).Out, "> standard input:5: *RST\n");
}

TEST_F(DiffTest, AnAnswerThatIsMissingIsADifference) {
  EXPECT_EQ(DiffOf(Asked("A?", "1"), Element("Instruction", "01", "A?")).Out,
            "< a.log:1: A? -> 1\n> standard input:1: A?\n");
}

TEST_F(DiffTest, AnswersInFrontOfTheFirstInstructionCount) {
  EXPECT_EQ(DiffOf(Element("Response", "01", "1"), Element("Response", "01", "2")).Out,
            "< a.log:1:  -> 1\n> standard input:1:  -> 2\n");
}

TEST_F(DiffTest, SessionsStampsAndWhoSentItMakeNoDifference) {
  const auto result =
      Diff(Log(SessionOf(Asked("A?", "1")) + SessionOf(Asked("*OPC?", "1"))),
           Log(SessionOf(Asked("A?", "1") + Element("AutomaticInstruction", "44", "*OPC?") +
                         Element("Response", "45", "1") + Element("Configuration", "46", "<Parameters/>"))));
  EXPECT_EQ(result.Out, "");
  EXPECT_EQ(result.Status, 0);
}

TEST_F(DiffTest, AnswersOfSeveralPiecesAreComparedWhole) {
  const auto two = Asked("A?", "1") + Element("Response", "03", "2");
  EXPECT_EQ(DiffOf(two, two).Status, 0);
  EXPECT_EQ(DiffOf(two, Asked("A?", "1")).Out, "< a.log:1: A? -> 1?2\n> standard input:1: A? -> 1\n");
}

TEST_F(DiffTest, NumbersMayDifferByTheTolerance) {
  const auto a = Log(SessionOf(Asked("MEAS?", "+1.0000000E+00")));
  const auto b = Log(SessionOf(Asked("MEAS?", "+1.0000005E+00")));
  EXPECT_EQ(Diff(a, b, 1e-6).Status, 0);
  EXPECT_EQ(Diff(a, b, 1e-7).Status, 1);
  EXPECT_EQ(Diff(a, b).Status, 1);
}

TEST_F(DiffTest, OfALongAnswerIsShownWhereItDiffers) {
  const std::string same(200, 'x');
  const auto result = DiffOf(Asked("A?", same + "1" + same), Asked("A?", same + "2" + same));
  const std::string front = "..." + std::string(30, 'x');
  const std::string behind = std::string(69, 'x') + "...\n";
  EXPECT_EQ(result.Out,
            "< a.log:1: A? -> " + front + "1" + behind + "> standard input:1: A? -> " + front + "2" + behind);
}

TEST_F(DiffTest, ALogThatCannotBeReadIsNoDifference) {
  const auto result = Diff(Log(SessionOf(Asked("A?", "1"))), "no log");
  EXPECT_EQ(result.Err, "portico-log: standard input: line 1: syntax error\n");
  EXPECT_EQ(result.Status, 2);
  EXPECT_EQ(Diff("no log", Log("")).Status, 2);
  EXPECT_EQ(Diff("no log", "no log").Status, 2);
}

class FullDisk final : public std::streambuf {
protected:
  int_type overflow(int_type /*character*/) override {
    errno = ENOSPC;
    return traits_type::eof();
  }
};

TEST_F(DiffTest, OutputThatCannotBeWrittenIsNoDifference) {
  const test::TemporaryFolder folder;
  const std::string path = folder.At("a.log");
  test::WriteFile(path, Log(SessionOf(Asked("A?", "1"))));
  FullDisk buffer;
  std::ostream out(&buffer);
  std::istringstream in(Log(""));
  std::ostringstream err;
  EXPECT_EQ(logtool::Run({.Wanted = Output::Differences, .Files = {path, "-"}}, {in, out, err}),
            ExitStatus::Unreadable);
  EXPECT_EQ(err.str(), "portico-log: the output cannot be written\n");
}

} // namespace
} // namespace portico::logtool

#include "simulator/Session.h"

#include "simulator/status/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace portico::simulator {
namespace {

using test::Session;

struct Mistake {
  const char* message;
  const char* error;
};

class LanguageMistake : public testing::TestWithParam<Mistake> {};

TEST_P(LanguageMistake, IsRecordedOnceAndHarmsNothingElse) {
  Session session;
  session.Send(GetParam().message);
  EXPECT_EQ(session.Error(), GetParam().error);
  EXPECT_EQ(session.Error(), "0,\"No error\"");
  EXPECT_EQ(session.Ask("*ESE?"), "0");
}

INSTANTIATE_TEST_SUITE_P(Scpi, LanguageMistake,
                         testing::Values(Mistake{"DISP$ ON", "-101,\"Invalid character\""},
                                         Mistake{"*CLS;\xFF", "-101,\"Invalid character\""},
                                         Mistake{"VOLT::RANG 1", "-102,\"Syntax error\""},
                                         Mistake{"VOLT:RANG 1 2", "-103,\"Invalid separator\""},
                                         Mistake{"DISP ON,OFF", "-108,\"Parameter not allowed\""},
                                         Mistake{"SYST:ERR? 1", "-108,\"Parameter not allowed\""},
                                         Mistake{"VOLT:RANG", "-109,\"Missing parameter\""},
                                         Mistake{"*IDN?,", "-111,\"Header separator error\""},
                                         Mistake{"VOLTAGEVOLTAGE 1", "-112,\"Program mnemonic too long\""},
                                         Mistake{"SYSTE:ERR?", "-113,\"Undefined header\""},
                                         Mistake{"*XYZ", "-113,\"Undefined header\""},
                                         Mistake{"VOLT2:RANG 1", "-114,\"Header suffix out of range\""},
                                         Mistake{"VOLT:RANG 1.1.1", "-121,\"Invalid character in number\""},
                                         Mistake{"VOLT:RANG 1E99999", "-123,\"Exponent too large\""},
                                         Mistake{"DISP:TEXT 5", "-128,\"Numeric data not allowed\""},
                                         Mistake{"VOLT:RANG 1 S", "-131,\"Invalid suffix\""},
                                         Mistake{"VOLT:NPLC 1 S", "-138,\"Suffix not allowed\""},
                                         Mistake{"VOLT:RANG BIG", "-141,\"Invalid character data\""},
                                         Mistake{"DISP:TEXT HELLO", "-148,\"Character data not allowed\""},
                                         Mistake{"VOLT:RANG 'x'", "-158,\"String data not allowed\""},
                                         Mistake{"TRAC #1x", "-161,\"Invalid block data\""},
                                         Mistake{"VOLT:RANG #11x", "-168,\"Block data not allowed\""},
                                         Mistake{"VOLT:RANG (1", "-170,\"Expression error\""},
                                         Mistake{"VOLT:RANG (@1)", "-178,\"Expression data not allowed\""},
                                         Mistake{"VOLT:RANG 1E6", "-222,\"Data out of range\""},
                                         Mistake{"DISP MAYBE", "-224,\"Illegal parameter value\""}),
                         [](const auto& instance) { return "Number" + std::to_string(instance.index); });

/// Every answer of a script that is written in pieces of one size.
std::vector<std::string> Answers(std::string_view script, std::size_t pieceSize) {
  Session session;
  std::vector<std::string> answers;
  for (std::size_t at = 0; at < script.size(); at += pieceSize) session.SendRaw(script.substr(at, pieceSize));
  for (std::string answer = session.Await(); answer != "(none)"; answer = session.Await()) answers.push_back(answer);
  return answers;
}

TEST(Language, TheSizeOfThePiecesDoesNotMatter) {
  const std::string script = "*IDN?\nDISP:TEXT \"a;\"\"b\";TEXT?\nTRAC #212ab\ncd;ef,gh\n\nTRAC?;*ESE #H1F;*ESE?\r\n"
                             "BAD;*IDN?\nSYST:ERR?\nREAD?;READ?\nTRAC #0x;y\n:TRAC?\n";
  const auto whole = Answers(script, script.size());
  ASSERT_EQ(whole.size(), 6U);
  EXPECT_EQ(whole[1], "\"a;\"\"b\"");
  EXPECT_EQ(whole[2], "#212ab\ncd;ef,gh\n;31");
  EXPECT_EQ(whole[5], "#13x;y");
  for (std::size_t size = 1; size < script.size(); ++size) EXPECT_EQ(Answers(script, size), whole) << size;
}

TEST(Language, UnitsBeforeAFailingOneTakeEffectAndAnswer) {
  Session session;
  EXPECT_EQ(session.Ask("*ESE 5;*ESE?;BAD;*ESE 6"), "5");
  EXPECT_EQ(session.Ask("*ESE?"), "5");
  EXPECT_EQ(session.Error(), "-113,\"Undefined header\"");
}

TEST(Language, UnitsBehindAnExecutionErrorGoOn) {
  Session session;
  EXPECT_EQ(session.Ask("*ESE 5;*ESE 999;*ESE?"), "5");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
}

TEST(Language, ThePathFollowsTheHeaders) {
  Session session;
  EXPECT_EQ(session.Ask("SENS:VOLT:NPLC 10;RANG 1;*ESE 3;RANG?;NPLC?"), "+1.00000000E+00;+1.00000000E+01");
  EXPECT_EQ(session.Ask("STAT:OPER:ENAB 3;ENAB?;:STAT:QUES:ENAB 5;ENAB?"), "3;5");
}

TEST(Language, NoiseDoesNoHarm) {
  for (std::uint64_t seed = 1; seed <= 50; ++seed) {
    Random random(seed);
    Session session;
    std::string noise(500, '\0');
    constexpr std::string_view Likely = "*:;,?\"' \n019AVOLTRANGE";
    std::generate(noise.begin(), noise.end(), [&] { return Likely[random.Next() % Likely.size()]; });
    session.SendRaw(noise);
    session.SendRaw("\n");
    while (session.Await() != "(none)") {
    }
    EXPECT_NE(session.Ask("SYST:ERR:COUN?"), "0") << seed;
    EXPECT_TRUE(session.Ask("*CLS;*IDN?").starts_with("TOLVANE")) << seed;
  }
}

} // namespace
} // namespace portico::simulator

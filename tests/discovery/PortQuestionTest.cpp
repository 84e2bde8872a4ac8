#include "discovery/PortQuestion.h"

#include <gtest/gtest.h>

namespace portico::discovery {
namespace {

using namespace std::string_literals;

const std::string Accepted = "\x12\x34\x56\x78\0\0\0\1\0\0\0\0\0\0\0\0\0\0\0\0"s; // with an empty verifier
const std::string Success = "\0\0\0\0"s;
constexpr std::uint32_t Number = 0x12345678;

TEST(PortQuestionTest, AsksForTheCoreChannelOverTcp) {
  EXPECT_EQ(CoreChannelQuestion(Number), "\x12\x34\x56\x78\0\0\0\0\0\0\0\2"
                                         "\x00\x01\x86\xA0\0\0\0\2\0\0\0\3"
                                         "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                                         "\x00\x06\x07\xAF\0\0\0\1\0\0\0\6\0\0\0\0"s);
}

TEST(PortQuestionTest, PortTellsOfAnInstrument) {
  EXPECT_TRUE(TellsOfCoreChannel(Accepted + Success + "\0\0\4\0"s, Number));
  EXPECT_TRUE(TellsOfCoreChannel(Accepted + Success + "\0\0\xFF\xFF"s, Number));
}

TEST(PortQuestionTest, PortmapperWithoutVxi11IsNoInstrument) {
  EXPECT_FALSE(TellsOfCoreChannel(Accepted + Success + "\0\0\0\0"s, Number));
}

TEST(PortQuestionTest, AnswerToAnotherQuestionDoesNotCount) {
  EXPECT_FALSE(TellsOfCoreChannel(Accepted + Success + "\0\0\4\0"s, Number + 1));
}

TEST(PortQuestionTest, QuestionOfSomebodyElseIsNoAnswer) {
  EXPECT_FALSE(TellsOfCoreChannel(CoreChannelQuestion(Number), Number));
}

TEST(PortQuestionTest, RefusalIsNoInstrument) {
  EXPECT_FALSE(TellsOfCoreChannel(Accepted + "\0\0\0\1\0\0\4\0"s, Number)); // the program is unavailable
  EXPECT_FALSE(TellsOfCoreChannel("\x12\x34\x56\x78\0\0\0\1\0\0\0\1\0\0\0\1\0\0\0\1"s, Number)); // denied
}

TEST(PortQuestionTest, AnswerThatIsCutOffOrGarbledIsIgnored) {
  const std::string answer = Accepted + Success + "\0\0\4\0"s;
  for (std::size_t size = 0; size < answer.size(); ++size) {
    EXPECT_FALSE(TellsOfCoreChannel(answer.substr(0, size), Number)) << size;
  }
  EXPECT_FALSE(TellsOfCoreChannel(Accepted + Success + "\0\1\0\0"s, Number)); // no port is that high
  // A verifier that claims to be longer than any.
  EXPECT_FALSE(TellsOfCoreChannel("\x12\x34\x56\x78\0\0\0\1\0\0\0\0\0\0\0\0\xFF\xFF\xFF\xFF\0\0\0\0\0\0\4\0"s, Number));
}

} // namespace
} // namespace portico::discovery

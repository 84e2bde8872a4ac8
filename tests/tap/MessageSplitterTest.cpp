#include "tap/MessageSplitter.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

namespace portico::tap {
namespace {

using drivers::Marks;
using testing::ElementsAre;
using testing::IsEmpty;

/// Cuts at all places at once, or a byte at a time.
class MessageSplitterTest : public testing::TestWithParam<std::size_t> {
protected:
  template <typename Splitter>
  void Feed(Splitter& splitter, std::string_view bytes) {
    for (; !bytes.empty(); bytes.remove_prefix(std::min(GetParam(), bytes.size()))) {
      splitter.Feed(bytes.substr(0, GetParam()), Sink);
    }
  }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const Message& message : Messages) texts.push_back(message.Bytes);
    return texts;
  }
  std::vector<bool> Asked() const {
    std::vector<bool> asked;
    for (const Message& message : Messages) asked.push_back(message.Asks);
    return asked;
  }

  std::vector<Message> Messages;
  const MessageSink Sink = [this](Message&& message) { Messages.push_back(std::move(message)); };
  InstructionSplitter Instructions{1000};
  AnswerSplitter Answers{1000, Marks::None};
  AnswerSplitter MarkedAnswers{1000, Marks::Ends};
};

INSTANTIATE_TEST_SUITE_P(Pieces, MessageSplitterTest, testing::Values(1, 2, 3, 1000));

TEST_P(MessageSplitterTest, LineFeedEndsAnInstructionWithTheCarriageReturnBeforeIt) {
  Feed(Instructions, "*RST\nCONF:VOLT 5\r\n\n*CLS");
  EXPECT_THAT(Texts(), ElementsAre("*RST", "CONF:VOLT 5", ""));
}

TEST_P(MessageSplitterTest, LineFeedInADefiniteBlockEndsNoInstruction) {
  Feed(Instructions, "DATA #16a\n?\r\nb\n*RST\n");
  EXPECT_THAT(Texts(), ElementsAre("DATA #16a\n?\r\nb", "*RST"));
}

TEST_P(MessageSplitterTest, IndefiniteBlockEndsAtTheLineFeed) {
  Feed(Instructions, "DATA #0a;b\n*RST\n");
  EXPECT_THAT(Texts(), ElementsAre("DATA #0a;b", "*RST"));
}

TEST_P(MessageSplitterTest, QuestionMarkAsksOutsideQuotesAndBlocks) {
  Feed(Instructions, "*IDN?\nDISP \"what?\"\nDISP 'what''s?'\nDATA #14??\?\?\nDATA #0?\nDISP \"?\";*OPC?\n");
  EXPECT_THAT(Asked(), ElementsAre(true, false, false, false, false, true));
}

TEST_P(MessageSplitterTest, ProtocolEndsAnInstructionWithoutLineFeed) {
  Feed(Instructions, "*IDN?");
  Instructions.End(Sink);
  Feed(Instructions, "*RST\n");
  Instructions.End(Sink);
  Feed(Instructions, "DISP \"a");
  Instructions.End(Sink);
  Feed(Instructions, "*OPC?\n");
  EXPECT_THAT(Texts(), ElementsAre("*IDN?", "*RST", "DISP \"a", "*OPC?"));
}

TEST_P(MessageSplitterTest, AnswerEndsAtALineFeedOutsideBlocks) {
  Feed(Answers, "1\n2\r\n#15a\nb\r\n\n\"x\"\n");
  EXPECT_THAT(Texts(), ElementsAre("1", "2", "#15a\nb\r\n", "\"x\""));
}

TEST_P(MessageSplitterTest, AnswerThatBreaksOffIsHandedOnAsFarAsItCame) {
  Feed(Answers, "1\n#15ab");
  Answers.BreakOff(Sink);
  Feed(Answers, "2\n");
  EXPECT_THAT(Texts(), ElementsAre("1", "#15ab", "2"));
}

TEST_P(MessageSplitterTest, MarkAloneEndsAnAnswerWhereThereAreMarks) {
  Feed(MarkedAnswers, "1\n2\n");
  EXPECT_THAT(Texts(), IsEmpty());
  MarkedAnswers.Mark(Sink);
  MarkedAnswers.Mark(Sink);
  Feed(MarkedAnswers, "3");
  MarkedAnswers.Mark(Sink);
  EXPECT_THAT(Texts(), ElementsAre("1\n2", "", "3"));
}

TEST_P(MessageSplitterTest, OfATooLongMessageTheBeginningIsKeptAndTheLengthIsTold) {
  const std::string answer(1002, 'x');
  Feed(Answers, answer + "\r\nnext\n");
  Feed(Instructions, std::string(1000, 'y') + "\n");
  ASSERT_EQ(Messages.size(), 3U);
  EXPECT_EQ(Messages[0], (Message{std::string(1000, 'x'), 1002, false}));
  EXPECT_EQ(Messages[1], (Message{"next", 4, false}));
  EXPECT_EQ(Messages[2], (Message{std::string(1000, 'y'), 1000, false}));
}

} // namespace
} // namespace portico::tap

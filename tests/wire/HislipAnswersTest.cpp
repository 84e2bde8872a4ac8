#include "wire/HislipAnswers.h"

#include "wire/HislipPeer.h"

namespace portico::wire {
namespace {

class HislipAnswersTest : public HislipPeer {
protected:
  void SetUp() override { Open(); }
};

TEST_F(HislipAnswersTest, AnswersToOtherMessagesAreDropped) {
  Receive(Answer("FFFFFEFE"));
  Ask("A?");
  Ask("B?");
  Receive(Answer("FFFFFF00"));
  Receive(Answer("FFFFFF04"));
  Receive(Answer("FFFFFFFF"));
  EXPECT_EQ(Answers, Strings());
  Receive(Answer("FFFFFF02"));
  EXPECT_EQ(Answers, Strings({"12"}));
}

TEST_F(HislipAnswersTest, AnAnswerIsTakenBackIfItsEndNamesAnotherMessage) {
  Ask("A?");
  Ask("B?");
  Receive(Bytes("4853 06 00 FFFFFFFF 0000000000000002 3435"));
  EXPECT_EQ(Partial, "45");
  Receive(Answer("FFFFFF00"));
  EXPECT_EQ(Answers, Strings());
  Receive(Answer("FFFFFF02"));
  EXPECT_EQ(Answers, Strings({"12"}));
}

TEST_F(HislipAnswersTest, AnAnswerWithAPartOfAnotherIsDroppedWhole) {
  Ask("A?");
  Receive(Bytes("4853 06 00 FFFFFF02 0000000000000002 3435"));
  Receive(Answer("FFFFFF00"));
  EXPECT_EQ(Answers, Strings());
}

TEST_F(HislipAnswersTest, TheRestOfAnAnswerDoesNotBeginTheNext) {
  Ask("A?");
  const std::string data = Bytes("4853 06 00 FFFFFFFF 0000000000000004 34353637");
  Receive(data.substr(0, 18));
  EXPECT_EQ(Partial, "45");
  Partial.clear();
  Ask("B?");
  Receive(data.substr(18));
  Receive(Bytes("4853 06 00 FFFFFFFF 0000000000000002 3839"));
  EXPECT_EQ(Partial, "");
  Receive(Answer("FFFFFF00") + Answer("FFFFFF02"));
  EXPECT_EQ(Answers, Strings({"12"}));
}

TEST_F(HislipAnswersTest, TheRestOfADroppedAnswerDoesNotBeginTheNextEither) {
  Ask("A?");
  Receive(Bytes("4853 06 00 FFFFFF02 0000000000000002 3435"));
  Ask("B?");
  Receive(Bytes("4853 06 00 FFFFFFFF 0000000000000002 3637"));
  EXPECT_EQ(Partial, "");
  Receive(Answer("FFFFFF00") + Answer("FFFFFF02"));
  EXPECT_EQ(Answers, Strings({"12"}));
}

TEST_F(HislipAnswersTest, OfTheRestThatIsDroppedTheNextAnswerTellsNothing) {
  Ask("A?");
  Receive(Bytes("4853 06 00 FFFFFF00 0000000000000002 3435"));
  Ask("B?");
  Receive(Answer("FFFFFF00"));
  const std::string next = Answer("FFFFFF02");
  std::string_view bytes = next;
  EXPECT_FALSE(Client.Receive(bytes).Anew);
}

TEST_F(HislipAnswersTest, NoAnswerIsTakenWhileACommandGoesOut) {
  Ask("A?");
  Client.Write("B?");
  Receive(Answer("FFFFFF00"));
  EXPECT_EQ(Answers, Strings());
}

TEST_F(HislipAnswersTest, NoAnswerIsTakenBeforeItsCommandIsOut) {
  Client.Write("A?");
  EXPECT_TRUE(Client.Writing());
  Client.Output(HislipChannel::Synchronous);
  Client.Sent(HislipChannel::Synchronous, 17);
  EXPECT_TRUE(Client.Writing());
  Receive(Answer("FFFFFF00"));
  EXPECT_EQ(Answers, Strings());
  SentSynchronous();
  EXPECT_FALSE(Client.Writing());
  Receive(Answer("FFFFFF00"));
  EXPECT_EQ(Answers, Strings({"12"}));
}

} // namespace
} // namespace portico::wire

#include "wire/HislipClient.h"

#include "wire/HislipPeer.h"

namespace portico::wire {
namespace {

class HislipExchangeTest : public HislipPeer {
protected:
  void SetUp() override { Open(); }
};

TEST_F(HislipExchangeTest, ACommandGoesOutInOneMessage) {
  Client.Write("*RST\r\n");
  EXPECT_EQ(SentSynchronous(), Bytes("4853 07 00 FFFFFF00 0000000000000006 2A5253540D0A"));
  Client.Write("A");
  EXPECT_EQ(SentSynchronous(), Bytes("4853 07 00 FFFFFF02 0000000000000001 41"));
}

TEST_F(HislipExchangeTest, AnEmptyCommandHasAnEndToo) {
  Client.Write("");
  EXPECT_EQ(SentSynchronous(), Bytes("4853 07 00 FFFFFF00 0000000000000000"));
}

TEST_F(HislipExchangeTest, TheInstrumentsLimitCountsTheHeader) {
  Open("0000000000000014");
  Client.Write("*IDN?\r\n");
  EXPECT_EQ(SentSynchronous(), Bytes("4853 06 00 FFFFFF00 0000000000000004 2A49444E") +
                                   Bytes("4853 07 00 FFFFFF02 0000000000000003 3F0D0A"));
  Receive(Answer("FFFFFF00"));
  EXPECT_EQ(Answers, Strings());
  Receive(Answer("FFFFFF02"));
  EXPECT_EQ(Answers, Strings({"12"}));
}

TEST_F(HislipExchangeTest, IdsGoRoundAtTheEnd) {
  for (int i = 0; i < 128; ++i) Ask("A");
  Client.Write("A");
  EXPECT_EQ(SentSynchronous(), Bytes("4853 07 00 00000000 0000000000000001 41"));
  Receive(Answer("00000000"));
  EXPECT_EQ(Answers, Strings({"12"}));
}

TEST_F(HislipExchangeTest, AnAnswerIsGatheredUpToItsEnd) {
  Ask("A?");
  Receive(Bytes("4853 06 00 FFFFFF00 0000000000000002 2331"));
  Receive(Bytes("4853 06 00 FFFFFFFF 0000000000000002 330A"));
  EXPECT_EQ(Answers, Strings());
  Receive(Answer("FFFFFF00"));
  EXPECT_EQ(Answers, Strings({"#13\n12"}));
}

TEST_F(HislipExchangeTest, OnlyTheNextMessageTellsThatTheAnswerWasTaken) {
  Open("0000000000000012");
  Ask("A?");
  Receive(Answer("FFFFFF00"));
  Client.Write("ABC");
  EXPECT_EQ(SentSynchronous(),
            Bytes("4853 06 01 FFFFFF02 0000000000000002 4142") + Bytes("4853 07 00 FFFFFF04 0000000000000001 43"));
}

TEST_F(HislipExchangeTest, HalfAnAnswerIsNoneThatWasTaken) {
  Ask("A?");
  Receive(Bytes("4853 06 00 FFFFFF00 0000000000000002 3132"));
  Client.Write("B");
  EXPECT_EQ(SentSynchronous(), Bytes("4853 07 00 FFFFFF02 0000000000000001 42"));
}

TEST_F(HislipExchangeTest, ToldOfAnInterruptionTheClientDropsAnswersUpToIt) {
  Ask("A?");
  Ask("B?");
  Client.ReceiveAsynchronous(Bytes("4853 0E 00 FFFFFF02 0000000000000000"));
  Receive(Bytes("4853 06 00 FFFFFFFF 0000000000000002 3435"));
  Receive(Answer("FFFFFF02"));
  EXPECT_EQ(Partial, "");
  EXPECT_EQ(Answers, Strings());
  Receive(Bytes("4853 0D 00 FFFFFF02 0000000000000000"));
  Receive(Answer("FFFFFF02"));
  EXPECT_EQ(Answers, Strings({"12"}));
}

TEST_F(HislipExchangeTest, TwoInterruptionsAreEndedByTwo) {
  Ask("A?");
  for (int i = 0; i < 2; ++i) Client.ReceiveAsynchronous(Bytes("4853 0E 00 FFFFFF00 0000000000000000"));
  Receive(Bytes("4853 0D 00 FFFFFF00 0000000000000000"));
  Receive(Answer("FFFFFF00"));
  EXPECT_EQ(Answers, Strings());
  Receive(Bytes("4853 0D 00 FFFFFF00 0000000000000000"));
  Receive(Answer("FFFFFF00"));
  EXPECT_EQ(Answers, Strings({"12"}));
}

TEST_F(HislipExchangeTest, HalfAnAnswerBeforeAnInterruptionIsTakenBack) {
  Ask("A?");
  Receive(Bytes("4853 06 00 FFFFFF00 0000000000000002 3435"));
  Receive(Bytes("4853 0D 00 FFFFFF00 0000000000000000"));
  Receive(Answer("FFFFFF00"));
  EXPECT_EQ(Answers, Strings({"12"}));
}

TEST_F(HislipExchangeTest, ThatAnAnswerIsGivenUpIsToldWithTheNextBytes) {
  Ask("A?");
  Receive(Bytes("4853 06 00 FFFFFF00 0000000000000002 3435"));
  const std::string next = Bytes("4853 0D 00 FFFFFF00 0000000000000000 4853 06 00 FFFFFF00 0000000000000000") +
                           Bytes("4853 06 00 FFFFFF00 0000000000000001 37") + Answer("FFFFFF00");
  std::string_view bytes = next;
  HislipAnswer answer = Client.Receive(bytes);
  EXPECT_TRUE(answer.Anew);
  EXPECT_EQ(answer.Payload, "7");
  answer = Client.Receive(bytes);
  EXPECT_FALSE(answer.Anew);
  EXPECT_EQ(answer.Payload, "12");
  EXPECT_TRUE(answer.End);
}

TEST_F(HislipExchangeTest, ThatAnAnswerIsGivenUpIsToldWithAnEmptyOneToo) {
  Ask("A?");
  Receive(Bytes("4853 06 00 FFFFFF00 0000000000000002 3435"));
  const std::string next = Bytes("4853 0D 00 FFFFFF00 0000000000000000 4853 07 00 FFFFFF00 0000000000000000");
  std::string_view bytes = next;
  const HislipAnswer answer = Client.Receive(bytes);
  EXPECT_TRUE(answer.Anew);
  EXPECT_EQ(answer.Payload, "");
  EXPECT_TRUE(answer.End);
}

TEST_F(HislipExchangeTest, OfWhatWasGivenUpTheNextCommandsAnswerTellsNothing) {
  Ask("A?");
  Receive(Bytes("4853 06 00 FFFFFF00 0000000000000002 3435"));
  Receive(Bytes("4853 0D 00 FFFFFF00 0000000000000000"));
  Client.ReceiveAsynchronous(Bytes("4853 0E 00 FFFFFF00 0000000000000000"));
  Ask("B?");
  const std::string next = Answer("FFFFFF02");
  std::string_view bytes = next;
  const HislipAnswer answer = Client.Receive(bytes);
  EXPECT_FALSE(answer.Anew);
  EXPECT_EQ(answer.Payload, "12");
}

TEST_F(HislipExchangeTest, HalfAnotherAnswerBeforeAnInterruptionLeavesTheNextWhole) {
  Ask("A?");
  Ask("B?");
  Receive(Bytes("4853 06 00 FFFFFF00 0000000000000002 3435"));
  Receive(Bytes("4853 0D 00 FFFFFF02 0000000000000000"));
  Receive(Answer("FFFFFF02"));
  EXPECT_EQ(Answers, Strings({"12"}));
}

TEST_F(HislipExchangeTest, InterruptedTheClientSendsNothingBeforeItHearsOfItTwice) {
  Ask("A?");
  Receive(Bytes("4853 0D 00 FFFFFF00 0000000000000000"));
  Client.Write("B?");
  EXPECT_EQ(SentSynchronous(), "");
  Client.ReceiveAsynchronous(Bytes("4853 0E 00 FFFFFF00 0000000000000000"));
  EXPECT_EQ(SentSynchronous(), Bytes("4853 07 00 FFFFFF02 0000000000000002 423F"));
}

TEST_F(HislipExchangeTest, AnErrorIsAComplaintUntilTheNextCommand) {
  Ask("A?");
  Receive(Bytes("4853 03 04 00000000 0000000000000003 6F7567"));
  EXPECT_EQ(Client.Complaint(), "error 4, message too large (oug)");
  EXPECT_TRUE(Client.Ready());
  Receive(Answer("FFFFFF00"));
  EXPECT_EQ(Answers, Strings({"12"}));
  Client.Write("B");
  EXPECT_EQ(Client.Complaint(), "");
}

TEST_F(HislipExchangeTest, UnknownMessagesAndServiceRequestsArePassedOver) {
  Ask("A?");
  Receive(Bytes("4853 80 00 00000000 0000000000000002 4142"));
  Client.ReceiveAsynchronous(Bytes("4853 14 50 00000000 0000000000000000 4853 FF 00 00000000 0000000000000000"));
  Receive(Answer("FFFFFF00"));
  EXPECT_EQ(Answers, Strings({"12"}));
  EXPECT_TRUE(Client.Ready());
}

TEST_F(HislipExchangeTest, AMessageAboveTheAgreedSizeIsAFailure) {
  Ask("A?");
  Receive(Bytes("4853 06 00 FFFFFF00 0000000000100001"));
  EXPECT_EQ(Client.Failure(), "a message has 1048577 bytes, more than was agreed");
  EXPECT_FALSE(Client.Ready());
}

TEST_F(HislipExchangeTest, AnAbsurdLengthOnTheSecondConnectionIsAFailure) {
  Client.ReceiveAsynchronous(Bytes("4853 16 00 00000000 FFFFFFFFFFFFFFFF"));
  EXPECT_EQ(Client.Failure(), "a message has 18446744073709551615 bytes, more than was agreed");
}

TEST_F(HislipExchangeTest, AWrongHeaderOnEitherConnectionIsAFailure) {
  Client.ReceiveAsynchronous(Bytes("4854 16 00 00000000 0000000000000000"));
  EXPECT_EQ(Client.Failure(), "the message header is none of HiSLIP");
  Open();
  Receive(Bytes("0053 07 00 FFFFFF00 0000000000000000"));
  EXPECT_EQ(Client.Failure(), "the message header is none of HiSLIP");
}

TEST_F(HislipExchangeTest, AfterAFailureNothingIsSentOrTaken) {
  Client.Write("A?");
  Receive(Bytes("4853 02 00 00000000 0000000000000000") + Answer("FFFFFF00"));
  EXPECT_EQ(SentSynchronous(), "");
  EXPECT_EQ(Answers, Strings());
  EXPECT_EQ(Client.Failure(), "fatal error 0, unidentified error");
}

TEST_F(HislipExchangeTest, TheFrontPanelIsGivenBack) {
  Client.GoToLocal();
  EXPECT_EQ(SentAsynchronous(), Bytes("4853 0A 06 FFFFFEFE 0000000000000000"));
  EXPECT_FALSE(Client.Ready());
  Client.ReceiveAsynchronous(Bytes("4853 0B 00 00000000 0000000000000000"));
  EXPECT_TRUE(Client.Ready());
  Ask("A");
  Client.GoToLocal();
  EXPECT_EQ(SentAsynchronous(), Bytes("4853 0A 06 FFFFFF00 0000000000000000"));
}

TEST_F(HislipExchangeTest, WhoKnowsNoFrontPanelMayComplain) {
  Client.GoToLocal();
  Client.ReceiveAsynchronous(Bytes("4853 03 01 00000000 0000000000000000"));
  EXPECT_TRUE(Client.Ready());
  EXPECT_EQ(Client.Complaint(), "error 1, unknown message type");
}

TEST_F(HislipExchangeTest, ALockOfAnotherClientIsAskedFor) {
  Ask("A?");
  Client.AskForLocks();
  EXPECT_EQ(SentAsynchronous(), Bytes("4853 18 00 00000000 0000000000000000"));
  EXPECT_FALSE(Client.LockedByOthers());
  Client.ReceiveAsynchronous(Bytes("4853 19 01 00000001 0000000000000000"));
  EXPECT_TRUE(Client.LockedByOthers());
  EXPECT_TRUE(Client.Ready());
  Client.AskForLocks();
  Client.ReceiveAsynchronous(Bytes("4853 19 00 00000002 0000000000000000"));
  EXPECT_TRUE(Client.LockedByOthers()) << "others share it";
  Client.AskForLocks();
  Client.ReceiveAsynchronous(Bytes("4853 19 00 00000000 0000000000000000"));
  EXPECT_FALSE(Client.LockedByOthers());
}

TEST_F(HislipExchangeTest, OfALockBeforeTheLastCommandNothingIsKnown) {
  Client.AskForLocks();
  Client.ReceiveAsynchronous(Bytes("4853 19 01 00000001 0000000000000000"));
  Ask("A?");
  EXPECT_FALSE(Client.LockedByOthers());
}

TEST_F(HislipExchangeTest, WhoKnowsNoLocksMayComplainUnheard) {
  Ask("A?");
  Client.AskForLocks();
  Client.ReceiveAsynchronous(Bytes("4853 03 01 00000000 0000000000000000"));
  EXPECT_EQ(Client.Complaint(), "");
  Client.ReceiveAsynchronous(Bytes("4853 03 01 00000000 0000000000000000"));
  EXPECT_EQ(Client.Complaint(), "error 1, unknown message type");
}

TEST_F(HislipExchangeTest, ADeviceClearDropsWhatIsOnItsWay) {
  Ask("A?");
  Client.Clear();
  EXPECT_EQ(SentAsynchronous(), Bytes("4853 13 00 00000000 0000000000000000"));
  Receive(Answer("FFFFFF00"));
  // An acknowledgement that comes before it may.
  Receive(Bytes("4853 09 00 00000000 0000000000000000"));
  EXPECT_FALSE(Client.Ready());
  EXPECT_EQ(SentSynchronous(), "");
  Client.ReceiveAsynchronous(Bytes("4853 17 00 00000000 0000000000000000"));
  EXPECT_EQ(SentSynchronous(), Bytes("4853 08 00 00000000 0000000000000000"));
  Receive(Answer("FFFFFF00"));
  Receive(Bytes("4853 09 00 00000000 0000000000000000"));
  EXPECT_TRUE(Client.Ready());
  Receive(Answer("FFFFFF00"));
  EXPECT_EQ(Answers, Strings());
}

TEST_F(HislipExchangeTest, AnErrorOnTheFirstConnectionIsOneOfThoseThingsOnTheirWay) {
  const std::string error = Bytes("4853 03 04 00000000 0000000000000000");
  Ask("A?");
  Client.Clear();
  Receive(error);
  Client.ReceiveAsynchronous(Bytes("4853 17 00 00000000 0000000000000000"));
  Receive(error + Bytes("4853 09 00 00000000 0000000000000000"));
  EXPECT_EQ(Client.Failure(), "");
  EXPECT_TRUE(Client.Ready());
}

TEST_F(HislipExchangeTest, AnErrorOnTheSecondConnectionRefusesADeviceClear) {
  Client.Clear();
  Client.ReceiveAsynchronous(Bytes("4853 03 01 00000000 0000000000000000"));
  EXPECT_EQ(Client.Failure(), "error 1, unknown message type");
}

TEST_F(HislipExchangeTest, AnErrorOnTheFirstConnectionDoesNotAnswerForTheFrontPanel) {
  Client.GoToLocal();
  Receive(Bytes("4853 03 04 00000000 0000000000000000"));
  EXPECT_FALSE(Client.Ready());
  Client.ReceiveAsynchronous(Bytes("4853 0B 00 00000000 0000000000000000"));
  EXPECT_TRUE(Client.Ready());
}

TEST_F(HislipExchangeTest, ADeviceClearBeginsTheIdsAnew) {
  Ask("A?");
  Receive(Answer("FFFFFF00"));
  Receive(Bytes("4853 0D 00 FFFFFF00 0000000000000000"));
  Client.Clear();
  Client.ReceiveAsynchronous(Bytes("4853 17 00 00000000 0000000000000000"));
  SentSynchronous();
  Receive(Bytes("4853 09 00 00000000 0000000000000000"));
  Client.Write("B");
  EXPECT_EQ(SentSynchronous(), Bytes("4853 07 00 FFFFFF00 0000000000000001 42"));
}

TEST_F(HislipExchangeTest, ADeviceClearLetsABegunMessageEnd) {
  Open("0000000000000012");
  Client.Write("ABCD");
  Client.Output(HislipChannel::Synchronous);
  Client.Sent(HislipChannel::Synchronous, 17);
  Client.Clear();
  Client.ReceiveAsynchronous(Bytes("4853 17 00 00000000 0000000000000000"));
  EXPECT_EQ(SentSynchronous(), Bytes("42 4853 08 00 00000000 0000000000000000"));
}

TEST_F(HislipExchangeTest, ADeviceClearTakesBackAMessageThatIsNotBegun) {
  Client.Write("ABCD");
  EXPECT_NE(Client.Output(HislipChannel::Synchronous), "");
  Client.Clear();
  EXPECT_EQ(SentSynchronous(), "");
}

} // namespace
} // namespace portico::wire

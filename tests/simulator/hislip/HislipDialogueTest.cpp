#include "simulator/hislip/HislipDialogue.h"

#include "simulator/hislip/HislipClients.h"

namespace portico::simulator {
namespace {

class HislipDialogueTest : public HislipClients {
protected:
  std::string Say(std::string_view id, std::string_view text, std::string_view control = "00") {
    return m_client.Synchronous.Ask(Command(id, text, control));
  }
  std::string AskStatus(std::string_view id, std::string_view control = "00") {
    return m_client.Asynchronous.Ask(StatusQuery(id, control));
  }
  /// The oldest error; the message has this id and says that the answer before was delivered.
  std::string Error(std::string_view id, std::string_view control = "01") {
    const std::string answer = Say(id, "SYST:ERR?\n", control);
    return answer.size() < 17 ? answer : answer.substr(16, answer.size() - 17);
  }

  HislipWires m_client = Open();
};

TEST_F(HislipDialogueTest, AMessageComesInPiecesAndItsAnswerHasTheIdOfTheLast) {
  EXPECT_EQ(m_client.Synchronous.Ask(Bytes("4853 06 00 FFFFFF00 0000000000000005 2A4553453F")), "");
  EXPECT_EQ(m_client.Synchronous.Ask(Bytes("4853 07 00 FFFFFF02 0000000000000000")), Answer("FFFFFF02", "0\n"));
}

TEST_F(HislipDialogueTest, TheEndOfAMessageNeedsNoLineFeed) {
  EXPECT_EQ(Say("FFFFFF00", "*ESE?"), Answer("FFFFFF00", "0\n"));
}

TEST_F(HislipDialogueTest, ALongAnswerComesInMessagesThatTheClientTakes) {
  const std::string answer = Say("FFFFFF00", "SIM:LENG? 70000\n");
  ASSERT_EQ(answer.size(), 70001u + 32u);
  EXPECT_EQ(answer.substr(0, 17), Bytes("4853 06 00 FFFFFF00 000000000000FFF0") + "5");
  EXPECT_EQ(answer.substr(65536, 17), Bytes("4853 07 00 FFFFFF00 0000000000001181") + "5");
}

TEST_F(HislipDialogueTest, AnAnswerWithoutEndHasNone) {
  const std::string piece = Say("FFFFFF00", "SIM:ENDL?\n");
  EXPECT_EQ(piece.substr(0, 8), Bytes("4853 06 00 FFFFFF00"));
  m_now += milliseconds(1);
  EXPECT_EQ(m_client.Synchronous.Collected().substr(0, 8), Bytes("4853 06 00 FFFFFF00"));
}

TEST_F(HislipDialogueTest, MessagesAreAnsweredInTheirOrder) {
  EXPECT_EQ(Say("FFFFFF00", "*ESE 3\n"), "");
  EXPECT_EQ(Say("FFFFFF02", "*ESE?\n"), Answer("FFFFFF02", "3\n"));
  EXPECT_EQ(Say("FFFFFF04", "SIM:ECHO? 4\n", "01"), Answer("FFFFFF04", "4\n"));
  EXPECT_EQ(Error("FFFFFF06"), "0,\"No error\"");
}

TEST_F(HislipDialogueTest, AnAnswerThatANewMessageOvertakesIsDropped) {
  EXPECT_EQ(Say("FFFFFF00", "SIM:DEL 1;ECHO? 1\n"), "");
  EXPECT_EQ(Say("FFFFFF02", "SIM:ECHO? 2\n"), "");
  m_now += milliseconds(1000);
  EXPECT_EQ(m_client.Synchronous.Collected(),
            Bytes("4853 0D 00 FFFFFF02 0000000000000000") + Answer("FFFFFF02", "2\n"));
  EXPECT_TRUE(m_client.Asynchronous.Due());
  EXPECT_EQ(m_client.Asynchronous.Collected(), Bytes("4853 0E 00 FFFFFF02 0000000000000000"));
  EXPECT_FALSE(m_client.Asynchronous.Due());
  EXPECT_EQ(Error("FFFFFF04"), "-410,\"Query INTERRUPTED\"");
  EXPECT_EQ(Error("FFFFFF06"), "0,\"No error\"");
}

TEST_F(HislipDialogueTest, AnAnswerWithoutEndIsEndedByANewMessage) {
  Say("FFFFFF00", "SIM:ENDL?\n");
  m_now += milliseconds(1);
  EXPECT_EQ(Say("FFFFFF02", "SIM:ECHO? 2\n"),
            Bytes("4853 0D 00 FFFFFF02 0000000000000000") + Answer("FFFFFF02", "2\n"));
}

TEST_F(HislipDialogueTest, WhatTheClientHasNotTakenIsInterrupted) {
  Say("FFFFFF00", "*ESE?\n");
  EXPECT_EQ(Say("FFFFFF02", "*ESE?\n", "00"), Answer("FFFFFF02", "0\n"));
  EXPECT_EQ(m_client.Asynchronous.Collected(), "");
  EXPECT_EQ(Error("FFFFFF04"), "-410,\"Query INTERRUPTED\"");
  EXPECT_EQ(Error("FFFFFF06"), "0,\"No error\"");
}

TEST_F(HislipDialogueTest, WhoHasTakenWhatWasNotSentIsInterruptedToo) {
  EXPECT_EQ(Error("FFFFFF00", "01"), "-410,\"Query INTERRUPTED\"");
}

TEST_F(HislipDialogueTest, ThatAnAnswerWasTakenTheStatusQueryTellsAsWell) {
  Say("FFFFFF00", "*ESE?\n");
  EXPECT_EQ(AskStatus("FFFFFF00", "01"), Status("00"));
  EXPECT_EQ(Error("FFFFFF02", "00"), "0,\"No error\"");
}

TEST_F(HislipDialogueTest, AMessageIsAvailableUntilTheClientHasIt) {
  EXPECT_EQ(AskStatus("FFFFFEFE"), Status("00"));
  Say("FFFFFF00", "*ESE?\n");
  EXPECT_EQ(AskStatus("FFFFFF00"), Status("10"));
  EXPECT_EQ(AskStatus("FFFFFF00"), Status("10"));
  Say("FFFFFF02", "*CLS\n", "01");
  EXPECT_EQ(AskStatus("FFFFFF02"), Status("00"));
  Say("FFFFFF04", "NONSENSE?\n");
  EXPECT_EQ(AskStatus("FFFFFF04"), Status("04"));
}

TEST_F(HislipDialogueTest, AStatusQueryWaitsForTheMessageThatItNames) {
  EXPECT_EQ(AskStatus("FFFFFF00"), "");
  EXPECT_FALSE(m_client.Asynchronous.Due());
  Say("FFFFFF00", "*ESE?\n");
  EXPECT_TRUE(m_client.Asynchronous.Due());
  EXPECT_EQ(m_client.Asynchronous.Collected(), Status("10"));
}

TEST_F(HislipDialogueTest, OfAMessageThatIsNamedThePartsDoNotSuffice) {
  const std::string query = Command("FFFFFF00", "*ESE?\n");
  m_client.Synchronous.Ask(query.substr(0, 18));
  EXPECT_EQ(AskStatus("FFFFFF00"), "");
  m_client.Synchronous.Ask(query.substr(18));
  EXPECT_EQ(m_client.Asynchronous.Collected(), Status("10"));
}

TEST_F(HislipDialogueTest, WhereIdsGoRoundTheHigherIsTheEarlier) {
  Say("FFFFFFFE", "*ESE 3\n");
  EXPECT_EQ(AskStatus("00000000"), "");
  Say("00000000", "*ESE 3\n");
  EXPECT_EQ(m_client.Asynchronous.Collected(), Status("00"));
  EXPECT_EQ(AskStatus("FFFFFFFE"), Status("00"));
}

TEST_F(HislipDialogueTest, LocalControlWaitsForTheMessageThatItNames) {
  EXPECT_EQ(m_client.Asynchronous.Ask(Bytes("4853 0A 06 FFFFFF00 0000000000000000")), "");
  Say("FFFFFF00", "*ESE 3\n");
  EXPECT_EQ(m_client.Asynchronous.Collected(), Bytes("4853 0B 00 00000000 0000000000000000"));
}

TEST_F(HislipDialogueTest, WhoNamesTheNextMessageGetsTheStatusAllTheSame) {
  Say("FFFFFF00", "*ESE?\n");
  EXPECT_EQ(AskStatus("FFFFFF02"), "");
  EXPECT_EQ(m_client.Asynchronous.NextEvent(), m_now + milliseconds(20));
  m_now += milliseconds(20);
  EXPECT_EQ(m_client.Asynchronous.Collected(), Status("10"));
}

TEST_F(HislipDialogueTest, ATriggerTakesAnIdOfItsOwn) {
  EXPECT_EQ(m_client.Synchronous.Ask(Bytes("4853 0C 00 FFFFFF00 0000000000000000")), "");
  EXPECT_EQ(AskStatus("FFFFFF00").size(), 16u);
  EXPECT_EQ(Say("FFFFFF02", "*ESE?\n"), Answer("FFFFFF02", "0\n"));
}

TEST_F(HislipDialogueTest, ATriggerIsOne) {
  m_client.Synchronous.Ask(Bytes("4853 0C 00 FFFFFF00 0000000000000000"));
  EXPECT_EQ(Say("FFFFFF02", "SYST:ERR?\n"), Answer("FFFFFF02", "-211,\"Trigger ignored\"\n"));
}

TEST_F(HislipDialogueTest, ADeviceClearDropsWhatWasSaidAndIsToBeSaid) {
  Say("FFFFFF00", "SIM:DEL 1;ECHO? 1\n");
  Say("FFFFFF02", "*ESE 7\n");
  EXPECT_EQ(m_client.Asynchronous.Ask(Bytes("4853 13 00 00000000 0000000000000000")),
            Bytes("4853 17 00 00000000 0000000000000000"));
  EXPECT_EQ(Say("FFFFFF04", "*ESE 9\n"), "");
  EXPECT_EQ(m_client.Synchronous.Ask(Bytes("4853 08 00 00000000 0000000000000000")),
            Bytes("4853 09 00 00000000 0000000000000000"));
  m_now += milliseconds(1000);
  EXPECT_EQ(m_client.Synchronous.Collected(), "");
  EXPECT_EQ(Say("FFFFFF00", "*ESE?\n"), Answer("FFFFFF00", "0\n"));
  EXPECT_EQ(Error("FFFFFF02"), "0,\"No error\"");
}

TEST_F(HislipDialogueTest, ADeviceClearMayComeAmidAMessage) {
  const std::string broken = Command("FFFFFF00", "*ESE 7\n");
  m_client.Synchronous.Ask(broken.substr(0, 18));
  m_client.Asynchronous.Ask(Bytes("4853 13 00 00000000 0000000000000000"));
  EXPECT_EQ(m_client.Synchronous.Ask(broken.substr(18) + Bytes("4853 08 00 00000000 0000000000000000")),
            Bytes("4853 09 00 00000000 0000000000000000"));
  EXPECT_EQ(Error("FFFFFF00", "01"), "-410,\"Query INTERRUPTED\"");
  EXPECT_EQ(Say("FFFFFF02", "*ESE?\n", "01"), Answer("FFFFFF02", "0\n"));
}

TEST_F(HislipDialogueTest, OverlappedModeIsNotToBeHad) {
  m_client.Asynchronous.Ask(Bytes("4853 13 00 00000000 0000000000000000"));
  EXPECT_EQ(m_client.Synchronous.Ask(Bytes("4853 08 01 00000000 0000000000000000")),
            Bytes("4853 09 00 00000000 0000000000000000"));
}

TEST_F(HislipDialogueTest, AnAnswerMayBearTheIdOfAnotherMessage) {
  Say("FFFFFF00", "SIM:NEXT NUMB\n");
  EXPECT_EQ(Say("FFFFFF02", "SIM:ECHO? 1\n"), Answer("FFFFFF00", "1\n"));
  EXPECT_EQ(Say("FFFFFF04", "SIM:ECHO? 2\n", "01"), Answer("FFFFFF04", "2\n"));
}

TEST_F(HislipDialogueTest, NoMoreIsTakenThanThereIsRoomFor) {
  Say("FFFFFF00", "SIM:DEL 1;ECHO? 1\n");
  const std::string text(60000, ' ');
  int count = 0;
  for (; m_client.Synchronous.AcceptsInput() && count < 100; ++count) {
    m_client.Synchronous.Send(Bytes("4853 07 00 FFFFFF02 000000000000EA60") + text);
  }
  EXPECT_EQ(count, 18);
  m_now += milliseconds(1000);
  m_client.Synchronous.Collected();
  EXPECT_TRUE(m_client.Synchronous.AcceptsInput());
}

TEST_F(HislipDialogueTest, ADeviceClearMakesRoom) {
  Say("FFFFFF00", "SIM:DEL 1;ECHO? 1\n");
  const std::string command = Bytes("4853 07 00 FFFFFF02 000000000000EA60") + std::string(60000, ' ');
  while (m_client.Synchronous.AcceptsInput()) m_client.Synchronous.Send(command);
  m_client.Asynchronous.Ask(Bytes("4853 13 00 00000000 0000000000000000"));
  m_client.Synchronous.Ask(Bytes("4853 08 00 00000000 0000000000000000"));
  EXPECT_TRUE(m_client.Synchronous.AcceptsInput());
}

} // namespace
} // namespace portico::simulator

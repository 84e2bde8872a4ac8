#include "channel/DriverSessionFixture.h"

namespace portico {
namespace {

using test::Calls;
using test::DriverSessionTest;
using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

TEST_F(DriverSessionTest, OpenPassesTheNameAndTwoZeros) {
  ExpectSuccess(Session->OpenChannel(u"GPIB0::7"), u"");
  EXPECT_EQ(Details, (Calls{"init(GPIB0::7,0,0)"}));
}

TEST_F(DriverSessionTest, OpenKeepsTheHandleForTheOtherOperations) {
  Driver->Handle = -12;
  Open();
  Session->WriteData(u"*RST");
  EXPECT_EQ(Details, (Calls{"WriteInstrData(-12,*RST\r)"}));
}

TEST_F(DriverSessionTest, OpenThatWritesNoHandleAsksForTheMessageWithZero) {
  Driver->HandleOfFailure = 0;
  Driver->Statuses["init"] = -5;
  ExpectFailure(Session->OpenChannel(u"NONE"), -5, u"It broke.");
  EXPECT_EQ(Details, (Calls{"init(NONE,0,0)", "error_message(0,-5)"}));
}

TEST_F(DriverSessionTest, OpenThatFailsButWritesAHandleKeepsIt) {
  Driver->Statuses["init"] = -5;
  ExpectFailure(Session->OpenChannel(u"HALF"), -5, u"It broke.");
  EXPECT_EQ(Details, (Calls{"init(HALF,0,0)", "error_message(7,-5)"}));
  Details.clear();
  Session->CloseChannel();
  EXPECT_EQ(Details, (Calls{"close(7)"}));
}

TEST_F(DriverSessionTest, SecondOpenOverwritesTheHandleAndLeavesTheOldSessionUnclosed) {
  Open();
  Driver->Handle = 8;
  Session->OpenChannel(u"OTHER");
  Session->CloseChannel();
  EXPECT_EQ(Details, (Calls{"init(OTHER,0,0)", "close(8)"}));
}

TEST_F(DriverSessionTest, NoSessionIsPassedToTheDriverAsZero) {
  Driver->Statuses["WriteInstrData"] = -9;
  ExpectFailure(Session->WriteData(u"*RST"), -9, u"It broke.");
  Session->ReadData();
  Session->GetChannelAttribute(u"TERMCHAR");
  Session->SetChannelAttribute(u"TERMCHAR", u"CR");
  EXPECT_EQ(Details, (Calls{"WriteInstrData(0,*RST\r)", "error_message(0,-9)", "ReadInstrData(0,1048576)",
                            "GetAttributeViInt32(0,0,1150007)", "SetAttributeViInt32(0,0,1150007,13)"}));
}

TEST_F(DriverSessionTest, WriteHandsFiveCharactersOverAsSix) {
  Open();
  ExpectSuccess(Session->WriteData(u"*IDN?"), u"");
  EXPECT_EQ(Details, (Calls{"WriteInstrData(7,*IDN?\r)"}));
}

TEST_F(DriverSessionTest, WriteAppendsNoOtherTerminatorWhateverTheTerminationIs) {
  Open();
  for (const auto* termination : {u"Auto", u"LF", u"CRLF", u"CR", u"LFCR"}) {
    Session->SetChannelAttribute(u"TERMCHAR", termination);
    Details.clear();
    Session->WriteData(u"A");
    EXPECT_EQ(Details, (Calls{"WriteInstrData(7,A\r)"}));
  }
}

TEST_F(DriverSessionTest, WriteOfNothingIsACarriageReturn) {
  Open();
  Session->WriteData(u"");
  EXPECT_EQ(Details, (Calls{"WriteInstrData(7,\r)"}));
}

TEST_F(DriverSessionTest, TextCrossesInTheCodePage) {
  Open();
  Session->WriteData(u"5 \u20AC \u00B5\u00DC");
  EXPECT_EQ(Details, (Calls{"WriteInstrData(7,5 \x80 \xB5\xDC\r)"}));
  Details.clear();
  Session->OpenChannel(u"\u00C9");
  EXPECT_EQ(Details, (Calls{"init(\xC9,0,0)"}));
  Details.clear();
  Session->SetChannelAttribute(u"ERRORQUERYSCPI", u"\u00E9");
  EXPECT_EQ(Details, (Calls{"SetAttributeViString(7,0,1150002,\xE9)"}));
}

TEST_F(DriverSessionTest, CharacterOutsideTheCodePageIsSentAsAQuestionMark) {
  Open();
  Session->WriteData(u"R \u03A9");
  EXPECT_EQ(Details, (Calls{"WriteInstrData(7,R ?\r)"}));
}

TEST_F(DriverSessionTest, CloseOfAClosedChannelSucceedsWithoutTheDriver) {
  ExpectSuccess(Session->CloseChannel(), u"");
  EXPECT_THAT(Details, IsEmpty());
}

TEST_F(DriverSessionTest, CloseEndsTheSessionOnce) {
  Open();
  ExpectSuccess(Session->CloseChannel(), u"");
  ExpectSuccess(Session->CloseChannel(), u"");
  EXPECT_EQ(Details, (Calls{"close(7)"}));
}

TEST_F(DriverSessionTest, FailingCloseReportsAndLeavesTheHandleAtZero) {
  Open();
  Driver->Statuses["close"] = -3;
  ExpectFailure(Session->CloseChannel(), -3, u"It broke.");
  EXPECT_EQ(Details, (Calls{"close(7)", "error_message(0,-3)"}));
  ExpectSuccess(Session->CloseChannel(), u"");
  EXPECT_THAT(Details, ::testing::SizeIs(2));
}

TEST_F(DriverSessionTest, OtherFailuresLeaveTheHandle) {
  Open();
  Driver->Statuses = {{"WriteInstrData", -1}, {"ReadInstrData", -1}, {"SetAttributeViInt32", -1}};
  Session->WriteData(u"A");
  Session->ReadData();
  Session->SetChannelAttribute(u"TERMCHAR", u"CR");
  Details.clear();
  Session->CloseChannel();
  EXPECT_EQ(Details, (Calls{"close(7)"}));
}

TEST_F(DriverSessionTest, DestructionClosesAnOpenSession) {
  Open();
  Session = nullptr;
  EXPECT_EQ(Details, (Calls{"close(7)"}));
}

TEST_F(DriverSessionTest, DestructionClosesASessionWithTheSmallestHandle) {
  Driver->Handle = 1;
  Open();
  Session = nullptr;
  EXPECT_EQ(Details, (Calls{"close(1)"}));
}

TEST_F(DriverSessionTest, DestructionIgnoresAFailingClose) {
  Open();
  Driver->Statuses["close"] = -3;
  Driver->Message = " "; // too short for the cut, so that the close even raises
  EXPECT_NO_THROW(Session = nullptr);
  EXPECT_THAT(Details, Contains("close(7)"));
}

TEST_F(DriverSessionTest, DestructionWithoutASessionDoesNotCallTheDriver) {
  Session = nullptr;
  EXPECT_THAT(Details, IsEmpty());
}

TEST_F(DriverSessionTest, MessageIsTrimmedAndLosesItsLastTwoCharacters) {
  Driver->Statuses["init"] = 4;
  Driver->Message = Terminated("  Time-out of the bus.  \n");
  ExpectFailure(Session->OpenChannel(u"X"), 4, u"Time-out of the bus.  ");
}

TEST_F(DriverSessionTest, MessageLosesTwoCharactersWhateverTheyAre) {
  Driver->Statuses["init"] = 4;
  Driver->Message = "No terminator";
  ExpectFailure(Session->OpenChannel(u"X"), 4, u"No terminat");
}

TEST_F(DriverSessionTest, MessageCountsTheWholeBufferBehindTheZeroByte) {
  Driver->Statuses["init"] = 4;
  Driver->Message = Terminated("Short") + "stale";
  using namespace std::string_view_literals;
  ExpectFailure(Session->OpenChannel(u"X"), 4, u"Short\0sta"sv);
}

TEST_F(DriverSessionTest, MessageBufferIs256Blanks) {
  Driver->Statuses["init"] = 4;
  Session->OpenChannel(u"X");
  EXPECT_EQ(Driver->Found, std::string(256, ' '));
}

TEST_F(DriverSessionTest, MessageComesBackFromTheCodePage) {
  Driver->Statuses["init"] = 4;
  Driver->Message = Terminated("Ger\xE4t \x80\n");
  ExpectFailure(Session->OpenChannel(u"X"), 4, u"Ger\u00E4t \u20AC");
}

TEST_F(DriverSessionTest, MessageThatFillsTheBufferLosesItsEnd) {
  Driver->Statuses["init"] = 4;
  Driver->Message = Terminated(std::string(254, 'm') + "\n");
  ExpectFailure(Session->OpenChannel(u"X"), 4, String(254, u'm'));
}

TEST_F(DriverSessionTest, PositiveStatusIsAFailureEverywhere) {
  Open();
  Driver->Statuses = {{"WriteInstrData", 1}, {"close", 2}};
  ExpectFailure(Session->WriteData(u"A"), 1, u"It broke.");
  ExpectFailure(Session->CloseChannel(), 2, u"It broke.");
}

TEST_F(DriverSessionTest, SuccessNeverAsksForAMessage) {
  Open();
  Session->WriteData(u"A");
  Session->ReadData();
  Session->CloseChannel();
  EXPECT_THAT(Details, Not(Contains(StartsWith("error_message"))));
}

TEST_F(DriverSessionTest, WithoutADriverTheSessionCannotBeMade) {
  gInstrumentDriver = nullptr;
  EXPECT_THROW(New<CDriverSession>(), Error);
  EXPECT_EQ(HuntERR::ErrNumber(), 91);
  test::ExpectTrail(HuntERR::ErrDescription(), {u"CDriverSession.Class_Initialize"});
}

} // namespace
} // namespace portico

#include "ui/main/CompletionFixture.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* Idn = "*IDN?";
constexpr const char* Help = "SYSTem:HELP:HEADers?";
constexpr const char* Errors = ":SYST:ERR?";

class AskForCommandsTest : public CompletionFixture {
protected:
  AskForCommandsTest() { Answers[Idn] = {"MAKER,M1,42,1.0"}; }

  /// What goes over the wire from now on.
  std::vector<std::string> Ask() {
    if (!Window) Start(u"DMM");
    const auto before = static_cast<std::ptrdiff_t>(Wire.size());
    Click(u"mnuAskForCommands");
    return {Wire.begin() + before, Wire.end()};
  }
  static std::string Block(const std::string& text) {
    const std::string length = std::to_string(text.size());
    return "#" + std::to_string(length.size()) + length + text;
  }
};

TEST_F(AskForCommandsTest, NothingIsSentAtTheOpening) {
  Start(u"DMM");
  EXPECT_EQ(std::count(Wire.begin(), Wire.end(), std::string("write ") + Idn), 0);
  EXPECT_EQ(std::count(Wire.begin(), Wire.end(), std::string("write ") + Help), 0);
}

TEST_F(AskForCommandsTest, AsksWhoIsThereForTheHeadersAndForErrors) {
  Answers[Help] = {Block(":ROUTe:CLOSe/nquery/\n:ROUTe:STATe?/qonly/\n")};
  EXPECT_THAT(Ask(),
              ElementsAre("write *IDN?", "read", "write SYSTem:HELP:HEADers?", "read", "write :SYST:ERR?", "read"));
  ExpectNoBox();
  EXPECT_THAT(Complete(u"rout:"), ElementsAre("CLOSe", "STATe?"));
  ASSERT_EQ(Files->Kept.size(), 1U);
  EXPECT_EQ(Files->Kept[u"MAKER,M1,1.0"], "# MAKER,M1,1.0\n:ROUTe:CLOSe/nquery/\n:ROUTe:STATe?/qonly/\n");
}

TEST_F(AskForCommandsTest, EachExchangeStandsInTheHistory) {
  Answers[Help] = {Block(":ROUTe:CLOSe\n")};
  Ask();
  const std::string history = ToUtf8(Past().Text());
  for (const char* text : {Idn, "MAKER,M1,42,1.0", Help, ":ROUTe:CLOSe", Errors, "0,\"No error\""}) {
    EXPECT_NE(history.find(text), std::string::npos) << text;
  }
}

TEST_F(AskForCommandsTest, TheCommandWindowHasTheFocusThen) {
  Answers[Help] = {Block(":ROUTe:CLOSe\n")};
  Ask();
  EXPECT_TRUE(Future().HasFocus());
}

TEST_F(AskForCommandsTest, ComesBeforeTheLists) {
  List(u"mine.txt", "ROUTe:OPEN\nROUTe:ALL\n");
  Answers[Help] = {Block(":ROUTe:OPEN\n")};
  Ask();
  EXPECT_THAT(Complete(u"rout:"), ElementsAre("OPEN", "OPEN?", "ALL", "ALL?"));
}

TEST_F(AskForCommandsTest, LinesAreReadToSilenceWithAShortTimeout) {
  Answers[Help] = {":ROUTe:CLOSe", ":ROUTe:OPEN?"};
  EXPECT_THAT(Ask(), ElementsAre("write *IDN?", "read", "write SYSTem:HELP:HEADers?", "read", "timeout 1000", "read",
                                 "read", "timeout 5000", "write :SYST:ERR?", "read"));
  ExpectNoBox();
  EXPECT_THAT(Complete(u"rout:"), ElementsAre("CLOSe", "CLOSe?", "OPEN?"));
}

TEST_F(AskForCommandsTest, TheTimeoutOfTheUserComesBack) {
  Store->SaveSetting(u"Tolvane Portico", u"Data", u"Timeout", u"700");
  Answers[Help] = {":ROUTe:CLOSe"};
  const auto wire = Ask();
  EXPECT_EQ(std::count(wire.begin(), wire.end(), "timeout 700"), 2) << "and is not made longer";
  EXPECT_EQ(std::count(wire.begin(), wire.end(), "timeout 1000"), 0);
}

TEST_F(AskForCommandsTest, ThatTheInstrumentDoesNotKnowTheQueryIsToldInWords) {
  Answers[Errors] = {"-113,\"Undefined header\"", "-420,\"Query UNTERMINATED\""};
  EXPECT_THAT(Ask(), ElementsAre("write *IDN?", "read", "write SYSTem:HELP:HEADers?", "read", "write :SYST:ERR?",
                                 "read", "write :SYST:ERR?", "read", "write :SYST:ERR?", "read"));
  ASSERT_EQ(Boxes(), 1U);
  EXPECT_EQ(LastBox(), "The instrument does not tell its commands: -113,\"Undefined header\"");
  EXPECT_TRUE(Files->Kept.empty());
}

TEST_F(AskForCommandsTest, AsksForAHundredErrorsAtMost) {
  Answers[Errors] = std::vector<std::string>(150, "-350,\"Queue overflow\"");
  const auto wire = Ask();
  EXPECT_EQ(std::count(wire.begin(), wire.end(), "write :SYST:ERR?"), 100);
}

TEST_F(AskForCommandsTest, AnAnswerThatIsNoListIsTold) {
  Answers[Help] = {Block("type HELP for help\n")};
  Ask();
  ASSERT_EQ(Boxes(), 1U);
  EXPECT_EQ(LastBox(), "What the instrument answered is no list of commands.");
}

TEST_F(AskForCommandsTest, AnInstrumentThatIsSilentIsAskedNoFurther) {
  Answers[Idn] = {};
  EXPECT_THAT(Ask(), ElementsAre("write *IDN?", "read"));
  ASSERT_EQ(Boxes(), 1U);
  EXPECT_EQ(LastBox(), "The instrument does not say what it is.");
}

TEST_F(AskForCommandsTest, WhatIsKeptIsThereAtTheNextStart) {
  Files->Kept[u"MAKER,M1,1.0"] = "ROUTe:CLOSe?\n";
  Store->SaveSetting(u"Tolvane Portico", u"Instruments", u"DMM", u"MAKER,M1,1.0");
  Start(u"DMM");
  EXPECT_THAT(Complete(u"rout:"), ElementsAre("CLOSe?"));
}

TEST_F(AskForCommandsTest, TheNameOfTheInstrumentIsNotedForThat) {
  Answers[Help] = {Block(":ROUTe:CLOSe?\n")};
  Ask();
  EXPECT_EQ(Setting(u"DMM", u"Instruments"), "MAKER,M1,1.0");
}

TEST_F(AskForCommandsTest, AnotherFirmwareIsAnotherInstrument) {
  Files->Kept[u"MAKER,M1,1.0"] = "ROUTe:CLOSe?\n";
  Start(u"DMM");
  EXPECT_THAT(Complete(u"rout:"), IsEmpty()) << "nobody knows who is there";
  Future().Text(u"*IDN?\r\n");
  Click(u"mnuRun");
  EXPECT_THAT(Complete(u"rout:"), ElementsAre("CLOSe?"));
  Answers[Idn] = {"MAKER,M1,42,2.0"};
  Future().Text(u"*IDN?\r\n");
  Click(u"mnuRun");
  EXPECT_THAT(Complete(u"rout:"), IsEmpty());
}

TEST_F(AskForCommandsTest, WhatCannotBeKeptIsTold) {
  Files->KeepFault = u"It cannot be written.";
  Answers[Help] = {Block(":ROUTe:CLOSe?\n")};
  Ask();
  ASSERT_EQ(Boxes(), 1U);
  EXPECT_EQ(LastBox(), "It cannot be written.");
  EXPECT_THAT(Complete(u"rout:"), ElementsAre("CLOSe?")) << "in this session";
}

TEST_F(AskForCommandsTest, IsForTheProtocolScpiAlone) {
  Start(u"DMM");
  EXPECT_TRUE(Menu(u"mnuAskForCommands").Enabled());
  Click(u"mnuDDC");
  EXPECT_FALSE(Menu(u"mnuAskForCommands").Enabled());
  EXPECT_THAT(Ask(), IsEmpty());
  Click(u"mnuSCPI");
  SetOpened(false);
  EXPECT_FALSE(Menu(u"mnuAskForCommands").Enabled());
  EXPECT_THAT(Ask(), IsEmpty());
}

} // namespace
} // namespace portico::test

#include "ui/main/CompletionFixture.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CompletionTest : public CompletionFixture {
protected:
  CompletionTest() {
    List(u"mine.txt", "MEASure:VOLTage:DC?\nMEASure:VOLTage:AC?\nOUTPut ON|OFF\n");
    Start(u"DMM");
  }
};

TEST_F(CompletionTest, OffersWhatFitsAndInsertsWhatIsTaken) {
  EXPECT_THAT(Complete(u"meas:volt:"), ElementsAre("AC?", "DC?"));
  EXPECT_EQ(Text(), "meas:volt:") << "nothing without a key";
  Press(DownKey);
  Press(ReturnKey);
  EXPECT_EQ(Text(), "meas:volt:dc?");
  EXPECT_EQ(Future().SelStart(), 13);
  EXPECT_THAT(Offered(), IsEmpty());
  EXPECT_TRUE(Future().HasFocus());
  ExpectNoBox();
}

TEST_F(CompletionTest, OneAloneIsOfferedToo) {
  EXPECT_THAT(Complete(u"meas:vo"), ElementsAre("VOLTage:"));
  EXPECT_EQ(Text(), "meas:vo");
  Press(TabKey);
  EXPECT_EQ(Text(), "meas:volt:");
}

TEST_F(CompletionTest, WhereNothingFitsNothingHappens) {
  EXPECT_THAT(Complete(u"meas:xy"), IsEmpty());
  Press(ReturnKey);
  EXPECT_EQ(Text(), "meas:xy\r\n");
}

TEST_F(CompletionTest, EscapeLeavesTheText) {
  Complete(u"meas:volt:");
  Press(EscapeKey);
  EXPECT_THAT(Offered(), IsEmpty());
  EXPECT_EQ(Text(), "meas:volt:");
}

TEST_F(CompletionTest, FollowsWhatIsTyped) {
  Complete(u"meas:volt:");
  ASSERT_TRUE(Future().Type(u"d"));
  EXPECT_THAT(Offered(), ElementsAre("DC?"));
  Press(ReturnKey);
  EXPECT_EQ(Text(), "meas:volt:dc?");
  Complete(u"meas:volt:");
  ASSERT_TRUE(Future().Type(u"x"));
  EXPECT_THAT(Offered(), IsEmpty());
}

TEST_F(CompletionTest, ClosesWhenAWordStandsThereWhole) {
  Complete(u"meas:volt:d");
  ASSERT_TRUE(Future().Type(u"c?"));
  EXPECT_THAT(Offered(), IsEmpty()) << "or Return would not end the line";
}

TEST_F(CompletionTest, ClosesWhenAParameterStandsThereWhole) {
  EXPECT_THAT(Complete(u"outp of"), ElementsAre("OFF"));
  ASSERT_TRUE(Future().Type(u"f"));
  EXPECT_THAT(Offered(), IsEmpty());
}

TEST_F(CompletionTest, ClosesWhenTheCaretLeavesTheWord) {
  Complete(u"meas:volt:d");
  Future().MoveCaret(10);
  EXPECT_THAT(Offered(), ElementsAre("AC?", "DC?")) << "still in the word";
  Future().MoveCaret(9);
  EXPECT_THAT(Offered(), IsEmpty());
  Complete(u"meas:volt:d");
  ASSERT_TRUE(Future().Type(u"c?;"));
  EXPECT_THAT(Offered(), IsEmpty());
  Complete(u"meas:volt:");
  ASSERT_TRUE(Future().Type(u"\r\n"));
  EXPECT_THAT(Offered(), IsEmpty());
}

TEST_F(CompletionTest, ClosesWhenTheBoxLosesTheFocus) {
  Complete(u"meas:volt:");
  Window->txtPast()->SetFocus();
  EXPECT_THAT(Offered(), IsEmpty());
}

TEST_F(CompletionTest, ParametersAreOffered) { EXPECT_THAT(Complete(u"outp o"), ElementsAre("ON", "OFF")); }

TEST_F(CompletionTest, GivesTheCommandWindowTheFocus) {
  Type(u"meas:volt:");
  Window->txtPast()->SetFocus();
  Click(u"mnuComplete");
  EXPECT_THAT(Offered(), ElementsAre("AC?", "DC?"));
}

TEST_F(CompletionTest, OffersNothingForASelection) {
  Type(u"meas:volt:");
  Future().SelStart(5);
  Future().SelLength(5);
  Click(u"mnuComplete");
  EXPECT_THAT(Offered(), IsEmpty());
}

TEST_F(CompletionTest, InsertsPlainBlackTextAsOneStepOfUndo) {
  Type(u"outp o");
  Future().SelStart(0);
  Future().SelLength(6);
  Future().SelFormat({.SelBold = true, .SelColor = 0x0000FF});
  Future().SelStart(6);
  Click(u"mnuComplete");
  Press(DownKey);
  Press(ReturnKey);
  EXPECT_EQ(Text(), "outp off");
  Future().SelStart(5);
  Future().SelLength(3);
  EXPECT_EQ(Future().SelFormat().SelBold, false);
  EXPECT_EQ(Future().SelFormat().SelColor, 0);
  Future().SelStart(0);
  Future().SelLength(4);
  EXPECT_EQ(Future().SelFormat().SelBold, true);
  ASSERT_TRUE(Future().Undo());
  EXPECT_EQ(Text(), "outp o");
}

TEST_F(CompletionTest, ARunClosesTheListAndSendsTheSame) {
  Complete(u"meas:volt:");
  ASSERT_FALSE(Offered().empty());
  std::vector<std::size_t> open;
  Driver->OnWrite = [&](const std::string&) {
    open.push_back(Offered().size());
    return 0;
  };
  Future().Type(u"DC");
  const std::size_t before = Wire.size();
  Click(u"mnuRun");
  ASSERT_FALSE(open.empty());
  EXPECT_EQ(open.front(), 0U);
  EXPECT_EQ(std::count(Wire.begin() + static_cast<std::ptrdiff_t>(before), Wire.end(), "write meas:volt:DC"), 1);
}

TEST_F(CompletionTest, AStepClosesTheList) {
  Complete(u"meas:volt:");
  Future().Text(u"*CLS\r\nmeas:volt:");
  Future().MoveCaret(16);
  Click(u"mnuComplete");
  ASSERT_FALSE(Offered().empty());
  Click(u"mnuStep");
  EXPECT_THAT(Offered(), IsEmpty());
  EXPECT_EQ(Text(), "meas:volt:");
}

TEST_F(CompletionTest, IsOffWhileARunTakesLines) {
  std::vector<bool> enabled;
  Driver->OnWrite = [&](const std::string&) {
    enabled.push_back(Menu(u"mnuComplete").Enabled());
    Click(u"mnuComplete");
    EXPECT_THAT(Offered(), IsEmpty());
    return 0;
  };
  Future().Text(u"one\r\nOUTP O");
  Click(u"mnuRun");
  ASSERT_FALSE(enabled.empty());
  EXPECT_FALSE(enabled.front());
  EXPECT_TRUE(Menu(u"mnuComplete").Enabled());
}

TEST_F(CompletionTest, OffersWhatWasAccepted) {
  EXPECT_THAT(Complete(u"conf:"), IsEmpty());
  Future().Text(u"CONF:CURR MAX\r\n");
  Click(u"mnuRun");
  EXPECT_THAT(Complete(u"conf:"), ElementsAre("CURR MINimum|MAXimum|DEFault"));
  EXPECT_THAT(Complete(u"conf:curr m"), ElementsAre("MINimum", "MAXimum"));
}

TEST_F(CompletionTest, OffersNothingThatWasRefusedOrNotChecked) {
  Answers[":SYST:ERR?"] = {"-113,\"Undefined header\""};
  Future().Text(u"CONF:BAD\r\n");
  Click(u"mnuRun");
  EXPECT_THAT(Complete(u"conf:"), IsEmpty());
  SetItem(u"AutoErrorCheckingMode", u"Off");
  Future().Text(u"CONF:CURR\r\n");
  Click(u"mnuRun");
  EXPECT_THAT(Complete(u"conf:"), IsEmpty());
}

TEST_F(CompletionTest, ABadListIsToldOnceAndTheOthersWork) {
  List(u"bad.txt", std::string("OK:ONE\n\x01\n"));
  List(u"half.txt", "GOOD:ONE\n??\n");
  Files->HasChanged = true;
  EXPECT_THAT(Complete(u"good:"), ElementsAre("ONE", "ONE?"));
  ASSERT_EQ(Boxes(), 1U);
  EXPECT_EQ(LastBox(), "The command list bad.txt: Line 2 is no text.\r\n"
                       "The command list half.txt: Line 2 is no command.");
  Files->HasChanged = true;
  EXPECT_THAT(Complete(u"meas:volt:"), ElementsAre("AC?", "DC?"));
  EXPECT_EQ(Boxes(), 1U);
}

TEST_F(CompletionTest, AListThatIsDroppedInIsTakenUp) {
  EXPECT_THAT(Complete(u"new:"), IsEmpty());
  List(u"new.txt", "NEW:ONE?\n");
  Files->HasChanged = true;
  EXPECT_THAT(Complete(u"new:"), ElementsAre("ONE?"));
}

TEST_F(CompletionTest, DoesNothingWhileThePlaceholderStandsThere) {
  SetOpened(false);
  EXPECT_FALSE(Menu(u"mnuComplete").Enabled());
  Click(u"mnuComplete");
  EXPECT_EQ(Text(), "OPEN AN INSTRUMENT!");
  EXPECT_THAT(Offered(), IsEmpty());
}

} // namespace
} // namespace portico::test

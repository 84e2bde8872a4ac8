#include "completion/Completion.h"

#include "completion/Offered.h"

#include <gtest/gtest.h>

namespace portico::completion {
namespace {

using test::Offered;

const test::Lines Known = {"OUTPut[:STATe] ON|OFF", "VOLTage:RANGe <volts>|MINimum|MAXimum|DEFault",
                           "VOLTage:RANGe? MINimum|MAXimum", "APPLy CH1|CH2,<volts>|DEFault", "ABORt/nquery/"};

TEST(ParameterCompletion, BehindTheBlankOfAHeader) {
  EXPECT_EQ(Offered(u"OUTP ", Known), "OUTP ON OUTP OFF");
  EXPECT_EQ(Offered(u"OUTP:STAT O", Known), "OUTP:STAT ON OUTP:STAT OFF");
  EXPECT_EQ(Offered(u"OUTP OF", Known), "OUTP OFF");
  EXPECT_EQ(Offered(u"OUTP  OF", Known), "OUTP  OFF");
  EXPECT_EQ(Offered(u"OUTP X", Known), "");
  EXPECT_EQ(Offered(u"OUTP ON ", Known), "");
  EXPECT_EQ(Offered(u"OUTP 1", Known), "");
  EXPECT_EQ(Offered(u"ABOR ", Known), "");
  EXPECT_EQ(Offered(u"UNKN ", Known), "");
  EXPECT_EQ(Offered(u"*/ ", Known), "");
}

TEST(ParameterCompletion, AQueryHasItsOwn) {
  EXPECT_EQ(Offered(u"VOLT:RANG ", Known), "VOLT:RANG MIN VOLT:RANG MAX VOLT:RANG DEF");
  EXPECT_EQ(Offered(u"VOLT:RANG? ", Known), "VOLT:RANG? MIN VOLT:RANG? MAX");
  EXPECT_EQ(Offered(u"OUTP? ", Known), "");
}

TEST(ParameterCompletion, EachParameterHasItsOwn) {
  EXPECT_EQ(Offered(u"APPL ", Known), "APPL CH1 APPL CH2");
  EXPECT_EQ(Offered(u"APPL CH1,", Known), "APPL CH1,DEF");
  EXPECT_EQ(Offered(u"APPL CH1, d", Known), "APPL CH1, def");
  EXPECT_EQ(Offered(u"APPL CH1,2,", Known), "");
  EXPECT_EQ(Offered(u"APPL \"a,b\",", Known), "APPL \"a,b\",DEF");
}

TEST(ParameterCompletion, IsInTheFormAndTheCaseOfTheLine) {
  EXPECT_EQ(Offered(u"volt:rang m", Known), "volt:rang min volt:rang max");
  EXPECT_EQ(Offered(u"voltage:range ma", Known), "voltage:range maximum");
  EXPECT_EQ(Offered(u"VOLT:RANG maxi", Known), "VOLT:RANG maximum");
}

TEST(ParameterCompletion, BehindASemicolon) {
  EXPECT_EQ(Offered(u"VOLT:RANG 5;RANG? ", Known), "VOLT:RANG 5;RANG? MIN VOLT:RANG 5;RANG? MAX");
  EXPECT_EQ(Offered(u"VOLT:RANG 5;:OUTP ON;*CLS;OUTP OF", Known), "VOLT:RANG 5;:OUTP ON;*CLS;OUTP OFF");
}

TEST(ParameterCompletion, IsThatOfTheFirstSourceThatToldOfAFittingHeader) {
  CommandTree tree;
  tree.Add(test::Commands({"OUTPut/nquery/ ON|OFF"}));
  tree.Add(test::Commands({"OUTPut<0-4>/nquery/ LOW|HIGH"}));
  EXPECT_EQ(Offered(u"OUTP ", tree), "OUTP ON OUTP OFF");
  EXPECT_EQ(Offered(u"OUTP2 ", tree), "OUTP2 LOW OUTP2 HIGH");
}

TEST(ParameterCompletion, NothingIsOfferedInStringsAndBlocks) {
  for (const StringView line :
       {u"OUTP \"O", u"OUTP \"a,O", u"OUTP 'a;O", u"OUTP 'a O", u"OUTP #15a,O", u"OUTP #0a;O"}) {
    EXPECT_EQ(Offered(line, Known), "") << ToUtf8(line);
  }
}

TEST(ParameterCompletion, TellsWhatItReplaces) {
  CommandTree tree;
  tree.Add(test::Commands(Known));
  const Completion completion = Complete(u"VOLT:RANG ma", tree);
  EXPECT_EQ(completion.Begin, 10U);
  EXPECT_EQ(completion.Candidates, (std::vector<Candidate>{{u"max", u"MAXimum"}}));
}

} // namespace
} // namespace portico::completion

#include "instructions/builders/BuilderFixture.h"
#include "instructions/builders/CNullCmdBuilder.h"

namespace portico {
namespace {

using test::Hex;
using test::Journal;
using test::MakeInstruction;

constexpr char16_t Scpi[] = u"SCPICommandBuilder";

Ref<CInstContainer> Line(const String& text) { return MakeInstruction(u"SCPI", u"Send", {{u"Data", text}}); }

class CSCPICmdBuilderTest : public test::BuilderFixture {
protected:
  /// With auto-read on a query has a read behind its write.
  bool IsQuery(const String& text) {
    Set(u"AutoReadAfterQueryMode", u"On");
    const Journal links = Links(Scpi, Line(text));
    const bool query = links.size() == 3;
    EXPECT_EQ(links, query ? (Journal{"write " + ToUtf8(text), "read", "inner"})
                           : (Journal{"write " + ToUtf8(text), "inner"}));
    return query;
  }
};

TEST_F(CSCPICmdBuilderTest, ALineWithAQuestionMarkOutsideQuotesIsAQuery) {
  for (const auto* text : {u"*IDN?", u"?", u":MEAS:VOLT?;*OPC", u"*IDN ? junk", u"DISP:TEXT 'WHY?'; *IDN?",
                           u"DISP:TEXT \"WHY?\";*IDN?", u"A 'x''y' ?", u"A \"it's\" ?", u"A 'say \"' ?", u"A '' ?"}) {
    EXPECT_TRUE(IsQuery(text)) << ToUtf8(text);
  }
}

TEST_F(CSCPICmdBuilderTest, AnyOtherLineIsNone) {
  for (const auto* text : {u"*RST", u"", u"MMEM:LOAD \"A?B\"", u"MMEM:LOAD 'A?B'", u"DISP:TEXT \"it's why?\"",
                           u"DISP:TEXT 'say \"why?\"'", u"A 'x''?'", u"A \"x\"\"?\""}) {
    EXPECT_FALSE(IsQuery(text)) << ToUtf8(text);
  }
}

TEST_F(CSCPICmdBuilderTest, AnUnmatchedQuoteMasksTheRestOfTheLine) {
  EXPECT_FALSE(IsQuery(u"DISP:TEXT 'oops; *IDN?"));
  EXPECT_FALSE(IsQuery(u"DISP:TEXT \"oops; *IDN?"));
  EXPECT_TRUE(IsQuery(u"*IDN?; DISP:TEXT 'oops"));
}

TEST_F(CSCPICmdBuilderTest, AQueryHasOneLinkFewerWithoutAutoRead) {
  Set(u"AutoReadAfterQueryMode", u"Off");
  EXPECT_EQ(Links(Scpi, Line(u"*IDN?")), (Journal{"write *IDN?", "inner"}));
  EXPECT_EQ(Spy->ParametersOf(u"NullCommandBuilder").size(), 1U);
}

TEST_F(CSCPICmdBuilderTest, AnyOtherModeIsRefusedForAQuery) {
  for (const auto* mode : {u"on", u"ON", u"off", u"", u"Maybe"}) {
    Set(u"AutoReadAfterQueryMode", mode);
    const auto failure = BuildFailure(Scpi, Line(u"*IDN?"));
    EXPECT_EQ(failure.Number, Hex(0x80041462));
    EXPECT_EQ(failure.Text, u"Requested auto-read-after-query mode, " + String(mode) + u" is not defined.");
    EXPECT_EQ(failure.Labels, std::vector<String>{u"CSCPICmdBuilder.IBuilder_Build(InnerCommand,Instruction)"});
    EXPECT_EQ(Calls, Journal{});
  }
}

TEST_F(CSCPICmdBuilderTest, TheModeIsNotReadForALineThatIsNoQuery) {
  Set(u"AutoReadAfterQueryMode", u"Maybe");
  EXPECT_EQ(Links(Scpi, Line(u"*RST")), (Journal{"write *RST", "inner"}));
}

TEST_F(CSCPICmdBuilderTest, IgnoresTheCaseOfTheFunction) {
  for (const auto* function : {u"send", u"Send", u"SEND"}) {
    EXPECT_EQ(Links(Scpi, MakeInstruction(u"SCPI", function, {{u"Data", u"*RST"}})), (Journal{"write *RST", "inner"}));
  }
}

TEST_F(CSCPICmdBuilderTest, AnUnknownFunctionIsASyntaxError) {
  const auto failure = BuildFailure(Scpi, MakeInstruction(u"SCPI", u"Write", {{u"Data", u"*RST"}}));
  EXPECT_EQ(failure.Number, Hex(0x80041459));
  EXPECT_EQ(failure.Text, u"Syntax Error: Unrecognized SCPI function.");
  EXPECT_EQ(failure.Source, u"CSCPICmdBuilder");
}

TEST_F(CSCPICmdBuilderTest, AnUnknownFunctionWithABadModeReportsTheMode) {
  Set(u"AutoReadAfterQueryMode", u"Maybe");
  EXPECT_EQ(BuildFailure(Scpi, MakeInstruction(u"SCPI", u"Write", {{u"Data", u"*IDN?"}})).Number, Hex(0x80041462));
}

TEST_F(CSCPICmdBuilderTest, TheLastOfSeveralParametersWins) {
  Set(u"AutoReadAfterQueryMode", u"On");
  EXPECT_EQ(Links(Scpi, MakeInstruction(u"SCPI", u"Send", {{u"A", u"*IDN?"}, {u"B", u"*RST"}})),
            (Journal{"write *RST", "inner"}));
  EXPECT_EQ(Links(Scpi, MakeInstruction(u"SCPI", u"Send", {{u"A", u"*RST"}, {u"B", u"*IDN?"}})),
            (Journal{"write *IDN?", "read", "inner"}));
}

TEST_F(CSCPICmdBuilderTest, AnInstructionWithoutParametersFails) {
  EXPECT_EQ(BuildFailure(Scpi, MakeInstruction(u"SCPI", u"Send")).Number, 9);
  // The array comes before the function name.
  EXPECT_EQ(BuildFailure(Scpi, MakeInstruction(u"SCPI", u"Write")).Number, 9);
}

TEST_F(CSCPICmdBuilderTest, WithoutAnInnerCommandTheWriteIsTheWholeChain) {
  Builder(Scpi)->Build({}, Line(u"*RST"))->Execute();
  EXPECT_EQ(Calls, (Journal{"write *RST", "report CWriteCmd"}));
}

class CNullCmdBuilderTest : public test::BuilderFixture {};

TEST_F(CNullCmdBuilderTest, GivesBackTheInnerCommandItself) {
  const auto inner = Inner();
  EXPECT_TRUE(IsSameObject(Builder(u"NullCommandBuilder")->Build(inner, Line(u"*RST")), inner));
  EXPECT_FALSE(Builder(u"NullCommandBuilder")->Build({}, Line(u"*RST")));
}

TEST_F(CNullCmdBuilderTest, DoesNotLookAtTheInstruction) {
  const auto inner = Inner();
  EXPECT_TRUE(IsSameObject(Builder(u"NullCommandBuilder")->Build(inner, {}), inner));
}

TEST_F(CNullCmdBuilderTest, IsInitializedFromTheStart) {
  const auto inner = Inner();
  EXPECT_TRUE(IsSameObject(CNullCmdBuilder().Build(inner, {}), inner));
}

} // namespace
} // namespace portico

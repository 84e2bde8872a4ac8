#include "instructions/builders/BuilderFixture.h"

namespace portico {
namespace {

using test::Hex;
using test::Journal;
using test::MakeInstruction;

constexpr char16_t Comm[] = u"CommunicationCommandBuilder";

class CCommCmdBuilderTest : public test::BuilderFixture {};

TEST_F(CCommCmdBuilderTest, MapsEachFunctionToOneChannelCommand) {
  EXPECT_EQ(Links(Comm, MakeInstruction(u"COMM", u"Open", {{u"ChannelName", u"DMM"}})), (Journal{"init DMM", "inner"}));
  EXPECT_EQ(Links(Comm, MakeInstruction(u"COMM", u"Write", {{u"Data", u"*RST"}})), (Journal{"write *RST", "inner"}));
  EXPECT_EQ(Links(Comm, MakeInstruction(u"COMM", u"Read", {{u"Data", u""}})), (Journal{"read", "inner"}));
  EXPECT_EQ(Links(Comm, MakeInstruction(u"COMM", u"SetAttribute", {{u"Name", u"TERMCHAR"}, {u"Value", u"LF"}})),
            (Journal{"set 1150007 10", "inner"}));
  EXPECT_EQ(Links(Comm, MakeInstruction(u"COMM", u"Close")), (Journal{"close", "inner"}));
}

TEST_F(CCommCmdBuilderTest, AsksTheFactoryForTheCommandOfTheFunction) {
  const std::vector<std::pair<Ref<CInstContainer>, String>> commands = {
      {MakeInstruction(u"COMM", u"Open", {{u"ChannelName", u"DMM"}}), u"OpenCmd"},
      {MakeInstruction(u"COMM", u"Close"), u"CloseCmd"},
      {MakeInstruction(u"COMM", u"SetAttribute", {{u"Name", u"A"}, {u"Value", u"B"}}), u"SetAttribCmd"},
      {MakeInstruction(u"COMM", u"GetAttribute", {{u"Name", u"A"}}), u"GetAttribCmd"},
      {MakeInstruction(u"COMM", u"Read", {{u"Data", u""}}), u"ReadCmd"},
      {MakeInstruction(u"COMM", u"Write", {{u"Data", u"*RST"}}), u"WriteCmd"}};
  for (const auto& [instruction, specification] : commands) {
    Spy->Requests.clear();
    Builder(Comm)->Build({}, instruction);
    EXPECT_EQ(Spy->ParametersOf(specification).size(), 1U) << ToUtf8(specification);
  }
}

TEST_F(CCommCmdBuilderTest, KnowsAllFunctionsInUpperCase) {
  Builder(Comm)->Build({}, MakeInstruction(u"COMM", u"OPEN", {{u"ChannelName", u"DMM"}}));
  Builder(Comm)->Build({}, MakeInstruction(u"COMM", u"CLOSE"));
  Builder(Comm)->Build({}, MakeInstruction(u"COMM", u"SETATTRIBUTE", {{u"Name", u"A"}, {u"Value", u"B"}}));
  Builder(Comm)->Build({}, MakeInstruction(u"COMM", u"GETATTRIBUTE", {{u"Name", u"A"}}));
  Builder(Comm)->Build({}, MakeInstruction(u"COMM", u"READ", {{u"Data", u""}}));
  Builder(Comm)->Build({}, MakeInstruction(u"COMM", u"WRITE", {{u"Data", u"*RST"}}));
  for (const auto* command : {u"OpenCmd", u"CloseCmd", u"SetAttribCmd", u"GetAttribCmd", u"ReadCmd", u"WriteCmd"}) {
    EXPECT_EQ(Spy->ParametersOf(command).size(), 1U);
  }
}

TEST_F(CCommCmdBuilderTest, IgnoresTheCaseOfTheFunction) {
  for (const auto* function : {u"write", u"Write", u"WRITE", u"wRiTe"}) {
    EXPECT_EQ(Links(Comm, MakeInstruction(u"COMM", function, {{u"Data", u"*RST"}})), (Journal{"write *RST", "inner"}));
  }
}

TEST_F(CCommCmdBuilderTest, AnUnknownFunctionIsASyntaxError) {
  for (const auto* function : {u"Send", u"Writes", u""}) {
    const auto failure = BuildFailure(Comm, MakeInstruction(u"COMM", function, {{u"Data", u"*RST"}}));
    EXPECT_EQ(failure.Number, Hex(0x80041459));
    EXPECT_EQ(failure.Text, u"Syntax Error: Unrecognized command.");
    EXPECT_EQ(failure.Source, u"CCommCmdBuilder");
    EXPECT_EQ(failure.Labels, std::vector<String>{u"CCommCmdBuilder.IBuilder_Build(InnerCommand,Instruction)"});
  }
}

TEST_F(CCommCmdBuilderTest, AFailureShowsTheParametersUnderTheirNames) {
  const auto failure = test::FailureOf([&] { Builder(Comm)->Build({}, MakeInstruction(u"COMM", u"Writes")); });
  EXPECT_EQ(failure.Trail,
            std::vector<String>{u"CCommCmdBuilder.IBuilder_Build(InnerCommand={Null}, Instruction={CInstContainer})"});
}

TEST_F(CCommCmdBuilderTest, OnlyThePositionOfAParameterCounts) {
  EXPECT_EQ(Links(Comm, MakeInstruction(u"COMM", u"SetAttribute", {{u"Value", u"TERMCHAR"}, {u"Name", u"CR"}})),
            (Journal{"set 1150007 13", "inner"}));
}

TEST_F(CCommCmdBuilderTest, CloseGetsExactlyOneParameter) {
  Builder(Comm)->Build({}, MakeInstruction(u"COMM", u"Close"));
  ASSERT_EQ(Spy->ParametersOf(u"CloseCmd").size(), 1U);
  EXPECT_EQ(Spy->ParametersOf(u"CloseCmd")[0].size(), 1U);
}

TEST_F(CCommCmdBuilderTest, ReadGetsASecondParameterThatIsEmpty) {
  Builder(Comm)->Build({}, MakeInstruction(u"COMM", u"Read", {{u"Data", u""}}));
  ASSERT_EQ(Spy->ParametersOf(u"ReadCmd").size(), 1U);
  const Params parameters = Spy->ParametersOf(u"ReadCmd")[0];
  ASSERT_EQ(parameters.size(), 2U);
  EXPECT_EQ(parameters[1].ToString(), u"");
}

TEST_F(CCommCmdBuilderTest, ParametersThatDoNotFitTheCommandAreItsCreatorsAffair) {
  const auto tooFew = BuildFailure(Comm, MakeInstruction(u"COMM", u"Read"));
  EXPECT_EQ(tooFew.Number, 450);
  EXPECT_EQ(tooFew.Text, u"Expected 2 parameters.");

  const auto value = BuildFailure(Comm, MakeInstruction(u"COMM", u"Read", {{u"Data", u"x"}}));
  EXPECT_EQ(value.Number, 5);
  EXPECT_EQ(value.Text, u"Second parameter cannot have a value.");

  // The generator's shape of this function has a second, empty parameter which the command does not take.
  EXPECT_EQ(BuildFailure(Comm, MakeInstruction(u"COMM", u"GetAttribute", {{u"Name", u"A"}, {u"Value", u""}})).Number,
            450);
}

TEST_F(CCommCmdBuilderTest, OpeningClosesFirstWhileAnInstrumentNameIsRecorded) {
  Set(u"InstrumentName", u"PSU");
  // The close link asks the channel, which has no session to close yet.
  const auto command = Builder(Comm)->Build(Inner(), MakeInstruction(u"COMM", u"Open", {{u"ChannelName", u"DMM"}}));
  command->Execute();
  EXPECT_EQ(Calls, (Journal{"report CCloseCmd", "init DMM", "report COpenCmd", "inner"}));
  ASSERT_EQ(Spy->ParametersOf(u"CloseCmd").size(), 1U);
  EXPECT_EQ(Spy->ParametersOf(u"CloseCmd")[0].size(), 1U);
}

TEST_F(CCommCmdBuilderTest, OpeningLooksAtTheRecordedNameAndNotAtWhetherItIsOpen) {
  Set(u"InstrumentOpened", u"True");
  EXPECT_EQ(Links(Comm, MakeInstruction(u"COMM", u"Open", {{u"ChannelName", u"DMM"}})), (Journal{"init DMM", "inner"}));
  EXPECT_TRUE(Spy->ParametersOf(u"CloseCmd").empty());

  Set(u"InstrumentOpened", u"False");
  Set(u"InstrumentName", u"DMM");
  EXPECT_EQ(Links(Comm, MakeInstruction(u"COMM", u"Open", {{u"ChannelName", u"DMM"}})),
            (Journal{"close", "init DMM", "inner"}));
}

TEST_F(CCommCmdBuilderTest, OnlyOpeningAsksForTheRecordedName) {
  Set(u"InstrumentName", u"DMM");
  EXPECT_EQ(Links(Comm, MakeInstruction(u"COMM", u"Write", {{u"Data", u"*RST"}})), (Journal{"write *RST", "inner"}));
}

TEST_F(CCommCmdBuilderTest, TakesNoParametersItself) {
  const auto failure = test::FailureOf([] { Create<IBuilder>(Comm, Params{u"x"}); });
  EXPECT_EQ(failure.Number, 450);
  EXPECT_EQ(failure.Text, u"Expected 0 parameters.");
}

class CConfigCmdBuilderTest : public test::BuilderFixture {
protected:
  /// The array that the command's creator is given.
  Params ArrayFor(const String& specification, const Ref<CInstContainer>& instruction) {
    const auto failure = BuildFailure(u"ConfigurationCommandBuilder", instruction);
    EXPECT_EQ(failure.Number, 13);
    const auto requests = Spy->ParametersOf(specification);
    if (requests.size() != 1 || requests[0].size() != 2) {
      ADD_FAILURE() << "one request with two parameters was expected";
      return {};
    }
    return requests[0][1].ToArray();
  }
};

TEST_F(CConfigCmdBuilderTest, AnInstructionEndsInATypeMismatchBecauseTheArrayIsNoString) {
  EXPECT_EQ(ArrayFor(u"SetConfigurationCommand", MakeInstruction(u"CONFIG", u"Set", {{u"Data", u"<a/>"}})).size(), 1U);
  EXPECT_EQ(ArrayFor(u"GetConfigurationCommand", MakeInstruction(u"CONFIG", u"GET", {{u"Data", u"<a/>"}})).size(), 1U);
}

TEST_F(CConfigCmdBuilderTest, TheFirstElementEndsUpWithTheLastParameter) {
  const Params array =
      ArrayFor(u"SetConfigurationCommand",
               MakeInstruction(u"CONFIG", u"SET", {{u"A", u"first"}, {u"B", u"middle"}, {u"C", u"last"}}));
  ASSERT_EQ(array.size(), 3U);
  EXPECT_EQ(array[0].ToString(), u"last");
  EXPECT_EQ(array[1].ToString(), u"");
  EXPECT_EQ(array[2].ToString(), u"");
}

TEST_F(CConfigCmdBuilderTest, AnUnknownFunctionIsASyntaxErrorUnderTheCommunicationBuildersLabel) {
  const auto failure =
      BuildFailure(u"ConfigurationCommandBuilder", MakeInstruction(u"CONFIG", u"Clear", {{u"Data", u""}}));
  EXPECT_EQ(failure.Number, Hex(0x80041459));
  EXPECT_EQ(failure.Text, u"Syntax Error: Unrecognized command.");
  EXPECT_EQ(failure.Source, u"CConfigCmdBuilder");
  EXPECT_EQ(failure.Labels, std::vector<String>{u"CCommCmdBuilder.IBuilder_Build(InnerCommand,Instruction)"});
}

TEST_F(CConfigCmdBuilderTest, WithoutParametersTheArrayCannotBeMade) {
  EXPECT_EQ(BuildFailure(u"ConfigurationCommandBuilder", MakeInstruction(u"CONFIG", u"Set")).Number, 9);
}

TEST_F(CConfigCmdBuilderTest, TakesNoParametersItself) {
  const auto failure = test::FailureOf([] { Create<IBuilder>(u"ConfigurationCommandBuilder", Params{1}); });
  EXPECT_EQ(failure.Number, 450);
  EXPECT_EQ(failure.Text, u"Expected 0 parameters.");
}

} // namespace
} // namespace portico

#include "channel/ChainFixture.h"
#include "support/doubles/Objects.h"

namespace portico {
namespace {

using test::ChainTest;
using test::ExpectError;
using test::ExpectTrail;
using test::Raised;

struct CreatorCase {
  const CreatorRow* Row;
  const char16_t* Name;
  const char16_t* Specification;
  const char16_t* Product;
  std::size_t Count;
  const char16_t* WrongNumber;
  const char16_t* CreateLabel;
  const char* Call;
};

void PrintTo(const CreatorCase& given, std::ostream* out) { *out << ToUtf8(given.Name); }

class CommandCreatorsTest : public ChainTest, public ::testing::WithParamInterface<CreatorCase> {
protected:
  /// The inner command and, but for the read, the texts "A" and "B" behind it.
  Params Parameters() const {
    Params parameters = {Inner, u"A", u"B"};
    if (GetParam().Row == &CtorReadCmd) parameters[1] = u"";
    parameters.resize(GetParam().Count);
    return parameters;
  }
  Ref<ICreator> Creator = MakeCreator(*GetParam().Row);
};

INSTANTIATE_TEST_SUITE_P(
    Rows, CommandCreatorsTest,
    ::testing::Values(
        CreatorCase{&CtorOpenCmd, u"CtorOpenCmd", u"OpenCmd", u"COpenCmd", 2, u"Expected 2 parameters.",
                    u"CtorOpenCmd.ICreator_Create(Params)", "OpenChannel(A)"},
        CreatorCase{&CtorWriteCmd, u"CtorWriteCmd", u"WriteCmd", u"CWriteCmd", 2, u"Expected 2 parameters.",
                    u"CtorWriteCmd.ICreator_Create(Params)", "WriteData(A)"},
        CreatorCase{&CtorReadCmd, u"CtorReadCmd", u"ReadCmd", u"CReadCmd", 2, u"Expected 2 parameters.",
                    u"CtorReadCmd.ICreator_Create(Params)", "ReadData()"},
        CreatorCase{&CtorCloseCmd, u"CtorCloseCmd", u"CloseCmd", u"CCloseCmd", 1, u"Expected 1 parameter.",
                    u"CtorCloseCmd.ICreator_Create(Params)", "CloseChannel()"},
        CreatorCase{&CtorGetAttribCmd, u"CtorGetAttribCmd", u"GetAttribCmd", u"CGetAttribCmd", 2,
                    u"Expected 2 parameters.", u"CtorGetAttribCmd.ICreator_Create(Params)", "GetChannelAttribute(A)"},
        CreatorCase{&CtorSetAttribCmd, u"CtorSetAttribCmd", u"SetAttribCmd", u"CSetAttribCmd", 3,
                    u"Expected 3 parameter.", u"CtorSetAttribCmd.ICreator_Create(Params)", "SetChannelAttribute(A,B)"},
        CreatorCase{&CtorGetConfigCmd, u"CtorGetConfigCmd", u"GetConfigurationCommand", u"CGetConfigCmd", 2,
                    u"Expected 2 parameters.", u"CtorGetConfigCmd.ICreator_Create(Params)", "Retrieve(A)"},
        CreatorCase{&CtorSetConfigCmd, u"CtorSetConfigCmd", u"SetConfigurationCommand", u"CSetConfigCmd", 2,
                    u"Expected 2 parameters.", u"CtorSetConfigCmd.ICreator_Create(Params)", "Update(A)"}),
    [](const auto& given) { return ToUtf8(given.param.Name); });

TEST_P(CommandCreatorsTest, BearsItsNameAndSpecification) {
  EXPECT_EQ(Creator->ClassName(), GetParam().Name);
  EXPECT_EQ(Creator->Specification().ToString(), GetParam().Specification);
}

TEST_P(CommandCreatorsTest, WiresParametersAndPublisher) {
  const auto command = Cast<ICommand>(Creator->Create(Parameters()));
  EXPECT_EQ(command->ClassName(), GetParam().Product);
  command->Execute();
  EXPECT_EQ(Events.front(), GetParam().Call);
  EXPECT_EQ(Events.back(), "Inner");
  EXPECT_EQ(Events[Events.size() - 2], "Notify(" + ToUtf8(GetParam().Product) + ")");
}

TEST_P(CommandCreatorsTest, MakesANewCommandEachTime) {
  EXPECT_FALSE(IsSameObject(Creator->Create(Parameters()), Creator->Create(Parameters())));
}

TEST_P(CommandCreatorsTest, AsksForThePublisherWithoutParameters) {
  const auto agent = New<test::CreatorOfOne>(u"CmdSubscriptionAgent", Publisher);
  agent->LastCount = 99;
  Factory->Substitue(agent);
  Creator->Create(Parameters());
  EXPECT_EQ(agent->LastCount, 0U);
}

TEST_P(CommandCreatorsTest, WrongNumberRaises450) {
  Params tooMany = Parameters();
  tooMany.emplace_back(u"C");
  for (const Params& parameters : {Params{}, tooMany}) {
    const ErrorRecord error = Raised([&] { Creator->Create(parameters); });
    ExpectError(error, 450, GetParam().WrongNumber);
    ExpectTrail(error, {GetParam().CreateLabel});
  }
}

TEST_P(CommandCreatorsTest, InnerCommandMayBeAbsentButNothingElseThanACommand) {
  Params parameters = Parameters();
  parameters[0] = Ref<ICommand>();
  EXPECT_NO_THROW(Creator->Create(parameters));
  parameters[0] = Channel;
  EXPECT_EQ(Raised([&] { Creator->Create(parameters); }).Number, 13);
}

TEST_P(CommandCreatorsTest, TextThatIsAnArrayRaises13) {
  for (std::size_t i = 1; i < GetParam().Count; ++i) {
    Params parameters = Parameters();
    parameters[i] = Params{u"A", u"B"};
    const ErrorRecord error = Raised([&] { Creator->Create(parameters); });
    EXPECT_EQ(error.Number, 13);
    ExpectTrail(error, {GetParam().CreateLabel});
  }
}

class CtorReadCmdTest : public ChainTest {};

TEST_F(CtorReadCmdTest, RefusesASecondParameterWithAValue) {
  const ErrorRecord error = Raised([&] { MakeCreator(CtorReadCmd)->Create({Inner, u"X"}); });
  ExpectError(error, 5, u"Second parameter cannot have a value.");
  ExpectTrail(error, {u"CtorReadCmd.ICreator_Create(Params)"});
}

class CtorWriteCmdTest : public ChainTest {};

TEST_F(CtorWriteCmdTest, NumberBecomesItsText) {
  Cast<ICommand>(MakeCreator(CtorWriteCmd)->Create({Inner, 42}))->Execute();
  EXPECT_EQ(Events.front(), "WriteData(42)");
}

class AttributeCreatorsTest : public ChainTest {};

TEST_F(AttributeCreatorsTest, EmptyAttributeNameFailsAtTheCreation) {
  ExpectTrail(Raised([&] {
                MakeCreator(CtorGetAttribCmd)->Create({Inner, u""});
              }),
              {u"CGetAttribCmd.Initialize(InnerCommand,AttributeName)", u"CtorGetAttribCmd.ICreator_Create(Params)"});
  ExpectTrail(Raised([&] {
                MakeCreator(CtorSetAttribCmd)->Create({Inner, u"", u"LF"});
              }),
              {u"CSetAttribCmd.Initialize(InnerCommand,AttributeName)", u"CtorSetAttribCmd.ICreator_Create(Params)"});
}

} // namespace
} // namespace portico

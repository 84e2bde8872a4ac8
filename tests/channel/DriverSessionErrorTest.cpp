#include "channel/DriverSessionFixture.h"

#include "framework/objects/CObjectFactory.h"

namespace portico {
namespace {

using test::Calls;
using test::DriverSessionTest;
using test::ExpectError;
using test::ExpectTrail;
using test::Raised;
using ::testing::IsEmpty;

/// With a message that is too short for the cut of its last two characters every failure of the driver raises.
class DriverSessionErrorTest : public DriverSessionTest {
protected:
  DriverSessionErrorTest() {
    Open();
    Driver->Message = "x";
    for (const auto* function :
         {"init", "close", "WriteInstrData", "ReadInstrData", "GetAttributeViInt32", "GetAttributeViString",
          "SetAttributeViInt32", "SetAttributeViString", "SetTimeout", "Clear", "GoToLocal"}) {
      Driver->Statuses[function] = -1;
    }
  }

  template <class Call>
  static void ExpectShortMessage(Call call, StringView label) {
    const ErrorRecord error = Raised(call);
    EXPECT_EQ(error.Number, 5);
    ExpectTrail(error, {u"CDriverSession.GetErrorMessage(code)", u"CDriverSession.GenerateResponse(code,data)", label});
  }
};

TEST_F(DriverSessionErrorTest, EveryOperationPassesAShortMessageOnUnderItsLabel) {
  ExpectShortMessage([&] { Session->OpenChannel(u"X"); }, u"CDriverSession.IChannel_OpenChannel(Name)");
  ExpectShortMessage([&] { Session->WriteData(u"X"); }, u"CDriverSession.IChannel_WriteData(data)");
  ExpectShortMessage([&] { Session->ReadData(); }, u"CDriverSession.IChannel_ReadData");
  ExpectShortMessage([&] { Session->GetChannelAttribute(u"TERMCHAR"); },
                     u"CDriverSession.IChannel_GetChannelAttribute(Name)");
  ExpectShortMessage([&] { Session->SetChannelAttribute(u"TERMCHAR", u"CR"); },
                     u"CDriverSession.IChannel_SetChannelAttribute(Name,Value)");
  ExpectShortMessage([&] { Session->SetTimeout(70); }, u"CDriverSession.IChannelExtension_SetTimeout(Milliseconds)");
  ExpectShortMessage([&] { Session->ClearDevice(); }, u"CDriverSession.IChannelExtension_ClearDevice");
  ExpectShortMessage([&] { Session->GoToLocal(); }, u"CDriverSession.IChannelExtension_GoToLocal");
  ExpectShortMessage([&] { Session->CloseChannel(); }, u"CDriverSession.IChannel_CloseChannel");
}

TEST_F(DriverSessionErrorTest, TrailShowsTheArguments) {
  const ErrorRecord error = Raised([&] { Session->SetChannelAttribute(u"TERMCHAR", u"CR"); });
  EXPECT_EQ(test::CallStack(error),
            (std::vector<String>{u"CDriverSession.GetErrorMessage(code=-1)",
                                 u"CDriverSession.GenerateResponse(code=-1, data='')",
                                 u"CDriverSession.IChannel_SetChannelAttribute(Name='TERMCHAR', Value='CR')"}));
}

TEST_F(DriverSessionErrorTest, MessageOfBlanksOrOneCharacterRaises5) {
  for (const auto* message : {"", "      ", "  x  "}) {
    Driver->Message = message;
    EXPECT_EQ(Raised([&] { Session->WriteData(u"X"); }).Number, 5);
  }
}

TEST_F(DriverSessionErrorTest, MessageOfTwoCharactersIsCutToNothing) {
  Driver->Message = " xy ";
  ExpectFailure(Session->WriteData(u"X"), -1, u"");
}

TEST_F(DriverSessionErrorTest, ErrorQueryOfBlanksRaises5FromTheCut) {
  Driver->Statuses.clear();
  const ErrorRecord error = Raised([&] { Session->GetChannelAttribute(u"ERRORQUERYSCPI"); });
  EXPECT_EQ(error.Number, 5);
  ExpectTrail(error, {u"CDriverSession.IChannel_GetChannelAttribute(Name)"});
}

TEST_F(DriverSessionErrorTest, ErrorQueryOfBlanksRaises5AlsoWhenTheDriverFails) {
  Driver->Message = Terminated("It broke.\n");
  EXPECT_EQ(Raised([&] { Session->GetChannelAttribute(u"ERRORQUERYSCPI"); }).Number, 5);
}

TEST_F(DriverSessionErrorTest, CloseLeavesTheHandleAtZeroAlsoWhenItRaises) {
  EXPECT_EQ(Raised([&] { Session->CloseChannel(); }).Number, 5);
  Details.clear();
  ExpectSuccess(Session->CloseChannel(), u"");
  EXPECT_THAT(Details, IsEmpty());
}

class DriverSessionCreatorTest : public DriverSessionTest {};

TEST_F(DriverSessionCreatorTest, HandsTheOneSessionOutForEveryRequest) {
  CObjectFactory factory;
  factory.Add(MakeCreator(CtorDriverSession));
  const auto first = Cast<IChannel>(factory.CreateObject(u"DriverSession", {}));
  const auto second = Cast<IChannel>(factory.CreateObject(u"DriverSession", {}));
  EXPECT_TRUE(IsSameObject(first, second));
  EXPECT_EQ(first->ClassName(), u"CDriverSession");
}

TEST_F(DriverSessionCreatorTest, BearsItsNameAndSpecification) {
  const auto creator = MakeCreator(CtorDriverSession);
  EXPECT_EQ(creator->ClassName(), u"CtorDriverSession");
  EXPECT_EQ(creator->Specification().ToString(), u"DriverSession");
}

TEST_F(DriverSessionCreatorTest, TakesNoParameters) {
  const ErrorRecord error = Raised([&] { MakeCreator(CtorDriverSession)->Create({u"X"}); });
  ExpectError(error, 450, u"Expected 0 parameters.");
  ExpectTrail(error, {u"CtorDriverSession.ICreator_Create(Params)"});
}

TEST_F(DriverSessionCreatorTest, MissingSessionRaises31004) {
  CreatorRow row = CtorDriverSession;
  row.Make = [](const Params&) -> Ref<IObject> { return {}; };
  const auto creator = MakeCreator(row);
  ExpectError(Raised([&] { creator->Create({}); }), 31004, u"Driver session object does not exist.");
}

TEST_F(DriverSessionCreatorTest, DestructionOfTheCreatorReleasesAnOpenInstrument) {
  auto creator = MakeCreator(CtorDriverSession);
  Cast<IChannel>(creator->Create({}))->OpenChannel(u"X");
  creator = nullptr;
  EXPECT_EQ(Details, (Calls{"init(X,0,0)", "close(7)"}));
}

} // namespace
} // namespace portico

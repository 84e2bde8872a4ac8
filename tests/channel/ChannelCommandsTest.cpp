#include "channel/ChainFixture.h"

namespace portico {
namespace {

using test::ChainTest;
using test::ExpectError;
using test::ExpectTrail;
using test::Made;
using test::Raised;
using test::Trace;
using ::testing::IsEmpty;

class ChannelCommandsTest : public ChainTest {};

TEST_F(ChannelCommandsTest, OpenOpensTellsTheConfigurationPublishesAndRunsTheInner) {
  Made<COpenCmd>(Inner, Publisher, u"DMM")->Execute();
  EXPECT_EQ(Events, (Trace{"OpenChannel(DMM)", "InstrumentOpened=True", "Notify(COpenCmd)", "Inner"}));
  ExpectReport(0, {u"COpenCmd", u"", u"Success", 0, u""});
}

TEST_F(ChannelCommandsTest, OpenThatFailsInTheDriverSetsFalseAndStillPublishes) {
  Channel->Code = -7;
  Channel->Text = u"No such instrument.";
  Made<COpenCmd>(Inner, Publisher, u"DMM")->Execute();
  EXPECT_EQ(Events, (Trace{"OpenChannel(DMM)", "InstrumentOpened=False", "Notify(COpenCmd)", "Inner"}));
  ExpectReport(0, {u"COpenCmd", u"No such instrument.", u"No such instrument.", -7, u""});
}

TEST_F(ChannelCommandsTest, OpenWithAPositiveStatusIsNotOpen) {
  Channel->Code = 1;
  Made<COpenCmd>(Inner, Publisher, u"DMM")->Execute();
  EXPECT_EQ(Events[1], "InstrumentOpened=False");
}

TEST_F(ChannelCommandsTest, WriteActsPublishesAndRunsTheInner) {
  Made<CWriteCmd>(Inner, Publisher, u"*IDN?")->Execute();
  EXPECT_EQ(Events, (Trace{"WriteData(*IDN?)", "Notify(CWriteCmd)", "Inner"}));
  ExpectReport(0, {u"CWriteCmd", u"", u"Success", 0, u"*IDN?"});
}

TEST_F(ChannelCommandsTest, ReadReportsTheAnswer) {
  Channel->Text = u"TOLVANE,1";
  Made<CReadCmd>(Inner, Publisher)->Execute();
  EXPECT_EQ(Events, (Trace{"ReadData()", "Notify(CReadCmd)", "Inner"}));
  ExpectReport(0, {u"CReadCmd", u"TOLVANE,1", u"Success", 0, u""});
}

TEST_F(ChannelCommandsTest, CloseLeavesTheConfigurationAlone) {
  Made<CCloseCmd>(Inner, Publisher)->Execute();
  EXPECT_EQ(Events, (Trace{"CloseChannel()", "Notify(CCloseCmd)", "Inner"}));
  ExpectReport(0, {u"CCloseCmd", u"", u"Success", 0, u""});
}

TEST_F(ChannelCommandsTest, GetAttribReportsTheValue) {
  Channel->Text = u"CRLF";
  Made<CGetAttribCmd>(Inner, Publisher, u"TERMCHAR")->Execute();
  EXPECT_EQ(Events, (Trace{"GetChannelAttribute(TERMCHAR)", "Notify(CGetAttribCmd)", "Inner"}));
  ExpectReport(0, {u"CGetAttribCmd", u"CRLF", u"Success", 0, u""});
}

TEST_F(ChannelCommandsTest, SetAttribPassesNameAndValue) {
  Made<CSetAttribCmd>(Inner, Publisher, u"TERMCHAR", u"LF")->Execute();
  EXPECT_EQ(Events, (Trace{"SetChannelAttribute(TERMCHAR,LF)", "Notify(CSetAttribCmd)", "Inner"}));
  ExpectReport(0, {u"CSetAttribCmd", u"", u"Success", 0, u""});
}

TEST_F(ChannelCommandsTest, SetAttribTakesAnEmptyValue) {
  Made<CSetAttribCmd>(Inner, Publisher, u"ERRORQUERYSCPI", u"")->Execute();
  EXPECT_EQ(Events.front(), "SetChannelAttribute(ERRORQUERYSCPI,)");
}

TEST_F(ChannelCommandsTest, OtherTextsMayBeEmpty) {
  Made<COpenCmd>(Inner, Publisher, u"")->Execute();
  Made<CWriteCmd>(Inner, Publisher, u"")->Execute();
  EXPECT_EQ(Events, (Trace{"OpenChannel()", "InstrumentOpened=True", "Notify(COpenCmd)", "Inner", "WriteData()",
                           "Notify(CWriteCmd)", "Inner"}));
}

TEST_F(ChannelCommandsTest, EmptyAttributeNameFailsAtInitialize) {
  ErrorRecord error = Raised([&] { Made<CGetAttribCmd>(Inner, Publisher, u""); });
  ExpectError(error, 5, u"Attribute name cannot be an empty string.");
  ExpectTrail(error, {u"CGetAttribCmd.Initialize(InnerCommand,AttributeName)"});
  error = Raised([&] { Made<CSetAttribCmd>(Inner, Publisher, u"", u"LF"); });
  ExpectError(error, 5, u"Attribute name cannot be an empty string.");
  ExpectTrail(error, {u"CSetAttribCmd.Initialize(InnerCommand,AttributeName)"});
  EXPECT_THAT(Events, IsEmpty());
}

TEST_F(ChannelCommandsTest, FailedInitializeLeavesTheCommandUninitialized) {
  auto command = New<CGetAttribCmd>();
  Raised([&] { command->Initialize(Inner, u"", Publisher); });
  EXPECT_EQ(Raised([&] { command->Execute(); }).Number, test::Hex(0x80041460));
}

TEST_F(ChannelCommandsTest, WriteThatFailsInTheDriverDoesNotStopTheRead) {
  const auto read = Made<CReadCmd>(nullptr, Publisher);
  const auto write = Made<CWriteCmd>(read, Publisher, u"*IDN?");
  Channel->Code = -1;
  Channel->Text = u"Bus error.";
  Publisher->OnNotify = [&] {
    Channel->Code = 0;
    Channel->Text = u"answer";
  };
  write->Execute();
  EXPECT_EQ(Events, (Trace{"WriteData(*IDN?)", "Notify(CWriteCmd)", "ReadData()", "Notify(CReadCmd)"}));
  ExpectReport(0, {u"CWriteCmd", u"Bus error.", u"Bus error.", -1, u"*IDN?"});
  ExpectReport(1, {u"CReadCmd", u"answer", u"Success", 0, u""});
}

TEST_F(ChannelCommandsTest, WithoutAPublisherTheCommandIsSilent) {
  Made<CWriteCmd>(Inner, nullptr, u"*RST")->Execute();
  EXPECT_EQ(Events, (Trace{"WriteData(*RST)", "Inner"}));
}

TEST_F(ChannelCommandsTest, WithoutAnInnerCommandTheChainEnds) {
  Made<CWriteCmd>(nullptr, Publisher, u"*RST")->Execute();
  EXPECT_EQ(Events, (Trace{"WriteData(*RST)", "Notify(CWriteCmd)"}));
}

TEST_F(ChannelCommandsTest, TheReportIsTheCommandItself) {
  const auto command = Made<CReadCmd>(Inner, Publisher);
  command->Execute();
  EXPECT_TRUE(IsSameObject(Publisher->Subjects.at(0), command));
}

TEST_F(ChannelCommandsTest, ReportStaysValidWhileASubscriberHoldsIt) {
  Channel->Text = u"3.14";
  Made<CReadCmd>(Inner, Publisher)->Execute();
  EXPECT_EQ(Cast<IReport>(Publisher->Subjects.at(0))->GetData(), u"3.14");
}

TEST_F(ChannelCommandsTest, SecondExecuteReplacesTheResponseAndPublishesAgain) {
  const auto command = Made<CReadCmd>(nullptr, Publisher);
  Channel->Text = u"first";
  command->Execute();
  Channel->Text = u"second";
  command->Execute();
  ExpectReport(0, {u"CReadCmd", u"first", u"Success", 0, u""});
  ExpectReport(1, {u"CReadCmd", u"second", u"Success", 0, u""});
  EXPECT_EQ(command->GetData(), u"second");
}

TEST_F(ChannelCommandsTest, ResponseIsGoneAfterInitialize) {
  const auto command = Made<CReadCmd>(nullptr, Publisher);
  command->Execute();
  command->Initialize(nullptr, Publisher);
  EXPECT_EQ(Raised([&] { static_cast<void>(command->GetErrorCode()); }).Number, 91);
}

TEST_F(ChannelCommandsTest, ReportBeforeExecutionFails) {
  const auto command = Made<CWriteCmd>(nullptr, Publisher, u"*RST");
  EXPECT_EQ(command->GetCommand(), u"CWriteCmd");
  EXPECT_EQ(command->GetSCPIInstruction(), u"*RST");
  EXPECT_EQ(Raised([&] { static_cast<void>(command->GetData()); }).Number, 91);
  EXPECT_EQ(Raised([&] { static_cast<void>(command->GetErrorMessage()); }).Number, 91);
  EXPECT_EQ(Raised([&] { static_cast<void>(command->GetErrorCode()); }).Number, 91);
}

TEST_F(ChannelCommandsTest, NothingOfTheCommandIsTouchedAfterItsInner) {
  Ref<CReadCmd> command;
  const auto inner = test::InnerCommand(Events, [&] { command->Initialize(nullptr, Publisher); });
  command = Made<CReadCmd>(inner, Publisher);
  command->Execute();
  EXPECT_EQ(Events, (Trace{"ReadData()", "Notify(CReadCmd)", "Inner"}));
  EXPECT_EQ(Raised([&] { static_cast<void>(command->GetData()); }).Number, 91);
}

TEST_F(ChannelCommandsTest, ExecuteFromASubscriberLeavesTheNestedResponse) {
  const auto command = Made<CReadCmd>(Inner, Publisher);
  Channel->Text = u"outer";
  Publisher->OnNotify = [&] {
    Publisher->OnNotify = {};
    Channel->Text = u"nested";
    command->Execute();
  };
  command->Execute();
  EXPECT_EQ(Events, (Trace{"ReadData()", "Notify(CReadCmd)", "ReadData()", "Notify(CReadCmd)", "Inner", "Inner"}));
  EXPECT_EQ(command->GetData(), u"nested");
}

TEST_F(ChannelCommandsTest, CommandGivesUpAllThatItHoldsAtDestruction) {
  auto command = Made<CWriteCmd>(Inner, Publisher, u"X");
  EXPECT_EQ(Inner.Shared().use_count(), 2);
  command = nullptr;
  EXPECT_EQ(Inner.Shared().use_count(), 1);
}

} // namespace
} // namespace portico

#include "channel/DriverSessionFixture.h"

namespace portico {
namespace {

using test::Calls;
using test::DriverSessionTest;
using ::testing::IsEmpty;

class ChannelAttributeTest : public DriverSessionTest {
protected:
  ChannelAttributeTest() { Open(); }
};

struct Termination {
  const char16_t* Text;
  std::int32_t Number;
};

class TerminationTest : public ChannelAttributeTest, public ::testing::WithParamInterface<Termination> {};

INSTANTIATE_TEST_SUITE_P(Texts, TerminationTest,
                         ::testing::Values(Termination{u"Auto", 0}, Termination{u"LF", 10}, Termination{u"CRLF", 11},
                                           Termination{u"CR", 13}, Termination{u"LFCR", 14}));

TEST_P(TerminationTest, NumberOfTheDriverReadsAsItsText) {
  Driver->Number = GetParam().Number;
  ExpectSuccess(Session->GetChannelAttribute(u"TERMCHAR"), GetParam().Text);
  EXPECT_EQ(Details, (Calls{"GetAttributeViInt32(7,0,1150007)"}));
}

TEST_P(TerminationTest, TextIsWrittenAsTheDriversNumber) {
  ExpectSuccess(Session->SetChannelAttribute(u"TERMCHAR", GetParam().Text), u"");
  EXPECT_EQ(Details, (Calls{"SetAttributeViInt32(7,0,1150007," + std::to_string(GetParam().Number) + ")"}));
}

TEST_F(ChannelAttributeTest, UnknownNumberReadsAsASuccessWithoutData) {
  for (const std::int32_t number : {12, -1, 1, 15}) {
    Driver->Number = number;
    ExpectSuccess(Session->GetChannelAttribute(u"TERMCHAR"), u"");
  }
}

TEST_F(ChannelAttributeTest, TextInAnotherCaseSilentlySelectsAuto) {
  Session->SetChannelAttribute(u"TERMCHAR", u"crlf");
  EXPECT_EQ(Details, (Calls{"SetAttributeViInt32(7,0,1150007,0)"}));
}

TEST_F(ChannelAttributeTest, UnknownTextSilentlySelectsAuto) {
  for (const auto* text : {u"", u"NUL", u"CR ", u"13"}) {
    Details.clear();
    ExpectSuccess(Session->SetChannelAttribute(u"TERMCHAR", text), u"");
    EXPECT_EQ(Details, (Calls{"SetAttributeViInt32(7,0,1150007,0)"}));
  }
}

TEST_F(ChannelAttributeTest, FailuresOfTheDriverAreResponses) {
  Driver->Statuses = {{"GetAttributeViInt32", -1},
                      {"GetAttributeViString", -2},
                      {"SetAttributeViInt32", -3},
                      {"SetAttributeViString", 4}};
  Driver->Number = 10;
  Driver->Text = Terminated("ERR?");
  ExpectFailure(Session->GetChannelAttribute(u"TERMCHAR"), -1, u"It broke.");
  ExpectFailure(Session->GetChannelAttribute(u"ERRORQUERYSCPI"), -2, u"It broke.");
  ExpectFailure(Session->SetChannelAttribute(u"TERMCHAR", u"LF"), -3, u"It broke.");
  ExpectFailure(Session->SetChannelAttribute(u"ERRORQUERYSCPI", u"ERR?"), 4, u"It broke.");
}

TEST_F(ChannelAttributeTest, ErrorQueryLosesItsZeroByte) {
  Driver->Text = Terminated(":SYST:ERR?");
  ExpectSuccess(Session->GetChannelAttribute(u"ERRORQUERYSCPI"), u":SYST:ERR?");
  EXPECT_EQ(Details, (Calls{"GetAttributeViString(7,0,1150002,512)"}));
}

TEST_F(ChannelAttributeTest, ErrorQueryIsTrimmedOnlyOutsideItsZeroByte) {
  Driver->Text = "  " + Terminated("ERR?  ");
  ExpectSuccess(Session->GetChannelAttribute(u"ERRORQUERYSCPI"), u"ERR?  ");
}

TEST_F(ChannelAttributeTest, ErrorQueryLosesOneCharacterWhateverItIs) {
  Driver->Text = "ERR?";
  ExpectSuccess(Session->GetChannelAttribute(u"ERRORQUERYSCPI"), u"ERR");
}

TEST_F(ChannelAttributeTest, EmptyErrorQueryIsAZeroByteThatIsCut) {
  Driver->Text = Terminated("");
  ExpectSuccess(Session->GetChannelAttribute(u"ERRORQUERYSCPI"), u"");
}

TEST_F(ChannelAttributeTest, ErrorQueryBufferIs512Blanks) {
  Driver->Text = Terminated("E");
  Session->GetChannelAttribute(u"ERRORQUERYSCPI");
  EXPECT_EQ(Driver->Found, std::string(512, ' '));
}

TEST_F(ChannelAttributeTest, ErrorQueryIsWrittenAsItStands) {
  ExpectSuccess(Session->SetChannelAttribute(u"ERRORQUERYSCPI", u" :SYST:ERR? "), u"");
  EXPECT_EQ(Details, (Calls{"SetAttributeViString(7,0,1150002, :SYST:ERR? )"}));
}

TEST_F(ChannelAttributeTest, UnknownNameIsASuccessWithoutTheDriver) {
  for (const auto* name : {u"TIMEOUT", u"termchar", u"ErrorQuerySCPI", u"", u"TERMCHAR "}) {
    ExpectSuccess(Session->GetChannelAttribute(name), u"");
    ExpectSuccess(Session->SetChannelAttribute(name, u"CR"), u"");
  }
  EXPECT_THAT(Details, IsEmpty());
}

} // namespace
} // namespace portico

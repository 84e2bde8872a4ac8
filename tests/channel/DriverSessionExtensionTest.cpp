#include "channel/DriverSessionFixture.h"
#include "framework/errors/Quit.h"

namespace portico::test {
namespace {

using ::testing::ElementsAre;

class DriverSessionExtensionTest : public DriverSessionTest {
protected:
  IChannelExtension& Extension() { return *Session; }
};

TEST_F(DriverSessionExtensionTest, EachOperationIsOneCallOfTheDriver) {
  Open();
  ExpectSuccess(Extension().SetTimeout(70), u"");
  ExpectSuccess(Extension().ClearDevice(), u"");
  ExpectSuccess(Extension().GoToLocal(), u"");
  EXPECT_THAT(Details, ElementsAre("SetTimeout(70)", "Clear(7)", "GoToLocal(7)"));
}

TEST_F(DriverSessionExtensionTest, AFailureIsInTheResponse) {
  Open();
  Driver->Statuses = {{"timeout 70", -21}, {"clear", -22}, {"local", 23}};
  ExpectFailure(Extension().SetTimeout(70), -21, u"It broke.");
  ExpectFailure(Extension().ClearDevice(), -22, u"It broke.");
  ExpectFailure(Extension().GoToLocal(), 23, u"It broke.");
}

TEST_F(DriverSessionExtensionTest, WithoutASessionTheDriverIsAskedWithoutOne) {
  Extension().ClearDevice();
  Extension().GoToLocal();
  EXPECT_THAT(Details, ElementsAre("Clear(0)", "GoToLocal(0)"));
}

/// Answers that go to a sink beside the conversation.
class DivertedAnswerTest : public DriverSessionExtensionTest {
protected:
  DivertedAnswerTest() {
    Open();
    Extension().Divert(&Diversion);
  }

  std::string Taken;
  bool TakesMore = true;
  AnswerDiversion Diversion{.Sink = [this](std::string_view piece) {
    Taken += piece;
    return TakesMore;
  }};
};

TEST_F(DivertedAnswerTest, AnAnswerGoesToTheSinkAndIntoTheResponse) {
  Driver->Pieces = {"#15a", "\n\x80 c"};
  const auto response = Session->ReadData();
  ExpectSuccess(response, u"#15a\n\u20AC c");
  EXPECT_EQ(Taken, "#15a\n\x80 c");
  EXPECT_EQ(Diversion.Response.Get(), response.Get());
  EXPECT_THAT(Details, ElementsAre("ReadInPieces(7)"));
}

TEST_F(DivertedAnswerTest, OneThatIsTooLongForAReadGivesNoData) {
  Driver->Pieces = {std::string(1'048'570, 'x'), "1234"};
  EXPECT_EQ(Session->ReadData()->ResponseData().size(), 1'048'574U);
  Driver->Pieces = {std::string(1'048'570, 'x'), "12345", "6"};
  Taken.clear();
  ExpectSuccess(Session->ReadData(), u"");
  EXPECT_EQ(Taken.size(), 1'048'576U);
}

TEST_F(DivertedAnswerTest, AFailureIsInTheResponse) {
  Driver->Pieces = {"123"};
  Driver->Statuses = {{"stream", -16}};
  ExpectFailure(Session->ReadData(), -16, u"It broke.");
  EXPECT_EQ(Diversion.Response->ErrorCode(), -16);
  TakesMore = false;
  ExpectFailure(Session->ReadData(), -1, u"It broke.");
}

TEST_F(DivertedAnswerTest, WhatTheSinkThrowsPassesTheDriverBy) {
  Driver->Pieces = {"1", "2"};
  Diversion.Sink = [this](std::string_view piece) -> bool {
    Taken += piece;
    throw Quit{};
  };
  EXPECT_THROW(Session->ReadData(), Quit);
  EXPECT_EQ(Taken, "1");
  EXPECT_FALSE(Diversion.Response);
}

TEST_F(DivertedAnswerTest, OnceItIsOverAReadIsAsEver) {
  Extension().Divert(nullptr);
  Delivered = {0, Terminated("1")};
  ExpectSuccess(Session->ReadData(), u"1");
  EXPECT_EQ(Taken, "");
}

TEST_F(DriverSessionExtensionTest, WhetherAnswersCanBeDivertedIsTheDriversToSay) {
  Open();
  ExpectSuccess(Extension().CanDivert(), u"");
  Driver->Statuses = {{"CanReadInPieces", -21}};
  ExpectFailure(Extension().CanDivert(), -21, u"It broke.");
}

TEST_F(DriverSessionExtensionTest, ItIsTheChannelsOtherFace) {
  const Ref<IChannel> channel = Session;
  Open();
  ExpectSuccess(Cast<IChannelExtension>(channel)->ClearDevice(), u"");
  EXPECT_THAT(Details, ElementsAre("Clear(7)"));
}

} // namespace
} // namespace portico::test

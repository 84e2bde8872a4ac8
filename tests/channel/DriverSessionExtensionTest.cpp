#include "channel/DriverSessionFixture.h"

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

TEST_F(DriverSessionExtensionTest, ItIsTheChannelsOtherFace) {
  const Ref<IChannel> channel = Session;
  Open();
  ExpectSuccess(Cast<IChannelExtension>(channel)->ClearDevice(), u"");
  EXPECT_THAT(Details, ElementsAre("Clear(7)"));
}

} // namespace
} // namespace portico::test

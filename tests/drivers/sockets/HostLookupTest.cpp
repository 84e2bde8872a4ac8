#include "drivers/sockets/HostLookup.h"

#include <gmock/gmock.h>

namespace portico::drivers {
namespace {

TimePoint Soon() { return TimePoint::clock::now() + std::chrono::seconds(5); }

/// No system looks up a name with an empty label, so the test asks nobody.
constexpr auto ImpossibleName = "a..b";

TEST(HostLookup, AnAddressIsReadWithoutALookUp) {
  // A look-up could not even start by this deadline.
  for (const char* address : {"127.0.0.1", "::1", "192.0.2.7", "fe80::1"}) {
    const HostLookup lookup = LookUpHost(address, 5025, TimePoint());
    EXPECT_TRUE(lookup.Result.Succeeded()) << address;
    EXPECT_EQ(lookup.Addresses.size(), 1u);
  }
}

TEST(HostLookup, TheLoopbackNameHasAnAddress) {
  const HostLookup lookup = LookUpHost("localhost", 5025, Soon());
  EXPECT_TRUE(lookup.Result.Succeeded());
  EXPECT_THAT(lookup.Addresses, testing::Not(testing::IsEmpty()));
}

TEST(HostLookup, AnUnknownNameIsSaidToBeOne) {
  const HostLookup lookup = LookUpHost(ImpossibleName, 5025, Soon());
  EXPECT_EQ(lookup.Result.Status, DriverStatus::UnknownHost);
  EXPECT_TRUE(lookup.Result.Detail.starts_with("a..b, ")) << lookup.Result.Detail;
  EXPECT_THAT(lookup.Addresses, testing::IsEmpty());
}

TEST(HostLookup, TheOrderToGiveUpEndsTheWaitForTheSystem) {
  system::Cancellation cancellation;
  cancellation.Request();
  const HostLookup lookup = LookUpHost(ImpossibleName, 5025, Soon(), &cancellation);
  EXPECT_EQ(lookup.Result.Status, DriverStatus::Cancelled);
  EXPECT_EQ(lookup.Result.Detail, "the look-up of the name a..b");
}

TEST(HostLookup, ALookUpThatTakesTooLongIsGivenUp) {
  const HostLookup lookup = LookUpHost(ImpossibleName, 5025, TimePoint());
  EXPECT_EQ(lookup.Result.Status, DriverStatus::ConnectTimeout);
  EXPECT_EQ(lookup.Result.Detail, "the look-up of the name a..b");
}

TEST(HostLookup, ThePortIsPartOfTheAddress) {
  EXPECT_NE(LookUpHost("127.0.0.1", 1, Soon()).Addresses, LookUpHost("127.0.0.1", 2, Soon()).Addresses);
}

} // namespace
} // namespace portico::drivers

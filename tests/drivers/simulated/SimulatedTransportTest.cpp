#include "drivers/simulated/SimulatedTransport.h"

#include "support/doubles/ManualClock.h"
#include "support/doubles/ScriptedConnection.h"

#include <array>
#include <gmock/gmock.h>

namespace portico::test {
namespace {

using namespace drivers;

using std::chrono::milliseconds;

class SimulatedTransportTest : public testing::Test {
protected:
  TimePoint In(milliseconds time) const { return clock.Now() + time; }

  std::string Read(TimePoint deadline, std::size_t size = 16) {
    std::string buffer(size, '~');
    result = transport.Read(buffer.data(), size, deadline);
    return buffer.substr(0, result.Count);
  }

  ManualClock clock;
  InstrumentScript script;
  std::string received;
  std::vector<std::string> devices;
  Received result;
  SimulatedTransport transport{"dmm",
                               [this](const std::string& device) {
                                 devices.push_back(device);
                                 return std::make_unique<ScriptedConnection>(script, received);
                               },
                               clock};
};

TEST_F(SimulatedTransportTest, OpensTheDeviceOfTheName) {
  EXPECT_TRUE(transport.Open(In(milliseconds(1))).Succeeded());
  EXPECT_THAT(devices, testing::ElementsAre("dmm"));
}

TEST_F(SimulatedTransportTest, AnAnswerThatIsReadyTakesNoTime) {
  script["Q?"] = Reaction::Answer("1\n");
  ASSERT_TRUE(transport.Open(In(milliseconds(1))).Succeeded());
  const TimePoint start = clock.Now();
  EXPECT_TRUE(transport.Write("Q?\r\n", In(milliseconds(1))).Succeeded());
  EXPECT_EQ(Read(In(milliseconds(1))), "1\n");
  EXPECT_FALSE(result.End);
  EXPECT_EQ(clock.Now(), start);
}

TEST_F(SimulatedTransportTest, TellsBeforeItWaits) {
  script["Q?"] = Reaction::Answer("1\n");
  script["MEAS?"] = Reaction::Answer("2\n", milliseconds(300));
  ASSERT_TRUE(transport.Open(In(milliseconds(1))).Succeeded());
  std::vector<TimePoint> waits;
  transport.OnWait([&] { waits.push_back(clock.Now()); });
  EXPECT_TRUE(transport.Write("Q?\r\n", In(milliseconds(1))).Succeeded());
  EXPECT_EQ(Read(In(milliseconds(1000))), "1\n");
  EXPECT_THAT(waits, testing::IsEmpty());
  const TimePoint start = clock.Now();
  EXPECT_TRUE(transport.Write("MEAS?\r\n", In(milliseconds(1))).Succeeded());
  EXPECT_EQ(Read(In(milliseconds(1000))), "2\n");
  EXPECT_THAT(waits, testing::ElementsAre(start));
}

TEST_F(SimulatedTransportTest, AnAnswerIsAwaitedForAsLongAsItTakes) {
  script["MEAS?"] = Reaction::Answer("1\n", milliseconds(300));
  ASSERT_TRUE(transport.Open(In(milliseconds(1))).Succeeded());
  const TimePoint start = clock.Now();
  EXPECT_TRUE(transport.Write("MEAS?\r\n", In(milliseconds(1))).Succeeded());
  EXPECT_EQ(Read(In(milliseconds(1000))), "1\n");
  EXPECT_EQ(clock.Now(), start + milliseconds(300));
}

TEST_F(SimulatedTransportTest, AnAnswerThatTakesTooLongTimesOutAtTheDeadline) {
  script["MEAS?"] = Reaction::Answer("1\n", milliseconds(300));
  ASSERT_TRUE(transport.Open(In(milliseconds(1))).Succeeded());
  const TimePoint start = clock.Now();
  EXPECT_TRUE(transport.Write("MEAS?\r\n", In(milliseconds(1))).Succeeded());
  EXPECT_EQ(Read(In(milliseconds(200))), "");
  EXPECT_EQ(result.Result.Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(clock.Now(), start + milliseconds(200));
}

TEST_F(SimulatedTransportTest, WithNothingUnderWayTheReadWaitsOutItsTime) {
  ASSERT_TRUE(transport.Open(In(milliseconds(1))).Succeeded());
  const TimePoint start = clock.Now();
  EXPECT_EQ(Read(In(milliseconds(200))), "");
  EXPECT_EQ(result.Result.Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(clock.Now(), start + milliseconds(200));
}

TEST_F(SimulatedTransportTest, AResponseIsGivenInPiecesOfTheBuffersSize) {
  script["Q?"] = Reaction::Answer("12345\n");
  ASSERT_TRUE(transport.Open(In(milliseconds(1))).Succeeded());
  EXPECT_TRUE(transport.Write("Q?\r\n", In(milliseconds(1))).Succeeded());
  EXPECT_EQ(Read(In(milliseconds(1)), 4), "1234");
  EXPECT_EQ(Read(In(milliseconds(1)), 4), "5\n");
}

TEST_F(SimulatedTransportTest, OpeningAgainGivesAFreshConnection) {
  script["Q?"] = Reaction::Answer("12345\n");
  ASSERT_TRUE(transport.Open(In(milliseconds(1))).Succeeded());
  EXPECT_TRUE(transport.Write("Q?\r\nQ?\r\n", In(milliseconds(1))).Succeeded());
  EXPECT_EQ(Read(In(milliseconds(1)), 2), "12");
  transport.Close();
  ASSERT_TRUE(transport.Open(In(milliseconds(1))).Succeeded());
  EXPECT_EQ(Read(In(milliseconds(1))), "");
  EXPECT_THAT(devices, testing::SizeIs(2));
}

TEST(SimulatedTransport, TheOrderToGiveUpEndsARead) {
  ManualClock clock;
  system::Cancellation cancellation;
  std::string received;
  SimulatedTransport transport(
      "dmm", [&](const std::string&) { return std::make_unique<ScriptedConnection>(InstrumentScript{}, received); },
      clock, &cancellation);
  ASSERT_TRUE(transport.Open(clock.Now()).Succeeded());
  transport.OnWait([&] { cancellation.Request(); });
  char byte = '~';
  const Received given = transport.Read(&byte, 1, clock.Now() + std::chrono::hours(1));
  EXPECT_EQ(given.Result.Status, DriverStatus::Cancelled);
  EXPECT_EQ(given.Result.Detail, "dmm");
}

TEST(SimulatedTransport, ADeviceThatDoesNotExistCannotBeOpened) {
  ManualClock clock;
  SimulatedTransport transport(
      "toaster", [](const std::string&) { return nullptr; }, clock);
  const DriverResult result = transport.Open(clock.Now());
  EXPECT_EQ(result.Status, DriverStatus::UnknownSimulatedDevice);
  EXPECT_EQ(result.Detail, "toaster");
}

TEST(SimulatedTransport, TellsWhyThereIsNoInstrument) {
  ManualClock clock;
  SimulatedTransport transport(
      "replay:a.log",
      [](const std::string&) -> std::unique_ptr<simulator::SimulatedConnection> {
        throw simulator::NoInstrument("a.log: it is no log");
      },
      clock);
  const DriverResult result = transport.Open(clock.Now());
  EXPECT_EQ(result.Status, DriverStatus::ConnectFailed);
  EXPECT_EQ(result.Detail, "a.log: it is no log");
}

} // namespace
} // namespace portico::test

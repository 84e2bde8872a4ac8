#include "tap/InstrumentBridge.h"

#include "support/doubles/ScriptedTransport.h"
#include "tap/BridgeWire.h"

#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <poll.h>
#include <sys/socket.h>

namespace portico::tap {
namespace {

using namespace BridgeWire;
using drivers::DriverStatus;
using testing::ElementsAre;
using testing::IsEmpty;

/// A client says all that it has to say, ends its side, and hears what comes until the other side ends.
class InstrumentBridgeTest : public testing::Test {
protected:
  std::string Converse(const std::string& said, drivers::Marks marks = drivers::Marks::None) {
    auto [wire, client] = LocalWire::Make();
    EXPECT_EQ(send(client.Get(), said.data(), said.size(), 0), static_cast<ssize_t>(said.size()));
    shutdown(client.Get(), SHUT_WR);
    const auto make = [this](const drivers::ResourceName& /*name*/, drivers::IClock& /*clock*/,
                             const system::Cancellation* /*cancellation*/) {
      return std::make_unique<test::ScriptedTransport>(Instrument);
    };
    const drivers::ResourceName name(drivers::SimulatedAddress{"dmm"});
    InstrumentBridge bridge(name, make, marks, std::chrono::seconds(1),
                            [this](const std::string& text) { Told.push_back(text); });
    std::thread thread([&bridge, here = std::move(wire)]() mutable { bridge.Converse(std::move(here)); });
    std::string heard;
    for (std::string buffer(100, '\0');;) {
      pollfd readable{client.Get(), POLLIN, 0};
      EXPECT_EQ(poll(&readable, 1, 10000), 1);
      const ssize_t count = recv(client.Get(), buffer.data(), buffer.size(), 0);
      if (count <= 0) break;
      heard.append(buffer, 0, static_cast<std::size_t>(count));
    }
    thread.join();
    return heard;
  }

  test::ScriptedTransport::Record Instrument;
  std::vector<std::string> Told;
};

TEST_F(InstrumentBridgeTest, LineFeedEndsAMessageAndAQuestionMarkAsks) {
  Instrument.Piece("1\n");
  EXPECT_EQ(Converse("DISP 'what?'\nDATA #13\n?\n\r\nA?\r\n"), "1\n");
  EXPECT_THAT(Instrument.written, ElementsAre("DISP 'what?'\n", "DATA #13\n?\n\n", "A?\n"));
  EXPECT_THAT(Told, IsEmpty());
  EXPECT_EQ(Instrument.closed, 1);
}

TEST_F(InstrumentBridgeTest, AnswerWithoutLineFeedGetsOne) {
  Instrument.marksEnd = true;
  Instrument.Piece("#13\n", false);
  Instrument.Piece("\n\n", true);
  Instrument.Piece("2\r\n", true);
  EXPECT_EQ(Converse("A?\nB?\n"), "#13\n\n\n\n2\n");
}

TEST_F(InstrumentBridgeTest, InstrumentThatDoesNotAnswerIsSilent) {
  Instrument.clears = true;
  Instrument.Fails(DriverStatus::ReadTimeout);
  Instrument.Piece("2\n");
  EXPECT_EQ(Converse("A?\nB?\n"), "2\n");
  EXPECT_EQ(Instrument.clearings.size(), 1U);
  EXPECT_THAT(Told, ElementsAre("SIM::dmm::INSTR: Timeout expired before the answer was complete."));
}

TEST_F(InstrumentBridgeTest, InstrumentThatIsLostEndsTheConversation) {
  Instrument.Piece("#800000100abc");
  Instrument.Fails(DriverStatus::ConnectionLost);
  EXPECT_EQ(Converse("A?\nB?\n").substr(0, 11), "#800000100a"); // what might be a line end is held back
  EXPECT_THAT(Instrument.written, ElementsAre("A?\n"));
  EXPECT_THAT(Told, ElementsAre("SIM::dmm::INSTR: The connection was lost."));
}

TEST_F(InstrumentBridgeTest, InstrumentThatDoesNotOpenIsToldAndHearsNothing) {
  Instrument.openResult = {DriverStatus::ConnectionRefused, "there"};
  EXPECT_EQ(Converse("*RST\n"), "");
  EXPECT_THAT(Instrument.written, IsEmpty());
  EXPECT_EQ(Told.size(), 1U);
}

// A client whose protocol marks the ends of messages.

TEST_F(InstrumentBridgeTest, MarkEndsAMessageAndABlockThatIsTooShort) {
  Instrument.Piece("1\n");
  EXPECT_EQ(Converse(Piece("A") + Last("B") + Last("C #15ab") + Last("D\nE?"), drivers::Marks::Ends),
            Opened + Done + Done + Done + Piece("1") + Last("\n") + Done);
  EXPECT_THAT(Instrument.written, ElementsAre("AB\n", "C #15ab\n", "D\n", "E?\n"));
}

TEST_F(InstrumentBridgeTest, ClearReachesTheInstrumentAndDropsWhatHasBegun) {
  Instrument.clears = true;
  EXPECT_EQ(Converse(Piece("A") + Clear + Last("B"), drivers::Marks::Ends), Opened + Done + Done + Done);
  EXPECT_THAT(Instrument.written, ElementsAre("B\n"));
  EXPECT_EQ(Instrument.clearings.size(), 1U);
  EXPECT_THAT(Told, IsEmpty());
}

TEST_F(InstrumentBridgeTest, QueryWithoutAnswerIsDoneAndToldHere) {
  Instrument.clears = true;
  Instrument.Fails(DriverStatus::ReadTimeout);
  EXPECT_EQ(Converse(Last("A?"), drivers::Marks::Ends), Opened + Done);
  EXPECT_EQ(Told.size(), 1U);
}

} // namespace
} // namespace portico::tap

#include "tap/InstrumentBridge.h"

#include "drivers/ResourceName.h"
#include "tap/MarkedClient.h"
#include "tap/StreamClient.h"

#include <utility>

namespace portico::tap {
namespace {

using drivers::DriverResult;
using drivers::DriverStatus;

constexpr std::size_t LongestMessage = std::size_t{64} << 20U; // bytes

} // namespace

InstrumentBridge::InstrumentBridge(const drivers::ResourceName& name, const TransportMaker& make, drivers::Marks marks,
                                   std::chrono::milliseconds timeout, Teller tell)
    : m_name(name.Canonical()),
      m_marks(marks),
      m_tell(std::move(tell)),
      m_clock(&m_cancellation),
      m_session(name, make(name, m_clock, &m_cancellation), {m_clock, timeout, nullptr, &m_cancellation}) {}

void InstrumentBridge::Converse(LocalWire wire) {
  const auto client = ClientAt(std::move(wire));
  const DriverResult opened = m_session.Open();
  bool goesOn = (opened.Succeeded() || Fail(opened)) && client->Opened();
  InstructionSplitter splitter(LongestMessage);
  const MessageSink say = [&](Message&& message) { goesOn = goesOn && Say(message, *client); };
  for (IBridgedClient::Said said; goesOn && client->Receive(said);) {
    splitter.Feed(said.Bytes, say);
    if (said.End) splitter.End(say);
    if (said.Clear) {
      splitter.End([](Message&& /*dropped*/) {});
      goesOn = Clear();
    }
    goesOn = goesOn && client->Done();
  }
  m_session.Close();
}

std::unique_ptr<IBridgedClient> InstrumentBridge::ClientAt(LocalWire wire) const {
  if (m_marks == drivers::Marks::Ends) return std::make_unique<MarkedClient>(std::move(wire), m_cancellation);
  return std::make_unique<StreamClient>(std::move(wire), m_cancellation);
}

bool InstrumentBridge::Say(const Message& message, IBridgedClient& client) {
  if (message.Length > message.Bytes.size()) {
    m_tell("a message of " + std::to_string(message.Length) + " bytes is too long for " + m_name);
    return false;
  }
  const DriverResult written = m_session.Write(message.Bytes);
  if (!written.Succeeded()) return Fail(written);
  return !message.Asks || Fetch(client);
}

bool InstrumentBridge::Fetch(IBridgedClient& client) {
  const DriverResult read = m_session.ReadInPieces([&](std::string_view piece) { return client.Answer(piece); });
  if (read.Succeeded()) return client.EndAnswer();
  if (read.Status == DriverStatus::GivenUp) return false;
  // No answer is silence: the client waits for as long as it likes.
  return Fail(read) || read.Status == DriverStatus::ReadTimeout;
}

bool InstrumentBridge::Clear() {
  const DriverResult cleared = m_session.Clear();
  return cleared.Succeeded() || Fail(cleared);
}

bool InstrumentBridge::Fail(const DriverResult& failure) const {
  if (failure.Status != DriverStatus::Cancelled) {
    m_tell(m_name + ": " + drivers::StatusMessage(drivers::Number(failure.Status), failure.Detail));
  }
  return false;
}

} // namespace portico::tap

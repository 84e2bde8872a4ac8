#include "tap/InstrumentBridge.h"

#include "drivers/ResourceName.h"

#include <utility>

namespace portico::tap {
namespace {

using drivers::DriverResult;
using drivers::DriverStatus;

constexpr std::size_t LongestMessage = std::size_t{64} << 20U; // bytes

} // namespace

InstrumentBridge::InstrumentBridge(const drivers::ResourceName& name, const TransportMaker& make,
                                   std::chrono::milliseconds timeout, Teller tell)
    : m_name(name.Canonical()),
      m_tell(std::move(tell)),
      m_clock(&m_cancellation),
      m_session(name, make(name, m_clock, &m_cancellation), {m_clock, timeout, nullptr, &m_cancellation}) {}

void InstrumentBridge::Converse(LocalWire wire) {
  const DriverResult opened = m_session.Open();
  bool goesOn = opened.Succeeded() || Fail(opened);
  InstructionSplitter splitter(LongestMessage);
  const MessageSink say = [&](Message&& message) { goesOn = goesOn && Say(message, wire); };
  for (std::string bytes; goesOn && wire.Receive(bytes, m_cancellation);) splitter.Feed(bytes, say);
  m_session.Close();
}

bool InstrumentBridge::Say(const Message& message, LocalWire& wire) {
  if (message.Length > message.Bytes.size()) {
    m_tell("a message of " + std::to_string(message.Length) + " bytes is too long for " + m_name);
    return false;
  }
  const DriverResult written = m_session.Write(message.Bytes);
  if (!written.Succeeded()) return Fail(written);
  return !message.Asks || Fetch(wire);
}

bool InstrumentBridge::Fetch(LocalWire& wire) {
  const DriverResult read =
      m_session.ReadInPieces([&](std::string_view piece) { return wire.Send(piece, m_cancellation); });
  if (read.Succeeded()) return wire.Send("\n", m_cancellation);
  if (read.Status == DriverStatus::GivenUp) return false;
  // Behind a raw socket no answer is silence: the client waits for as long as it likes.
  return Fail(read) || read.Status == DriverStatus::ReadTimeout;
}

bool InstrumentBridge::Fail(const DriverResult& failure) const {
  if (failure.Status != DriverStatus::Cancelled) {
    m_tell(m_name + ": " + drivers::StatusMessage(drivers::Number(failure.Status), failure.Detail));
  }
  return false;
}

} // namespace portico::tap

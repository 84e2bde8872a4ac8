#pragma once

#include "tap/IBridgedClient.h"
#include "tap/LocalWire.h"
#include "wire/HislipReader.h"

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace portico::tap {

/// The messages on the wire between a MarkedClient and its RelayedConnection. Their frames are those of HiSLIP, whose
/// Data and DataEnd carry what either side says.
namespace MarkedWire {
inline constexpr auto Clear = wire::HislipType::AsyncDeviceClear;
inline constexpr auto Opened = wire::HislipType::InitializeResponse;
/// As many of what the client said as such messages have come have been dealt with.
inline constexpr auto Done = wire::HislipType::AsyncStatusResponse;
/// Both sides take what the other has.
inline constexpr std::uint64_t AnyLength = std::numeric_limits<std::uint64_t>::max();
} // namespace MarkedWire

/// A client whose protocol marks the ends of messages, at the other end of a wire from its RelayedConnection.
class MarkedClient final : public IBridgedClient {
public:
  /// `cancellation` must outlive it.
  MarkedClient(LocalWire wire, const system::Cancellation& cancellation)
      : m_wire(std::move(wire)), m_cancellation(cancellation) {}

  bool Opened() override { return Send(MarkedWire::Opened); }
  bool Receive(Said& said) override;
  bool Done() override { return !m_whole || Send(MarkedWire::Done); }
  bool Answer(std::string_view piece) override { return Send(wire::HislipType::Data, piece); }
  bool EndAnswer() override { return Send(wire::HislipType::DataEnd, "\n"); }

private:
  bool Send(wire::HislipType type, std::string_view payload = {});

  LocalWire m_wire;
  const system::Cancellation& m_cancellation;
  std::string m_received;
  std::string_view m_rest; ///< of that
  wire::HislipReader m_reader{MarkedWire::AnyLength};
  bool m_whole = true; ///< what Receive() gave last was a message's last piece
};

} // namespace portico::tap

#pragma once

#include "tap/IBridgedClient.h"
#include "tap/LocalWire.h"

#include <utility>

namespace portico::tap {

/// A client behind a raw socket: its line feeds end messages, and a line feed ends each answer.
class StreamClient final : public IBridgedClient {
public:
  /// `cancellation` must outlive it.
  StreamClient(LocalWire wire, const system::Cancellation& cancellation)
      : m_wire(std::move(wire)), m_cancellation(cancellation) {}

  bool Opened() override { return true; }
  bool Receive(Said& said) override { return m_wire.Receive(said.Bytes, m_cancellation); }
  bool Done() override { return true; }
  bool Answer(std::string_view piece) override { return m_wire.Send(piece, m_cancellation); }
  bool EndAnswer() override { return Answer("\n"); }

private:
  LocalWire m_wire;
  const system::Cancellation& m_cancellation;
};

} // namespace portico::tap

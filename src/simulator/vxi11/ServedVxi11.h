#pragma once

#include "server/IServedConnection.h"
#include "simulator/connection/StreamInstrument.h"
#include "simulator/vxi11/Vxi11Calls.h"
#include "wire/RpcMessage.h"
#include "wire/RpcRecord.h"

#include <functional>
#include <memory>
#include <string>

namespace portico::simulator {

/// A connection to a VXI-11 server. The core channel, the abort channel and a portmapper that knows the first are
/// programs of one server, so that they share its port; which of them a connection is for, its calls tell.
///
/// One call is carried out at a time; those that are sent before its reply wait.
class ServedVxi11 final : public server::IServedConnection {
public:
  /// All connections that this makes share their links and the lock. `instrument` must outlive them.
  static server::ConnectionFactory Factory(Instrument& instrument);
  static server::ConnectionFactory Factory(std::shared_ptr<IMessageInstrument> instrument);
  /// Of a portmapper, for a port where clients look for one. `corePort` answers where the server is.
  static server::ConnectionFactory PortMapperFactory(std::function<std::uint16_t()> corePort);

  /// `port` is that of the server; `links` may be null where there is a portmapper only.
  ServedVxi11(std::shared_ptr<Vxi11Links> links, std::uint16_t port);

  void Receive(std::string_view bytes, TimePoint now) override;
  void Collect(std::string& output, TimePoint now) override;
  bool AcceptsInput() const override { return m_input.size() < MostInput; }
  std::optional<TimePoint> NextEvent() const override { return m_calls.NextEvent(); }
  bool Finished(bool inputEnded) const override;

private:
  static constexpr std::size_t MostInput = std::size_t{64} * 1024;

  /// Whether the call that is complete has been answered; if not, it waits, or is none.
  bool Answer(std::string& output, TimePoint now);
  /// Carries the call out as far as that goes, and tells in `reply` how it ended.
  CallOutcome CarryOut(const wire::RpcCall& call, wire::XdrReader& arguments, wire::XdrWriter& results, TimePoint now,
                       wire::RpcReply& reply);
  CallOutcome Abort(std::uint32_t procedure, wire::XdrReader& arguments, wire::XdrWriter& results);
  CallOutcome FindPort(std::uint32_t procedure, wire::XdrReader& arguments, wire::XdrWriter& results) const;

  const std::shared_ptr<Vxi11Links> m_links;
  const std::uint16_t m_port;
  Vxi11Calls m_calls;
  std::string m_input;
  /// The call that is being carried out, once it is complete.
  wire::RpcRecordReader m_record;
  TimePoint m_calledAt{};
  /// What came is no call: nothing behind it can be told apart.
  bool m_broken = false;
};

} // namespace portico::simulator

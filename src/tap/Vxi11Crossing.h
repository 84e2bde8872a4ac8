#pragma once

#include "tap/Place.h"
#include "tap/Talk.h"
#include "wire/RpcMessage.h"
#include "wire/RpcRecord.h"
#include "wire/Vxi11Messages.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <string>

namespace portico::tap {

/// A client's connection to a VXI-11 server, and its counterpart to the instrument: the same calls with the same data
/// and the same results, but for the name of the device and the place of the abort channel. The core channel, the abort
/// channel and a portmapper that knows the first share one port; the first call tells which of them a connection is
/// for, and a link to the instrument is what connects it.
class Vxi11Crossing final : public Crossing {
public:
  /// The longest call or reply that crosses, in bytes.
  static constexpr std::size_t LongestRecord = std::size_t{16} << 20U;

  /// `device` is its name at the instrument. A client that finds the place taken gets no link. `place` must outlive all
  /// connections.
  static server::ConnectionFactory Factory(Place& place, std::string device);

  /// `port` is where all channels are.
  Vxi11Crossing(Place& place, std::string device, std::uint16_t port);

private:
  enum class Kind : std::uint8_t { Unconnected, Core, Abort };

  /// A call that has no reply yet.
  struct Pending {
    std::uint32_t Xid = 0;
    wire::Vxi11::CoreProcedure Procedure = {};
    std::int32_t Link = 0;
    std::string Data = {}; ///< of a DeviceWrite
    bool End = false;      ///< its last byte ends a message
  };

  void FromClient(std::string_view bytes) override;
  void FromInstrument(std::string_view bytes) override;
  void TakeCall(std::string_view record);
  void TakeReply(std::string_view record);
  /// Answers a call that needs no instrument, or connects to it; false unless the call is to go on there.
  bool Begin(const wire::RpcCall& call, wire::XdrReader arguments);
  bool BeginCore(const wire::RpcCall& call);
  void BeginAbort(const wire::RpcCall& call);
  void Note(const wire::RpcCall& call, wire::XdrReader arguments);
  void FindPort(const wire::RpcCall& call, wire::XdrReader arguments);
  /// What crosses in place of the results; empty for those that cross unchanged.
  std::string Heed(const Pending& call, wire::XdrReader results);
  Talk& TalkOn(std::int32_t link);
  void Refuse(const wire::RpcCall& call, wire::RpcStatus status);
  template <typename Result>
  void Answer(const wire::RpcCall& call, const Result& result);

  Place& m_place;
  const std::string m_device;
  const std::uint16_t m_port;
  Kind m_kind = Kind::Unconnected;
  wire::RpcRecordReader m_calls{LongestRecord};
  wire::RpcRecordReader m_replies{LongestRecord};
  std::deque<Pending> m_pending;
  std::uint16_t m_abortPort = 0; ///< of the instrument
  std::shared_ptr<Recording> m_recording;
  std::map<std::int32_t, Talk> m_links;
};

} // namespace portico::tap

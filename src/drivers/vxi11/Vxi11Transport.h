#pragma once

#include "drivers/ITransport.h"
#include "drivers/ResourceName.h"
#include "drivers/vxi11/RpcChannel.h"
#include "wire/Vxi11Messages.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace portico::drivers {

/// A link to a device of a VXI-11 server. The server's core channel is at the port that the name tells, or at that
/// which the portmapper of the host does.
///
/// One call at a time is under way on the core channel. That of a read which timed out goes on: the next read waits
/// for its reply. Only Clear(), GoToLocal() and ReturnToLocal() end it before, by the abort channel if need be.
class Vxi11Transport final : public ITransport {
public:
  /// Deadlines, the order of a host's addresses and cancelling are those of the streams that `connect` makes. `clock`
  /// is theirs, and outlives the transport.
  Vxi11Transport(LanDeviceAddress address, StreamConnector connect, IClock& clock);

  DriverResult Open(TimePoint deadline) override;
  /// Waits for nothing; the instrument drops the link with the connection.
  void Close() noexcept override;
  DriverResult Write(std::string_view bytes, TimePoint deadline) override;
  Received Read(char* buffer, std::size_t size, TimePoint deadline) override;
  bool MarksEnd() const override { return true; }
  bool Stands() override;
  bool Clear(std::chrono::milliseconds timeout) override;
  DriverResult GoToLocal(TimePoint deadline) override;
  /// Destroys the link, too.
  void ReturnToLocal(TimePoint deadline) noexcept override;

private:
  std::unique_ptr<ITransport> MakeStream(const std::string& host, std::uint16_t port);
  std::unique_ptr<RpcChannel> MakeChannel(std::uint16_t port, std::uint32_t program, std::uint32_t version,
                                          std::size_t resultLimit);
  DriverResult CreateLink(std::uint16_t port, TimePoint deadline);
  /// Makes the next bytes of the answer, of which `size` are wanted, or its end, those that are unread.
  DriverResult Fetch(std::size_t size, TimePoint deadline);
  /// Whether no read is under way any more; its answer is dropped.
  bool EndPendingRead(TimePoint deadline);
  bool Abort(TimePoint deadline);
  template <typename Arguments>
  bool CallForError(wire::Vxi11::CoreProcedure procedure, const Arguments& arguments, TimePoint deadline);
  wire::Vxi11::GenericArguments Generic(TimePoint deadline) const;
  /// In milliseconds, as the calls tell it: at least 1.
  std::uint32_t TimeLeft(TimePoint deadline) const;

  const LanDeviceAddress m_address;
  const StreamConnector m_connect;
  IClock& m_clock;
  /// Null while there is no link.
  std::unique_ptr<RpcChannel> m_core;
  std::int32_t m_link = 0;
  std::uint16_t m_abortPort = 0;
  /// The most that one call may write, in bytes.
  std::size_t m_longestPiece = 0;
  /// A DeviceRead has no reply yet.
  bool m_readPending = false;
  /// What the last DeviceRead brought and nobody has read, and whether the message ends behind it.
  std::string_view m_unread;
  bool m_endsMessage = false;
};

} // namespace portico::drivers

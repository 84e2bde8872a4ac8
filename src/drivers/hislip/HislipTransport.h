#pragma once

#include "drivers/ITransport.h"
#include "drivers/ReceiveBuffer.h"
#include "drivers/sockets/TcpConnector.h"
#include "system/Cancellation.h"
#include "system/FileDescriptor.h"
#include "wire/HislipClient.h"

#include <cstdint>
#include <string>

namespace portico::drivers {

/// An instrument that speaks HiSLIP, over two connections to one port. Time-outs run on the real clock.
class HislipTransport final : public ITransport {
public:
  /// The port that IANA has registered for HiSLIP.
  static constexpr std::uint16_t StandardPort = 4880;

  /// `host` as in TcpConnector, `device` as in "hislip0". `cancellation` may be null, or must outlive the transport.
  HislipTransport(std::string host, std::uint16_t port, std::string device,
                  const system::Cancellation* cancellation = nullptr);

  DriverResult Open(TimePoint deadline) override;
  void Close() noexcept override;
  DriverResult Write(std::string_view bytes, TimePoint deadline) override;
  Received Read(char* buffer, std::size_t size, TimePoint deadline) override;
  bool MarksEnd() const override { return true; }
  bool Stands() override;
  bool Clear(std::chrono::milliseconds timeout) override;
  DriverResult GoToLocal(TimePoint deadline) override;

private:
  DriverResult Connect(TimePoint deadline);
  /// Moves bytes both ways until `done`, and drops what comes of answers meanwhile.
  template <typename Done>
  DriverResult ConverseUntil(Done done, TimePoint deadline, DriverStatus onTimeout);
  DriverResult ConverseUntilReady(TimePoint deadline);
  /// Sends as much as the system takes at once.
  DriverResult Transmit();
  DriverResult Transmit(wire::HislipChannel channel);
  /// Waits until bytes can be moved on either connection, and takes those that have come.
  DriverResult Exchange(TimePoint deadline, DriverStatus onTimeout);
  /// Takes what has come on one connection: how much, 0 if it has ended, or the failure of which `errno` tells.
  std::ptrdiff_t ReceiveSynchronous();
  std::ptrdiff_t ReceiveAsynchronous();
  /// The next part of the answer, of `size` bytes at most, from what has come.
  wire::HislipAnswer TakeAnswer(std::size_t size);

  /// Why no answer came, as far as that is known.
  std::string ReasonOfSilence() const;

  int Descriptor(wire::HislipChannel channel) const {
    return (channel == wire::HislipChannel::Synchronous ? m_synchronous : m_asynchronous).Get();
  }
  bool Failed() const { return !m_client.Failure().empty(); }
  DriverResult ProtocolFailure() const { return Failure(DriverStatus::ProtocolError, m_client.Failure()); }
  DriverResult Failure(DriverStatus status, const std::string& reason) const;

  TcpConnector m_connector;
  const system::Cancellation* const m_cancellation;
  wire::HislipClient m_client;
  system::FileDescriptor m_synchronous;
  system::FileDescriptor m_asynchronous;
  /// What has come on the synchronous connection and was not taken yet.
  ReceiveBuffer m_input;
};

} // namespace portico::drivers

#pragma once

#include "tap/Place.h"
#include "tap/Talk.h"
#include "wire/HislipReader.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace portico::tap {

/// One of a client's two HiSLIP connections, and its counterpart to the instrument: all messages go on unchanged, but
/// for the name of the device that the client asks for. The client's first message tells which of them it is; only then
/// the instrument is connected to.
class HislipCrossing final : public Crossing {
public:
  /// `subAddress` is the device's name at the instrument. A client that finds the place taken is told that there are
  /// too many. `place` must outlive all connections.
  static server::ConnectionFactory Factory(Place& place, std::string subAddress);

  HislipCrossing(Place& place, std::string subAddress);

  void GiveWay() override;

private:
  void FromClient(std::string_view bytes) override;
  void FromInstrument(std::string_view bytes) override;
  /// The first message. False if the client was refused.
  bool Begin(const wire::HislipPiece& first);
  bool BeginSession(const wire::HislipPiece& first);
  bool BeginAsynchronous(const wire::HislipPiece& first);
  bool Refuse(wire::HislipFatal code, std::string_view why);
  void Watch(wire::HislipReader& reader, std::string_view bytes, void (Talk::*said)(std::string_view, bool));

  Place& m_place;
  const std::string m_subAddress;
  wire::HislipReader m_fromClient;
  wire::HislipReader m_fromInstrument;
  bool m_begun = false;
  std::optional<Talk> m_talk; ///< on the synchronous connection only
  std::optional<std::uint16_t> m_session;
  std::weak_ptr<Crossing> m_asynchronous; ///< of this synchronous one
};

} // namespace portico::tap

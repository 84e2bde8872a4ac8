#pragma once

#include "tap/Place.h"
#include "tap/Talk.h"

#include <optional>

namespace portico::tap {

/// Raw sockets on both sides: the bytes go on unchanged, as they come.
class RawCrossing final : public Crossing {
public:
  /// A client that finds the place taken has its connection closed. `place` must outlive all connections.
  static server::ConnectionFactory Factory(Place& place);

  using Crossing::Crossing;

private:
  bool Begin(Place& place);
  void FromClient(std::string_view bytes) override;
  void FromInstrument(std::string_view bytes) override;

  std::optional<Talk> m_talk; ///< none of a client that was refused
};

} // namespace portico::tap

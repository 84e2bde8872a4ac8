#pragma once

#include "wire/HislipMessage.h"

#include <string>
#include <string_view>

namespace portico::tap::BridgeWire {

// What goes over the wire between a RelayedConnection and its bridge.

inline std::string Piece(std::string_view bytes) { return wire::HislipMessage(wire::HislipType::Data, 0, 0, bytes); }
inline std::string Last(std::string_view bytes) { return wire::HislipMessage(wire::HislipType::DataEnd, 0, 0, bytes); }
inline const std::string Clear = wire::HislipMessage(wire::HislipType::AsyncDeviceClear);
inline const std::string Opened = wire::HislipMessage(wire::HislipType::InitializeResponse);
inline const std::string Done = wire::HislipMessage(wire::HislipType::AsyncStatusResponse);

} // namespace portico::tap::BridgeWire

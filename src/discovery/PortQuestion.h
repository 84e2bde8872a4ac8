#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace portico::discovery {

/// The datagram that asks a portmapper for the port of VXI-11's core channel. Instruments answer it when it is
/// broadcast. `number` comes back with the answers.
std::string CoreChannelQuestion(std::uint32_t number);

/// Whether a datagram is the answer to the question of that number, and there is a core channel.
bool TellsOfCoreChannel(std::string_view datagram, std::uint32_t number);

} // namespace portico::discovery

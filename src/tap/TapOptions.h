#pragma once

#include "commandline/CommandLine.h"
#include "drivers/ResourceName.h"
#include "framework/text/text.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace portico::tap {

using commandline::HelpText;
using commandline::UsageError;

/// What the program can be to its clients.
enum class Protocol : std::uint8_t { Raw, Vxi11, Hislip };

struct ProtocolNames {
  const char* Name; ///< stands behind the address in the line that tells it; the raw socket has none
  const char* Option;
  const char* Help;
};

/// In the order of the enumeration.
inline constexpr std::array Protocols = {
    ProtocolNames{"", "--listen", "Be a raw socket on this TCP port; 0 picks a free one"},
    ProtocolNames{"vxi11", "--vxi11", "Be a VXI-11 server on this TCP port; 0 picks a free one"},
    ProtocolNames{"hislip", "--hislip", "Be a HiSLIP server on this TCP port; 0 picks a free one"},
};

/// In which of them the instrument is spoken to; none for one that is spoken to in another way.
std::optional<Protocol> ProtocolOf(const drivers::ResourceName& instrument);

/// What is asked of the program.
struct TapOptions {
  drivers::ResourceName Instrument{drivers::SimulatedAddress{}};
  std::string Address = "127.0.0.1"; ///< to listen on
  Protocol Client = Protocol::Raw;   ///< what the clients speak
  std::uint16_t Port = 0;            ///< to listen on; 0 picks a free one
  String LogFile = {};               ///< empty for none
  bool Overwrite = false;
  bool Show = false;
  std::chrono::milliseconds Timeout{};
};

std::variant<TapOptions, HelpText, UsageError> ParseTapOptions(int argc, const char* const* argv);

} // namespace portico::tap

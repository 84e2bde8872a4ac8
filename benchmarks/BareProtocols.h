#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace portico {

/// Asks one query and gives what came for it, the line feed included; valid until the next call.
using BareQuery = std::function<std::string_view()>;

/// Each connects to a TCP port of this machine and then puts the same bytes on the wire, query by query, as the driver
/// does for a query of that text; only the numbers of messages and calls change.
BareQuery BareSocketQuery(std::uint16_t port, const std::string& text);
BareQuery BareVxi11Query(std::uint16_t port, const std::string& text);
BareQuery BareHislipQuery(std::uint16_t port, const std::string& text);
/// The same over a serial line.
BareQuery BareSerialQuery(const std::string& path, const std::string& text);

} // namespace portico

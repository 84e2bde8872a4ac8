#include "drivers/ResourceName.h"

#include "drivers/ControlCharacters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

namespace portico::drivers {
namespace {

using ParseResult = std::variant<ResourceName, ResourceNameError>;

constexpr std::string_view Separator = "::";
constexpr std::string_view DefaultLanDevice = "inst0";
constexpr std::string_view HislipPrefix = "hislip";

constexpr std::string_view Forms = "TCPIP::HOST::PORT::SOCKET or SIM::DEVICE::INSTR";
constexpr std::string_view SocketForm = "TCPIP::HOST::PORT::SOCKET";
constexpr std::string_view UsbForm = "USB::VENDOR::PRODUCT::SERIAL::INSTR";
constexpr std::string_view SerialForm = "ASRL1::INSTR or ASRL/dev/ttyUSB0::INSTR";
constexpr std::string_view SerialSettingsForm = "SPEED,FORMAT,FLOW as in 115200,8N1,xonxoff";
constexpr std::string_view SimulatedForm = "SIM::DEVICE::INSTR";

char ToUpper(char character) {
  return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return ToUpper(a) == ToUpper(b); });
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t begin = text.find_first_not_of(blanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

template <typename... Pieces>
ResourceNameError Error(const Pieces&... pieces) {
  ResourceNameError error;
  (error.Text.append(pieces), ...);
  return error;
}

template <typename Number>
std::optional<Number> ParseNumber(std::string_view text, int base = 10) {
  Number value = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value, base);
  if (text.empty() || failure != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

/// USB ids are written as `0x1234` or in decimal.
std::optional<std::uint16_t> ParseUsbId(std::string_view text) {
  const bool hexadecimal = EqualsIgnoringCase(text.substr(0, 2), "0x");
  return ParseNumber<std::uint16_t>(hexadecimal ? text.substr(2) : text, hexadecimal ? 16 : 10);
}

std::string UsbId(std::uint16_t id) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text = "0x";
  for (int shift = 12; shift >= 0; shift -= 4) text += digits[static_cast<std::size_t>(id >> shift) & 0xF];
  return text;
}

/// The fields between the separators, where a bracketed host counts as one. None if a bracket is not closed.
std::optional<std::vector<std::string_view>> Split(std::string_view text) {
  std::vector<std::string_view> fields;
  std::size_t begin = 0;
  for (;;) {
    std::size_t searchFrom = begin;
    if (fields.size() == 1 && text.substr(begin, 1) == "[") {
      searchFrom = text.find(']', begin);
      if (searchFrom == std::string_view::npos) return std::nullopt;
    }
    const std::size_t end = text.find(Separator, searchFrom);
    fields.push_back(text.substr(begin, end - begin));
    if (end == std::string_view::npos) return fields;
    begin = end + Separator.size();
  }
}

/// A name behind its prefix: what follows the prefix directly (a board or serial port), and the other fields.
struct Fields {
  std::string_view Suffix;
  std::vector<std::string_view> Rest;

  bool HasClass(std::string_view name) const { return !Rest.empty() && EqualsIgnoringCase(Rest.back(), name); }
};

struct BoardResult {
  unsigned Board = 0;
  std::optional<ResourceNameError> Error;
};

BoardResult ParseBoard(std::string_view suffix, std::string_view prefix) {
  if (suffix.empty()) return {};
  if (const auto board = ParseNumber<std::uint16_t>(suffix)) return {*board, std::nullopt};
  return {0, Error("the board ", Quoted(suffix), " is not a number; write ", prefix, " or ", prefix, "0")};
}

/// Takes the brackets off an IPv6 address.
std::variant<std::string, ResourceNameError> ParseHost(std::string_view field) {
  if (field.empty()) {
    return Error("the host is missing; write ", SocketForm,
                 ", with an IPv6 address in brackets as in TCPIP::[::1]::5025::SOCKET");
  }
  if (field.find(' ') != std::string_view::npos) return Error("the host ", Quoted(field), " holds a blank");
  if (field.front() != '[') {
    if (field.find(':') == std::string_view::npos) return std::string(field);
    return Error("the host ", Quoted(field), " holds a colon; write ", SocketForm);
  }
  const std::string_view address = field.substr(1, field.find(']') - 1);
  if (address.size() + 2 != field.size() || address.find(':') == std::string_view::npos) {
    return Error(Quoted(field), " is not an IPv6 address in brackets, as in TCPIP::[::1]::5025::SOCKET");
  }
  return std::string(address);
}

std::string HostField(const std::string& host) { return host.find(':') == std::string::npos ? host : "[" + host + "]"; }

bool IsNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::variant<std::uint16_t, ResourceNameError> ParsePort(std::string_view text) {
  const auto port = ParseNumber<std::uint16_t>(text);
  if (port && *port != 0) return *port;
  return Error("the port ", Quoted(text), " is not a number from 1 to 65535");
}

/// Where a network name leads to: `HOST[,PORT]`.
struct NetworkPlace {
  unsigned Board = 0;
  std::string Host;
  std::optional<std::uint16_t> Port;
};

std::variant<NetworkPlace, ResourceNameError> ParsePlace(unsigned board, std::string_view field) {
  const std::size_t comma = field.find(',');
  auto host = ParseHost(field.substr(0, comma));
  if (auto* error = std::get_if<ResourceNameError>(&host)) return std::move(*error);
  NetworkPlace place = {board, std::get<std::string>(std::move(host)), std::nullopt};
  if (comma == std::string_view::npos) return place;
  auto port = ParsePort(field.substr(comma + 1));
  if (auto* error = std::get_if<ResourceNameError>(&port)) return std::move(*error);
  place.Port = std::get<std::uint16_t>(port);
  return place;
}

ParseResult ParseSocket(NetworkPlace place, const Fields& fields) {
  if (fields.Rest.size() == 2) {
    return Error("the port is missing; write TCPIP::", HostField(place.Host), Separator,
                 std::to_string(place.Port.value_or(5025)), "::SOCKET");
  }
  if (fields.Rest.size() > 3) {
    return Error("there are too many fields; write ", SocketForm,
                 ", with an IPv6 address in brackets as in TCPIP::[::1]::5025::SOCKET");
  }
  auto port = ParsePort(fields.Rest[1]);
  if (auto* error = std::get_if<ResourceNameError>(&port)) return std::move(*error);
  if (place.Port) {
    return Error("there are two ports, ", Quoted(std::to_string(*place.Port)), " and ", Quoted(fields.Rest[1]),
                 "; write TCPIP::", HostField(place.Host), Separator, fields.Rest[1], "::SOCKET");
  }
  return ResourceName(SocketAddress{place.Board, std::move(place.Host), std::get<std::uint16_t>(port)});
}

ParseResult ParseLanDevice(NetworkPlace place, std::string_view device) {
  if (device.empty()) return Error("the device is empty; write TCPIP::", HostField(place.Host), "::inst0::INSTR");
  LanDeviceAddress address = {place.Board, std::move(place.Host), std::string(device), place.Port};
  if (address.Protocol() == LanProtocol::Vxi11) return ResourceName(std::move(address));
  if (address.Port) {
    return Error("the port of HiSLIP stands behind the device; write TCPIP::", HostField(address.Host), Separator,
                 device, ",", std::to_string(*address.Port), "::INSTR");
  }
  const std::size_t comma = device.find(',');
  if (comma == std::string_view::npos) return ResourceName(std::move(address));
  auto port = ParsePort(device.substr(comma + 1));
  if (auto* error = std::get_if<ResourceNameError>(&port)) return std::move(*error);
  address.Device.resize(comma);
  address.Port = std::get<std::uint16_t>(port);
  return ResourceName(std::move(address));
}

ParseResult ParseTcpip(const Fields& fields) {
  const BoardResult board = ParseBoard(fields.Suffix, "TCPIP");
  if (board.Error) return *board.Error;
  if (fields.Rest.empty()) return Error("the host is missing; write ", SocketForm);
  auto parsedPlace = ParsePlace(board.Board, fields.Rest.front());
  if (auto* error = std::get_if<ResourceNameError>(&parsedPlace)) return std::move(*error);
  auto& place = std::get<NetworkPlace>(parsedPlace);

  if (fields.Rest.size() > 1 && fields.HasClass("SOCKET")) return ParseSocket(std::move(place), fields);
  const bool isInstr = fields.Rest.size() > 1 && fields.HasClass("INSTR");
  const std::size_t last = fields.Rest.size() - (isInstr ? 1 : 0);
  if (last == 2 && IsNumber(fields.Rest[1])) {
    return Error("a port needs the class SOCKET; write TCPIP::", HostField(place.Host), "::", fields.Rest[1],
                 "::SOCKET");
  }
  if (!isInstr) return Error("the class is missing; end the name with ::PORT::SOCKET or ::INSTR");
  if (last > 2) return Error("there are too many fields; write TCPIP::HOST::DEVICE::INSTR or ", SocketForm);
  return ParseLanDevice(std::move(place), last == 2 ? fields.Rest[1] : DefaultLanDevice);
}

ParseResult ParseUsb(const Fields& fields) {
  const BoardResult board = ParseBoard(fields.Suffix, "USB");
  if (board.Error) return *board.Error;
  if (!fields.HasClass("INSTR")) return Error("the class is missing; write ", UsbForm);
  const std::size_t count = fields.Rest.size();
  if (count != 4 && count != 5) return Error("there are too ", count < 4 ? "few" : "many", " fields; write ", UsbForm);
  std::array<std::uint16_t, 2> ids = {};
  for (std::size_t i = 0; i < ids.size(); ++i) {
    const auto id = ParseUsbId(fields.Rest[i]);
    if (!id) return Error("the USB id ", Quoted(fields.Rest[i]), " is not a number from 0 to 0xFFFF, as in 0x1234");
    ids[i] = *id;
  }
  const std::string_view interfaceField = count == 5 ? fields.Rest[3] : "0";
  const auto interfaceNumber = ParseNumber<std::uint8_t>(interfaceField);
  if (!interfaceNumber) return Error("the USB interface ", Quoted(interfaceField), " is not a number from 0 to 255");
  return ResourceName(UsbAddress{board.Board, ids[0], ids[1], std::string(fields.Rest[2]), *interfaceNumber});
}

// In the order of their kinds.
constexpr std::string_view ParityLetters = "NEO";
constexpr std::array<std::string_view, 3> FlowNames = {"none", "xonxoff", "rtscts"};

std::optional<ResourceNameError> ParseSpeed(std::string_view text, SerialLine& line) {
  const auto speed = ParseNumber<unsigned>(text);
  if (!speed || *speed == 0) {
    return Error("the speed ", Quoted(text), " is not a number of bits per second, as in 115200");
  }
  line.Speed = *speed;
  return std::nullopt;
}

std::optional<ResourceNameError> ParseFormat(std::string_view text, SerialLine& line) {
  const std::size_t parity = text.size() == 3 ? ParityLetters.find(ToUpper(text[1])) : std::string_view::npos;
  if (parity == std::string_view::npos || text[0] < '5' || text[0] > '8' || text[2] < '1' || text[2] > '2') {
    return Error("the format ", Quoted(text),
                 " is not data bits (5 to 8), parity (N, E or O) and stop bits (1 or 2), as in 8N1");
  }
  line.DataBits = static_cast<unsigned>(text[0] - '0');
  line.Parity = static_cast<SerialLine::ParityKind>(parity);
  line.StopBits = static_cast<unsigned>(text[2] - '0');
  return std::nullopt;
}

std::optional<ResourceNameError> ParseFlow(std::string_view text, SerialLine& line) {
  const auto* name = std::find_if(FlowNames.begin(), FlowNames.end(),
                                  [text](std::string_view candidate) { return EqualsIgnoringCase(candidate, text); });
  if (name == FlowNames.end()) return Error("the flow control ", Quoted(text), " is none of none, xonxoff and rtscts");
  line.Flow = static_cast<SerialLine::FlowKind>(name - FlowNames.begin());
  return std::nullopt;
}

/// Reads `SPEED[,FORMAT[,FLOW]]` into `line`.
std::optional<ResourceNameError> ParseLine(std::string_view text, SerialLine& line) {
  for (const auto& parsePart : {ParseSpeed, ParseFormat, ParseFlow}) {
    const std::size_t comma = text.find(',');
    if (auto error = parsePart(text.substr(0, comma), line)) return error;
    if (comma == std::string_view::npos) return std::nullopt;
    text.remove_prefix(comma + 1);
  }
  return Error("nothing may follow the flow control, as ", Quoted(text), " does; write ", SerialSettingsForm);
}

ParseResult ParseSerial(const Fields& fields) {
  if (!fields.HasClass("INSTR")) return Error("a serial port's name ends with ::INSTR; write ", SerialForm);
  if (fields.Rest.size() > 2) {
    return Error("there are too many fields; write the settings as one, as in "
                 "ASRL/dev/ttyUSB0::115200,8N1,xonxoff::INSTR");
  }
  SerialAddress address;
  if (fields.Suffix.size() > 1 && fields.Suffix.front() == '/') {
    address.Port = fields.Suffix;
  } else if (const auto number = ParseNumber<std::uint16_t>(fields.Suffix)) {
    if (*number == 0) return Error("serial ports are numbered from 1; write ", SerialForm);
    address.Port = std::to_string(*number);
  } else {
    return Error("the serial port ", Quoted(fields.Suffix), " is neither a number nor a path; write ", SerialForm);
  }
  if (fields.Rest.size() == 2) {
    if (auto error = ParseLine(fields.Rest.front(), address.Line)) return *error;
  }
  return ResourceName(std::move(address));
}

/// The settings as a field of the canonical name, with its separator; empty for those that need not be written.
std::string LineField(const SerialLine& line) {
  if (line == SerialLine()) return {};
  std::string text = "::" + std::to_string(line.Speed) + "," + std::to_string(line.DataBits) +
                     ParityLetters[static_cast<std::size_t>(line.Parity)] + std::to_string(line.StopBits);
  if (line.Flow != SerialLine::FlowKind::None) text.append(",").append(FlowNames[static_cast<std::size_t>(line.Flow)]);
  return text;
}

ParseResult ParseSimulated(const Fields& fields) {
  if (!fields.Suffix.empty()) return Error("there is no board number behind SIM; write ", SimulatedForm);
  if (fields.Rest.size() != 2 || !fields.HasClass("INSTR") || fields.Rest.front().empty()) {
    return Error("a simulated instrument's name reads ", SimulatedForm, ", as in SIM::dmm::INSTR");
  }
  return ResourceName(SimulatedAddress{std::string(fields.Rest.front())});
}

struct PrefixEntry {
  std::string_view Prefix;
  ParseResult (*Parse)(const Fields& fields);
};

constexpr std::array Prefixes = {
    PrefixEntry{"TCPIP", ParseTcpip},
    PrefixEntry{"USB", ParseUsb},
    PrefixEntry{"ASRL", ParseSerial},
    PrefixEntry{"SIM", ParseSimulated},
};

struct CanonicalWriter {
  std::string operator()(const SocketAddress& address) const {
    return "TCPIP" + std::to_string(address.Board) + "::" + HostField(address.Host) +
           "::" + std::to_string(address.Port) + "::SOCKET";
  }
  std::string operator()(const LanDeviceAddress& address) const {
    const std::string port = address.Port ? "," + std::to_string(*address.Port) : "";
    const bool isHislip = address.Protocol() == LanProtocol::Hislip;
    return "TCPIP" + std::to_string(address.Board) + "::" + HostField(address.Host) + (isHislip ? "" : port) +
           "::" + address.Device + (isHislip ? port : "") + "::INSTR";
  }
  std::string operator()(const UsbAddress& address) const {
    return "USB" + std::to_string(address.Board) + "::" + UsbId(address.Vendor) + "::" + UsbId(address.Product) +
           "::" + address.Serial + "::" + std::to_string(address.InterfaceNumber) + "::INSTR";
  }
  std::string operator()(const SerialAddress& address) const {
    return "ASRL" + address.Port + LineField(address.Line) + "::INSTR";
  }
  std::string operator()(const SimulatedAddress& address) const { return "SIM::" + address.Device + "::INSTR"; }
};

} // namespace

LanProtocol LanDeviceAddress::Protocol() const {
  const std::string_view start = std::string_view(Device).substr(0, HislipPrefix.size());
  return EqualsIgnoringCase(start, HislipPrefix) ? LanProtocol::Hislip : LanProtocol::Vxi11;
}

bool ResourceName::IsSimulated(std::string_view text) {
  constexpr std::string_view prefix = "SIM::";
  return EqualsIgnoringCase(Trimmed(text).substr(0, prefix.size()), prefix);
}

ParseResult ResourceName::Parse(std::string_view text) {
  text = Trimmed(text);
  if (text.empty()) return Error("the name is empty; write ", Forms);
  if (std::any_of(text.begin(), text.end(), IsControl)) {
    return Error("the name holds a control character; write ", Forms);
  }
  auto fields = Split(text);
  if (!fields) return Error("the bracket before the IPv6 address is not closed, as in TCPIP::[::1]::5025::SOCKET");
  const std::string_view head = fields->front();
  for (const PrefixEntry& entry : Prefixes) {
    const std::string_view suffix = head.substr(std::min(head.size(), entry.Prefix.size()));
    const bool suffixFits = suffix.empty() || suffix.front() == '/' || IsNumber(suffix.substr(0, 1));
    if (!suffixFits || !EqualsIgnoringCase(head.substr(0, entry.Prefix.size()), entry.Prefix)) continue;
    return entry.Parse({suffix, {fields->begin() + 1, fields->end()}});
  }
  return Error(Quoted(head), " is no interface; write ", Forms);
}

std::string ResourceName::Canonical() const { return std::visit(CanonicalWriter(), m_address); }

} // namespace portico::drivers

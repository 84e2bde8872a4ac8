#pragma once

#include "drivers/SerialLine.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace portico::drivers {

/// A raw TCP socket: `TCPIP[n]::HOST::PORT::SOCKET`.
struct SocketAddress {
  unsigned Board = 0;
  /// A name or an address; an IPv6 address stands here without its brackets.
  std::string Host;
  /// 1 to 65535.
  std::uint16_t Port = 0;
};

/// What a device on the network is spoken to in.
enum class LanProtocol : std::uint8_t { Vxi11, Hislip };

/// An instrument protocol over the network: `TCPIP[n]::HOST[,PORT][::DEVICE]::INSTR` for VXI-11,
/// `TCPIP[n]::HOST::DEVICE[,PORT]::INSTR` for HiSLIP.
struct LanDeviceAddress {
  unsigned Board = 0;
  std::string Host;
  /// Without the port.
  std::string Device;
  /// 1 to 65535, if the name tells it: that of VXI-11's core channel, so that no portmapper is asked, or of HiSLIP.
  std::optional<std::uint16_t> Port = {};

  /// HiSLIP, if the device begins with "hislip" in any case.
  LanProtocol Protocol() const;
};

/// A USB test and measurement device: `USB[n]::VENDOR::PRODUCT::SERIAL[::INTF]::INSTR`.
struct UsbAddress {
  unsigned Board = 0;
  std::uint16_t Vendor = 0;
  std::uint16_t Product = 0;
  std::string Serial;
  /// 0 to 255.
  unsigned InterfaceNumber = 0;
};

/// A serial port: `ASRLn[::SPEED[,FORMAT[,FLOW]]]::INSTR`, or the same with `ASRL/dev/PATH`.
struct SerialAddress {
  /// A decimal number from 1, or the path of the device.
  std::string Port;
  SerialLine Line = {};
};

/// A simulated instrument in this process: `SIM::DEVICE::INSTR`.
struct SimulatedAddress {
  std::string Device;
};

/// The order is that of ResourceName::Address.
enum class InterfaceKind { Socket, LanDevice, Usb, Serial, Simulated };

/// Why a text is no resource name and what would be right, as one clause without a full stop.
struct ResourceNameError {
  std::string Text;
};

/// The name of an instrument, taken apart. Prefix and class are read in any case; hosts, devices, serial numbers and
/// paths keep theirs.
class ResourceName {
public:
  using Address = std::variant<SocketAddress, LanDeviceAddress, UsbAddress, SerialAddress, SimulatedAddress>;

  explicit ResourceName(Address address) : m_address(std::move(address)) {}

  /// Reads a name; blanks around it do not count.
  static std::variant<ResourceName, ResourceNameError> Parse(std::string_view text);

  /// Whether a text, valid or not, begins as the name of a simulated instrument does: with `SIM::`.
  static bool IsSimulated(std::string_view text);

  InterfaceKind Kind() const { return static_cast<InterfaceKind>(m_address.index()); }
  const Address& GetAddress() const { return m_address; }

  /// The complete name, with its defaults and with prefix and class in upper case. Reads back as the same name.
  std::string Canonical() const;

private:
  Address m_address;
};

} // namespace portico::drivers

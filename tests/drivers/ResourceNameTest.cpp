#include "drivers/ResourceName.h"

#include <gtest/gtest.h>
#include <vector>

namespace portico::drivers {
namespace {

ResourceName Parsed(std::string_view text) {
  const auto result = ResourceName::Parse(text);
  const auto* error = std::get_if<ResourceNameError>(&result);
  EXPECT_EQ(error, nullptr) << text << ": " << (error == nullptr ? "" : error->Text);
  return error == nullptr ? std::get<ResourceName>(result) : ResourceName(SimulatedAddress{"failed"});
}

struct Good {
  std::string text;
  InterfaceKind kind;
  std::string canonical;
};

const std::vector<Good> GoodNames = {
    Good{"TCPIP::bench::5025::SOCKET", InterfaceKind::Socket, "TCPIP0::bench::5025::SOCKET"},
    Good{"  tcpip2::Bench-7.Lab::1::socket\r\n", InterfaceKind::Socket, "TCPIP2::Bench-7.Lab::1::SOCKET"},
    Good{"TCPIP::192.0.2.7::65535::SOCKET", InterfaceKind::Socket, "TCPIP0::192.0.2.7::65535::SOCKET"},
    Good{"TCPIP::[::1]::05025::SOCKET", InterfaceKind::Socket, "TCPIP0::[::1]::5025::SOCKET"},
    Good{"TCPIP::[fe80::1%eth0]::5025::SOCKET", InterfaceKind::Socket, "TCPIP0::[fe80::1%eth0]::5025::SOCKET"},
    Good{"TCPIP::SOCKET::5025::SOCKET", InterfaceKind::Socket, "TCPIP0::SOCKET::5025::SOCKET"},
    Good{"TCPIP::bench::INSTR", InterfaceKind::LanDevice, "TCPIP0::bench::inst0::INSTR"},
    Good{"tcpip1::bench::gpib0,5::instr", InterfaceKind::LanDevice, "TCPIP1::bench::gpib0,5::INSTR"},
    Good{"TCPIP::[::1]::hislip0,4880::INSTR", InterfaceKind::LanDevice, "TCPIP0::[::1]::hislip0,4880::INSTR"},
    Good{"TCPIP::bench::HiSLIP0::INSTR", InterfaceKind::LanDevice, "TCPIP0::bench::HiSLIP0::INSTR"},
    Good{"TCPIP::bench,1024::INSTR", InterfaceKind::LanDevice, "TCPIP0::bench,1024::inst0::INSTR"},
    Good{"TCPIP::[::1],01024::gpib0,5::instr", InterfaceKind::LanDevice, "TCPIP0::[::1],1024::gpib0,5::INSTR"},
    Good{"USB::0x1234::0xabcd::SN1::INSTR", InterfaceKind::Usb, "USB0::0x1234::0xABCD::SN1::0::INSTR"},
    Good{"usb3::4660::65535::Sn 1::255::instr", InterfaceKind::Usb, "USB3::0x1234::0xFFFF::Sn 1::255::INSTR"},
    Good{"USB::1::2::::INSTR", InterfaceKind::Usb, "USB0::0x0001::0x0002::::0::INSTR"},
    Good{"ASRL1::INSTR", InterfaceKind::Serial, "ASRL1::INSTR"},
    Good{"asrl07::instr", InterfaceKind::Serial, "ASRL7::INSTR"},
    Good{"asrl/dev/ttyUSB0::instr", InterfaceKind::Serial, "ASRL/dev/ttyUSB0::INSTR"},
    Good{"ASRL1::9600::INSTR", InterfaceKind::Serial, "ASRL1::INSTR"},
    Good{"ASRL1::9600,8n1,NONE::INSTR", InterfaceKind::Serial, "ASRL1::INSTR"},
    Good{"ASRL2::19200::INSTR", InterfaceKind::Serial, "ASRL2::19200,8N1::INSTR"},
    Good{"ASRL2::9600,7e2::INSTR", InterfaceKind::Serial, "ASRL2::9600,7E2::INSTR"},
    Good{"asrl/dev/ttyUSB0::115200,8N1,XonXoff::instr", InterfaceKind::Serial,
         "ASRL/dev/ttyUSB0::115200,8N1,xonxoff::INSTR"},
    Good{"ASRL/dev/serial/by-id/usb-Maker_Port-if00::9600,5O1,rtscts::INSTR", InterfaceKind::Serial,
         "ASRL/dev/serial/by-id/usb-Maker_Port-if00::9600,5O1,rtscts::INSTR"},
    Good{"SIM::dmm::INSTR", InterfaceKind::Simulated, "SIM::dmm::INSTR"},
    Good{"sim::Scope::Instr", InterfaceKind::Simulated, "SIM::Scope::INSTR"}};

TEST(ResourceName, HasItsKindAndCanonicalForm) {
  for (const Good& good : GoodNames) {
    SCOPED_TRACE(good.text);
    const ResourceName name = Parsed(good.text);
    EXPECT_EQ(name.Kind(), good.kind);
    EXPECT_EQ(name.Canonical(), good.canonical);
  }
}

TEST(ResourceName, TheCanonicalFormReadsBackAsItself) {
  for (const Good& good : GoodNames) EXPECT_EQ(Parsed(good.canonical).Canonical(), good.canonical);
}

struct Bad {
  std::string text;
  std::string error;
};

constexpr auto TooManyForSocket = "there are too many fields; write TCPIP::HOST::PORT::SOCKET, with an IPv6 address in "
                                  "brackets as in TCPIP::[::1]::5025::SOCKET";
constexpr auto NoHost = "the host is missing; write TCPIP::HOST::PORT::SOCKET, with an IPv6 address in brackets as in "
                        "TCPIP::[::1]::5025::SOCKET";
constexpr auto SimulatedMeter = "a simulated instrument's name reads SIM::DEVICE::INSTR, as in SIM::dmm::INSTR";
constexpr auto SerialMistake = "a serial port's name ends with ::INSTR; write ASRL1::INSTR or ASRL/dev/ttyUSB0::INSTR";

std::string FormatMistake(const std::string& format) {
  return "the format \"" + format +
         "\" is not data bits (5 to 8), parity (N, E or O) and stop bits (1 or 2), as in 8N1";
}

const std::vector<Bad> GeneralMistakes = {
    Bad{"", "the name is empty; write TCPIP::HOST::PORT::SOCKET or SIM::DEVICE::INSTR"},
    Bad{" \t ", "the name is empty; write TCPIP::HOST::PORT::SOCKET or SIM::DEVICE::INSTR"},
    Bad{std::string("SIM::d\0m::INSTR", 15),
        "the name holds a control character; write TCPIP::HOST::PORT::SOCKET or SIM::DEVICE::INSTR"},
    Bad{"GPIB0::5::INSTR", "\"GPIB0\" is no interface; write TCPIP::HOST::PORT::SOCKET or SIM::DEVICE::INSTR"},
    Bad{"TCPIPX::bench::5025::SOCKET",
        "\"TCPIPX\" is no interface; write TCPIP::HOST::PORT::SOCKET or SIM::DEVICE::INSTR"},
    Bad{"192.0.2.7:5025", "\"192.0.2.7:5025\" is no interface; write TCPIP::HOST::PORT::SOCKET or SIM::DEVICE::INSTR"}};

const std::vector<Bad> TcpipMistakes = {
    Bad{"TCPIP", "the host is missing; write TCPIP::HOST::PORT::SOCKET"},
    Bad{"TCPIP::::5025::SOCKET", NoHost},
    Bad{"TCPIP::", NoHost},
    Bad{"TCPIP::::1::5025::SOCKET", NoHost},
    Bad{"TCPIP0x::bench::5025::SOCKET", "the board \"0x\" is not a number; write TCPIP or TCPIP0"},
    Bad{"TCPIP99999::bench::5025::SOCKET", "the board \"99999\" is not a number; write TCPIP or TCPIP0"},
    Bad{"TCPIP::bench", "the class is missing; end the name with ::PORT::SOCKET or ::INSTR"},
    Bad{"TCPIP::INSTR", "the class is missing; end the name with ::PORT::SOCKET or ::INSTR"},
    Bad{"TCPIP::bench::inst0", "the class is missing; end the name with ::PORT::SOCKET or ::INSTR"},
    Bad{"TCPIP::bench::5025", "a port needs the class SOCKET; write TCPIP::bench::5025::SOCKET"},
    Bad{"TCPIP::bench::5025::INSTR", "a port needs the class SOCKET; write TCPIP::bench::5025::SOCKET"},
    Bad{"TCPIP::[::1]::5025", "a port needs the class SOCKET; write TCPIP::[::1]::5025::SOCKET"},
    Bad{"TCPIP::bench::SOCKET", "the port is missing; write TCPIP::bench::5025::SOCKET"},
    Bad{"TCPIP::bench::0::SOCKET", "the port \"0\" is not a number from 1 to 65535"},
    Bad{"TCPIP::bench::65536::SOCKET", "the port \"65536\" is not a number from 1 to 65535"},
    Bad{"TCPIP::bench::scpi::SOCKET", "the port \"scpi\" is not a number from 1 to 65535"},
    Bad{"TCPIP::bench::-1::SOCKET", "the port \"-1\" is not a number from 1 to 65535"},
    Bad{"TCPIP::bench::::SOCKET", "the port \"\" is not a number from 1 to 65535"},
    Bad{"TCPIP::fe80::1::5025::SOCKET", TooManyForSocket},
    Bad{"TCPIP::bench::a::b::INSTR",
        "there are too many fields; write TCPIP::HOST::DEVICE::INSTR or TCPIP::HOST::PORT::SOCKET"},
    Bad{"TCPIP::bench::::INSTR", "the device is empty; write TCPIP::bench::inst0::INSTR"},
    Bad{"TCPIP::bench,::INSTR", "the port \"\" is not a number from 1 to 65535"},
    Bad{"TCPIP::bench,0::INSTR", "the port \"0\" is not a number from 1 to 65535"},
    Bad{"TCPIP::[::1],1024x::gpib0,5::INSTR", "the port \"1024x\" is not a number from 1 to 65535"},
    Bad{"TCPIP::bench,1024,1::INSTR", "the port \"1024,1\" is not a number from 1 to 65535"},
    Bad{"TCPIP::bench,vxi::5025::SOCKET", "the port \"vxi\" is not a number from 1 to 65535"},
    Bad{"TCPIP::,1024::INSTR", NoHost},
    Bad{"TCPIP::bench,1024::5025::SOCKET",
        "there are two ports, \"1024\" and \"5025\"; write TCPIP::bench::5025::SOCKET"},
    Bad{"TCPIP::bench,5026::SOCKET", "the port is missing; write TCPIP::bench::5026::SOCKET"},
    Bad{"TCPIP::bench::hislip0,::INSTR", "the port \"\" is not a number from 1 to 65535"},
    Bad{"TCPIP::bench::Hislip0,x::INSTR", "the port \"x\" is not a number from 1 to 65535"},
    Bad{"TCPIP::bench::hislip0,65536::INSTR", "the port \"65536\" is not a number from 1 to 65535"},
    Bad{"TCPIP::bench::hislip0,4880,1::INSTR", "the port \"4880,1\" is not a number from 1 to 65535"},
    Bad{"TCPIP::[::1],4881::hislip0::INSTR",
        "the port of HiSLIP stands behind the device; write TCPIP::[::1]::hislip0,4881::INSTR"},
    Bad{"TCPIP::the bench::5025::SOCKET", "the host \"the bench\" holds a blank"},
    Bad{"TCPIP::bench:5025::SOCKET", "the host \"bench:5025\" holds a colon; write TCPIP::HOST::PORT::SOCKET"},
    Bad{"TCPIP::[::1::5025::SOCKET",
        "the bracket before the IPv6 address is not closed, as in TCPIP::[::1]::5025::SOCKET"},
    Bad{"TCPIP::[::1]x::5025::SOCKET",
        "\"[::1]x\" is not an IPv6 address in brackets, as in TCPIP::[::1]::5025::SOCKET"},
    Bad{"TCPIP::[]::5025::SOCKET", "\"[]\" is not an IPv6 address in brackets, as in TCPIP::[::1]::5025::SOCKET"},
    Bad{"TCPIP::[bench]::5025::SOCKET",
        "\"[bench]\" is not an IPv6 address in brackets, as in TCPIP::[::1]::5025::SOCKET"}};

const std::vector<Bad> OtherMistakes = {
    Bad{"USB::1::2::SN", "the class is missing; write USB::VENDOR::PRODUCT::SERIAL::INSTR"},
    Bad{"USB", "the class is missing; write USB::VENDOR::PRODUCT::SERIAL::INSTR"},
    Bad{"USB::1::2::INSTR", "there are too few fields; write USB::VENDOR::PRODUCT::SERIAL::INSTR"},
    Bad{"USB::1::2::SN::0::9::INSTR", "there are too many fields; write USB::VENDOR::PRODUCT::SERIAL::INSTR"},
    Bad{"USB::0x::2::SN::INSTR", "the USB id \"0x\" is not a number from 0 to 0xFFFF, as in 0x1234"},
    Bad{"USB::1::0x10000::SN::INSTR", "the USB id \"0x10000\" is not a number from 0 to 0xFFFF, as in 0x1234"},
    Bad{"USB::1::2::SN::256::INSTR", "the USB interface \"256\" is not a number from 0 to 255"},
    Bad{"USB1a::1::2::SN::INSTR", "the board \"1a\" is not a number; write USB or USB0"},
    Bad{"ASRL1", SerialMistake},
    Bad{"ASRL1::9600", SerialMistake},
    Bad{"ASRL::INSTR", "the serial port \"\" is neither a number nor a path; write ASRL1::INSTR or "
                       "ASRL/dev/ttyUSB0::INSTR"},
    Bad{"ASRL/::INSTR", "the serial port \"/\" is neither a number nor a path; write ASRL1::INSTR or "
                        "ASRL/dev/ttyUSB0::INSTR"},
    Bad{"ASRL0::INSTR", "serial ports are numbered from 1; write ASRL1::INSTR or ASRL/dev/ttyUSB0::INSTR"},
    Bad{"ASRL1::9600::8N1::INSTR",
        "there are too many fields; write the settings as one, as in ASRL/dev/ttyUSB0::115200,8N1,xonxoff::INSTR"},
    Bad{"ASRL1::9600x::INSTR", "the speed \"9600x\" is not a number of bits per second, as in 115200"},
    Bad{"ASRL1::::INSTR", "the speed \"\" is not a number of bits per second, as in 115200"},
    Bad{"ASRL1::0::INSTR", "the speed \"0\" is not a number of bits per second, as in 115200"},
    Bad{"ASRL1::99999999999::INSTR", "the speed \"99999999999\" is not a number of bits per second, as in 115200"},
    Bad{"ASRL1::-9600::INSTR", "the speed \"-9600\" is not a number of bits per second, as in 115200"},
    Bad{"ASRL1::9600,::INSTR", FormatMistake("")},
    Bad{"ASRL1::9600,4N1::INSTR", FormatMistake("4N1")},
    Bad{"ASRL1::9600,9N1::INSTR", FormatMistake("9N1")},
    Bad{"ASRL1::9600,8X1::INSTR", FormatMistake("8X1")},
    Bad{"ASRL1::9600,8N0::INSTR", FormatMistake("8N0")},
    Bad{"ASRL1::9600,8N3::INSTR", FormatMistake("8N3")},
    Bad{"ASRL1::9600,8N::INSTR", FormatMistake("8N")},
    Bad{"ASRL1::9600,8N1.5::INSTR", FormatMistake("8N1.5")},
    Bad{"ASRL1::9600, 8N1::INSTR", FormatMistake(" 8N1")},
    Bad{"ASRL1::9600,8N1,::INSTR", "the flow control \"\" is none of none, xonxoff and rtscts"},
    Bad{"ASRL1::9600,8N1,hard::INSTR", "the flow control \"hard\" is none of none, xonxoff and rtscts"},
    Bad{"ASRL1::9600,8N1,none,5::INSTR",
        "nothing may follow the flow control, as \"5\" does; write SPEED,FORMAT,FLOW as in 115200,8N1,xonxoff"},
    Bad{"SIM0::dmm::INSTR", "there is no board number behind SIM; write SIM::DEVICE::INSTR"},
    Bad{"SIM::dmm", SimulatedMeter},
    Bad{"SIM", SimulatedMeter},
    Bad{"SIM::::INSTR", SimulatedMeter},
    Bad{"SIM::dmm::SOCKET", SimulatedMeter},
    Bad{"SIM::dmm::1::INSTR", SimulatedMeter}};

void ExpectRefused(const std::vector<Bad>& mistakes) {
  for (const Bad& bad : mistakes) {
    SCOPED_TRACE(bad.text);
    const auto result = ResourceName::Parse(bad.text);
    const auto* error = std::get_if<ResourceNameError>(&result);
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->Text, bad.error);
  }
}

TEST(ResourceName, WhatIsNoNameAtAllIsRefused) { ExpectRefused(GeneralMistakes); }
TEST(ResourceName, MistakesInNetworkNamesAreExplained) { ExpectRefused(TcpipMistakes); }
TEST(ResourceName, MistakesInOtherNamesAreExplained) { ExpectRefused(OtherMistakes); }

TEST(ResourceName, TakesASocketNameApart) {
  const auto address = std::get<SocketAddress>(Parsed("TCPIP1::[fe80::1]::5025::SOCKET").GetAddress());
  EXPECT_EQ(address.Board, 1u);
  EXPECT_EQ(address.Host, "fe80::1");
  EXPECT_EQ(address.Port, 5025);
}

TEST(ResourceName, TakesTheNameOfALanDeviceApart) {
  const auto plain = std::get<LanDeviceAddress>(Parsed("TCPIP1::[fe80::1]::gpib0,22::INSTR").GetAddress());
  EXPECT_EQ(plain.Board, 1u);
  EXPECT_EQ(plain.Host, "fe80::1");
  EXPECT_EQ(plain.Device, "gpib0,22");
  EXPECT_EQ(plain.Protocol(), LanProtocol::Vxi11);
  EXPECT_EQ(plain.Port, std::nullopt);
  const auto withPort = std::get<LanDeviceAddress>(Parsed("TCPIP::[fe80::1],1024::INSTR").GetAddress());
  EXPECT_EQ(withPort.Host, "fe80::1");
  EXPECT_EQ(withPort.Device, "inst0");
  EXPECT_EQ(withPort.Protocol(), LanProtocol::Vxi11);
  EXPECT_EQ(withPort.Port, 1024);
}

TEST(ResourceName, ADeviceThatBeginsWithHislipIsSpokenToInHislip) {
  const auto plain = std::get<LanDeviceAddress>(Parsed("TCPIP::bench::HiSlip0::INSTR").GetAddress());
  EXPECT_EQ(plain.Device, "HiSlip0");
  EXPECT_EQ(plain.Protocol(), LanProtocol::Hislip);
  EXPECT_EQ(plain.Port, std::nullopt);
  const auto withPort = std::get<LanDeviceAddress>(Parsed("TCPIP::bench::hislip1,4881::INSTR").GetAddress());
  EXPECT_EQ(withPort.Host, "bench");
  EXPECT_EQ(withPort.Device, "hislip1");
  EXPECT_EQ(withPort.Protocol(), LanProtocol::Hislip);
  EXPECT_EQ(withPort.Port, 4881);
  const auto other = std::get<LanDeviceAddress>(Parsed("TCPIP::bench::hisli::INSTR").GetAddress());
  EXPECT_EQ(other.Protocol(), LanProtocol::Vxi11);
}

TEST(ResourceName, TakesAUsbNameApart) {
  const auto address = std::get<UsbAddress>(Parsed("USB2::0x12::34::SN::5::INSTR").GetAddress());
  EXPECT_EQ(address.Board, 2u);
  EXPECT_EQ(address.Vendor, 0x12);
  EXPECT_EQ(address.Product, 34);
  EXPECT_EQ(address.Serial, "SN");
  EXPECT_EQ(address.InterfaceNumber, 5u);
}

TEST(ResourceName, ASerialLineRunsAt9600WithoutParityAndFlowControl) {
  const auto address = std::get<SerialAddress>(Parsed("ASRL/dev/ttyS0::INSTR").GetAddress());
  EXPECT_EQ(address.Line.Speed, 9600u);
  EXPECT_EQ(address.Line.DataBits, 8u);
  EXPECT_EQ(address.Line.Parity, SerialLine::ParityKind::None);
  EXPECT_EQ(address.Line.StopBits, 1u);
  EXPECT_EQ(address.Line.Flow, SerialLine::FlowKind::None);
}

TEST(ResourceName, TakesTheSettingsOfASerialLineApart) {
  const auto even = std::get<SerialAddress>(Parsed("ASRL7::115200,7E2,xonxoff::INSTR").GetAddress());
  EXPECT_EQ(even.Port, "7");
  EXPECT_EQ(even.Line.Speed, 115200u);
  EXPECT_EQ(even.Line.DataBits, 7u);
  EXPECT_EQ(even.Line.Parity, SerialLine::ParityKind::Even);
  EXPECT_EQ(even.Line.StopBits, 2u);
  EXPECT_EQ(even.Line.Flow, SerialLine::FlowKind::XonXoff);
  const auto odd = std::get<SerialAddress>(Parsed("ASRL7::300,5O1,rtscts::INSTR").GetAddress());
  EXPECT_EQ(odd.Line.Speed, 300u);
  EXPECT_EQ(odd.Line.DataBits, 5u);
  EXPECT_EQ(odd.Line.Parity, SerialLine::ParityKind::Odd);
  EXPECT_EQ(odd.Line.StopBits, 1u);
  EXPECT_EQ(odd.Line.Flow, SerialLine::FlowKind::RtsCts);
}

TEST(ResourceName, TakesTheOthersApart) {
  EXPECT_EQ(std::get<LanDeviceAddress>(Parsed("TCPIP::bench::INSTR").GetAddress()).Device, "inst0");
  EXPECT_EQ(std::get<SerialAddress>(Parsed("ASRL/dev/ttyS0::INSTR").GetAddress()).Port, "/dev/ttyS0");
  EXPECT_EQ(std::get<SimulatedAddress>(Parsed("SIM::dmm::INSTR").GetAddress()).Device, "dmm");
}

} // namespace
} // namespace portico::drivers

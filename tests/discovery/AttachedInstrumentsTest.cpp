#include "discovery/AttachedInstruments.h"

#include "discovery/FoundText.h"
#include "support/Files.h"

#include <gtest/gtest.h>

namespace portico::discovery {
namespace {

using Texts = std::vector<std::string>;
namespace fs = std::filesystem;

/// A machine whose devices are files of the test.
class AttachedInstrumentsTest : public testing::Test {
protected:
  std::string Devices() const { return m_folder.At("dev"); }
  void Write(const std::string& file, const std::string& text) const {
    fs::create_directories(fs::path(m_folder.At(file)).parent_path());
    m_folder.Write(file, text);
  }
  void Link(const std::string& link, const std::string& target) const {
    fs::create_directories(fs::path(m_folder.At(link)).parent_path());
    fs::create_directory_symlink(m_folder.At(target), m_folder.At(link));
  }
  void WriteUsbDevice(const std::string& device, const std::string& product, const std::string& serial) const {
    Write("sys/devices/" + device + "/idVendor", "1234\n");
    Write("sys/devices/" + device + "/idProduct", "abcd\n");
    Write("sys/devices/" + device + "/manufacturer", "Tolvane\n");
    Write("sys/devices/" + device + "/product", product + "\n");
    if (!serial.empty()) Write("sys/devices/" + device + "/serial", serial + "\n");
  }
  void AddUsbtmc(const std::string& node, const std::string& device, const std::string& interface) const {
    Write("dev/" + node, "");
    Write("sys/devices/" + device + "/if/bInterfaceNumber", interface + "\n");
    Link("sys/class/usbmisc/" + node + "/device", "sys/devices/" + device + "/if");
  }
  DeviceFolders Folders() const { return {.Devices = Devices(), .System = m_folder.At("sys")}; }
  Texts Attached() const { return test::FoundTexts(AttachedInstruments(Folders())); }

private:
  test::TemporaryFolder m_folder;
};

TEST_F(AttachedInstrumentsTest, MachineWithoutDevicesHasNone) { EXPECT_EQ(Attached(), Texts{}); }

TEST_F(AttachedInstrumentsTest, UsbInstrumentIsNamedByVendorProductAndSerialNumber) {
  WriteUsbDevice("1-2", "M7", "SN1");
  AddUsbtmc("usbtmc0", "1-2", "02");
  EXPECT_EQ(Attached(), Texts{"USB0::0x1234::0xABCD::SN1::2::INSTR|Tolvane, M7, SN1"});
}

TEST_F(AttachedInstrumentsTest, UsbInstrumentMayHaveNoSerialNumber) {
  WriteUsbDevice("1-2", "M7", "");
  AddUsbtmc("usbtmc0", "1-2", "00");
  EXPECT_EQ(Attached(), Texts{"USB0::0x1234::0xABCD::::0::INSTR|Tolvane, M7"});
}

TEST_F(AttachedInstrumentsTest, NodeThatTellsNothingIsNotListed) {
  Write("dev/usbtmc0", "");
  Write("dev/usbtmcx", "");
  EXPECT_EQ(Attached(), Texts{});
}

TEST_F(AttachedInstrumentsTest, AdapterIsNamedByItsStableLink) {
  Write("dev/ttyUSB0", "");
  Link("dev/serial/by-id/usb-Tolvane_Adapter_A1-if00-port0", "dev/ttyUSB0");
  WriteUsbDevice("1-3", "Adapter", "A1");
  Write("sys/devices/1-3/if/ttyUSB0/port_number", "0\n");
  Link("sys/class/tty/ttyUSB0/device", "sys/devices/1-3/if/ttyUSB0");
  EXPECT_EQ(Attached(),
            Texts{"ASRL" + Devices() + "/serial/by-id/usb-Tolvane_Adapter_A1-if00-port0::INSTR|Tolvane, Adapter, A1"});
}

TEST_F(AttachedInstrumentsTest, LinkToNothingIsNotListed) {
  Link("dev/serial/by-id/gone", "dev/ttyUSB0");
  EXPECT_EQ(Attached(), Texts{});
}

TEST_F(AttachedInstrumentsTest, AdaptersWithoutALinkStandInTheOrderOfTheirNumbers) {
  for (const char* port : {"ttyUSB10", "ttyUSB9", "ttyACM0", "ttyUSBx", "ttyUSB", "tty1"})
    Write(std::string("dev/") + port, "");
  EXPECT_EQ(Attached(), (Texts{"ASRL" + Devices() + "/ttyUSB9::INSTR|", "ASRL" + Devices() + "/ttyUSB10::INSTR|",
                               "ASRL" + Devices() + "/ttyACM0::INSTR|"}));
}

TEST_F(AttachedInstrumentsTest, PortOfTheMachinesOwnIsListedIfThereIsAChipBehindIt) {
  for (const char* port : {"ttyS0", "ttyS1", "ttyS2"}) Write(std::string("dev/") + port, "");
  Write("sys/class/tty/ttyS0/type", "4\n");
  Write("sys/class/tty/ttyS1/type", "0\n");
  EXPECT_EQ(Attached(), Texts{"ASRL" + Devices() + "/ttyS0::INSTR|"});
}

/// Without one it opens as well.
TEST_F(AttachedInstrumentsTest, SerialNumberThatNoNameCanHoldIsLeftOutOfIt) {
  WriteUsbDevice("1-2", "M7", "SN::1");
  AddUsbtmc("usbtmc0", "1-2", "00");
  EXPECT_EQ(Attached(), Texts{"USB0::0x1234::0xABCD::::0::INSTR|Tolvane, M7, SN::1"});
}

TEST_F(AttachedInstrumentsTest, NamesAreThoseOfWhatIsNotKnownHoweverItIsSpelt) {
  WriteUsbDevice("1-2", "M7", "SN1");
  AddUsbtmc("usbtmc0", "1-2", "00");
  WriteUsbDevice("1-3", "M8", "SN2");
  AddUsbtmc("usbtmc1", "1-3", "00");
  EXPECT_EQ(AttachedNames({u"usb::4660::0xabcd::SN1::instr"}, Folders()),
            std::vector<String>{u"USB0::0x1234::0xABCD::SN2::0::INSTR"});
}

} // namespace
} // namespace portico::discovery

#include "drivers/usbtmc/UsbtmcSystem.h"

#include "support/Files.h"

#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>

namespace portico::test {
namespace {

using namespace drivers;
namespace fs = std::filesystem;

/// A tree of files as sysfs has it.
class UsbtmcSystemTest : public testing::Test {
protected:
  void SetUp() override { fs::create_directories(folder.At("class")); }

  /// A device at a port of the bus, with one interface whose file is "usbtmcN".
  fs::path Plug(const std::string& port, const std::string& file, const std::string& interfaceNumber = "00") {
    const fs::path device = folder.Path() / "devices" / port;
    const fs::path interface = device / (port + ":1." + interfaceNumber);
    fs::create_directories(interface);
    WriteFile(device / "idVendor", "1234\n");
    WriteFile(device / "idProduct", "abcd\n");
    WriteFile(interface / "bInterfaceNumber", interfaceNumber + "\n");
    const fs::path entry = folder.Path() / "class" / file;
    fs::create_directories(entry);
    fs::create_directory_symlink(interface, entry / "device");
    return device;
  }
  UsbtmcSystem System() const { return UsbtmcSystem(folder.At("class"), folder.At("dev")); }

  const TemporaryFolder folder;
};

TEST_F(UsbtmcSystemTest, ADeviceIsReadOffItsInterfaceAndItsParent) {
  const fs::path device = Plug("1-2", "usbtmc0", "0a");
  WriteFile(device / "serial", "SN 1\n");
  WriteFile(device / "manufacturer", "Maker\n");
  WriteFile(device / "product", "Model 7\n");
  const auto devices = System().Devices();
  ASSERT_EQ(devices.size(), 1U);
  EXPECT_EQ(devices[0].Path, folder.At("dev") + "/usbtmc0");
  EXPECT_EQ(devices[0].Vendor, 0x1234);
  EXPECT_EQ(devices[0].Product, 0xABCD);
  EXPECT_EQ(devices[0].Serial, "SN 1");
  EXPECT_EQ(devices[0].InterfaceNumber, 10U);
  EXPECT_EQ(devices[0].Maker, "Maker");
  EXPECT_EQ(devices[0].Model, "Model 7");
}

TEST_F(UsbtmcSystemTest, WhatADeviceDoesNotTellIsEmpty) {
  fs::remove(Plug("1-2", "usbtmc3") / "1-2:1.00" / "bInterfaceNumber");
  const auto devices = System().Devices();
  ASSERT_EQ(devices.size(), 1U);
  EXPECT_EQ(devices[0].Serial + devices[0].Maker + devices[0].Model, "");
  EXPECT_EQ(devices[0].InterfaceNumber, 0U);
}

TEST_F(UsbtmcSystemTest, DevicesStandInTheOrderOfTheirFilesAndOthersAreLeftOut) {
  Plug("1-1", "usbtmc10");
  Plug("1-2", "usbtmc9");
  Plug("1-3", "hiddev0");
  Plug("1-4", "usbtmc");
  Plug("1-5", "usbtmc1x");
  WriteFile(Plug("1-6", "usbtmc7") / "idVendor", "12345\n");
  fs::remove(Plug("1-7", "usbtmc8") / "idProduct");
  fs::create_directories(folder.Path() / "class" / "usbtmc11"); // just pulled out
  std::vector<std::string> paths;
  for (const auto& device : System().Devices()) paths.push_back(device.Path);
  EXPECT_EQ(paths, (std::vector<std::string>{folder.At("dev") + "/usbtmc9", folder.At("dev") + "/usbtmc10"}));
}

TEST_F(UsbtmcSystemTest, WithoutTheDriverThereAreNone) {
  EXPECT_TRUE(UsbtmcSystem(folder.At("none"), folder.At("dev")).Devices().empty());
}

TEST_F(UsbtmcSystemTest, AFileIsOpenForOneAtATime) {
  UsbtmcSystem system = System();
  EXPECT_EQ(system.Open(folder.At("usbtmc0")).Error, ENOENT);
  folder.Write("usbtmc0", "answer");
  UsbtmcOpening first = system.Open(folder.At("usbtmc0"));
  EXPECT_EQ(first.Error, 0);
  ASSERT_NE(first.File, nullptr);
  EXPECT_EQ(system.Open(folder.At("usbtmc0")).Error, EWOULDBLOCK);
  first.File.reset();
  EXPECT_EQ(system.Open(folder.At("usbtmc0")).Error, 0);
}

TEST_F(UsbtmcSystemTest, BytesCrossAndAFileThatIsNoDeviceKnowsNoRequest) {
  folder.Write("usbtmc0", "answer");
  const UsbtmcOpening opening = System().Open(folder.At("usbtmc0"));
  ASSERT_NE(opening.File, nullptr);
  std::string buffer(10, '~');
  EXPECT_EQ(opening.File->Read(buffer.data(), 10), 6);
  EXPECT_EQ(buffer, "answer~~~~");
  EXPECT_EQ(opening.File->Write("*RST\r\n"), 6);
  EXPECT_EQ(folder.Read("usbtmc0"), "answer*RST\r\n");
  EXPECT_FALSE(opening.File->Gone());
  for (const auto request : {UsbtmcRequest::SetTimeout, UsbtmcRequest::AutoAbort, UsbtmcRequest::MessageAttributes,
                             UsbtmcRequest::Capabilities, UsbtmcRequest::Clear, UsbtmcRequest::GoToLocal}) {
    std::uint32_t value = 1;
    EXPECT_EQ(opening.File->Request(request, value), ENOTTY);
  }
}

} // namespace
} // namespace portico::test

#include "wire/PortMapper.h"
#include "wire/RpcMessage.h"
#include "wire/Vxi11Messages.h"

#include <gtest/gtest.h>
#include <string>

namespace portico::wire {
namespace {

using namespace std::string_view_literals;

/// The message is written as these bytes, which are read as a message that is written so again; no part of them will
/// do.
template <typename T>
T ExpectBothWays(const T& message, std::string_view bytes) {
  std::string written;
  XdrWriter(written).Put(message);
  EXPECT_EQ(written, bytes);
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    T cut;
    EXPECT_FALSE(XdrReader(bytes.substr(0, size)).Get(cut)) << size;
  }
  T read;
  XdrReader reader(bytes);
  EXPECT_TRUE(reader.Get(read));
  EXPECT_EQ(reader.Rest(), "");
  return read;
}

TEST(PortMapperTest, GetPortAsksForAProgram) {
  const auto read = ExpectBothWays(PortMapper::Mapping{0x0607AF, 1, PortMapper::Protocol::Tcp, 0},
                                   "\x00\x06\x07\xAF\0\0\0\1\0\0\0\6\0\0\0\0"sv);
  EXPECT_EQ(read.Program, 0x0607AFU);
  EXPECT_EQ(read.Version, 1U);
  EXPECT_EQ(read.Protocol, PortMapper::Protocol::Tcp);
  EXPECT_EQ(read.Port, 0U);
  ExpectBothWays(PortMapper::Mapping{1, 2, PortMapper::Protocol::Udp, 3}, "\0\0\0\1\0\0\0\2\0\0\0\x11\0\0\0\3"sv);
}

TEST(PortMapperTest, AWholeCallHas56Bytes) {
  std::string bytes;
  XdrWriter writer(bytes);
  WriteRpcCall(writer, {7, PortMapper::Program, PortMapper::Version, PortMapper::GetPort});
  writer.Put(PortMapper::Mapping{Vxi11::CoreProgram, Vxi11::Version});
  EXPECT_EQ(bytes, "\0\0\0\7\0\0\0\0\0\0\0\2"
                   "\x00\x01\x86\xA0\0\0\0\2\0\0\0\3"
                   "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                   "\x00\x06\x07\xAF\0\0\0\1\0\0\0\6\0\0\0\0"sv);
  EXPECT_EQ(bytes.size(), 56U);
}

TEST(PortMapperTest, ThePortIsTheResult) {
  EXPECT_EQ(ExpectBothWays(PortMapper::PortResult{1024}, "\0\0\4\0"sv).Port, 1024);
  EXPECT_EQ(ExpectBothWays(PortMapper::PortResult{0}, "\0\0\0\0"sv).Port, 0);
  PortMapper::PortResult result;
  EXPECT_FALSE(XdrReader("\0\1\0\0"sv).Get(result));
  EXPECT_EQ(PortMapper::Port, 111);
}

TEST(Vxi11Test, CreateLink) {
  const auto arguments = ExpectBothWays(Vxi11::CreateLinkArguments{-1, true, 0x1388, "gpib0,22"},
                                        "\xFF\xFF\xFF\xFF\0\0\0\1\0\0\x13\x88\0\0\0\010gpib0,22"sv);
  EXPECT_EQ(arguments.ClientId, -1);
  EXPECT_TRUE(arguments.LockDevice);
  EXPECT_EQ(arguments.LockTimeout, 5000U);
  EXPECT_EQ(arguments.Device, "gpib0,22");

  const auto result = ExpectBothWays(Vxi11::CreateLinkResult{Vxi11::Error::None, 0, 0xC350, 1024},
                                     "\0\0\0\0\0\0\0\0\0\0\xC3\x50\0\0\4\0"sv);
  EXPECT_EQ(result.Error, Vxi11::Error::None);
  EXPECT_EQ(result.Link, 0);
  EXPECT_EQ(result.AbortPort, 50000);
  EXPECT_EQ(result.MaxReceiveSize, 1024U);
}

TEST(Vxi11Test, AnAbortPortBeyondTheRangeIsNoResult) {
  Vxi11::CreateLinkResult result;
  EXPECT_FALSE(XdrReader("\0\0\0\0\0\0\0\0\0\1\0\0\0\0\4\0"sv).Get(result));
}

TEST(Vxi11Test, DeviceWrite) {
  const auto arguments = ExpectBothWays(Vxi11::DeviceWriteArguments{3, 2000, 1, Vxi11::Flag::End, "*IDN?\r\n"},
                                        "\0\0\0\3\0\0\x07\xD0\0\0\0\1\0\0\0\x08\0\0\0\7*IDN?\r\n\0"sv);
  EXPECT_EQ(arguments.Link, 3);
  EXPECT_EQ(arguments.IoTimeout, 2000U);
  EXPECT_EQ(arguments.LockTimeout, 1U);
  EXPECT_EQ(arguments.Flags, 8);
  EXPECT_EQ(arguments.Data, "*IDN?\r\n");

  const auto result = ExpectBothWays(Vxi11::DeviceWriteResult{Vxi11::Error::Parameter, 7}, "\0\0\0\5\0\0\0\7"sv);
  EXPECT_EQ(result.Error, Vxi11::Error::Parameter);
  EXPECT_EQ(result.Size, 7U);
}

TEST(Vxi11Test, DeviceRead) {
  const auto arguments =
      ExpectBothWays(Vxi11::DeviceReadArguments{3, 65536, 2000, 1, Vxi11::Flag::TerminationCharacterSet, '\n'},
                     "\0\0\0\3\0\1\0\0\0\0\x07\xD0\0\0\0\1\0\0\0\x80\0\0\0\x0A"sv);
  EXPECT_EQ(arguments.Link, 3);
  EXPECT_EQ(arguments.RequestSize, 65536U);
  EXPECT_EQ(arguments.IoTimeout, 2000U);
  EXPECT_EQ(arguments.LockTimeout, 1U);
  EXPECT_EQ(arguments.Flags, 0x80);
  EXPECT_EQ(arguments.TerminationCharacter, '\n');

  const auto result = ExpectBothWays(
      Vxi11::DeviceReadResult{Vxi11::Error::None, Vxi11::Reason::RequestSizeReached | Vxi11::Reason::End, "1.5\r\n"},
      "\0\0\0\0\0\0\0\5\0\0\0\0051.5\r\n\0\0\0"sv);
  EXPECT_EQ(result.Error, Vxi11::Error::None);
  EXPECT_EQ(result.Reason, 5);
  EXPECT_EQ(result.Data, "1.5\r\n");
}

TEST(Vxi11Test, DataLongerThanItsRecordIsNoResult) {
  Vxi11::DeviceReadResult result;
  EXPECT_FALSE(XdrReader("\0\0\0\0\0\0\0\4\xFF\xFF\xFF\xFC"
                         "abcd"sv)
                   .Get(result));
  EXPECT_EQ(result.Data, "");
}

TEST(Vxi11Test, GenericArgumentsHaveTheLockTimeoutFirst) {
  const auto arguments = ExpectBothWays(Vxi11::GenericArguments{3, Vxi11::Flag::WaitForLock, 4, 2000},
                                        "\0\0\0\3\0\0\0\1\0\0\0\4\0\0\x07\xD0"sv);
  EXPECT_EQ(arguments.Link, 3);
  EXPECT_EQ(arguments.Flags, 1);
  EXPECT_EQ(arguments.LockTimeout, 4U);
  EXPECT_EQ(arguments.IoTimeout, 2000U);
}

TEST(Vxi11Test, DeviceReadStb) {
  const auto result =
      ExpectBothWays(Vxi11::DeviceReadStbResult{Vxi11::Error::IoTimeout, 0xC4}, "\0\0\0\x0F\0\0\0\xC4"sv);
  EXPECT_EQ(result.Error, Vxi11::Error::IoTimeout);
  EXPECT_EQ(result.StatusByte, 0xC4);
}

TEST(Vxi11Test, DeviceLock) {
  const auto arguments =
      ExpectBothWays(Vxi11::DeviceLockArguments{3, Vxi11::Flag::WaitForLock, 2000}, "\0\0\0\3\0\0\0\1\0\0\x07\xD0"sv);
  EXPECT_EQ(arguments.Link, 3);
  EXPECT_EQ(arguments.Flags, 1);
  EXPECT_EQ(arguments.LockTimeout, 2000U);
}

TEST(Vxi11Test, DeviceEnableSrq) {
  const auto arguments =
      ExpectBothWays(Vxi11::DeviceEnableSrqArguments{3, true, "srq"}, "\0\0\0\3\0\0\0\1\0\0\0\3srq\0"sv);
  EXPECT_EQ(arguments.Link, 3);
  EXPECT_TRUE(arguments.Enable);
  EXPECT_EQ(arguments.Handle, "srq");
}

TEST(Vxi11Test, DeviceDoCmd) {
  const auto arguments = ExpectBothWays(Vxi11::DeviceDoCmdArguments{3, 1, 2000, 4, 0x20000, true, 2, "ab"},
                                        "\0\0\0\3\0\0\0\1\0\0\x07\xD0\0\0\0\4\0\2\0\0\0\0\0\1\0\0\0\2\0\0\0\2"
                                        "ab\0\0"sv);
  EXPECT_EQ(arguments.Link, 3);
  EXPECT_EQ(arguments.Flags, 1);
  EXPECT_EQ(arguments.IoTimeout, 2000U);
  EXPECT_EQ(arguments.LockTimeout, 4U);
  EXPECT_EQ(arguments.Command, 131072);
  EXPECT_TRUE(arguments.NetworkOrder);
  EXPECT_EQ(arguments.DataSize, 2);
  EXPECT_EQ(arguments.Data, "ab");

  const auto result =
      ExpectBothWays(Vxi11::DeviceDoCmdResult{Vxi11::Error::NotSupported, "x"}, "\0\0\0\x08\0\0\0\1x\0\0\0"sv);
  EXPECT_EQ(result.Error, Vxi11::Error::NotSupported);
  EXPECT_EQ(result.Data, "x");
}

TEST(Vxi11Test, LinkAndErrorAlone) {
  EXPECT_EQ(ExpectBothWays(Vxi11::LinkArguments{0x01020304}, "\1\2\3\4"sv).Link, 0x01020304);
  EXPECT_EQ(ExpectBothWays(Vxi11::ErrorResult{Vxi11::Error::Abort}, "\0\0\0\x17"sv).Error, Vxi11::Error::Abort);
}

TEST(Vxi11Test, AnErrorWithoutAMeaningIsKept) {
  Vxi11::ErrorResult result;
  EXPECT_TRUE(XdrReader("\0\0\0\x63"sv).Get(result));
  EXPECT_EQ(static_cast<std::int32_t>(result.Error), 99);
}

template <typename T>
unsigned NumberOf(T named) {
  return static_cast<unsigned>(named);
}

TEST(Vxi11Test, ProceduresHaveTheirNumbers) {
  EXPECT_EQ(Vxi11::CoreProgram, 395183U);
  EXPECT_EQ(Vxi11::AbortProgram, 395184U);
  EXPECT_EQ(NumberOf(Vxi11::CoreProcedure::CreateLink), 10U);
  EXPECT_EQ(NumberOf(Vxi11::CoreProcedure::DeviceWrite), 11U);
  EXPECT_EQ(NumberOf(Vxi11::CoreProcedure::DeviceRead), 12U);
  EXPECT_EQ(NumberOf(Vxi11::CoreProcedure::DeviceReadStb), 13U);
  EXPECT_EQ(NumberOf(Vxi11::CoreProcedure::DeviceTrigger), 14U);
  EXPECT_EQ(NumberOf(Vxi11::CoreProcedure::DeviceClear), 15U);
  EXPECT_EQ(NumberOf(Vxi11::CoreProcedure::DeviceRemote), 16U);
  EXPECT_EQ(NumberOf(Vxi11::CoreProcedure::DeviceLocal), 17U);
  EXPECT_EQ(NumberOf(Vxi11::CoreProcedure::DeviceLock), 18U);
  EXPECT_EQ(NumberOf(Vxi11::CoreProcedure::DeviceUnlock), 19U);
  EXPECT_EQ(NumberOf(Vxi11::CoreProcedure::DeviceEnableSrq), 20U);
  EXPECT_EQ(NumberOf(Vxi11::CoreProcedure::DeviceDoCmd), 22U);
  EXPECT_EQ(NumberOf(Vxi11::CoreProcedure::DestroyLink), 23U);
  EXPECT_EQ(NumberOf(Vxi11::AbortProcedure::DeviceAbort), 1U);
}

TEST(Vxi11Test, ErrorsHaveTheirNumbers) {
  EXPECT_EQ(NumberOf(Vxi11::Error::Syntax), 1U);
  EXPECT_EQ(NumberOf(Vxi11::Error::DeviceNotAccessible), 3U);
  EXPECT_EQ(NumberOf(Vxi11::Error::InvalidLink), 4U);
  EXPECT_EQ(NumberOf(Vxi11::Error::ChannelNotEstablished), 6U);
  EXPECT_EQ(NumberOf(Vxi11::Error::NotSupported), 8U);
  EXPECT_EQ(NumberOf(Vxi11::Error::OutOfResources), 9U);
  EXPECT_EQ(NumberOf(Vxi11::Error::LockedByAnotherLink), 11U);
  EXPECT_EQ(NumberOf(Vxi11::Error::NoLockHeld), 12U);
  EXPECT_EQ(NumberOf(Vxi11::Error::Io), 17U);
  EXPECT_EQ(NumberOf(Vxi11::Error::InvalidAddress), 21U);
  EXPECT_EQ(NumberOf(Vxi11::Error::ChannelAlreadyEstablished), 29U);
}

} // namespace
} // namespace portico::wire

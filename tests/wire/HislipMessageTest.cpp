#include "wire/HislipMessage.h"

#include "wire/Bytes.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

namespace portico::wire {
namespace {

/// A message in both forms.
struct Case {
  std::string name;
  HislipHeader header;
  std::string payload;
  /// Offset 0, and where each further field begins.
  std::string bytes;
};

void PrintTo(const Case& testCase, std::ostream* stream) { *stream << testCase.name; }

std::vector<Case> Cases() {
  using Type = HislipType;
  return {
      {"Initialize",
       {Type::Initialize, 0, HislipVersionAnd(HislipVersion1, 0x5054), 7},
       "hislip0",
       Bytes("4853 00 00 01005054 0000000000000007") + "hislip0"},
      {"InitializeResponse",
       {Type::InitializeResponse, HislipControl::Overlapped, HislipVersionAnd(0x0100, 0x1234), 0},
       "",
       Bytes("4853 01 01 01001234 0000000000000000")},
      {"InitializeResponseThatDemandsEncryption",
       {Type::InitializeResponse, HislipControl::EncryptionMandatory | HislipControl::InitialEncryption,
        HislipVersionAnd(0x0200, 1), 0},
       "",
       Bytes("4853 01 06 02000001 0000000000000000")},
      {"FatalError",
       {Type::FatalError, static_cast<std::uint8_t>(HislipFatal::TooManyClients), 0, 4},
       "busy",
       Bytes("4853 02 04 00000000 0000000000000004") + "busy"},
      {"Error",
       {Type::Error, static_cast<std::uint8_t>(HislipError::TooLarge), 0, 0},
       "",
       Bytes("4853 03 04 00000000 0000000000000000")},
      {"AsyncLock", {Type::AsyncLock, 1, 2000, 3}, "key", Bytes("4853 04 01 000007D0 0000000000000003") + "key"},
      {"AsyncLockResponse", {Type::AsyncLockResponse, 1, 0, 0}, "", Bytes("4853 05 01 00000000 0000000000000000")},
      {"Data",
       {Type::Data, HislipControl::ResponseDelivered, HislipFirstMessageId, 2},
       "*I",
       Bytes("4853 06 01 FFFFFF00 0000000000000002 2A49")},
      {"DataEnd",
       {Type::DataEnd, 0, HislipFirstMessageId + HislipMessageIdStep, 1},
       "\n",
       Bytes("4853 07 00 FFFFFF02 0000000000000001 0A")},
      {"DataWhoseIdFollows", {Type::Data, 0, HislipIdFollows, 0}, "", Bytes("4853 06 00 FFFFFFFF 0000000000000000")},
      {"DeviceClearComplete", {Type::DeviceClearComplete, 0, 0, 0}, "", Bytes("4853 08 00 00000000 0000000000000000")},
      {"DeviceClearAcknowledge",
       {Type::DeviceClearAcknowledge, HislipControl::Overlapped, 0, 0},
       "",
       Bytes("4853 09 01 00000000 0000000000000000")},
      {"AsyncRemoteLocalControl",
       {Type::AsyncRemoteLocalControl, HislipControl::GoToLocal, 0xFFFFFEFE, 0},
       "",
       Bytes("4853 0A 06 FFFFFEFE 0000000000000000")},
      {"AsyncRemoteLocalResponse",
       {Type::AsyncRemoteLocalResponse, 0, 0, 0},
       "",
       Bytes("4853 0B 00 00000000 0000000000000000")},
      {"Trigger", {Type::Trigger, 0, HislipFirstMessageId, 0}, "", Bytes("4853 0C 00 FFFFFF00 0000000000000000")},
      {"Interrupted", {Type::Interrupted, 0, 0xFFFFFF04, 0}, "", Bytes("4853 0D 00 FFFFFF04 0000000000000000")},
      {"AsyncInterrupted",
       {Type::AsyncInterrupted, 0, 0xFFFFFF04, 0},
       "",
       Bytes("4853 0E 00 FFFFFF04 0000000000000000")},
      {"AsyncMaximumMessageSize",
       {Type::AsyncMaximumMessageSize, 0, 0, 8},
       HislipSize(0x100000),
       Bytes("4853 0F 00 00000000 0000000000000008 0000000000100000")},
      {"AsyncMaximumMessageSizeResponse",
       {Type::AsyncMaximumMessageSizeResponse, 0, 0, 8},
       HislipSize(0x0123456789ABCDEF),
       Bytes("4853 10 00 00000000 0000000000000008 0123456789ABCDEF")},
      {"AsyncInitialize", {Type::AsyncInitialize, 0, 0x1234, 0}, "", Bytes("4853 11 00 00001234 0000000000000000")},
      {"AsyncInitializeResponse",
       {Type::AsyncInitializeResponse, 0, 0x5054, 0},
       "",
       Bytes("4853 12 00 00005054 0000000000000000")},
      {"AsyncDeviceClear", {Type::AsyncDeviceClear, 0, 0, 0}, "", Bytes("4853 13 00 00000000 0000000000000000")},
      {"AsyncServiceRequest",
       {Type::AsyncServiceRequest, 0x50, 0, 0},
       "",
       Bytes("4853 14 50 00000000 0000000000000000")},
      {"AsyncStatusQuery",
       {Type::AsyncStatusQuery, HislipControl::ResponseDelivered, 0xFFFFFF02, 0},
       "",
       Bytes("4853 15 01 FFFFFF02 0000000000000000")},
      {"AsyncStatusResponse",
       {Type::AsyncStatusResponse, 0x10, 0, 0},
       "",
       Bytes("4853 16 10 00000000 0000000000000000")},
      {"AsyncDeviceClearAcknowledge",
       {Type::AsyncDeviceClearAcknowledge, HislipControl::Overlapped, 0, 0},
       "",
       Bytes("4853 17 01 00000000 0000000000000000")},
      {"AsyncLockInfo", {Type::AsyncLockInfo, 0, 0, 0}, "", Bytes("4853 18 00 00000000 0000000000000000")},
      {"AsyncLockInfoResponse",
       {Type::AsyncLockInfoResponse, 1, 2, 0},
       "",
       Bytes("4853 19 01 00000002 0000000000000000")},
  };
}

class HislipMessageCase : public testing::TestWithParam<Case> {};

std::string CaseName(const testing::TestParamInfo<Case>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Types, HislipMessageCase, testing::ValuesIn(Cases()), CaseName);

TEST_P(HislipMessageCase, IsWritten) {
  const auto& [name, header, payload, bytes] = GetParam();
  EXPECT_EQ(HislipMessage(header.Type, header.Control, header.Parameter, payload), bytes);
}

TEST_P(HislipMessageCase, IsRead) { EXPECT_EQ(ReadHislipHeader(GetParam().bytes), GetParam().header); }

TEST(HislipMessageTest, NoHeaderButOneThatBeginsWithHSIsRead) {
  EXPECT_EQ(ReadHislipHeader(Bytes("4854 06 00 FFFFFF00 0000000000000000")), std::nullopt);
  EXPECT_EQ(ReadHislipHeader(Bytes("5348 06 00 FFFFFF00 0000000000000000")), std::nullopt);
  EXPECT_EQ(ReadHislipHeader(Bytes("4853 06 00 FFFFFF00 00000000000000")), std::nullopt);
}

TEST(HislipMessageTest, TheLengthHas64Bits) {
  const auto header = ReadHislipHeader(Bytes("4853 06 00 FFFFFF00 FEDCBA9876543210"));
  ASSERT_TRUE(header);
  EXPECT_EQ(header->PayloadLength, 0xFEDCBA9876543210u);
}

TEST(HislipMessageTest, ASizeHasEightBytes) {
  EXPECT_EQ(ReadHislipSize(Bytes("0000000000100010")), 0x100010u);
  EXPECT_EQ(ReadHislipSize(Bytes("00000000001000")), std::nullopt);
  EXPECT_EQ(ReadHislipSize(Bytes("000000000010001000")), std::nullopt);
}

TEST(HislipMessageTest, FatalErrorsHaveTexts) {
  const auto text = [](int code) { return HislipErrorText(static_cast<HislipFatal>(code)); };
  EXPECT_EQ(text(0), "unidentified error");
  EXPECT_EQ(text(1), "bad message header");
  EXPECT_EQ(text(2), "connection used before both channels exist");
  EXPECT_EQ(text(3), "bad initialization sequence");
  EXPECT_EQ(text(4), "too many clients");
  EXPECT_EQ(text(5), "secure connection failed");
  EXPECT_EQ(text(128), "unidentified error");
}

TEST(HislipMessageTest, ErrorsHaveTexts) {
  const auto text = [](int code) { return HislipErrorText(static_cast<HislipError>(code)); };
  EXPECT_EQ(text(0), "unidentified error");
  EXPECT_EQ(text(1), "unknown message type");
  EXPECT_EQ(text(2), "unknown control code");
  EXPECT_EQ(text(3), "unknown vendor message");
  EXPECT_EQ(text(4), "message too large");
  EXPECT_EQ(text(5), "authentication failed");
  EXPECT_EQ(text(255), "unidentified error");
}

} // namespace
} // namespace portico::wire

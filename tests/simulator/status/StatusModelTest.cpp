#include "simulator/status/StatusModel.h"

#include <gtest/gtest.h>

namespace portico::simulator {
namespace {

TEST(StatusRegister, LatchesARiseUntilItIsRead) {
  StatusRegister status;
  status.Set(OperationBit::Measuring);
  status.Clear(OperationBit::Measuring);
  EXPECT_EQ(status.Condition(), 0);
  EXPECT_EQ(status.TakeEvent(), OperationBit::Measuring);
  EXPECT_EQ(status.TakeEvent(), 0);
}

TEST(StatusRegister, AConditionThatStaysIsNoNewEvent) {
  StatusRegister status;
  status.Set(OperationBit::Measuring);
  status.TakeEvent();
  status.Set(OperationBit::Measuring);
  EXPECT_EQ(status.TakeEvent(), 0);
  EXPECT_EQ(status.Condition(), OperationBit::Measuring);
}

TEST(StatusRegister, SummarisesEnabledEvents) {
  StatusRegister status;
  status.Set(OperationBit::Settling);
  EXPECT_FALSE(status.Summary());
  status.SetEnable(OperationBit::Measuring);
  EXPECT_FALSE(status.Summary());
  status.SetEnable(OperationBit::Settling);
  EXPECT_TRUE(status.Summary());
}

TEST(StatusRegister, NeverEnablesBit15) {
  StatusRegister status;
  status.SetEnable(0xFFFF);
  EXPECT_EQ(status.Enable(), 0x7FFF);
}

TEST(StatusModel, BeginsWithPowerOn) {
  StatusModel status;
  EXPECT_EQ(status.TakeEvent(), EventBit::PowerOn);
  EXPECT_EQ(status.TakeEvent(), 0);
}

TEST(StatusModel, EachClassOfErrorHasItsBit) {
  const std::pair<scpi::ErrorCode, std::uint8_t> expected[] = {
      {scpi::ErrorCode::UndefinedHeader, EventBit::CommandError},
      {scpi::ErrorCode::DataOutOfRange, EventBit::ExecutionError},
      {scpi::ErrorCode::QueueOverflow, EventBit::DeviceError},
      {scpi::ErrorCode::QueryDeadlocked, EventBit::QueryError},
      {static_cast<scpi::ErrorCode>(100), EventBit::DeviceError},
      {static_cast<scpi::ErrorCode>(-100), EventBit::CommandError},
      {static_cast<scpi::ErrorCode>(-200), EventBit::ExecutionError},
      {static_cast<scpi::ErrorCode>(-400), EventBit::QueryError},
  };
  for (const auto& [code, bit] : expected) {
    StatusModel status;
    status.TakeEvent();
    status.Raise(code);
    EXPECT_EQ(status.TakeEvent(), bit) << static_cast<int>(code);
    EXPECT_EQ(status.Errors().Size(), 1U);
  }
}

TEST(StatusModel, TheStatusByteGathersTheSummaries) {
  StatusModel status;
  status.TakeEvent();
  EXPECT_EQ(status.StatusByte(false), 0);
  EXPECT_EQ(status.StatusByte(true), 16);
  status.Raise(scpi::ErrorCode::UndefinedHeader);
  EXPECT_EQ(status.StatusByte(false), 4);
  status.SetEventEnable(EventBit::CommandError);
  EXPECT_EQ(status.StatusByte(false), 4 + 32);
  status.Operation().SetEnable(OperationBit::Measuring);
  status.Operation().Set(OperationBit::Measuring);
  EXPECT_EQ(status.StatusByte(false), 4 + 32 + 128);
  status.Questionable().SetEnable(QuestionableBit::Voltage);
  status.Questionable().Set(QuestionableBit::Voltage);
  EXPECT_EQ(status.StatusByte(false), 4 + 8 + 32 + 128);
}

TEST(StatusModel, ServiceIsRequestedForEnabledBits) {
  StatusModel status;
  status.SetServiceEnable(16);
  EXPECT_EQ(status.StatusByte(false), 0);
  EXPECT_EQ(status.StatusByte(true), 16 + 64);
}

TEST(StatusModel, Bit6CannotBeEnabled) {
  StatusModel status;
  status.SetServiceEnable(255);
  EXPECT_EQ(status.ServiceEnable(), 191);
}

TEST(StatusModel, ClearKeepsTheMasks) {
  StatusModel status;
  status.SetEventEnable(60);
  status.SetServiceEnable(32);
  status.Operation().SetEnable(16);
  status.Operation().Set(16);
  status.Questionable().Set(1);
  status.Raise(scpi::ErrorCode::UndefinedHeader);
  status.Clear();
  EXPECT_EQ(status.TakeEvent(), 0);
  EXPECT_EQ(status.Errors().Size(), 0U);
  EXPECT_EQ(status.Operation().TakeEvent(), 0);
  EXPECT_EQ(status.Questionable().TakeEvent(), 0);
  EXPECT_EQ(status.EventEnable(), 60);
  EXPECT_EQ(status.ServiceEnable(), 32);
  EXPECT_EQ(status.Operation().Enable(), 16);
}

TEST(StatusModel, PresetClearsTheMasksOfTheRegisters) {
  StatusModel status;
  status.SetEventEnable(60);
  status.Operation().SetEnable(16);
  status.Questionable().SetEnable(1);
  status.Preset();
  EXPECT_EQ(status.Operation().Enable(), 0);
  EXPECT_EQ(status.Questionable().Enable(), 0);
  EXPECT_EQ(status.EventEnable(), 60);
}

} // namespace
} // namespace portico::simulator

#pragma once

#include "channel/CDriverSession.h"
#include "support/Labels.h"
#include "support/doubles/DriverDouble.h"

#include <gmock/gmock.h>

#include <memory>

namespace portico::test {

using Calls = std::vector<std::string>;

inline constexpr std::int32_t BufferSize = 1048576;

/// A session over a driver that answers as it is told.
class DriverSessionTest : public ::testing::Test {
protected:
  DriverSessionTest();
  ~DriverSessionTest() override;

  /// Opens and forgets the call.
  void Open();

  /// The text is followed by a zero byte, as the driver's contract has it.
  static std::string Terminated(const std::string& text);

  static void ExpectSuccess(const Ref<IResponse>& response, StringView data);
  static void ExpectFailure(const Ref<IResponse>& response, std::int32_t code, StringView message);

  /// The driver's calls in full, and what a read brings.
  Calls Details;
  DriverDouble::Reading Delivered;
  Journal Lines;
  std::shared_ptr<DriverDouble> Driver = std::make_shared<DriverDouble>(Lines);
  Ref<CDriverSession> Session;
};

} // namespace portico::test

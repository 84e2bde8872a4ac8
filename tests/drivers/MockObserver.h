#pragma once

#include "platform/IDriverObserver.h"

#include <gmock/gmock.h>
#include <string>

namespace portico::test {

class MockObserver : public IDriverObserver {
public:
  MOCK_METHOD(void, Waits, (), (override));
  MOCK_METHOD(void, Reconnected, (const std::string& resourceName), (override));
  MOCK_METHOD(void, Cleared, (const std::string& resourceName), (override));
  MOCK_METHOD(void, Restored, (const std::string& resourceName), (override));
  MOCK_METHOD(void, AnswerFilledBuffer, (const std::string& resourceName, std::size_t length), (override));
};

} // namespace portico::test

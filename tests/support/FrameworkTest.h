#pragma once

#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/objects/modGlobals.h"
#include "framework/shared/IConfiguration.h"
#include "framework/shared/IMainWindow.h"
#include "support/FakeErrorEnvironment.h"

#include <gtest/gtest.h>

namespace portico::test {

/// Gives a test clean error state, a fake error environment, and unset module-wide state.
class FrameworkTest : public ::testing::Test {
protected:
  FrameworkTest() { HuntERR::SetEnvironment(&Environment); }

  ~FrameworkTest() override {
    gConfiguration = {};
    gMainForm = {};
    gObjectFactory = {};
    gXMLParserAvailable = false;
    HuntERR::Reset();
    HuntERR::SetEnvironment(nullptr);
  }

  FakeErrorEnvironment Environment;
};

} // namespace portico::test

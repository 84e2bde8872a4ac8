#pragma once

#include "framework/HuntERR.h"
#include "framework/IConfiguration.h"
#include "framework/IMainWindow.h"
#include "framework/IObjectFactory.h"
#include "support/FakeErrorEnvironment.h"

#include <gtest/gtest.h>

namespace portico::test {

/// Gives a test clean error state, a fake error environment, and unset module-wide references.
class FrameworkTest : public ::testing::Test {
protected:
  FrameworkTest() { HuntERR::SetEnvironment(&Environment); }

  ~FrameworkTest() override {
    gConfiguration = {};
    gMainForm = {};
    gObjectFactory = {};
    HuntERR::Reset();
    HuntERR::SetEnvironment(nullptr);
  }

  FakeErrorEnvironment Environment;
};

} // namespace portico::test

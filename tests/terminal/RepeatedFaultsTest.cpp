#include "terminal/RepeatedFaults.h"

#include <gtest/gtest.h>

namespace portico::terminal {
namespace {

class RepeatedFaultsTest : public testing::Test {
protected:
  using Lines = std::vector<std::string>;

  Lines Told;
  RepeatedFaults Faults{[this](const std::string& line) { Told.push_back(line); }};
};

TEST_F(RepeatedFaultsTest, TheFirstIsToldAtOnceWithItsPlace) {
  Faults.Failed(u"write", "a:1: ", "refused");
  EXPECT_EQ(Told, Lines{"a:1: refused"});
}

TEST_F(RepeatedFaultsTest, OneThatDoesNotRepeatHasNoCount) {
  Faults.Failed(u"write", "a:1: ", "refused");
  Faults.Succeeded(u"write");
  Faults.End();
  EXPECT_EQ(Told, Lines{"a:1: refused"});
}

TEST_F(RepeatedFaultsTest, TheCountIsToldWithTheLastPlaceWhenTheOperationSucceeds) {
  for (const char* place : {"a:1: ", "a:2: ", "a:3: "}) Faults.Failed(u"write", place, "refused");
  EXPECT_EQ(Told, Lines{"a:1: refused"});
  Faults.Succeeded(u"write");
  EXPECT_EQ(Told, (Lines{"a:1: refused", "a:3: refused (3 times)"}));
  Faults.End();
  EXPECT_EQ(Told.size(), 2U);
}

TEST_F(RepeatedFaultsTest, WhatFailsAnewBehindASuccessIsToldAnew) {
  Faults.Failed(u"read", "a:1: ", "time-out");
  Faults.Succeeded(u"read");
  Faults.Failed(u"read", "a:2: ", "time-out");
  EXPECT_EQ(Told, (Lines{"a:1: time-out", "a:2: time-out"}));
}

TEST_F(RepeatedFaultsTest, TheSuccessOfAnotherOperationEndsNothing) {
  Faults.Failed(u"read", "a:1: ", "time-out");
  Faults.Succeeded(u"write");
  Faults.Failed(u"read", "a:2: ", "time-out");
  EXPECT_EQ(Told, Lines{"a:1: time-out"});
}

TEST_F(RepeatedFaultsTest, TextsOfOneOperationAndOperationsWithOneTextAreToldApart) {
  Faults.Failed(u"write", "a:1: ", "refused");
  Faults.Failed(u"write", "a:2: ", "unreachable");
  Faults.Failed(u"write", "a:3: ", "refused");
  Faults.Failed(u"open", "a:3: ", "refused");
  Faults.End();
  EXPECT_EQ(Told, (Lines{"a:1: refused", "a:2: unreachable", "a:3: refused", "a:3: refused (2 times)"}));
}

} // namespace
} // namespace portico::terminal

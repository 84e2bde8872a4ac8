#include "drivers/standard/DriverRouter.h"

#include "support/doubles/DriverDouble.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using namespace drivers;
using testing::ElementsAre;

/// Two drivers that both give the handle 7 for everything.
class DriverRouterTest : public testing::Test {
protected:
  void SetUp() override {
    own->Answer = "own";
    other->Answer = "other";
  }

  std::int32_t Open(const std::string& name) {
    std::int32_t session = 0;
    EXPECT_EQ(router.TVSCPI_init(name, 0, 0, session), 0);
    return session;
  }
  std::string Message(std::int32_t session, std::int32_t status) { return MessageOf(router, session, status); }
  static std::string MessageOf(DriverRouter& driver, std::int32_t session, std::int32_t status) {
    std::string text(256, '\0');
    EXPECT_EQ(driver.TVSCPI_error_message(session, status, text.data()), 0);
    return text.c_str();
  }
  std::string Read(std::int32_t session) {
    std::string buffer(16, '\0');
    std::int32_t count = 0;
    EXPECT_EQ(router.TVSCPI_ReadInstrData(session, 16, buffer.data(), count), 0);
    return buffer.substr(0, static_cast<std::size_t>(count) - 1);
  }

  Journal ownCalls;
  Journal otherCalls;
  std::shared_ptr<DriverDouble> own = std::make_shared<DriverDouble>(ownCalls);
  std::shared_ptr<DriverDouble> other = std::make_shared<DriverDouble>(otherCalls);
  DriverRouter router{own, other};
};

TEST_F(DriverRouterTest, NamesThatBeginWithSimStayAtHomeAndAllOthersGo) {
  for (const std::string name : {"SIM::dmm::INSTR", " sim::none", "Sim::"}) Open(name);
  for (const std::string name : {"TCPIP::h::1::SOCKET", "SIM", "SIMULATOR::x", "GPIB0::22::INSTR", ""}) Open(name);
  EXPECT_THAT(ownCalls, ElementsAre("init SIM::dmm::INSTR", "init  sim::none", "init Sim::"));
  EXPECT_THAT(otherCalls, ElementsAre("init TCPIP::h::1::SOCKET", "init SIM", "init SIMULATOR::x",
                                      "init GPIB0::22::INSTR", "init "));
}

TEST_F(DriverRouterTest, EachCallGoesToTheDriverWhoseSessionItIs) {
  const std::int32_t mine = Open("SIM::dmm::INSTR");
  const std::int32_t others = Open("BENCH");
  EXPECT_EQ(mine, 1);
  EXPECT_EQ(others, 2);
  ownCalls.clear();
  otherCalls.clear();
  std::vector<std::string> details;
  other->OnDetail = [&](const std::string& call) { details.push_back(call); };
  EXPECT_EQ(router.TVSCPI_WriteInstrData(others, "A\r"), 0);
  EXPECT_EQ(router.TVSCPI_WriteInstrData(mine, "B\r"), 0);
  EXPECT_EQ(Read(others), "other");
  EXPECT_EQ(Read(mine), "own");
  std::int32_t value = 0;
  std::string text(16, '\0');
  other->Number = 13;
  EXPECT_EQ(router.TVSCPI_GetAttributeViInt32(others, 0, 1, value), 0);
  EXPECT_EQ(value, 13);
  EXPECT_EQ(router.TVSCPI_SetAttributeViInt32(others, 0, 1, 2), 0);
  EXPECT_EQ(router.TVSCPI_GetAttributeViString(others, 0, 3, 16, text.data()), 0);
  EXPECT_STREQ(text.c_str(), "text");
  EXPECT_EQ(router.TVSCPI_SetAttributeViString(others, 0, 4, "x"), 0);
  EXPECT_EQ(router.TVSCPI_close(others), 0);
  EXPECT_THAT(ownCalls, ElementsAre("write B", "read"));
  for (const std::string& call : details) EXPECT_NE(call.find("(7"), std::string::npos) << call;
  EXPECT_EQ(details.size(), 7U);
  EXPECT_EQ(Message(mine, -5), "failure -5\n");
}

TEST_F(DriverRouterTest, AHandleThatIsNotOpenIsRefusedAndReachesNobody) {
  const std::int32_t closed = Open("BENCH");
  EXPECT_EQ(router.TVSCPI_close(closed), 0);
  otherCalls.clear();
  for (const std::int32_t handle : {closed, 0, 7}) {
    std::int32_t number = 9;
    std::string text = "~";
    EXPECT_EQ(router.TVSCPI_close(handle), -1151001);
    EXPECT_EQ(router.TVSCPI_WriteInstrData(handle, "A\r"), -1151001);
    EXPECT_EQ(router.TVSCPI_GetAttributeViInt32(handle, 0, 1, number), -1151001);
    EXPECT_EQ(router.TVSCPI_SetAttributeViInt32(handle, 0, 1, 1), -1151001);
    EXPECT_EQ(router.TVSCPI_GetAttributeViString(handle, 0, 1, 1, text.data()), -1151001);
    EXPECT_EQ(router.TVSCPI_SetAttributeViString(handle, 0, 1, "x"), -1151001);
    EXPECT_EQ(number, 9);
    EXPECT_EQ(router.TVSCPI_ReadInstrData(handle, 1, text.data(), number), -1151001);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(text, "~");
    EXPECT_EQ(Message(handle, -1151001), "The session is not open.\n");
  }
  EXPECT_THAT(ownCalls, ElementsAre());
  EXPECT_THAT(otherCalls, ElementsAre());
}

TEST_F(DriverRouterTest, AFailedOpenHasItsMessageFromTheDriverThatFailed) {
  own->Statuses["init SIM::none"] = -3;
  own->Message = "no such device\n";
  other->Statuses["init BENCH"] = -4;
  other->Message = "the library failed\n";
  std::int32_t session = 77;
  EXPECT_EQ(router.TVSCPI_init("BENCH", 0, 0, session), -4);
  EXPECT_EQ(session, 77);
  EXPECT_EQ(Message(0, -4), "the library failed\n");
  EXPECT_EQ(router.TVSCPI_init("SIM::none", 0, 0, session), -3);
  EXPECT_EQ(Message(0, -3), "no such device\n");
  EXPECT_EQ(Message(0, -4), "Unknown status -4.\n");
}

TEST_F(DriverRouterTest, WhatOnlyItsOwnDriverCanStaysAtHome) {
  const std::int32_t mine = Open("SIM::dmm::INSTR");
  const std::int32_t others = Open("BENCH");
  ownCalls.clear();
  otherCalls.clear();
  EXPECT_EQ(router.Clear(mine), 0);
  EXPECT_EQ(router.GoToLocal(mine), 0);
  EXPECT_EQ(router.Clear(others), -1151021);
  EXPECT_EQ(router.GoToLocal(others), -1151021);
  EXPECT_EQ(router.SetTimeout(std::chrono::milliseconds(70)), -1151021) << "it does not reach the other one";
  EXPECT_EQ(router.Clear(9), -1151001);
  EXPECT_THAT(ownCalls, ElementsAre("clear", "local", "timeout 70"));
  EXPECT_THAT(otherCalls, ElementsAre());
  own->Statuses["clear"] = -6;
  EXPECT_EQ(router.Clear(mine), -6);
  EXPECT_EQ(Message(mine, -6), "failure -6\n");
}

TEST_F(DriverRouterTest, ARefusalHasItsMessageUntilTheNextCall) {
  const std::int32_t others = Open("BENCH");
  const std::string refusal = "This cannot be done: the driver library has no function for it.\n";
  EXPECT_EQ(router.SetTimeout(std::chrono::milliseconds(70)), -1151021);
  EXPECT_EQ(Message(0, -1151021), refusal);
  EXPECT_EQ(Message(others, -1151021), refusal);
  other->Statuses["write A"] = -1151021;
  EXPECT_EQ(router.TVSCPI_WriteInstrData(others, "A\r"), -1151021);
  EXPECT_EQ(Message(others, -1151021), "failure -1151021\n");
}

TEST_F(DriverRouterTest, ATimeoutIsNotRefusedWhereThereIsNoOtherDriver) {
  DriverRouter alone(own, DriverResult{DriverStatus::LibraryNotLoaded, "libx.so"});
  EXPECT_EQ(alone.SetTimeout(std::chrono::milliseconds(70)), 0);
  EXPECT_THAT(ownCalls, ElementsAre("timeout 70"));
}

TEST_F(DriverRouterTest, AnOpenWithAWarningIsOpenIfTheDriverWroteAHandle) {
  other->Statuses["init BENCH"] = 3;
  other->HandleOfFailure = 7;
  std::int32_t session = 0;
  EXPECT_EQ(router.TVSCPI_init("BENCH", 0, 0, session), 3);
  EXPECT_EQ(session, 1);
  EXPECT_EQ(Message(session, 3), "failure 3\n");
  EXPECT_EQ(Read(session), "other");
}

TEST_F(DriverRouterTest, ACloseThatFailsHasItsMessageThoughTheSessionIsGone) {
  const std::int32_t session = Open("BENCH");
  other->Statuses["close"] = -6;
  other->Message = "still busy\n";
  EXPECT_EQ(router.TVSCPI_close(session), -6);
  EXPECT_EQ(Message(0, -6), "still busy\n");
  EXPECT_EQ(router.TVSCPI_close(session), -1151001);
}

TEST(DriverRouter, SessionsThatWereNotClosedAreClosedWithIt) {
  Journal ownCalls;
  Journal otherCalls;
  {
    DriverRouter router(std::make_shared<DriverDouble>(ownCalls), std::make_shared<DriverDouble>(otherCalls));
    std::int32_t session = 0;
    router.TVSCPI_init("A", 0, 0, session);
    router.TVSCPI_init("B", 0, 0, session);
    router.TVSCPI_close(session);
  }
  EXPECT_THAT(otherCalls, ElementsAre("init A", "init B", "close", "close"));
}

TEST(DriverRouter, WithoutTheOtherOneItsNamesAreRefusedWithTheReason) {
  Journal calls;
  const auto own = std::make_shared<DriverDouble>(calls);
  DriverRouter router(own, DriverResult{DriverStatus::LibraryNotLoaded, "/x.so: file too short"});
  std::int32_t session = 77;
  EXPECT_EQ(router.TVSCPI_init("GPIB0::22::INSTR", 0, 0, session), -1151019);
  EXPECT_EQ(session, 77);
  std::string text(256, '\0');
  EXPECT_EQ(router.TVSCPI_error_message(0, -1151019, text.data()), 0);
  EXPECT_STREQ(text.c_str(), "The driver library could not be loaded: /x.so: file too short.\n");
  EXPECT_EQ(router.TVSCPI_init("SIM::dmm::INSTR", 0, 0, session), 0);
  EXPECT_EQ(session, 1);
}

} // namespace
} // namespace portico::test

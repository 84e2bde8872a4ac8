#include "application/HostEnvironment.h"

#include "framework/errors/HuntERR.h"
#include "framework/objects/modGlobals.h"
#include "support/EnvironmentVariable.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <ctime>
#include <filesystem>
#include <system_error>

namespace portico {
namespace {

String Path(const std::filesystem::path& path) { return FromUtf8(path.string()).Text; }

/// On a failure that is called "Something".
void WriteAReport(HostEnvironment& host) {
  HuntERR::SetEnvironment(&host);
  try {
    HuntERR::Raise(5, u"Somewhere", u"Something");
  } catch (...) {
    StopHere(u"Somewhere.Else");
  }
  modGlobals::LogErrorReport();
  HuntERR::SetEnvironment(nullptr);
}

TEST(HostEnvironment, KnowsTheProgram) {
  const HostEnvironment host;
  EXPECT_EQ(host.ProgramFileName(), u"test_application");
  EXPECT_TRUE(std::filesystem::exists(ToUtf8(host.ProgramDirectory() + u"/" + host.ProgramFileName())));
  EXPECT_EQ(host.PathSeparator(), u'/');
}

TEST(HostEnvironment, AProgramWhoseDirectoryCannotBeWrittenReportsToTheUsersStateDirectory) {
  const test::TemporaryFolder folder;
  const auto state = folder.Path() / "state";
  const test::EnvironmentVariable stateHome("XDG_STATE_HOME", state.c_str());
  HostEnvironment host("/no such directory/portico");
  EXPECT_EQ(host.ProgramFileName(), u"portico");
  EXPECT_EQ(host.ProgramDirectory(), Path(state / "portico"));
  WriteAReport(host);
  EXPECT_TRUE(std::filesystem::exists(state / "portico" / "SCPIComm.log"));
}

TEST(HostEnvironment, AProgramWhoseDirectoryIsNotUtf8ReportsToTheUsersStateDirectory) {
  const test::TemporaryFolder folder;
  const auto& ground = folder.Path();
  const auto state = ground / "state";
  const auto program = ground / "be\xFFside";
  std::filesystem::create_directories(program);
  std::filesystem::create_directories(ground / "be"); // where a name that is cut would lead
  const test::EnvironmentVariable stateHome("XDG_STATE_HOME", state.c_str());
  HostEnvironment host(program / "portico");
  EXPECT_EQ(host.ProgramDirectory(), Path(state / "portico"));
  WriteAReport(host);
  const std::string report = test::ReadFile(state / "portico" / "SCPIComm.log");
  EXPECT_NE(report.find("Something"), std::string::npos) << report;
  EXPECT_NE(report.find("Somewhere.Else"), std::string::npos) << report;
  EXPECT_TRUE(std::filesystem::is_empty(program));
  EXPECT_TRUE(std::filesystem::is_empty(ground / "be"));
}

TEST(HostEnvironment, AProgramsNameThatIsNotUtf8IsToldWhole) {
  EXPECT_EQ(HostEnvironment("/no such directory/por\xFFtico").ProgramFileName(), u"por\uFFFDtico");
}

TEST(HostEnvironment, WithoutAStateHomeItIsTheHomeDirectorys) {
  const test::TemporaryFolder folder;
  const auto home = folder.Path() / "home";
  const test::EnvironmentVariable noStateHome("XDG_STATE_HOME", nullptr);
  const test::EnvironmentVariable homeVariable("HOME", home.c_str());
  EXPECT_EQ(HostEnvironment("/no such directory/portico").ProgramDirectory(), Path(home / ".local/state/portico"));
}

TEST(HostEnvironment, TheVersionIsMajorMinorAndRevision) {
  EXPECT_EQ(Split(HostEnvironment().ProgramVersion(), u".").size(), 3U);
}

TEST(HostEnvironment, KnowsTheMachineAndItsMessages) {
  const HostEnvironment host;
  EXPECT_FALSE(host.ComputerName().empty());
  EXPECT_EQ(ToUtf8(host.SystemMessage(2)), std::system_category().message(2));
}

TEST(HostEnvironment, TellsTheLocalTimeAndASecondLaterAnother) {
  const HostEnvironment environment;
  const auto now = [&] {
    std::time_t second = 0;
    std::tm local{};
    do { // until both are of one second
      second = std::time(nullptr);
      local = environment.LocalTime();
    } while (std::time(nullptr) != second);
    EXPECT_EQ(std::mktime(&local), second);
    return second;
  };
  const std::time_t first = now();
  while (std::time(nullptr) == first) continue;
  EXPECT_GT(now(), first);
}

TEST(HostEnvironment, TicksNeverGoBack) {
  const HostEnvironment host;
  const auto before = host.Ticks();
  EXPECT_GE(host.Ticks(), before);
}

TEST(HostEnvironment, AppendsToAFileInUtf8AndMakesItIfNeedBe) {
  const test::TemporaryFolder folder;
  const auto path = folder.Path() / "a file";
  HostEnvironment host;
  EXPECT_TRUE(host.AppendToFile(Path(path), u"one\r\n"));
  EXPECT_TRUE(host.AppendToFile(Path(path), u"\u00B5V\r\n"));
  EXPECT_EQ(test::ReadFile(path), "one\r\n\xC2\xB5V\r\n");
}

TEST(HostEnvironment, AFileThatCannotBeOpenedIsNoError) {
  EXPECT_FALSE(HostEnvironment().AppendToFile(u"/no such directory/a file", u"text"));
}

} // namespace
} // namespace portico

#include "application/HostEnvironment.h"

#include "framework/errors/HuntERR.h"
#include "framework/objects/modGlobals.h"
#include "support/EnvironmentVariable.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
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
  const auto state = std::filesystem::path(::testing::TempDir()) / "portico-host-environment-state";
  std::filesystem::remove_all(state);
  const EnvironmentVariable stateHome("XDG_STATE_HOME", state.c_str());
  HostEnvironment host("/no such directory/portico");
  EXPECT_EQ(host.ProgramFileName(), u"portico");
  EXPECT_EQ(host.ProgramDirectory(), Path(state / "portico"));
  WriteAReport(host);
  EXPECT_TRUE(std::filesystem::exists(state / "portico" / "SCPIComm.log"));
  std::filesystem::remove_all(state);
}

TEST(HostEnvironment, AProgramWhoseDirectoryIsNotUtf8ReportsToTheUsersStateDirectory) {
  const auto ground = std::filesystem::path(::testing::TempDir()) / "portico-host-environment-bytes";
  const auto state = ground / "state";
  const auto program = ground / "be\xFFside";
  std::filesystem::remove_all(ground);
  std::filesystem::create_directories(program);
  std::filesystem::create_directories(ground / "be"); // where a name that is cut would lead
  const EnvironmentVariable stateHome("XDG_STATE_HOME", state.c_str());
  HostEnvironment host(program / "portico");
  EXPECT_EQ(host.ProgramDirectory(), Path(state / "portico"));
  WriteAReport(host);
  std::ifstream file(state / "portico" / "SCPIComm.log", std::ios::binary);
  const std::string report{std::istreambuf_iterator<char>(file), {}};
  EXPECT_NE(report.find("Something"), std::string::npos) << report;
  EXPECT_NE(report.find("Somewhere.Else"), std::string::npos) << report;
  EXPECT_TRUE(std::filesystem::is_empty(program));
  EXPECT_TRUE(std::filesystem::is_empty(ground / "be"));
  std::filesystem::remove_all(ground);
}

TEST(HostEnvironment, AProgramsNameThatIsNotUtf8IsToldWhole) {
  EXPECT_EQ(HostEnvironment("/no such directory/por\xFFtico").ProgramFileName(), u"por\uFFFDtico");
}

TEST(HostEnvironment, WithoutAStateHomeItIsTheHomeDirectorys) {
  const auto home = std::filesystem::path(::testing::TempDir()) / "portico-host-environment-home";
  std::filesystem::remove_all(home);
  const EnvironmentVariable noStateHome("XDG_STATE_HOME", nullptr);
  const EnvironmentVariable homeVariable("HOME", home.c_str());
  EXPECT_EQ(HostEnvironment("/no such directory/portico").ProgramDirectory(), Path(home / ".local/state/portico"));
  std::filesystem::remove_all(home);
}

TEST(HostEnvironment, TheVersionIsMajorMinorAndRevision) {
  EXPECT_EQ(Split(HostEnvironment().ProgramVersion(), u".").size(), 3U);
}

TEST(HostEnvironment, KnowsTheMachineAndItsMessages) {
  const HostEnvironment host;
  EXPECT_FALSE(host.ComputerName().empty());
  EXPECT_EQ(ToUtf8(host.SystemMessage(2)), std::system_category().message(2));
}

TEST(HostEnvironment, TicksNeverGoBack) {
  const HostEnvironment host;
  const auto before = host.Ticks();
  EXPECT_GE(host.Ticks(), before);
}

TEST(HostEnvironment, AppendsToAFileInUtf8AndMakesItIfNeedBe) {
  const auto path = std::filesystem::path(::testing::TempDir()) / "portico-host-environment.log";
  std::filesystem::remove(path);
  HostEnvironment host;
  EXPECT_TRUE(host.AppendToFile(Path(path), u"one\r\n"));
  EXPECT_TRUE(host.AppendToFile(Path(path), u"\u00B5V\r\n"));
  std::ifstream file(path, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  EXPECT_EQ(text, "one\r\n\xC2\xB5V\r\n");
  std::filesystem::remove(path);
}

TEST(HostEnvironment, AFileThatCannotBeOpenedIsNoError) {
  EXPECT_FALSE(HostEnvironment().AppendToFile(u"/no such directory/a file", u"text"));
}

} // namespace
} // namespace portico

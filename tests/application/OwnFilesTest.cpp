#include "application/OwnFiles.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace portico {
namespace {

namespace fs = std::filesystem;

bool Never(const fs::path&) { return false; }

class OwnFiles : public ::testing::Test {
protected:
  std::string At(const char* name) const { return m_folder.At(name); }

  const test::TemporaryFolder m_folder;
  const fs::path& m_ground = m_folder.Path();
  const fs::path m_program = "/opt/somewhere/bin";
};

TEST_F(OwnFiles, LieBesideTheProgramWhereTheUserCanWriteThere) {
  fs::path asked;
  const auto isWritable = [&](const fs::path& path) {
    asked = path;
    return true;
  };
  EXPECT_EQ(OwnFilesDirectory({m_program, {At("state"), At("home")}, isWritable}), m_program);
  EXPECT_EQ(asked, m_program);
  EXPECT_TRUE(fs::is_empty(m_ground));
}

TEST_F(OwnFiles, LieInTheStateDirectoryOtherwise) {
  const fs::path directory = OwnFilesDirectory({m_program, {At("state"), At("home")}, Never});
  EXPECT_EQ(directory, m_ground / "state" / "portico");
  EXPECT_TRUE(fs::is_directory(directory));
  EXPECT_FALSE(fs::exists(At("home")));
}

TEST_F(OwnFiles, LieBelowTheHomeDirectoryWhereNoStateDirectoryIsNamed) {
  const fs::path directory = OwnFilesDirectory({m_program, {"", At("home")}, Never});
  EXPECT_EQ(directory, m_ground / "home" / ".local" / "state" / "portico");
  EXPECT_TRUE(fs::is_directory(directory));
}

TEST_F(OwnFiles, ANamedDirectoryThatIsNotAbsoluteDoesNotCount) {
  EXPECT_EQ(OwnFilesDirectory({m_program, {"state", At("home")}, Never}),
            m_ground / "home" / ".local" / "state" / "portico");
  EXPECT_EQ(OwnFilesDirectory({m_program, {"state", "home"}, Never}), m_program);
  EXPECT_FALSE(fs::exists("state"));
}

TEST_F(OwnFiles, ADirectoryWhoseNameIsNotUtf8DoesNotCount) {
  const auto always = [](const fs::path&) { return true; };
  EXPECT_EQ(OwnFilesDirectory({"/opt/so\xFFme/bin", {At("state"), At("home")}, always}),
            m_ground / "state" / "portico");
  EXPECT_EQ(OwnFilesDirectory({m_program, {At("st\xFFte"), At("home")}, Never}),
            m_ground / "home" / ".local" / "state" / "portico");
  EXPECT_FALSE(fs::exists(At("st\xFFte")));
  EXPECT_EQ(OwnFilesDirectory({m_program, {"", At("h\xFFme")}, Never}), m_program);
  EXPECT_FALSE(fs::exists(At("h\xFFme")));
}

TEST_F(OwnFiles, ANewDirectoryIsForItsOwnerAlone) {
  const fs::path directory = OwnFilesDirectory({m_program, {At("state"), ""}, Never});
  EXPECT_EQ(fs::status(directory).permissions(), fs::perms::owner_all);
}

TEST_F(OwnFiles, ADirectoryThatIsThereStaysAsItIs) {
  const fs::path directory = m_ground / "state" / "portico";
  fs::create_directories(directory);
  fs::permissions(directory, fs::perms::owner_all | fs::perms::group_all);
  std::ofstream(directory / "SCPIComm.log") << "before";
  EXPECT_EQ(OwnFilesDirectory({m_program, {At("state"), ""}, Never}), directory);
  EXPECT_EQ(fs::status(directory).permissions(), fs::perms::owner_all | fs::perms::group_all);
  EXPECT_TRUE(fs::exists(directory / "SCPIComm.log"));
}

TEST_F(OwnFiles, LieBesideTheProgramAfterAllWhereNoDirectoryCanBeMade) {
  std::ofstream(At("state")) << "a file stands in the way";
  EXPECT_EQ(OwnFilesDirectory({m_program, {At("state"), At("home")}, Never}), m_program);
  EXPECT_EQ(OwnFilesDirectory({m_program, {"", ""}, Never}), m_program);
}

} // namespace
} // namespace portico

#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace portico::test {

/// Golden texts lie in tests/golden and are compared byte for byte; their line ends count.
inline std::filesystem::path GoldenPath(const std::string& name) {
  return std::filesystem::path(__FILE__).parent_path().parent_path() / "golden" / name;
}

/// Compares the bytes with the golden text of that name. With PORTICO_UPDATE_GOLDEN=1 in the environment, as
/// scripts/update-golden sets it, the golden text is written first.
inline void ExpectGolden(const std::string& name, const std::string& actual) {
  const auto path = GoldenPath(name);
  const char* update = std::getenv("PORTICO_UPDATE_GOLDEN");
  if (update != nullptr && std::string(update) == "1") {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << actual;
  }
  std::ifstream file(path, std::ios::binary);
  ASSERT_TRUE(file) << "There is no golden text " << path << "; scripts/update-golden makes it.";
  const std::string expected((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  EXPECT_EQ(expected, actual) << "The golden text " << path << " differs. If it should, run scripts/update-golden.";
}

} // namespace portico::test

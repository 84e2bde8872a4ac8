#include "support/Golden.h"

#include "support/Files.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace portico::test {

std::filesystem::path GoldenPath(const std::string& name) { return std::filesystem::path(PORTICO_GOLDEN) / name; }

void ExpectGolden(const std::string& name, const std::string& actual) {
  const auto path = GoldenPath(name);
  const char* update = std::getenv("PORTICO_UPDATE_GOLDEN");
  if (update != nullptr && std::string(update) == "1") WriteFile(path, actual);
  ASSERT_TRUE(std::filesystem::exists(path))
      << "There is no golden text " << path << "; scripts/update-golden makes it.";
  EXPECT_EQ(ReadFile(path), actual) << "The golden text " << path
                                    << " differs. If it should, run scripts/update-golden.";
}

} // namespace portico::test

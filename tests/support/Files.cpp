#include "support/Files.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>

namespace portico::test {
namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void WriteFile(const fs::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    m_path = fs::path(testing::TempDir()) / ("portico-" + std::to_string(random()));
  } while (!fs::create_directories(m_path));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored; // a destructor has nobody to tell
  fs::remove_all(m_path, ignored);
}

} // namespace portico::test

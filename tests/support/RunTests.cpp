#include "support/RunTests.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

namespace portico::test {
namespace {

bool running = false;

void RefuseToEnd() {
  if (!running) return;
  std::fputs("A test has ended the program.\n", stderr);
  std::_Exit(EXIT_FAILURE);
}

} // namespace

int RunTests() {
  std::atexit(RefuseToEnd);
  running = true;
  const int status = RUN_ALL_TESTS();
  running = false;
  if (testing::UnitTest::GetInstance()->test_to_run_count() == 0) {
    std::fputs("There is no test to run.\n", stderr);
    return EXIT_FAILURE;
  }
  return status;
}

} // namespace portico::test

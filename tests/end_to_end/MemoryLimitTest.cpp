#include "end_to_end/Programs.h"

#include <filesystem>

namespace portico::test {
namespace {

TEST(MemoryLimit, IsToldLikeAnyInternalError) {
  const CommandFiles files;
  const std::string large = files.Add("large.cmd", "");
  std::filesystem::resize_file(large, 256U << 20U); // of zeros that take no room on the disk
  Process process({"/bin/sh", "-c", "ulimit -v 100000 && exec \"$0\" \"$@\"", PORTICO_RUN, SimulatedMeter, large});
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err, "portico-run: internal error\nstd::bad_alloc\n");
}

} // namespace
} // namespace portico::test

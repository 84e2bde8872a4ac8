#pragma once

#include <filesystem>
#include <string>

namespace portico::test {

/// Golden texts lie in tests/golden and are compared byte for byte; their line ends count.
std::filesystem::path GoldenPath(const std::string& name);

/// Compares the bytes with the golden text of that name. With PORTICO_UPDATE_GOLDEN=1 in the environment, as
/// scripts/update-golden sets it, the golden text is written first.
void ExpectGolden(const std::string& name, const std::string& actual);

} // namespace portico::test

#pragma once

#include <filesystem>
#include <string>

namespace portico::system {

/// The first line of a file, such as the system describes its devices by; empty if there is none.
std::string FirstLine(const std::filesystem::path& file);

} // namespace portico::system

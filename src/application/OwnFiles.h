#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace portico {

/// What decides where the program keeps the files that it writes of its own accord.
struct OwnFilesPlaces {
  std::filesystem::path ProgramDirectory;
  std::string StateHome; ///< XDG_STATE_HOME; what is no absolute path in UTF-8 does not count, nor does it below
  std::string Home;
  std::function<bool(const std::filesystem::path&)> IsWritable;
};

/// The program's directory if its name is UTF-8 and the user can write there, which is not so with an installed
/// program. Otherwise "portico" in the user's state directory (StateHome, or .local/state in the home directory), made
/// for its owner alone if it is not there. The program's directory after all if that cannot be made either.
std::filesystem::path OwnFilesDirectory(const OwnFilesPlaces& places);

} // namespace portico

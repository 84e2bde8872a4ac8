#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace portico {

/// The variables of the environment that tell where a user's state is kept; what is no absolute path in UTF-8 does not
/// count.
struct UserPlaces {
  std::string StateHome; ///< XDG_STATE_HOME
  std::string Home;
};

struct UserDataPlaces {
  std::string DataHome; ///< XDG_DATA_HOME
  std::string Home;
};

/// "portico" in the user's state directory (StateHome, or .local/state in the home directory), whether it is there or
/// not; empty if neither place counts.
std::filesystem::path StateDirectory(const UserPlaces& user);

/// The same in the user's data directory, with its variable XDG_DATA_HOME in place of the other, or .local/share in the
/// home directory.
std::filesystem::path DataDirectory(const UserDataPlaces& user);

/// Makes a directory for its owner alone, and those that it lies in, unless it is there; true if it is then.
bool MakeOwnDirectory(const std::filesystem::path& directory);

/// What decides where the program keeps the files that it writes of its own accord.
struct OwnFilesPlaces {
  std::filesystem::path ProgramDirectory;
  UserPlaces User;
  std::function<bool(const std::filesystem::path&)> IsWritable;
};

/// The program's directory if its name is UTF-8 and the user can write there, which is not so with an installed
/// program. Otherwise the state directory, made for its owner alone if it is not there. The program's directory after
/// all if that cannot be made either.
std::filesystem::path OwnFilesDirectory(const OwnFilesPlaces& places);

} // namespace portico

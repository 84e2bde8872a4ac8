#include "application/OwnFiles.h"

#include "framework/text/text.h"

#include <system_error>

namespace portico {
namespace {

namespace fs = std::filesystem;

/// The program names its files in text, which has no way to tell a byte that is not UTF-8.
bool HasTextName(const fs::path& directory) { return !FromUtf8(directory.native()).BadByte; }

bool Counts(const fs::path& named) { return named.is_absolute() && HasTextName(named); }

fs::path OwnDirectory(const fs::path& named, const fs::path& home, const char* usual) {
  if (Counts(named)) return named / "portico";
  if (Counts(home)) return home / ".local" / usual / "portico";
  return {};
}

} // namespace

fs::path StateDirectory(const UserPlaces& user) { return OwnDirectory(user.StateHome, user.Home, "state"); }

fs::path DataDirectory(const UserDataPlaces& user) { return OwnDirectory(user.DataHome, user.Home, "share"); }

bool MakeOwnDirectory(const fs::path& directory) {
  std::error_code fault;
  if (fs::is_directory(directory, fault)) return true;
  if (!fs::create_directories(directory, fault)) return false;
  fs::permissions(directory, fs::perms::owner_all, fault); // what lies there tells what was sent to an instrument
  return true;
}

fs::path OwnFilesDirectory(const OwnFilesPlaces& places) {
  if (HasTextName(places.ProgramDirectory) && places.IsWritable(places.ProgramDirectory)) {
    return places.ProgramDirectory;
  }
  const fs::path state = StateDirectory(places.User);
  return !state.empty() && MakeOwnDirectory(state) ? state : places.ProgramDirectory;
}

} // namespace portico

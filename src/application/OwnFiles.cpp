#include "application/OwnFiles.h"

#include <system_error>

namespace portico {
namespace {

namespace fs = std::filesystem;

fs::path StateDirectory(const OwnFilesPlaces& places) {
  const fs::path state = places.StateHome;
  if (state.is_absolute()) return state / "portico";
  const fs::path home = places.Home;
  if (home.is_absolute()) return home / ".local" / "state" / "portico";
  return {};
}

bool IsMade(const fs::path& directory) {
  std::error_code fault;
  if (fs::is_directory(directory, fault)) return true;
  if (!fs::create_directories(directory, fault)) return false;
  fs::permissions(directory, fs::perms::owner_all, fault); // reports tell what was sent to an instrument
  return true;
}

} // namespace

fs::path OwnFilesDirectory(const OwnFilesPlaces& places) {
  if (places.IsWritable(places.ProgramDirectory)) return places.ProgramDirectory;
  const fs::path state = StateDirectory(places);
  return !state.empty() && IsMade(state) ? state : places.ProgramDirectory;
}

} // namespace portico

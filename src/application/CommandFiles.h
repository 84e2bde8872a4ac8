#pragma once

#include "platform/ICommandFiles.h"

#include <filesystem>
#include <utility>

namespace portico {

/// Command lists in two folders, of which every file whose name ends in `.txt` is one, and in a third what instruments
/// have told, a file for each, which is for its owner alone. A folder that is not there is empty; the third is made
/// when something is kept.
class CommandFiles final : public ICommandFiles {
public:
  /// So many lists of a folder are read, by their names.
  static constexpr std::size_t MostLists = 100;

  struct Folders {
    std::filesystem::path User;
    std::filesystem::path Program;
    std::filesystem::path Told;
  };
  /// An empty path stands for no folder.
  explicit CommandFiles(Folders folders) : m_folders(std::move(folders)) {}

  bool HaveListsChanged() override;
  std::vector<File> Lists() override;
  File Told(const String& instrument) override;
  std::optional<String> KeepTold(const String& instrument, std::string_view bytes) override;

private:
  /// What tells whether a list is the same as before.
  struct Stamp {
    std::filesystem::path Path;
    std::filesystem::file_time_type Time;
    std::uintmax_t Size;
    bool operator==(const Stamp&) const = default;
  };
  std::vector<Stamp> Look() const;

  const Folders m_folders;
  std::optional<std::vector<Stamp>> m_read; // when the lists were read last
};

/// The user's lists are in `portico/commands` in the data directory, the program's beside its other data or in its
/// sources, and what instruments have told in `instruments` in the program's state directory.
std::shared_ptr<ICommandFiles> OwnCommandFiles();

} // namespace portico

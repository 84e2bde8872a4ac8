#pragma once

#include "framework/text/text.h"

#include <filesystem>
#include <fstream>
#include <string_view>

namespace portico {

/// A file that is written whole or not at all: what is written goes to one beside it, which takes its name in the end.
/// What is no regular file, as a device, is written as it is. Each member but the destructor raises `CannotCarryOut`
/// with a sentence that names the file when the disk refuses.
class SavedFile final {
public:
  explicit SavedFile(const String& path);
  SavedFile(const SavedFile&) = delete;
  SavedFile& operator=(const SavedFile&) = delete;
  /// What was not kept goes.
  ~SavedFile();

  void Write(std::string_view bytes);
  void Keep();

private:
  void Check(bool isDone) const;

  String m_name;
  std::filesystem::path m_target;
  std::filesystem::path m_written;
  std::ofstream m_file;
  bool m_isKept = false;
};

} // namespace portico

#pragma once

#include "platform/ILineFile.h"

#include <filesystem>
#include <utility>

namespace portico {

/// A text file in UTF-8, a line each, which begins with a heading by which it is known: another file is neither read
/// nor written. Whoever writes holds a lock, for which others wait a moment. The file is for its owner alone. When it
/// has grown by a tenth over the limits the oldest lines go: a new file takes its place at once, or not at all. A file
/// that is larger than it should be is read from its end, so that no more is held than the limits allow.
class LineFile final : public ILineFile {
public:
  static constexpr const char* Heading = "# Lines that were sent with Tolvane Portico\n";

  /// The folder is made, for its owner alone, when the first line is kept.
  explicit LineFile(std::filesystem::path path, LineLimits limits = {}) : m_path(std::move(path)), m_limits(limits) {}

  Contents Read() override;
  std::optional<String> Append(const std::vector<String>& lines) override;
  std::optional<String> Clear() override;

private:
  void Shorten(int file);

  const std::filesystem::path m_path;
  const LineLimits m_limits;
  std::size_t m_count = 0; // of lines in the file, as far as is known
};

/// The file of the lines that this user has sent; null where there is no place for it.
std::shared_ptr<ILineFile> OwnSentLinesFile();

} // namespace portico

#pragma once

#include "framework/text/text.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace portico {

/// How much of the newest is kept.
struct LineLimits {
  std::size_t Lines = 10'000;
  std::size_t Bytes = std::size_t{4} * 1024 * 1024; ///< of all lines together, as UTF-8
};

/// A file of the user's in which lines are kept from one start of the program to the next. Other programs may have it
/// at the same time: none loses what another has written. What cannot be done is told in one sentence, and leaves what
/// is there as it was.
class ILineFile {
public:
  struct Contents {
    std::vector<String> Lines; ///< the newest, the oldest of them first
    std::optional<String> Fault;
  };

  virtual ~ILineFile() = default;
  /// Nothing, and no fault, where nothing has ever been kept.
  virtual Contents Read() = 0;
  /// No line has a line end in it.
  virtual std::optional<String> Append(const std::vector<String>& lines) = 0;
  /// Forgets all lines.
  virtual std::optional<String> Clear() = 0;
};

/// Where the lines that were sent are kept. Wired before the factory is made; unset where nothing is kept.
extern std::shared_ptr<ILineFile> gSentLinesFile;

} // namespace portico

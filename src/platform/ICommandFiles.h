#pragma once

#include "framework/text/text.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace portico {

/// The files that tell which commands instruments know: lists that the user has, those that come with the program, and
/// what instruments have told of themselves. What cannot be done is told in one sentence.
class ICommandFiles {
public:
  struct File {
    String Name;       ///< without its folder
    std::string Bytes; ///< of a file that is longer than a list may be, one more than that
    std::optional<String> Fault;
  };

  virtual ~ICommandFiles() = default;
  /// Whether what `Lists` would tell may be another than the last time; true before the first.
  virtual bool HaveListsChanged() = 0;
  /// The user's, by their names, then the program's. No fault where there are none.
  virtual std::vector<File> Lists() = 0;

  /// What an instrument has told; empty, without a fault, if it never has.
  virtual File Told(const String& instrument) = 0;
  /// In place of what it told before. Nothing is lost if that fails.
  virtual std::optional<String> KeepTold(const String& instrument, std::string_view bytes) = 0;
};

/// Wired before the factory is made; unset where there are no such files.
extern std::shared_ptr<ICommandFiles> gCommandFiles;

} // namespace portico

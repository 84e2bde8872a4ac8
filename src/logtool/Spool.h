#pragma once

#include <cstdio>
#include <functional>
#include <memory>
#include <string_view>

namespace portico::logtool {

/// Lines that are kept in a temporary file, which has no name and goes with the object. Raises `Failed` if there can be
/// no such file, or if it takes nothing more.
class Spool {
public:
  struct Failed {};

  Spool();

  /// A line holds no line feed.
  void Add(std::string_view line);
  /// Tells all lines, in order.
  void ForEach(const std::function<void(std::string_view line)>& take);

private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  std::unique_ptr<std::FILE, Close> m_file;
};

} // namespace portico::logtool

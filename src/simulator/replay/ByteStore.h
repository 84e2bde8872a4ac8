#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace portico::simulator {

/// Keeps texts: the first of them in memory, and from a bound on the others in a temporary file, which has no name and
/// goes with the object.
class ByteStore {
public:
  /// Raised where the temporary file fails.
  struct Failed {};

  struct Place {
    std::uint64_t Start = 0;
    std::uint32_t Size = 0;
  };

  /// `mostInMemory` in bytes.
  explicit ByteStore(std::size_t mostInMemory) : m_most(mostInMemory) {}

  /// A text of less than 4 GiB.
  Place Add(std::string_view text);
  std::string Get(Place place) const;

private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  std::size_t m_most;
  std::string m_memory;
  std::unique_ptr<std::FILE, Close> m_file;
  std::uint64_t m_size = 0; ///< in memory and file
};

} // namespace portico::simulator

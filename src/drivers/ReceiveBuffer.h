#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace portico::drivers {

/// Bytes that have come from the transport but were not yet read. Allocated once and never cleared; filled only while
/// it is empty, so nothing is ever moved.
class ReceiveBuffer {
public:
  /// As much as one read of a transport takes at most, in bytes.
  static constexpr std::size_t Capacity = std::size_t{64} * 1024;

  bool Empty() const { return m_begin == m_end; }
  std::string_view Unread() const { return {m_bytes.get() + m_begin, m_end - m_begin}; }

  /// Room for Capacity bytes, to be filled while the buffer is empty.
  char* Space() { return m_bytes.get(); }
  /// The first `count` bytes of Space() are filled; `end` tells whether a message ends behind them.
  void Filled(std::size_t count, bool end) {
    m_begin = 0;
    m_end = count;
    m_endsMessage = end;
  }

  void Drop(std::size_t count) { m_begin += count; }
  void Clear() { Filled(0, false); }

  /// All bytes are read and the transport said that a message ends behind them.
  bool AtEndOfMessage() const { return Empty() && m_endsMessage; }

private:
  std::unique_ptr<char[]> m_bytes = std::make_unique_for_overwrite<char[]>(Capacity);
  std::size_t m_begin = 0;
  std::size_t m_end = 0;
  bool m_endsMessage = false;
};

} // namespace portico::drivers

#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace portico {

/// Bytes that have come from the transport but were not yet read. Allocated once and never cleared; filled only while
/// it is empty, so nothing is ever moved.
class ReceiveBuffer {
public:
  /// As much as one read of a transport takes at most, in bytes.
  static constexpr std::size_t kCapacity = 64 * 1024;

  bool Empty() const { return begin_ == end_; }
  std::string_view Unread() const { return {bytes_.get() + begin_, end_ - begin_}; }

  /// Room for kCapacity bytes, to be filled while the buffer is empty.
  char* Space() { return bytes_.get(); }
  /// The first `count` bytes of Space() are filled; `end` tells whether a message ends behind them.
  void Filled(std::size_t count, bool end) {
    begin_ = 0;
    end_ = count;
    endsMessage_ = end;
  }

  void Drop(std::size_t count) { begin_ += count; }
  void Clear() { Filled(0, false); }

  /// All bytes are read and the transport said that a message ends behind them.
  bool AtEndOfMessage() const { return Empty() && endsMessage_; }

private:
  std::unique_ptr<char[]> bytes_ = std::make_unique_for_overwrite<char[]>(kCapacity);
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  bool endsMessage_ = false;
};

} // namespace portico

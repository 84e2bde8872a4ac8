#pragma once

#include <array>

namespace portico {

/// A pipe to oneself, by which a signal handler gets through to whoever waits.
class WakePipe {
public:
  /// Fails with `std::system_error`.
  WakePipe();
  WakePipe(const WakePipe&) = delete;
  WakePipe& operator=(const WakePipe&) = delete;
  ~WakePipe();

  /// Becomes readable by `Wake`.
  int Descriptor() const { return m_ends[0]; }
  /// Safe in a signal handler.
  void Wake() noexcept;
  void Drain() noexcept;

private:
  std::array<int, 2> m_ends{};
};

} // namespace portico

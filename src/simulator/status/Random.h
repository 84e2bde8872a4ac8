#pragma once

#include <cstdint>

namespace portico::simulator {

/// The SplitMix64 generator (Steele, Lea and Flood, 2014): unlike the standard library's distributions it gives the
/// same numbers on every platform.
class Random {
public:
  explicit Random(std::uint64_t seed) : m_state(seed) {}

  std::uint64_t Next() {
    m_state += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = m_state;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
  }

  /// Evenly from 0 to below 1.
  double Uniform() { return static_cast<double>(Next() >> 11U) * 0x1p-53; }

  /// A bell around 0, never beyond -1 or 1, as the mean of four even numbers.
  double Noise() { return (Uniform() + Uniform() + Uniform() + Uniform()) / 2 - 1; }

private:
  std::uint64_t m_state;
};

} // namespace portico::simulator

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace portico {

/// Numbers that are not negative, with their running totals: a Fenwick tree. Places count from 0.
class SumTree {
public:
  std::size_t Size() const { return m_nodes.size() - 1; }

  void Append(std::int64_t number) {
    const std::size_t node = Size() + 1;
    m_nodes.push_back(SumBefore(node - 1) - SumBefore(node & (node - 1)) + number);
  }

  void Add(std::size_t at, std::int64_t number) {
    for (std::size_t node = at + 1; node <= Size(); node += LowestBit(node)) m_nodes[node] += number;
  }

  std::int64_t SumBefore(std::size_t at) const {
    std::int64_t sum = 0;
    for (std::size_t node = at; node > 0; node -= LowestBit(node)) sum += m_nodes[node];
    return sum;
  }

  /// The first place at which the running total exceeds `rest`, which loses the sum in front of that place; `Size()` if
  /// there is none.
  std::size_t Find(std::int64_t& rest) const {
    std::size_t step = 1;
    while (step * 2 <= Size()) step *= 2;
    std::size_t at = 0;
    for (; step > 0; step /= 2) {
      if (at + step > Size() || m_nodes[at + step] > rest) continue;
      at += step;
      rest -= m_nodes[at];
    }
    return at;
  }

  void Clear() { m_nodes.assign(1, 0); }

private:
  static std::size_t LowestBit(std::size_t node) { return node & (~node + 1); }

  std::vector<std::int64_t> m_nodes = {0}; // node n sums the numbers up to n, as many as n's lowest bit; 0 is unused
};

} // namespace portico

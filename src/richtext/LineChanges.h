#pragma once

#include <cstddef>
#include <vector>

namespace portico::richtext {

/// Where a copy of a text lags behind it, in stretches of lines. Edits that touch each other make one stretch, however
/// many there are.
class LineChanges {
public:
  /// Lines of the text as it is, and those of the copy in whose place they belong.
  struct Stretch {
    std::size_t First;
    std::size_t Count;
    std::size_t OldFirst;
    std::size_t OldCount;

    bool operator==(const Stretch&) const = default;
  };
  /// Beyond that neighbours are joined, with what lies between them.
  static constexpr std::size_t MostStretches = 8;

  /// The lines of the text from `first` on, `before` of them, have become `after`.
  void Add(std::size_t first, std::size_t before, std::size_t after);
  /// In order, with at least one line between each two.
  const std::vector<Stretch>& All() const { return m_stretches; }
  bool IsEmpty() const { return m_stretches.empty(); }
  void Clear() { m_stretches.clear(); }

private:
  std::vector<Stretch> m_stretches;
};

} // namespace portico::richtext

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace portico::richtext {

/// Where a copy of a text lags behind it, in stretches of lines. Edits that touch each other make one stretch, however
/// many there are. A stretch reaches the copy at once or in parts.
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
  /// Lines for the copy. Where lines of their stretch wait on, in front of them or behind them, one empty line of the
  /// copy is to stand for those.
  struct Part {
    Stretch Lines;
    bool WaitsBefore;
    bool WaitsBehind;
  };
  /// Beyond that neighbours are joined, with what lies between them.
  static constexpr std::size_t MostStretches = 8;

  /// The lines of the text from `first` on, `before` of them, have become `after`.
  void Add(std::size_t first, std::size_t before, std::size_t after);
  /// The copy is given what waits of the lines from `first` to in front of `end`, if any does: the first part of it,
  /// which no longer waits then. The text has so many lines. Neither count of the part is 0, for which it may take in a
  /// line more.
  std::optional<Part> Take(std::size_t first, std::size_t end, std::size_t lineCount);
  /// Where a line that does not wait stands in the copy.
  std::size_t InCopy(std::size_t line) const;
  /// The line that a line of the copy is, if it is up to date.
  std::optional<std::size_t> InText(std::size_t copied) const;
  /// In order; there are lines of the copy's own between most.
  const std::vector<Stretch>& All() const { return m_stretches; }
  bool IsEmpty() const { return m_stretches.empty(); }
  void Clear() { m_stretches.clear(); }

private:
  /// Of a stretch, what is left when a part of it has been taken.
  void Leave(std::vector<Stretch>::iterator at, const Stretch& whole, const Part& part);

  std::vector<Stretch> m_stretches;
};

} // namespace portico::richtext

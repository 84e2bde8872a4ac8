#pragma once

#include <cstddef>
#include <vector>

namespace portico::richtext {

/// The lines of a text that bear a mark. A look-up takes the logarithm of their number.
class MarkedLines {
public:
  /// False if it was marked before.
  bool Add(std::size_t line);
  /// False if there was none.
  bool Clear();
  /// In place of the lines from `first` on, `gone` of them, `come` others have come, which are not marked. False if no
  /// mark has moved or gone.
  bool Replace(std::size_t first, std::size_t gone, std::size_t come);

  /// Whether one of the lines from `first` to in front of `end` is marked.
  bool AnyIn(std::size_t first, std::size_t end) const;
  /// In order.
  const std::vector<std::size_t>& All() const { return m_lines; }

private:
  std::vector<std::size_t> m_lines;
};

} // namespace portico::richtext

#pragma once

#include "framework/text/text.h"

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <vector>

namespace portico {

/// An array of strings with lower bound 0, or one that was never allocated. There is no allocated array of length 0.
class StringArray {
public:
  StringArray() = default;
  /// Count 0 raises `BadSubscript`.
  explicit StringArray(std::size_t count);
  /// Without elements it is not allocated.
  StringArray(std::initializer_list<String> elements) {
    if (elements.size() > 0) m_elements = elements;
  }

  bool IsAllocated() const { return m_elements.has_value(); }
  /// The bounds of an array that was never allocated, and an index outside the bounds, raise `BadSubscript`.
  std::int32_t LowerBound() const;
  std::int32_t UpperBound() const;
  String& operator[](std::int32_t index);
  const String& operator[](std::int32_t index) const;
  const std::vector<String>& Elements() const;

private:
  std::optional<std::vector<String>> m_elements;
};

} // namespace portico

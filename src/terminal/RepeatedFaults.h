#pragma once

#include "framework/text/text.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace portico::terminal {

/// What goes wrong again and again is told once, where it begins, and how often it was when it has come to its end: the
/// operation that it befell has succeeded, or the run is over.
class RepeatedFaults final {
public:
  /// `tell` gets each line, with its place.
  explicit RepeatedFaults(std::function<void(const std::string&)> tell) : m_tell(std::move(tell)) {}

  /// The place stands in front of the text, as it is.
  void Failed(StringView operation, const std::string& place, const std::string& text);
  void Succeeded(StringView operation);
  /// Nothing more comes.
  void End();

private:
  struct Fault {
    String Operation;
    std::string Text;
    std::string LastPlace;
    std::size_t Count;
  };
  void TellCount(const Fault& fault) const;

  std::function<void(const std::string&)> m_tell;
  std::vector<Fault> m_standing;
};

} // namespace portico::terminal

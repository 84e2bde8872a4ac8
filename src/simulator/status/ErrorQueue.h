#pragma once

#include "scpi/ScpiError.h"

#include <cstddef>
#include <deque>
#include <string>

namespace portico::simulator {

/// The SCPI error queue: first in, first out. When it is full its last place becomes -350 and newer errors are lost.
class ErrorQueue {
public:
  static constexpr std::size_t Capacity = 20;

  void Push(scpi::ErrorCode code);

  /// Takes the oldest as `<number>,"<text>"`; an empty queue gives `0,"No error"`.
  std::string Pop();

  /// Takes them all, joined by commas.
  std::string PopAll();

  std::size_t Size() const { return m_errors.size(); }
  void Clear() { m_errors.clear(); }

private:
  std::deque<scpi::ErrorCode> m_errors;
};

} // namespace portico::simulator

#pragma once

#include "platform/IInstrumentSearch.h"
#include "system/FileDescriptor.h"

#include <chrono>
#include <cstdint>
#include <vector>

namespace portico::discovery {

/// Instruments that answer when all portmappers of the local networks are asked for VXI-11. Nothing waits: the question
/// goes out at once, and again as time goes by, since datagrams get lost; answers are read when they are asked for.
class Vxi11Search {
public:
  /// Finds nothing where there is no network.
  Vxi11Search();

  /// One that has answered twice comes twice.
  std::vector<FoundInstrument> Take();

private:
  void Ask();

  const std::uint32_t m_number;
  system::FileDescriptor m_socket;
  int m_questionsLeft;
  std::chrono::steady_clock::time_point m_nextQuestion{};
};

} // namespace portico::discovery

#include "memory/desktop/InstrumentSearch.h"

#include "framework/errors/HuntERR.h"

#include <utility>

namespace portico::memory {

void InstrumentSearch::Start(const std::vector<String>& known) {
  RaiseIfTold();
  m_known = known;
  m_isRunning = true;
  m_found.clear();
}

std::vector<FoundInstrument> InstrumentSearch::Take() {
  ++m_timesTaken;
  RaiseIfTold();
  return std::exchange(m_found, {});
}

void InstrumentSearch::RaiseIfTold() const {
  if (m_error != 0) HuntERR::RaiseStandard(m_error);
}

void InstrumentSearch::Stop() noexcept { m_isRunning = false; }

} // namespace portico::memory

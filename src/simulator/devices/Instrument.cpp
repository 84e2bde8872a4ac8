#include "simulator/devices/Instrument.h"

namespace portico::simulator {

Instrument::Instrument(std::uint64_t seed) : m_faults(m_executor, m_status, seed) {
  m_faults.AddTo(m_tree);
  Faults().Seed(seed);
}

std::string Instrument::CarryOut(std::string_view message) {
  const auto exchange = m_executor.Join();
  exchange->Abandon();
  exchange->Submit(std::string(message));
  m_executor.Run(m_executor.Now());
  return m_status.Errors().Pop();
}

} // namespace portico::simulator

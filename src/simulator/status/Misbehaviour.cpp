#include "simulator/status/Misbehaviour.h"

#include <utility>

namespace portico::simulator {

void Misbehaviour::SetRate(double rate, std::vector<AnswerFault> faults) {
  m_rate = rate;
  m_faults = std::move(faults);
}

AnswerFault Misbehaviour::Pick() {
  AnswerFault picked = std::exchange(m_next, AnswerFault::None);
  if (picked == AnswerFault::None && m_rate > 0 && m_random.Uniform() < m_rate) {
    picked = m_faults[m_random.Next() % m_faults.size()];
  }
  if (picked != AnswerFault::None) ++m_count;
  return picked;
}

bool Misbehaviour::Take(AnswerFault fault) {
  if (m_delivered != fault) return false;
  m_delivered = AnswerFault::None;
  return true;
}

} // namespace portico::simulator

#include "simulator/status/ErrorQueue.h"

#include "simulator/language/ResponseFormat.h"

namespace portico::simulator {

void ErrorQueue::Push(scpi::ErrorCode code) {
  if (m_errors.size() < Capacity) {
    m_errors.push_back(code);
  } else {
    m_errors.back() = scpi::ErrorCode::QueueOverflow;
  }
}

std::string ErrorQueue::Pop() {
  scpi::ErrorCode code = scpi::ErrorCode::NoError;
  if (!m_errors.empty()) {
    code = m_errors.front();
    m_errors.pop_front();
  }
  return std::to_string(static_cast<int>(code)) + ',' + FormatString(scpi::ErrorText(code));
}

std::string ErrorQueue::PopAll() {
  std::string all = Pop();
  while (!m_errors.empty()) all += ',' + Pop();
  return all;
}

} // namespace portico::simulator

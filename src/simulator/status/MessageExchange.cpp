#include "simulator/status/MessageExchange.h"

#include "scpi/ScpiError.h"

#include <utility>

namespace portico::simulator {
namespace {

/// What a message in the queue costs besides its characters.
constexpr std::size_t QueuedMessageBytes = sizeof(std::string);

} // namespace

void MessageExchange::Submit(std::string message) {
  m_inputBytes += message.size() + QueuedMessageBytes;
  m_input.push_back(std::move(message));
}

void MessageExchange::Abandon() {
  m_abandoned = true;
  m_responses = {};
}

bool MessageExchange::Begin() {
  if (m_halted || m_message || m_input.empty() || m_responses.Full()) return false;
  m_message = std::move(m_input.front());
  m_input.pop_front();
  m_inputBytes -= m_message->size() + QueuedMessageBytes;
  m_parser = scpi::UnitParser(*m_message);
  return true;
}

bool MessageExchange::HandOver() {
  if (m_handler) m_handler(*m_message);
  return static_cast<bool>(m_handler);
}

void MessageExchange::Finish(TimePoint at, Misbehaviour& faults) {
  m_message.reset();
  EndResponse(at, faults);
}

void MessageExchange::EndResponse(TimePoint at, Misbehaviour& faults) {
  const bool endless = std::exchange(m_endless, false);
  if (!std::exchange(m_responding, false)) return;
  std::string response = std::exchange(m_response, {});
  const std::uint64_t more = std::exchange(m_more, 0);
  if (faults.Silent) return;
  const AnswerFault fault = faults.Pick();
  if (m_abandoned || fault == AnswerFault::Lost) return;
  at += std::exchange(faults.Delay, {});
  if (fault == AnswerFault::Late) at += faults.Lateness;
  if (more > 0 && !endless && fault != AnswerFault::Endless) {
    m_responses.PushLong(std::move(response), more, at, fault);
    return;
  }
  m_responses.Push(std::move(response), at, endless || fault == AnswerFault::Endless, fault);
}

void MessageExchange::Respond(std::string_view data) {
  if (m_more > 0 || m_response.size() + data.size() >= LongestResponse) {
    m_response = {};
    m_more = 0;
    m_responding = false;
    throw scpi::ScpiError(scpi::ErrorCode::QueryDeadlocked);
  }
  if (std::exchange(m_responding, true)) m_response += ';';
  m_response += data;
}

void MessageExchange::RespondBlock(std::uint64_t length) {
  const std::string digits = std::to_string(length);
  Respond("#" + std::to_string(digits.size()) + digits);
  m_more = length;
}

} // namespace portico::simulator

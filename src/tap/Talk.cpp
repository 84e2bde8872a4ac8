#include "tap/Talk.h"

#include <utility>

namespace portico::tap {

Talk::Talk(std::shared_ptr<Recording> recording, drivers::Marks marks)
    : m_recording(std::move(recording)),
      m_instruction([this](Message&& message) { m_recording->Instruction(std::move(message)); }),
      m_response([this](Message&& message) { m_recording->Response(std::move(message)); }),
      m_answers(Recorder::LongestMessage, marks) {}

void Talk::Sent(std::string_view bytes, bool end) {
  m_instructions.Feed(bytes, m_instruction);
  if (end) m_instructions.End(m_instruction);
}

void Talk::Answered(std::string_view bytes, bool end) {
  m_answers.Feed(bytes, m_response);
  if (end) m_answers.Mark(m_response);
}

void Talk::Break() {
  m_instructions.End(m_instruction);
  m_answers.BreakOff(m_response);
}

} // namespace portico::tap

#include "wire/HislipAnswers.h"

#include <utility>

namespace portico::wire {
namespace {

bool EndsAnswer(const HislipPiece& piece) { return piece.Header.Type == HislipType::DataEnd && piece.Last; }

} // namespace

void HislipAnswers::AwaitNone() {
  m_awaited.reset();
  m_refused = m_refused || std::exchange(m_begun, false);
  m_givenUp = false;
}

HislipAnswer HislipAnswers::Take(const HislipPiece& piece) {
  if (m_refused || !IsAwaited(piece.Header)) {
    Refuse(piece);
    return {};
  }
  HislipAnswer answer = {false, piece.Payload, EndsAnswer(piece)};
  m_begun = !answer.End;
  if (!answer.Empty()) answer.Anew = std::exchange(m_givenUp, false);
  return answer;
}

void HislipAnswers::Refuse(const HislipPiece& piece) {
  m_refused = !EndsAnswer(piece);
  GiveUp();
}

void HislipAnswers::BreakOff() {
  m_refused = false;
  GiveUp();
}

bool HislipAnswers::IsAwaited(const HislipHeader& header) const {
  if (!m_awaited) return false;
  return header.Parameter == *m_awaited || (header.Type == HislipType::Data && header.Parameter == HislipIdFollows);
}

void HislipAnswers::GiveUp() { m_givenUp = std::exchange(m_begun, false) || m_givenUp; }

} // namespace portico::wire

#include "wire/HislipAnswers.h"

#include <utility>

namespace portico::wire {
namespace {

bool EndsAnswer(const HislipPiece& piece) { return piece.Header.Type == HislipType::DataEnd && piece.Last; }

} // namespace

void HislipAnswers::AwaitNone() {
  m_awaited.reset();
  m_refused = m_refused || std::exchange(m_begun, false);
}

HislipAnswer HislipAnswers::Take(const HislipPiece& piece) {
  if (m_refused || !IsAwaited(piece.Header)) return Refuse(piece);
  const bool end = EndsAnswer(piece);
  m_begun = !end;
  return {false, piece.Payload, end};
}

HislipAnswer HislipAnswers::Refuse(const HislipPiece& piece) {
  m_refused = !EndsAnswer(piece);
  return TakeBack();
}

HislipAnswer HislipAnswers::BreakOff() {
  m_refused = false;
  return TakeBack();
}

bool HislipAnswers::IsAwaited(const HislipHeader& header) const {
  if (!m_awaited) return false;
  return header.Parameter == *m_awaited || (header.Type == HislipType::Data && header.Parameter == HislipIdFollows);
}

HislipAnswer HislipAnswers::TakeBack() { return {std::exchange(m_begun, false)}; }

} // namespace portico::wire

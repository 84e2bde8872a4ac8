#include "answers/AnswerData.h"

#include <algorithm>
#include <utility>

namespace portico::answers {
namespace {

/// More white space than this stands in front of no block.
constexpr std::size_t LongestFront = 64;

bool IsWhiteSpace(char byte) { return byte >= 0 && byte <= ' '; }

std::size_t WhiteSpaceIn(std::string_view bytes) {
  return static_cast<std::size_t>(std::find_if_not(bytes.begin(), bytes.end(), IsWhiteSpace) - bytes.begin());
}

} // namespace

std::string_view AnswerData::Take(std::string_view piece) {
  while (!piece.empty() && (m_state == State::Start || m_state == State::Header)) {
    TakeFront(piece.front());
    piece.remove_prefix(1);
  }
  switch (m_state) {
  case State::Start:
  case State::Header:
    return {};
  case State::Rest:
    if (m_front.empty()) return piece;
    m_kept = std::exchange(m_front, {}).append(piece);
    return m_kept;
  case State::Definite:
  case State::BehindBlock:
    break;
  }
  const std::size_t own = std::min<std::uint64_t>(m_missing, piece.size());
  m_missing -= own;
  if (m_missing == 0) m_state = State::BehindBlock;
  const std::string_view block = piece.substr(0, own);
  const std::string_view behind = piece.substr(own);
  const std::size_t blank = WhiteSpaceIn(behind);
  if (blank == behind.size() && m_behind.size() + blank <= LongestFront) {
    m_behind += behind;
    return block;
  }
  m_state = State::Rest;
  m_prefix = std::exchange(m_front, {});
  m_kept = std::string(block) + std::exchange(m_behind, {}).append(behind);
  return m_kept;
}

void AnswerData::TakeFront(char byte) {
  m_front += byte;
  if (m_state == State::Start) {
    if (byte == '#') {
      m_state = State::Header;
    } else if (!IsWhiteSpace(byte) || m_front.size() > LongestFront) {
      m_state = State::Rest;
    }
    return;
  }
  using Header = scpi::BlockHeader::State;
  switch (m_header.Step(byte)) {
  case Header::Open:
    break;
  case Header::Definite:
    m_state = State::Definite;
    m_length = m_missing = m_header.Length();
    break;
  case Header::Indefinite:
    m_front.clear();
    m_state = State::Rest;
    break;
  case Header::None:
    m_state = State::Rest;
    break;
  }
}

std::string_view AnswerData::Finish() {
  const bool isFront = m_state == State::Start || m_state == State::Header;
  return isFront ? std::string_view(m_front) : std::string_view();
}

} // namespace portico::answers

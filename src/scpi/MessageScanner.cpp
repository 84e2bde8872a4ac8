#include "scpi/MessageScanner.h"

#include "scpi/Syntax.h"

#include <algorithm>
#include <utility>

namespace portico::scpi {

void MessageScanner::Restart() {
  m_state = State::Plain;
  m_headerSeen = m_elementStart = false;
}

std::size_t MessageScanner::Scan(std::string_view bytes, bool& found) {
  found = false;
  std::size_t at = 0;
  while (at < bytes.size() && !found) {
    switch (m_state) {
    case State::Block: {
      const std::size_t skipped = std::min(m_blockBytes, bytes.size() - at);
      at += skipped;
      m_blockBytes -= skipped;
      if (m_blockBytes == 0) m_state = State::Plain;
      break;
    }
    case State::Quoted: {
      // A line feed ends the message here too: a stream has no other end, and one quote too many must not swallow all
      // the messages that follow.
      const char ends[] = {m_quote, '\n'};
      const std::size_t end = bytes.find_first_of({ends, sizeof ends}, at);
      if (end != std::string_view::npos) m_state = bytes[end] == m_quote ? State::QuoteClosed : State::Plain;
      at = end == std::string_view::npos ? bytes.size() : end + (m_state == State::QuoteClosed ? 1 : 0);
      break;
    }
    case State::IndefiniteBlock: {
      const std::size_t end = bytes.find('\n', at);
      if (end != std::string_view::npos) m_state = State::Plain;
      at = end == std::string_view::npos ? bytes.size() : end;
      break;
    }
    default:
      found = ScanByte(bytes[at++]);
    }
  }
  return at;
}

/// True if the byte is wanted.
bool MessageScanner::ScanByte(char byte) {
  const State state = std::exchange(m_state, State::Plain);
  if (state == State::QuoteClosed && byte == m_quote) { // a doubled quote goes on with the string
    m_state = State::Quoted;
    return false;
  }
  return state == State::BlockHeader ? ScanBlockHeader(byte) : ScanPlain(byte);
}

/// The same of a byte behind the `#`.
bool MessageScanner::ScanBlockHeader(char byte) {
  switch (m_header.Step(byte)) {
  case BlockHeader::State::None:
    return ScanPlain(byte);
  case BlockHeader::State::Open:
    m_state = State::BlockHeader;
    break;
  case BlockHeader::State::Definite:
    m_blockBytes = static_cast<std::size_t>(m_header.Length());
    if (m_blockBytes > 0) m_state = State::Block;
    break;
  case BlockHeader::State::Indefinite:
    m_state = State::IndefiniteBlock;
  }
  return false;
}

bool MessageScanner::ScanPlain(char byte) {
  if (m_elementStart && (byte == '"' || byte == '\'')) {
    m_state = State::Quoted;
    m_quote = byte;
  } else if (m_elementStart && byte == '#') {
    m_state = State::BlockHeader;
    m_header = {};
  }
  if (byte == ';' || byte == '\n') {
    m_headerSeen = m_elementStart = false;
  } else if (byte == ',' || IsWhiteSpace(byte)) {
    m_elementStart = m_headerSeen;
  } else {
    m_headerSeen = true;
    m_elementStart = false;
  }
  return m_wanted.find(byte) != std::string_view::npos;
}

} // namespace portico::scpi

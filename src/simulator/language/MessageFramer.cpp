#include "simulator/language/MessageFramer.h"

#include "simulator/language/Syntax.h"

#include <algorithm>
#include <utility>

namespace portico::simulator {

MessageFramer::Outcome MessageFramer::Feed(std::string_view& bytes) {
  while (!bytes.empty()) {
    bool complete = false;
    const std::size_t taken = Scan(bytes, complete);
    const bool fits = Store(bytes.substr(0, complete ? taken - 1 : taken));
    bytes.remove_prefix(taken);
    if (complete && Finish()) return Outcome::Complete;
    if (!fits) return Outcome::Overrun;
  }
  return Outcome::Incomplete;
}

MessageFramer::Outcome MessageFramer::End() {
  m_state = State::Plain;
  return Finish() && !m_message.empty() ? Outcome::Complete : Outcome::Incomplete;
}

bool MessageFramer::Finish() {
  m_headerSeen = m_elementStart = false;
  return !std::exchange(m_discarding, false);
}

std::string MessageFramer::TakeMessage() { return std::exchange(m_message, {}); }

/// False if the message has just become too long.
bool MessageFramer::Store(std::string_view bytes) {
  if (m_discarding) return true;
  if (bytes.size() > m_limit - m_message.size()) {
    m_discarding = true;
    m_message = {};
    return false;
  }
  m_message.append(bytes);
  return true;
}

std::size_t MessageFramer::Scan(std::string_view bytes, bool& complete) {
  std::size_t at = 0;
  while (at < bytes.size() && !complete) {
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
      complete = ScanByte(bytes[at++]);
    }
  }
  return at;
}

/// True if the byte ends the message.
bool MessageFramer::ScanByte(char byte) {
  const State state = std::exchange(m_state, State::Plain);
  if (state == State::QuoteClosed && byte == m_quote) { // a doubled quote goes on with the string
    m_state = State::Quoted;
    return false;
  }
  if (state == State::BlockStart && byte == '0') {
    m_state = State::IndefiniteBlock;
    return false;
  }
  if (state == State::BlockStart && IsDigit(byte)) {
    m_state = State::BlockLength;
    m_lengthDigits = byte - '0';
    m_blockBytes = 0;
    return false;
  }
  if (state == State::BlockLength && IsDigit(byte)) {
    m_blockBytes = m_blockBytes * 10 + static_cast<std::size_t>(byte - '0');
    if (--m_lengthDigits > 0) {
      m_state = State::BlockLength;
    } else if (m_blockBytes > 0) {
      m_state = State::Block;
    }
    return false;
  }
  return ScanPlain(byte);
}

bool MessageFramer::ScanPlain(char byte) {
  if (byte == '\n') return true;
  if (m_elementStart && (byte == '"' || byte == '\'')) {
    m_state = State::Quoted;
    m_quote = byte;
  } else if (m_elementStart && byte == '#') {
    m_state = State::BlockStart;
  }
  if (byte == ';') {
    m_headerSeen = m_elementStart = false;
  } else if (byte == ',' || IsWhiteSpace(byte)) {
    m_elementStart = m_headerSeen;
  } else {
    m_headerSeen = true;
    m_elementStart = false;
  }
  return false;
}

} // namespace portico::simulator

#include "drivers/session/MessageReader.h"

#include <algorithm>

namespace portico::drivers {
namespace {

constexpr std::size_t None = std::string_view::npos;

constexpr char LastByte(Termination termination) {
  const bool carriageReturn =
      termination == Termination::CarriageReturn || termination == Termination::LineFeedCarriageReturn;
  return carriageReturn ? '\r' : '\n';
}

/// The byte before the last, if it is part of the terminator; else 0, which is then never looked for.
constexpr char FirstByte(Termination termination) {
  switch (termination) {
  case Termination::Auto:
  case Termination::CarriageReturnLineFeed:
    return '\r';
  case Termination::LineFeedCarriageReturn:
    return '\n';
  case Termination::LineFeed:
  case Termination::CarriageReturn:
    break;
  }
  return '\0';
}

constexpr bool IsSeparator(char byte) { return byte == ',' || byte == ';' || byte == ' '; }

bool Holds(std::string_view bytes, char byte) { return bytes.find(byte) != None; }

} // namespace

MessageReader::MessageReader(Termination termination, Marks marks)
    : m_last(LastByte(termination)),
      m_first(FirstByte(termination)),
      m_firstRequired(m_first != '\0' && termination != Termination::Auto),
      m_endsAtMark(marks == Marks::Ends && termination == Termination::Auto) {}

std::size_t MessageReader::Feed(std::string_view bytes) {
  if (m_complete || bytes.empty()) return 0;
  if (const std::size_t taken = FeedPlain(bytes); taken != None) return taken;
  std::size_t position = 0;
  while (position < bytes.size() && !m_complete) {
    if (m_state == State::BlockData) {
      position += SkipBlockData(bytes.size() - position);
    } else {
      Step(bytes[position++]);
    }
  }
  return position;
}

std::size_t MessageReader::FeedPlain(std::string_view bytes) {
  if (m_state == State::BlockHeader || m_state == State::BlockData) return None;
  const std::size_t end = FindTerminator(bytes);
  if (Holds(bytes.substr(0, end), '#')) return None;
  if (end != None) {
    Finish(end == 0 ? m_previous : bytes[end - 1]);
    return end + 1;
  }
  if (m_state != State::ElementStart && m_state != State::Element) return None;
  if (Holds(bytes, '"') || Holds(bytes, '\'')) return None;
  m_beforePrevious = bytes.size() > 1 ? bytes[bytes.size() - 2] : m_previous;
  m_previous = bytes.back();
  m_state = IsSeparator(m_previous) ? State::ElementStart : State::Element;
  return bytes.size();
}

std::size_t MessageReader::FindTerminator(std::string_view bytes) const {
  if (m_endsAtMark) return None;
  std::size_t end = bytes.find(m_last);
  while (end != None && !EndsMessage(m_last, end == 0 ? m_previous : bytes[end - 1])) {
    end = bytes.find(m_last, end + 1);
  }
  return end;
}

bool MessageReader::EndsMessage(char byte, char before) const {
  return !m_endsAtMark && byte == m_last && (!m_firstRequired || before == m_first);
}

void MessageReader::End() {
  if (m_complete) return;
  if (m_endsAtMark && m_previous == m_last) {
    Finish(m_beforePrevious);
  } else {
    m_complete = true;
  }
}

void MessageReader::Finish(char before) {
  m_complete = true;
  m_terminatorLength = m_first != '\0' && before == m_first ? 2 : 1;
}

std::size_t MessageReader::SkipBlockData(std::size_t available) {
  const std::uint64_t skipped = std::min<std::uint64_t>(m_blockBytesLeft, available);
  m_blockBytesLeft -= skipped;
  if (m_blockBytesLeft == 0) m_state = State::Element;
  // A carriage return that ends the data is no part of the terminator behind the block.
  m_previous = '\0';
  m_beforePrevious = '\0';
  return static_cast<std::size_t>(skipped);
}

void MessageReader::Step(char byte) {
  if (EndsMessage(byte, m_previous)) {
    Finish(m_previous);
    return;
  }
  m_state = NextState(byte);
  m_beforePrevious = m_previous;
  m_previous = byte;
}

MessageReader::State MessageReader::NextState(char byte) {
  switch (m_state) {
  case State::ElementStart:
    return StartElement(byte);
  case State::Element:
    return IsSeparator(byte) ? State::ElementStart : State::Element;
  case State::String:
    return byte == m_quote ? State::StringEnd : State::String;
  case State::StringEnd:
    if (byte == m_quote) return State::String;
    return IsSeparator(byte) ? State::ElementStart : State::Element;
  case State::BlockHeader:
    return ReadBlockHeader(byte);
  case State::BlockData:
  case State::IndefiniteBlock:
    break;
  }
  return m_state;
}

MessageReader::State MessageReader::StartElement(char byte) {
  if (byte == '#') {
    m_header = {};
    return State::BlockHeader;
  }
  if (IsSeparator(byte)) return State::ElementStart;
  if (byte != '"' && byte != '\'') return State::Element;
  m_quote = byte;
  return State::String;
}

MessageReader::State MessageReader::ReadBlockHeader(char byte) {
  using Header = scpi::BlockHeader::State;
  switch (m_header.Step(byte)) {
  case Header::Open:
    return State::BlockHeader;
  case Header::Definite:
    m_blockBytesLeft = m_header.Length();
    return m_blockBytesLeft > 0 ? State::BlockData : State::Element;
  case Header::Indefinite:
    return State::IndefiniteBlock;
  case Header::None:
    break;
  }
  return IsSeparator(byte) ? State::ElementStart : State::Element;
}

} // namespace portico::drivers

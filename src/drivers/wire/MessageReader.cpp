#include "drivers/wire/MessageReader.h"

#include <algorithm>

namespace portico::wire {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

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

constexpr bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }
constexpr unsigned DigitValue(char byte) { return static_cast<unsigned>(byte - '0'); }
constexpr bool IsSeparator(char byte) { return byte == ',' || byte == ';' || byte == ' '; }

bool Holds(std::string_view bytes, char byte) { return bytes.find(byte) != kNone; }

} // namespace

MessageReader::MessageReader(Termination termination)
    : last_(LastByte(termination)),
      first_(FirstByte(termination)),
      firstRequired_(first_ != '\0' && termination != Termination::Auto) {}

std::size_t MessageReader::Feed(std::string_view bytes) {
  if (complete_ || bytes.empty()) return 0;
  if (const std::size_t taken = FeedPlain(bytes); taken != kNone) return taken;
  std::size_t position = 0;
  while (position < bytes.size() && !complete_) {
    if (state_ == State::BlockData) {
      position += SkipBlockData(bytes.size() - position);
    } else {
      Step(bytes[position++]);
    }
  }
  return position;
}

std::size_t MessageReader::FeedPlain(std::string_view bytes) {
  if (state_ == State::BlockDigitCount || state_ == State::BlockLength || state_ == State::BlockData) return kNone;
  const std::size_t end = FindTerminator(bytes);
  if (Holds(bytes.substr(0, end), '#')) return kNone;
  if (end != kNone) {
    Finish(end == 0 ? previous_ : bytes[end - 1]);
    return end + 1;
  }
  if (state_ != State::ElementStart && state_ != State::Element) return kNone;
  if (Holds(bytes, '"') || Holds(bytes, '\'')) return kNone;
  previous_ = bytes.back();
  state_ = IsSeparator(previous_) ? State::ElementStart : State::Element;
  return bytes.size();
}

std::size_t MessageReader::FindTerminator(std::string_view bytes) const {
  std::size_t end = bytes.find(last_);
  while (end != kNone && !EndsMessage(last_, end == 0 ? previous_ : bytes[end - 1])) end = bytes.find(last_, end + 1);
  return end;
}

bool MessageReader::EndsMessage(char byte, char before) const {
  return byte == last_ && (!firstRequired_ || before == first_);
}

void MessageReader::Finish(char before) {
  complete_ = true;
  terminatorLength_ = first_ != '\0' && before == first_ ? 2 : 1;
}

std::size_t MessageReader::SkipBlockData(std::size_t available) {
  const std::uint64_t skipped = std::min<std::uint64_t>(blockBytesLeft_, available);
  blockBytesLeft_ -= skipped;
  if (blockBytesLeft_ == 0) state_ = State::Element;
  // A carriage return that ends the data is no part of the terminator behind the block.
  previous_ = '\0';
  return static_cast<std::size_t>(skipped);
}

void MessageReader::Step(char byte) {
  if (EndsMessage(byte, previous_)) {
    Finish(previous_);
    return;
  }
  state_ = NextState(byte);
  previous_ = byte;
}

MessageReader::State MessageReader::NextState(char byte) {
  switch (state_) {
  case State::ElementStart:
    return StartElement(byte);
  case State::Element:
    return IsSeparator(byte) ? State::ElementStart : State::Element;
  case State::String:
    return byte == quote_ ? State::StringEnd : State::String;
  case State::StringEnd:
    if (byte == quote_) return State::String;
    return IsSeparator(byte) ? State::ElementStart : State::Element;
  case State::BlockDigitCount:
    return StartBlock(byte);
  case State::BlockLength:
    return ReadBlockLength(byte);
  case State::BlockData:
  case State::IndefiniteBlock:
    break;
  }
  return state_;
}

MessageReader::State MessageReader::StartElement(char byte) {
  if (byte == '#') return State::BlockDigitCount;
  if (IsSeparator(byte)) return State::ElementStart;
  if (byte != '"' && byte != '\'') return State::Element;
  quote_ = byte;
  return State::String;
}

MessageReader::State MessageReader::StartBlock(char byte) {
  if (byte == '0') return State::IndefiniteBlock;
  if (!IsDigit(byte)) return IsSeparator(byte) ? State::ElementStart : State::Element;
  lengthDigitsLeft_ = DigitValue(byte);
  blockBytesLeft_ = 0;
  return State::BlockLength;
}

MessageReader::State MessageReader::ReadBlockLength(char byte) {
  if (!IsDigit(byte)) return IsSeparator(byte) ? State::ElementStart : State::Element;
  blockBytesLeft_ = blockBytesLeft_ * 10 + DigitValue(byte);
  if (--lengthDigitsLeft_ > 0) return State::BlockLength;
  return blockBytesLeft_ > 0 ? State::BlockData : State::Element;
}

} // namespace portico::wire

#include "simulator/MessageFramer.h"

#include "simulator/Syntax.h"

#include <algorithm>
#include <utility>

namespace portico::simulator {

MessageFramer::Outcome MessageFramer::Feed(std::string_view& bytes) {
  while (!bytes.empty()) {
    bool complete = false;
    const std::size_t taken = Scan(bytes, complete);
    const bool fits = Store(bytes.substr(0, complete ? taken - 1 : taken));
    bytes.remove_prefix(taken);
    if (complete) {
      headerSeen_ = elementStart_ = false;
      const bool whole = !std::exchange(discarding_, false);
      if (whole) return Outcome::Complete;
    }
    if (!fits) return Outcome::Overrun;
  }
  return Outcome::Incomplete;
}

std::string MessageFramer::TakeMessage() { return std::exchange(message_, {}); }

/// False if the message has just become too long.
bool MessageFramer::Store(std::string_view bytes) {
  if (discarding_) return true;
  if (bytes.size() > limit_ - message_.size()) {
    discarding_ = true;
    message_ = {};
    return false;
  }
  message_.append(bytes);
  return true;
}

std::size_t MessageFramer::Scan(std::string_view bytes, bool& complete) {
  std::size_t at = 0;
  while (at < bytes.size() && !complete) {
    switch (state_) {
    case State::Block: {
      const std::size_t skipped = std::min(blockBytes_, bytes.size() - at);
      at += skipped;
      blockBytes_ -= skipped;
      if (blockBytes_ == 0) state_ = State::Plain;
      break;
    }
    case State::Quoted: {
      const std::size_t end = bytes.find(quote_, at);
      if (end != std::string_view::npos) state_ = State::QuoteClosed;
      at = end == std::string_view::npos ? bytes.size() : end + 1;
      break;
    }
    case State::IndefiniteBlock: {
      const std::size_t end = bytes.find('\n', at);
      if (end != std::string_view::npos) state_ = State::Plain;
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
  const State state = std::exchange(state_, State::Plain);
  if (state == State::QuoteClosed && byte == quote_) { // a doubled quote goes on with the string
    state_ = State::Quoted;
    return false;
  }
  if (state == State::BlockStart && byte == '0') {
    state_ = State::IndefiniteBlock;
    return false;
  }
  if (state == State::BlockStart && IsDigit(byte)) {
    state_ = State::BlockLength;
    lengthDigits_ = byte - '0';
    blockBytes_ = 0;
    return false;
  }
  if (state == State::BlockLength && IsDigit(byte)) {
    blockBytes_ = blockBytes_ * 10 + static_cast<std::size_t>(byte - '0');
    if (--lengthDigits_ > 0) {
      state_ = State::BlockLength;
    } else if (blockBytes_ > 0) {
      state_ = State::Block;
    }
    return false;
  }
  return ScanPlain(byte);
}

bool MessageFramer::ScanPlain(char byte) {
  if (byte == '\n') return true;
  if (elementStart_ && (byte == '"' || byte == '\'')) {
    state_ = State::Quoted;
    quote_ = byte;
  } else if (elementStart_ && byte == '#') {
    state_ = State::BlockStart;
  }
  if (byte == ';') {
    headerSeen_ = elementStart_ = false;
  } else if (byte == ',' || IsWhiteSpace(byte)) {
    elementStart_ = headerSeen_;
  } else {
    headerSeen_ = true;
    elementStart_ = false;
  }
  return false;
}

} // namespace portico::simulator

#pragma once

#include <string>
#include <string_view>

namespace portico::tap {

/// The client of a bridge, as the thread has it that converses with the instrument. Every call may wait; it is false
/// once the client has gone or the wait is cancelled.
class IBridgedClient {
public:
  /// What it says: bytes of its messages, or one of the things beside.
  struct Said {
    std::string Bytes;
    bool End = false;   ///< a message ends behind them
    bool Clear = false; ///< the instrument is to be cleared; what of a message came before is dropped
  };

  virtual ~IBridgedClient() = default;

  /// The instrument is open.
  virtual bool Opened() = 0;
  virtual bool Receive(Said& said) = 0;
  /// All that Receive() gave last has been dealt with, and what answer there is to it has been handed on.
  virtual bool Done() = 0;
  /// A part of an answer, which EndAnswer() ends.
  virtual bool Answer(std::string_view piece) = 0;
  virtual bool EndAnswer() = 0;
};

} // namespace portico::tap

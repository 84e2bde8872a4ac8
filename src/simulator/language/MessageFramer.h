#pragma once

#include "scpi/MessageScanner.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace portico::simulator {

/// Cuts a stream of bytes into program messages at the line feeds that stand outside definite-length blocks.
class MessageFramer {
public:
  enum class Outcome { Incomplete, Complete, Overrun };

  /// A message of more than `limit` bytes is an overrun and is discarded to its end.
  explicit MessageFramer(std::size_t limit) : m_limit(limit) {}

  /// Takes from the front of `bytes` until something is to be told: a message is complete, one has just grown over
  /// the limit, or all bytes are taken.
  Outcome Feed(std::string_view& bytes);

  /// The message ends here, whatever it holds, because the protocol around it says so: complete, or incomplete if there
  /// is nothing of one.
  Outcome End();

  /// The message that was completed, without its line feed.
  std::string TakeMessage();

private:
  bool Store(std::string_view bytes);
  /// Gets ready for the next message. Whether the one that ends here is whole.
  bool Finish();

  std::size_t m_limit;
  std::string m_message;
  bool m_discarding = false;
  scpi::MessageScanner m_scanner{"\n"};
};

} // namespace portico::simulator

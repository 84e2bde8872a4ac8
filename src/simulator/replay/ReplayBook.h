#pragma once

#include "scpi/ScpiError.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace portico::simulator {

/// What an instrument was asked in a conversation, and what it answered: it answers the same again. Messages are the
/// same whatever their case and the white space around them.
class ReplayBook {
public:
  /// The next message of the conversation.
  void Add(std::string_view message);
  /// An answer to the message that was added last, in bytes without their terminator. One in front of the first message
  /// answers nothing.
  void AddAnswer(std::string answer);

  /// How many messages there are.
  std::size_t Size() const { return m_exchanges.size(); }

  /// What the instrument does about a message.
  struct Reply {
    const std::vector<std::string>* Answers = nullptr; ///< none, or an empty list, where it keeps silent
    /// Undefined header if the message is nowhere in the conversation. Execution error if it is, and is not the one
    /// that comes next.
    scpi::ErrorCode Error = scpi::ErrorCode::NoError;
  };

  /// Looks for the message from where the conversation stands. What stands behind it there is the reply, and the
  /// conversation goes on from it. Where it does not come any more, its last place replies, and the conversation stays:
  /// so a client may ask more often than was asked. The reply lives until the next message is added.
  Reply Ask(std::string_view message);

  /// Stands at its beginning again.
  void Rewind() { m_next = 0; }

private:
  struct Exchange {
    std::vector<std::string> Answers;
  };

  static std::string KeyOf(std::string_view message);

  std::vector<Exchange> m_exchanges;
  std::unordered_map<std::string, std::vector<std::size_t>> m_places; ///< of each message, rising
  std::size_t m_next = 0;
};

/// Whether a message asks for the next error, `SYSTem:ERRor[:NEXT]?`.
bool IsErrorQuery(std::string_view message);

} // namespace portico::simulator

#pragma once

#include "scpi/ScpiError.h"
#include "simulator/replay/ByteStore.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace portico::simulator {

/// What an instrument was asked in a conversation, and what it answered: it answers the same again. Messages are the
/// same whatever their case and the white space around them.
///
/// Its texts stand in memory up to a bound and from there on in a temporary file; besides them a message takes some 30
/// bytes, and one that has not been there before some 100 more. May raise `ByteStore::Failed`.
class ReplayBook {
public:
  static constexpr std::size_t MostInMemory = std::size_t{64} << 20U;
  static constexpr std::size_t MostMessages = std::size_t{16} << 20U;

  /// Raised for a message more than there may be.
  struct Full {};

  /// The bounds are in bytes of text, and in messages.
  explicit ReplayBook(std::size_t mostInMemory = MostInMemory, std::size_t mostMessages = MostMessages)
      : m_store(mostInMemory), m_most(mostMessages) {}

  /// The next message of the conversation. Raises `Full`.
  void Add(std::string_view message);
  /// An answer to the message that was added last, in bytes without their terminator. One in front of the first message
  /// answers nothing.
  void AddAnswer(std::string_view answer);

  /// How many messages there are.
  std::size_t Size() const { return m_exchanges.size(); }

  /// What the instrument does about a message.
  struct Reply {
    std::vector<std::string> Answers = {}; ///< none where it keeps silent
    /// Undefined header if the message is nowhere in the conversation. Execution error if it is, and is not the one
    /// that comes next; error queries do not count, because a client asks as often as there are errors.
    scpi::ErrorCode Error = scpi::ErrorCode::NoError;
  };

  /// Looks for the message from where the conversation stands. What stands behind it there is the reply, and the
  /// conversation goes on from it. Where it does not come any more, its last place replies, and the conversation stays:
  /// so a client may ask more often than was asked.
  Reply Ask(std::string_view message);

  /// The first answer to a message that stands anywhere; empty if there is none.
  std::string FirstAnswer(std::string_view message) const;

  /// What a message is known by.
  static std::string KeyOf(std::string_view message);

private:
  using Index = std::uint32_t;

  struct Exchange {
    Index FirstAnswer; ///< of m_answers
    Index Order;       ///< how many messages stand in front that are no error queries
  };
  struct Message {
    ByteStore::Place Key;
    std::vector<Index> Places; ///< of m_exchanges, rising
  };

  /// Its number among the messages.
  std::optional<Index> Find(const std::string& key) const;
  std::vector<std::string> AnswersOf(std::size_t place) const;
  Index OrderOf(std::size_t place) const;

  ByteStore m_store;
  std::size_t m_most;
  std::vector<Exchange> m_exchanges;
  std::vector<ByteStore::Place> m_answers;
  std::vector<Message> m_messages;                         ///< each once
  std::unordered_multimap<std::size_t, Index> m_numbers{}; ///< of messages, by the hash of their keys
  Index m_ordered = 0;                                     ///< messages that are no error queries
  std::size_t m_next = 0;
};

/// Whether a message asks for the next error, `SYSTem:ERRor[:NEXT]?`.
bool IsErrorQuery(std::string_view message);

} // namespace portico::simulator

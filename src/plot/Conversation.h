#pragma once

#include "numbers/AnsweredQueries.h"
#include "numbers/FormatClues.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace portico::plot {

/// What of a conversation can be drawn: the numbers that queries were answered with over time, and of each query the
/// last answer that holds several. What the program asks by itself is left out.
class Conversation {
public:
  /// In UTF-16 units: so many of last answers are kept, those that came longest ago go first.
  static constexpr std::size_t LongestKept = 32U << 20U;

  /// The answer that a query got last.
  struct LastAnswer {
    String Query;
    String Text;
    /// As the conversation told when it came.
    numbers::ElementFormat Format;
    std::optional<numbers::WaveformScale> Scale;
    std::uint64_t Number; ///< of all answers, from 1
  };

  /// A message of the user's. Its line end is passed over.
  void Sent(StringView message);
  /// Answers that come now are to nothing that the user asked.
  void SentByItself() { m_message.clear(); }
  /// The user has asked something, so far as it is known.
  bool AwaitsAnswer() const { return !m_message.empty(); }
  /// At so many seconds from whatever beginning, with the line end that the history adds.
  void Answered(StringView answer, double seconds);

  const numbers::AnsweredQueries& Queries() const { return m_queries; }
  /// Null if it was a single number, or has been forgotten.
  const LastAnswer* Last(StringView query) const;
  std::uint64_t AnswerCount() const { return m_count; }
  /// The query that was answered with numbers last; empty if there is none.
  String Newest() const;

private:
  void Keep(StringView answer);
  void ForgetOldest();

  String m_message;
  numbers::AnsweredQueries m_queries;
  numbers::FormatClues m_clues;
  std::vector<LastAnswer> m_last;
  std::size_t m_kept = 0; // units of their texts
  std::uint64_t m_count = 0;
};

} // namespace portico::plot

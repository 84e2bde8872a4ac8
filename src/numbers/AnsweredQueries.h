#pragma once

#include "framework/text/text.h"
#include "numbers/Series.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <unordered_map>
#include <vector>

namespace portico::numbers {

/// The queries of a conversation that were answered with numbers, and for each the numbers over time: one curve for
/// each number of its answers. Case and white space around a query make no difference.
class AnsweredQueries {
public:
  /// Of more, those are forgotten that were answered longest ago.
  static constexpr std::size_t MostQueries = 256;
  /// For a query: of longer lists the first numbers are taken. The rest is for a picture of the one answer.
  static constexpr std::size_t MostCurves = 64;

  AnsweredQueries() = default;
  AnsweredQueries(const AnsweredQueries&) = delete;
  AnsweredQueries& operator=(const AnsweredQueries&) = delete;

  struct Answers {
    String Query; ///< as it was asked first, without white space around it
    std::vector<Series> Curves;
    std::size_t MostNumbers = 0; ///< of one answer, what is beyond MostCurves included
    bool Blocks = false;         ///< some answers were blocks, which are in no curve
    std::uint64_t LastAnswer = 0;
  };

  /// An answer, at so many seconds from whatever beginning. If a query has been answered with numbers before, and this
  /// answer is none or has fewer of them, then the curves that it says nothing of get a gap. Costs no more than reading
  /// the answer.
  void Add(StringView query, StringView answer, double seconds);

  /// In the order of their first answers. What is added keeps the address of each that is not forgotten.
  const std::list<Answers>& All() const { return m_all; }
  const Answers* Find(StringView query) const;

private:
  struct Equal {
    bool operator()(StringView a, StringView b) const { return EqualNoCase(a, b); }
  };

  Answers& Remember(StringView query);

  std::list<Answers> m_all;
  std::unordered_map<StringView, std::list<Answers>::iterator, HashNoCase, Equal> m_byQuery; // texts are those of m_all
  std::uint64_t m_answers = 0;
};

} // namespace portico::numbers

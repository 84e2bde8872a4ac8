#pragma once

#include "framework/text/text.h"
#include "timing/DurationHistogram.h"

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace portico::timing {

using Duration = DurationHistogram::Duration;

/// What the exchanges of one query took.
struct QueryFigures {
  /// None for all those together that have no row of their own.
  std::optional<String> Query;
  std::uint64_t Count = 0;
  Duration Median{}; ///< at most 1 percent off, as is the percentile
  Duration Percentile99{};
  Duration Maximum{};
};

struct LastExchange {
  String Query;
  Duration Taken{};
};

/// What each query of a conversation took. The memory is bounded whatever is asked: the first `MostQueries` have rows
/// of their own, unless they are longer than `LongestQuery`; the rest shares one.
class QueryTimes {
public:
  static constexpr std::size_t MostQueries = 500;
  static constexpr std::size_t LongestQuery = 256; ///< bytes

  QueryTimes() = default;
  QueryTimes(QueryTimes&&) = default;
  QueryTimes& operator=(QueryTimes&&) = default;

  /// The query is in the instrument's code page.
  void Add(std::string_view query, Duration taken);
  void Clear();

  /// A query longer than `LongestQuery` is cut there. None where there was none.
  std::optional<LastExchange> Last() const;
  /// In the order in which they were asked first; those without a row of their own last.
  std::vector<QueryFigures> Figures() const;

private:
  struct Row {
    std::string Query;
    DurationHistogram Times;
  };
  DurationHistogram& TimesOf(std::string_view query);

  std::deque<Row> m_rows;                                             // which stay where they are
  std::unordered_map<std::string_view, DurationHistogram*> m_byQuery; // views of the rows' texts
  DurationHistogram m_others;
  std::string m_lastQuery;
  Duration m_lastTaken{};
};

} // namespace portico::timing

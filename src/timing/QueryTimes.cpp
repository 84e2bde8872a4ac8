#include "timing/QueryTimes.h"

namespace portico::timing {
namespace {

QueryFigures FiguresOf(std::optional<String> query, const DurationHistogram& times) {
  return {std::move(query), times.Count(), times.Percentile(50), times.Percentile(99), times.Maximum()};
}

} // namespace

void QueryTimes::Add(std::string_view query, Duration taken) {
  TimesOf(query).Add(taken);
  m_lastQuery.assign(query.substr(0, LongestQuery));
  m_lastTaken = taken;
}

DurationHistogram& QueryTimes::TimesOf(std::string_view query) {
  if (query.size() > LongestQuery) return m_others;
  const auto found = m_byQuery.find(query);
  if (found != m_byQuery.end()) return *found->second;
  if (m_rows.size() == MostQueries) return m_others;
  Row& row = m_rows.emplace_back(Row{std::string(query), {}});
  m_byQuery.emplace(row.Query, &row.Times);
  return row.Times;
}

void QueryTimes::Clear() { *this = QueryTimes(); }

std::optional<LastExchange> QueryTimes::Last() const {
  if (m_rows.empty() && m_others.Count() == 0) return {};
  return LastExchange{FromCodePage(m_lastQuery), m_lastTaken};
}

std::vector<QueryFigures> QueryTimes::Figures() const {
  std::vector<QueryFigures> figures;
  figures.reserve(m_rows.size() + 1);
  for (const Row& row : m_rows) figures.push_back(FiguresOf(FromCodePage(row.Query), row.Times));
  if (m_others.Count() > 0) figures.push_back(FiguresOf({}, m_others));
  return figures;
}

} // namespace portico::timing

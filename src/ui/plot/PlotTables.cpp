#include "ui/plot/PlotTables.h"

#include <algorithm>
#include <utility>

namespace portico {
namespace {

constexpr int Digits = 7;
constexpr std::int32_t MostCharacters = 13; // of a number with so many digits, as -1.234567e-05

String Counted(std::size_t number) { return ToText(static_cast<std::int64_t>(number)); }
String Shown(double number) { return plot::NumberText(number, Digits); }

} // namespace

std::vector<ListColumn> QueryRows::Columns() {
  return {{.Heading = u"Keep", .Characters = 5},
          {.Heading = u"Query", .Characters = 20},
          {.Heading = u"Answers", .Characters = 8, .IsNumber = true}};
}

void QueryRows::Update(const plot::Conversation& conversation) {
  m_queries.clear();
  m_answers.clear();
  for (const auto& answers : conversation.Queries().All()) {
    m_queries.push_back(answers.Query);
    m_answers.push_back(answers.Curves.empty() ? 1 : answers.Curves.front().Size());
  }
}

void QueryRows::Toggle(const String& query) {
  if (m_kept.erase(query) == 0) m_kept.insert(query);
}

std::vector<String> QueryRows::Drawn(std::int32_t selected) const {
  std::vector<String> drawn;
  for (std::size_t i = 0; i < m_queries.size(); ++i) {
    if (std::cmp_equal(i, selected) || m_kept.contains(m_queries[i])) drawn.push_back(m_queries[i]);
  }
  return drawn;
}

String QueryRows::Cell(std::int32_t row, std::int32_t column) const {
  const auto index = static_cast<std::size_t>(row);
  if (column == 0) return m_kept.contains(m_queries[index]) ? String(u"yes") : String();
  return column == 1 ? m_queries[index] : Counted(m_answers[index]);
}

std::vector<ListColumn> ValueRows::Columns() {
  std::vector<ListColumn> columns = {{.Heading = u"Curve", .Characters = 19}};
  for (const StringView heading : {u"Values", u"Gaps", u"Overloads"}) {
    columns.push_back({.Heading = String(heading), .Characters = 7, .IsNumber = true});
  }
  for (const StringView heading :
       {u"Minimum", u"Maximum", u"Mean", u"Std. Dev.", u"At Cursor 1", u"At Cursor 2", u"Difference"}) {
    columns.push_back({.Heading = String(heading), .Characters = MostCharacters, .IsNumber = true});
  }
  return columns;
}

void ValueRows::Update(std::vector<plot::CurveRow> rows, const plot::Cursors& cursors) {
  m_rows = std::move(rows);
  m_cursors = cursors;
}

String ValueRows::PlaceCell(std::int32_t column) const {
  const double first = m_cursors[0].value_or(numbers::Gap);
  const double second = m_cursors[1].value_or(numbers::Gap);
  switch (column) {
  case 0:
    return u"(place)";
  case 8:
    return Shown(first);
  case 9:
    return Shown(second);
  case 10:
    return Shown(second - first);
  default:
    return {};
  }
}

String ValueRows::Cell(std::int32_t row, std::int32_t column) const {
  if (row == 0) return PlaceCell(column);
  const plot::CurveRow& curve = m_rows[static_cast<std::size_t>(row) - 1];
  switch (column) {
  case 0:
    return curve.Name;
  case 1:
    return Counted(curve.Seen.Count);
  case 2:
    return Counted(curve.Seen.Gaps);
  case 3:
    return Counted(curve.Seen.Overloads);
  case 4:
    return Shown(curve.Seen.Minimum);
  case 5:
    return Shown(curve.Seen.Maximum);
  case 6:
    return Shown(curve.Seen.Mean);
  case 7:
    return Shown(curve.Seen.StandardDeviation);
  case 8:
    return Shown(curve.AtCursors[0]);
  case 9:
    return Shown(curve.AtCursors[1]);
  default:
    return Shown(curve.Difference());
  }
}

} // namespace portico

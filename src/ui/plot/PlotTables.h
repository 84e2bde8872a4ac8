#pragma once

#include "platform/IListView.h"
#include "plot/Conversation.h"
#include "plot/CurveTable.h"

#include <set>
#include <vector>

namespace portico {

/// The queries that can be drawn: whether one stays in the picture when another is selected, its text, how many answers
/// there were.
class QueryRows final : public IListRows {
public:
  static std::vector<ListColumn> Columns();

  /// Takes over what there is.
  void Update(const plot::Conversation& conversation);
  const std::vector<String>& Queries() const { return m_queries; }
  /// Of a query that is listed.
  void Toggle(const String& query);
  /// Those that stay in the picture, and the selected one, in the order of the list; -1 is none.
  std::vector<String> Drawn(std::int32_t selected) const;

  std::int32_t Count() const override { return static_cast<std::int32_t>(m_queries.size()); }
  String Cell(std::int32_t row, std::int32_t column) const override;

private:
  std::vector<String> m_queries;
  std::vector<std::size_t> m_answers;
  std::set<String> m_kept;
};

/// What is seen of the curves, and what stands at the cursors.
class ValueRows final : public IListRows {
public:
  static std::vector<ListColumn> Columns();

  void Update(std::vector<plot::CurveRow> rows, const plot::Cursors& cursors);
  const std::vector<plot::CurveRow>& Curves() const { return m_rows; }

  /// The first row tells the places of the cursors.
  std::int32_t Count() const override { return static_cast<std::int32_t>(m_rows.size()) + 1; }
  String Cell(std::int32_t row, std::int32_t column) const override;

private:
  String PlaceCell(std::int32_t column) const;

  std::vector<plot::CurveRow> m_rows;
  plot::Cursors m_cursors;
};

} // namespace portico

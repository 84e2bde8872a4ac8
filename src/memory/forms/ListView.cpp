#include "memory/forms/ListView.h"

#include "platform/shared/Checks.h"

#include <utility>

namespace portico::memory {

void ListView::Rows(const std::shared_ptr<const IListRows>& rows) {
  m_rows = rows;
  m_count = rows ? rows->Count() : 0;
  ListIndex(-1);
}

void ListView::Refresh() {
  m_count = m_rows ? m_rows->Count() : 0;
  if (m_index >= m_count) ListIndex(-1);
}

void ListView::ListIndex(std::int32_t newValue) {
  CheckValue(newValue, -1, m_count - 1);
  if (std::exchange(m_index, newValue) != newValue) Fire(m_click);
}

String ListView::Row(std::int32_t index) const {
  String row;
  for (std::int32_t column = 0; column < std::ssize(m_columns); ++column) {
    if (column > 0) row += u" | ";
    row += m_rows->Cell(index, column);
  }
  return row;
}

bool ListView::Select(std::int32_t index) {
  const Turn turn(Life());
  if (index < 0 || index >= m_count || !Enter()) return false;
  ListIndex(index);
  return true;
}

bool ListView::DoubleClick(std::int32_t index) {
  const Turn turn(Life());
  return Select(index) && PressReturn();
}

bool ListView::PressReturn() {
  const Turn turn(Life());
  if (m_index < 0 || !IsUsable()) return false;
  Fire(m_choose);
  return true;
}

} // namespace portico::memory

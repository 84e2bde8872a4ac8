#include "qt/controls/TabOrder.h"

#include <vector>

namespace portico::qt {

void TabOrder::Add(QWidget& widget) {
  if (!m_positions.All().empty()) QWidget::setTabOrder(m_positions.All().back(), &widget);
  m_positions.Add(widget);
}

void TabOrder::Move(QWidget& widget, std::int32_t position) {
  m_positions.Move(widget, position);
  const std::vector<QWidget*>& order = m_positions.All();
  for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

} // namespace portico::qt

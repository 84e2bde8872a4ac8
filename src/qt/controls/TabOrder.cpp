#include "qt/controls/TabOrder.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

#include <algorithm>

namespace portico::qt {

void TabOrder::Add(QWidget& widget) {
  if (!m_order.empty()) QWidget::setTabOrder(m_order.back(), &widget);
  m_order.push_back(&widget);
}

std::int32_t TabOrder::IndexOf(const QWidget& widget) const {
  return static_cast<std::int32_t>(std::find(m_order.begin(), m_order.end(), &widget) - m_order.begin());
}

void TabOrder::IndexOf(QWidget& widget, std::int32_t newValue) {
  if (newValue < 0) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
  std::erase(m_order, &widget);
  m_order.insert(m_order.begin() + std::min<std::ptrdiff_t>(newValue, std::ssize(m_order)), &widget);
  Apply();
}

void TabOrder::Apply() const {
  for (std::size_t i = 1; i < m_order.size(); ++i) QWidget::setTabOrder(m_order[i - 1], m_order[i]);
}

} // namespace portico::qt

#pragma once

#include <QWidget>

#include <cstdint>
#include <vector>

namespace portico::qt {

/// The order in which the Tab key goes through the controls of a form. It holds the form's widgets, which outlive it.
class TabOrder {
public:
  /// At the end.
  void Add(QWidget& widget);
  std::int32_t IndexOf(const QWidget& widget) const;
  /// Moves a widget to a place; one behind the end means the end, one below 0 raises 380.
  void IndexOf(QWidget& widget, std::int32_t newValue);

private:
  void Apply() const;

  std::vector<QWidget*> m_order;
};

} // namespace portico::qt

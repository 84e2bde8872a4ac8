#pragma once

#include "platform/shared/TabPositions.h"

#include <QWidget>

namespace portico::qt {

/// The order in which the Tab key goes through the controls of a form. It holds the form's widgets, which outlive it.
class TabOrder {
public:
  /// At the end.
  void Add(QWidget& widget);
  std::int32_t IndexOf(const QWidget& widget) const { return m_positions.IndexOf(widget); }
  /// As `TabPositions` has it.
  void Move(QWidget& widget, std::int32_t position);

private:
  TabPositions<QWidget> m_positions;
};

} // namespace portico::qt

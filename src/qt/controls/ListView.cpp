#include "qt/controls/ListView.h"

#include "platform/shared/Checks.h"

#include <QItemSelectionModel>
#include <QScopedValueRollback>

#include <memory>
#include <utility>

namespace portico::qt {

ListView::ListView(const ControlDesign& design, std::shared_ptr<FormLife> life, ListWidget& list)
    : TabStopControl(design, std::move(life), list), m_list(list) {
  list.Chosen = [this] { EnterAndFire(m_choose); };
  QObject::connect(list.selectionModel(), &QItemSelectionModel::selectionChanged, &list, [this] {
    if (m_isQuiet) return;
    Tell([this] { EnterAndFire(m_click); });
  });
}

template <class FireClick>
void ListView::Tell(FireClick&& fire) {
  const std::int32_t index = ListIndex();
  if (std::exchange(m_told, index) != index) fire();
}

void ListView::Rows(const std::shared_ptr<const IListRows>& rows) {
  {
    const QScopedValueRollback quiet(m_isQuiet, true);
    m_list.Model().Rows(rows);
  }
  Tell([this] { Fire(m_click); });
}

void ListView::Refresh() {
  {
    const QScopedValueRollback quiet(m_isQuiet, true);
    const std::int32_t selected = ListIndex();
    m_list.Model().Refresh();
    if (selected >= ListCount()) Select(-1); // the toolkit selects another one by itself
  }
  Tell([this] { Fire(m_click); });
}

void ListView::ListIndex(std::int32_t newValue) {
  CheckValue(newValue, -1, ListCount() - 1);
  {
    const QScopedValueRollback quiet(m_isQuiet, true);
    Select(newValue);
  }
  Tell([this] { Fire(m_click); });
}

void ListView::Select(std::int32_t row) {
  if (row < 0) {
    m_list.clearSelection();
    m_list.setCurrentIndex({});
  } else {
    m_list.setCurrentIndex(m_list.Model().index(row, 0));
    m_list.scrollTo(m_list.currentIndex());
  }
}

} // namespace portico::qt

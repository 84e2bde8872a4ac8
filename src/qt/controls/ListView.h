#pragma once

#include "qt/controls/Control.h"
#include "qt/controls/ListWidget.h"

#include <memory>
#include <vector>

namespace portico::qt {

/// A list. A label in front of it in its table names it.
class ListView final : public TabStopControl, public Placed, public virtual IListView {
public:
  ListView(const ControlDesign& design, std::shared_ptr<FormLife> life, ListWidget& list);

  void Columns(const std::vector<ListColumn>& columns) override { m_list.Columns(columns); }
  void Rows(const std::shared_ptr<const IListRows>& rows) override;
  void Refresh() override;
  std::int32_t ListCount() const override { return m_list.Model().rowCount(); }
  std::int32_t ListIndex() const override { return m_list.SelectedRow(); }
  void ListIndex(std::int32_t newValue) override;
  Event<>& Click() override { return m_click; }
  Event<>& Choose() override { return m_choose; }

private:
  QRect Place() const override { return m_list.geometry(); }
  void Put(const QRect& place) override { m_list.setGeometry(place); }

  void Select(std::int32_t row);
  /// Fires if another row is selected than was told last.
  template <class FireClick>
  void Tell(FireClick&& fire);

  ListWidget& m_list;
  std::int32_t m_told = -1;
  bool m_isQuiet = false; // the program changes the rows
  Event<> m_click;
  Event<> m_choose;
};

} // namespace portico::qt

#pragma once

#include "memory/forms/DialogControls.h"
#include "memory/forms/Placement.h"
#include "platform/IListView.h"

namespace portico::memory {

/// A list of which all rows are in sight.
class ListView final : public DialogControl, public Placement, public virtual IListView {
public:
  ListView(ControlOwner& form, const ControlDesign& design, Control* container)
      : DialogControl(form, design, container), Placement({}) {}

  void Columns(const std::vector<ListColumn>& columns) override { m_columns = columns; }
  void Rows(const std::shared_ptr<const IListRows>& rows) override;
  void Refresh() override;
  std::int32_t ListCount() const override { return m_count; }
  std::int32_t ListIndex() const override { return m_index; }
  void ListIndex(std::int32_t newValue) override;
  Event<>& Click() override { return m_click; }
  Event<>& Choose() override { return m_choose; }

  const std::vector<ListColumn>& Columns() const { return m_columns; }
  /// A row as it is shown, its cells apart by " | ".
  String Row(std::int32_t index) const;

  // What the user does. False if the user cannot use the list, or there is no such row.
  bool Select(std::int32_t index);
  bool DoubleClick(std::int32_t index);
  /// With the focus here. False if nothing is selected, too.
  bool PressReturn();

private:
  std::vector<ListColumn> m_columns;
  std::shared_ptr<const IListRows> m_rows;
  std::int32_t m_count = 0;
  std::int32_t m_index = -1;
  Event<> m_click;
  Event<> m_choose;
};

} // namespace portico::memory

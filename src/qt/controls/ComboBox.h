#pragma once

#include "platform/IDialogControls.h"
#include "qt/controls/Control.h"

#include <QComboBox>

#include <memory>

namespace portico::qt {

/// A list that drops down. A text that was typed and is no entry selects nothing.
class ComboBox final : public TabStopControl, public virtual IComboBox {
public:
  ComboBox(const ControlDesign& design, std::shared_ptr<FormLife> life, QComboBox& box);

  String Text() const override;
  /// Selects the entry of that text if nothing can be typed; a text that no entry has raises `BadPropertyValue`.
  void Text(const String& newValue) override;
  Event<>& Change() override { return m_change; }

  void AddItem(const String& item) override;
  std::int32_t ListCount() const override { return m_box.count(); }
  /// An index that no entry has gives an empty text.
  String List(std::int32_t index) const override;
  std::int32_t ListIndex() const override;
  void ListIndex(std::int32_t newValue) override;
  Event<>& Click() override { return m_click; }

private:
  QComboBox& m_box;
  Event<> m_change;
  Event<> m_click;
};

} // namespace portico::qt

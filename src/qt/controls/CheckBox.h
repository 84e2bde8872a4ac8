#pragma once

#include "platform/IDialogControls.h"
#include "qt/controls/Control.h"

#include <QCheckBox>

#include <memory>

namespace portico::qt {

/// The user turns it between checked and unchecked; only the program makes it grayed.
class CheckBox final : public TabStopControl, public virtual ICheckBox {
public:
  CheckBox(const ControlDesign& design, std::shared_ptr<FormLife> life, QCheckBox& box);

  std::int32_t Value() const override;
  void Value(std::int32_t newValue) override;
  Event<>& Click() override { return m_click; }

protected:
  void ShowCaption() override;

private:
  QCheckBox& m_box;
  Event<> m_click;
};

} // namespace portico::qt

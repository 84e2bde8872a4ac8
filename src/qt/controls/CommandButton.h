#pragma once

#include "platform/IDialogControls.h"
#include "qt/controls/Control.h"

#include <QPushButton>

#include <memory>

namespace portico::qt {

class CommandButton final : public TabStopControl, public virtual ICommandButton {
public:
  CommandButton(const ControlDesign& design, std::shared_ptr<FormLife> life, QPushButton& button);

  Event<>& Click() override { return m_click; }

protected:
  void ShowCaption() override;

private:
  QPushButton& m_button;
  Event<> m_click;
};

} // namespace portico::qt

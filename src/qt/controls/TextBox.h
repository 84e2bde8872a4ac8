#pragma once

#include "platform/IDialogControls.h"
#include "qt/controls/Control.h"

#include <QLineEdit>

#include <memory>

namespace portico::qt {

/// A line of text that is typed. A label in front of it in its table names it.
class TextBox final : public TabStopControl, public virtual ITextBox {
public:
  TextBox(const ControlDesign& design, std::shared_ptr<FormLife> life, QLineEdit& edit);

  String Text() const override;
  void Text(const String& newValue) override;
  Event<>& Change() override { return m_change; }

private:
  QLineEdit& m_edit;
  Event<> m_change;
};

} // namespace portico::qt

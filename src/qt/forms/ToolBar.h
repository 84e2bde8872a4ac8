#pragma once

#include "platform/FormDesign.h"
#include "platform/IToolBar.h"
#include "platform/shared/ToolButtonState.h"
#include "qt/controls/Control.h"

#include <QAction>
#include <QToolBar>

#include <memory>
#include <span>
#include <vector>

namespace portico::qt {

class ToolBar;

/// An action of the toolbar's.
class ToolButton final : public ToolButtonState {
public:
  ToolButton(ToolBar& bar, const ToolButtonDesign& design, QAction& action);

protected:
  void ShowEnabled() override { m_action.setEnabled(Enabled()); }
  void ShowVisible() override { m_action.setVisible(Visible()); }
  /// Only a button of check style shows it.
  void ShowValue() override { m_action.setChecked(Value() == 1); }
  void ShowToolTipText() override;

private:
  QAction& m_action;
};

/// Stands at the top of its form, as wide as the form unless it is placed. Its buttons, of 16 pixels, never get the
/// focus.
class ToolBar final : public PlacedControl, public virtual IToolBar {
public:
  ToolBar(std::span<const ToolButtonDesign> buttons, std::shared_ptr<FormLife> life, QToolBar& bar);

  std::vector<IToolButton*> Buttons() override;
  ToolButton& Buttons(StringView Key) override;
  Event<IToolButton&>& ButtonClick() override { return m_buttonClick; }

  /// Where its last visible button ends, in pixels.
  int ButtonsEnd() const;

private:
  friend class ToolButton;

  QToolBar& m_bar;
  std::vector<std::unique_ptr<ToolButton>> m_buttons;
  Event<IToolButton&> m_buttonClick;
};

} // namespace portico::qt

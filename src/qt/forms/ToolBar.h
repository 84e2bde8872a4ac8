#pragma once

#include "platform/FormDesign.h"
#include "platform/IToolBar.h"
#include "qt/controls/Control.h"

#include <QAction>
#include <QToolBar>

#include <memory>
#include <span>
#include <vector>

namespace portico::qt {

class ToolBar;

/// An action of the toolbar's.
class ToolButton final : public IToolButton {
public:
  ToolButton(ToolBar& bar, const ToolButtonDesign& design, QAction& action);

  StringView Key() const override { return m_key; }
  bool Enabled() const override { return m_enabled; }
  void Enabled(bool newValue) override;
  bool Visible() const override { return m_visible; }
  void Visible(bool newValue) override;
  std::int32_t Value() const override;
  /// Anything but 0 and 1 raises 380. Only a button of check style shows it.
  void Value(std::int32_t newValue) override;
  String ToolTipText() const override { return m_toolTipText; }
  void ToolTipText(const String& newValue) override;

private:
  StringView m_key;
  QAction& m_action;
  bool m_enabled = true;
  bool m_visible = true;
  std::int32_t m_value = 0;
  String m_toolTipText;
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

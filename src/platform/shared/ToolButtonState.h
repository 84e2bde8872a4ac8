#pragma once

#include "platform/FormDesign.h"
#include "platform/IToolBar.h"

namespace portico {

/// What a button of a toolbar is set to, on every platform; its kind shows it.
class ToolButtonState : public IToolButton {
public:
  explicit ToolButtonState(const ToolButtonDesign& design) : m_design(design), m_toolTipText(design.ToolTipText) {}

  StringView Key() const override { return m_design.Key; }
  bool Enabled() const override { return m_enabled; }
  void Enabled(bool newValue) override;
  bool Visible() const override { return m_visible; }
  void Visible(bool newValue) override;
  std::int32_t Value() const override { return m_value; }
  /// Anything but 0 and 1 raises `BadPropertyValue`.
  void Value(std::int32_t newValue) override;
  String ToolTipText() const override { return m_toolTipText; }
  void ToolTipText(const String& newValue) override;

  const ToolButtonDesign& Design() const { return m_design; }

protected:
  // What has been set is to show.
  virtual void ShowEnabled() {}
  virtual void ShowVisible() {}
  virtual void ShowValue() {}
  virtual void ShowToolTipText() {}

  /// The user has turned a button of check style.
  void Turned(bool isPressed) { m_value = isPressed ? 1 : 0; }

private:
  ToolButtonDesign m_design;
  bool m_enabled = true;
  bool m_visible = true;
  std::int32_t m_value = 0;
  String m_toolTipText;
};

} // namespace portico

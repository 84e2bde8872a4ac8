#pragma once

#include "platform/IControl.h"

namespace portico {

/// What a control is by its design, and what the program has set of it since. A platform derives its controls from it
/// and is told what is to show anew.
class ControlState : public virtual IControl {
public:
  /// The texts that the design points to are constants of those who design it.
  explicit ControlState(const ControlDesign& design);

  StringView Name() const override { return m_design.Name; }
  ControlKind Kind() const override { return m_design.Kind; }
  String Tag() const override { return String(m_design.Tag); }
  String Caption() const override { return m_caption; }
  void Caption(const String& newValue) override;
  String ToolTipText() const override { return m_toolTipText; }
  void ToolTipText(const String& newValue) override;
  bool Enabled() const override { return m_enabled; }
  void Enabled(bool newValue) override;
  bool Visible() const override { return m_visible; }
  void Visible(bool newValue) override;

  const ControlDesign& Design() const { return m_design; }

protected:
  // What has been set is to show.
  virtual void ShowCaption() {}
  virtual void ShowToolTipText() {}
  virtual void ShowEnabled() {}
  virtual void ShowVisible() {}

private:
  ControlDesign m_design;
  String m_caption;
  String m_toolTipText;
  bool m_enabled = true;
  bool m_visible;
};

} // namespace portico

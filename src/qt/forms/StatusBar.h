#pragma once

#include "platform/FormDesign.h"
#include "platform/IStatusBar.h"
#include "qt/controls/Control.h"

#include <QLabel>
#include <QStatusBar>
#include <QTimer>

#include <memory>
#include <span>
#include <vector>

namespace portico::qt {

/// A text in the status bar. A panel with the date or the time shows it as the desktop writes it.
class StatusPanel final : public IStatusPanel {
public:
  StatusPanel(const StatusPanelDesign& design, QLabel& label);

  String Text() const override;
  void Text(const String& newValue) override;
  String ToolTipText() const override;
  void ToolTipText(const String& newValue) override;

  /// Brings date and time up to date.
  void Refresh();

private:
  StatusPanelStyle m_style;
  QLabel& m_label;
};

/// Stands at the bottom of its form and is as wide as it. Its first panel takes the room that the others leave.
class StatusBar final : public PlacedControl, public virtual IStatusBar {
public:
  StatusBar(std::span<const StatusPanelDesign> panels, std::shared_ptr<FormLife> life, QStatusBar& bar);

  StatusPanel& Panels(std::int32_t Index) override;

private:
  std::vector<std::unique_ptr<StatusPanel>> m_panels;
  QTimer m_clock;
};

} // namespace portico::qt

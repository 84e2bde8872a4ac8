#include "qt/forms/StatusBar.h"

#include "platform/shared/Owned.h"
#include "qt/values/QtText.h"

#include <QDateTime>
#include <QLocale>

#include <chrono>
#include <utility>

namespace portico::qt {

StatusPanel::StatusPanel(const StatusPanelDesign& design, QLabel& label) : m_style(design.Style), m_label(label) {
  label.setObjectName(ToQt(design.Key));
  label.setTextFormat(Qt::PlainText);
  label.setFrameStyle(QFrame::Panel | QFrame::Sunken);
  Refresh();
}

String StatusPanel::Text() const { return FromQt(m_label.text()); }
void StatusPanel::Text(const String& newValue) {
  if (!IsSame(m_label.text(), newValue)) m_label.setText(ToQt(newValue));
}
String StatusPanel::ToolTipText() const { return FromQt(m_label.toolTip()); }
void StatusPanel::ToolTipText(const String& newValue) {
  if (!IsSame(m_label.toolTip(), newValue)) m_label.setToolTip(ToQt(newValue));
}

void StatusPanel::Refresh() {
  if (m_style == StatusPanelStyle::Text) return;
  const QLocale locale;
  const QDateTime now = QDateTime::currentDateTime();
  const QString text = m_style == StatusPanelStyle::Date ? locale.toString(now.date(), QLocale::ShortFormat)
                                                         : locale.toString(now.time(), QLocale::ShortFormat);
  if (text != m_label.text()) m_label.setText(text);
}

StatusBar::StatusBar(std::span<const StatusPanelDesign> panels, std::shared_ptr<FormLife> life, QStatusBar& bar)
    : PlacedControl({.Kind = ControlKind::StatusBar, .Name = StatusBarName}, std::move(life), bar) {
  bar.setAccessibleName(QStringLiteral("Status bar"));
  bar.setSizeGripEnabled(false);
  for (const StatusPanelDesign& design : panels) {
    auto* label = new QLabel(&bar);
    const bool isFirst = m_panels.empty();
    // A long text is cut off, and does not push the others out.
    if (isFirst) label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_panels.push_back(std::make_unique<StatusPanel>(design, *label));
    bar.addPermanentWidget(label, isFirst ? 1 : 0);
  }
  bar.resize(bar.sizeHint());
  // Once a second, and only what has changed is painted.
  m_clock.setTimerType(Qt::VeryCoarseTimer);
  QObject::connect(&m_clock, &QTimer::timeout, &m_clock, [this] {
    for (const auto& panel : m_panels) panel->Refresh();
  });
  m_clock.start(std::chrono::seconds(1));
}

StatusPanel& StatusBar::Panels(std::int32_t Index) { return AtPosition(m_panels, Index); }

} // namespace portico::qt

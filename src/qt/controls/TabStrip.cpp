#include "qt/controls/TabStrip.h"

#include "platform/shared/Checks.h"
#include "platform/shared/Owned.h"
#include "qt/values/QtText.h"

#include <QSignalBlocker>

#include <utility>

namespace portico::qt {

String Tab::Caption() const { return FromQt(m_bar.tabText(m_index)); }
void Tab::Caption(const String& newValue) { m_bar.setTabText(m_index, ToQt(newValue)); }
String Tab::ToolTipText() const { return FromQt(m_bar.tabToolTip(m_index)); }
void Tab::ToolTipText(const String& newValue) { m_bar.setTabToolTip(m_index, ToQt(newValue)); }

TabStrip::TabStrip(const ControlDesign& design, std::shared_ptr<FormLife> life, QTabBar& bar)
    : TabStopControl(design, std::move(life), bar), m_bar(bar) {
  bar.setExpanding(false);
  QObject::connect(&bar, &QTabBar::currentChanged, &bar, [this] { EnterAndFire(m_click); });
}

void TabStrip::AddTab(const String& Caption, const String& ToolTipText, const String& Tag) {
  const QSignalBlocker quiet(m_bar); // the first one is selected from the start
  const int index = m_bar.addTab(ToQt(Caption));
  m_bar.setTabToolTip(index, ToQt(ToolTipText));
  m_tabs.push_back(std::make_unique<Tab>(m_bar, index, Tag));
}

std::vector<ITab*> TabStrip::Tabs() { return PointersTo<ITab>(m_tabs); }

void TabStrip::SelectedItem(std::int32_t Index) {
  CheckPosition(Index, m_bar.count());
  if (Index == SelectedItem()) return;
  {
    const QSignalBlocker quiet(m_bar);
    m_bar.setCurrentIndex(Index - 1);
  }
  Fire(m_click);
}

} // namespace portico::qt

#pragma once

#include "platform/IDialogControls.h"
#include "qt/controls/Control.h"

#include <QTabBar>

#include <memory>
#include <vector>

namespace portico::qt {

/// The tab at a place of a strip.
class Tab final : public ITab {
public:
  Tab(QTabBar& bar, int index, StringView tag) : m_bar(bar), m_index(index), m_tag(tag) {}

  String Tag() const override { return m_tag; }
  String Caption() const override;
  void Caption(const String& newValue) override;
  String ToolTipText() const override;
  void ToolTipText(const String& newValue) override;

private:
  QTabBar& m_bar;
  int m_index;
  String m_tag;
};

class TabStrip final : public TabStopControl, public virtual ITabStrip {
public:
  TabStrip(const ControlDesign& design, std::shared_ptr<FormLife> life, QTabBar& bar);

  void AddTab(const String& Caption, const String& ToolTipText, const String& Tag = {}) override;
  std::vector<ITab*> Tabs() override;
  /// 0 while there is no tab.
  std::int32_t SelectedItem() const override { return m_bar.currentIndex() + 1; }
  /// An index that no tab has raises `IndexOutOfBounds`.
  void SelectedItem(std::int32_t Index) override;
  Event<>& Click() override { return m_click; }

private:
  QTabBar& m_bar;
  std::vector<std::unique_ptr<Tab>> m_tabs;
  Event<> m_click;
};

} // namespace portico::qt

#include "qt/forms/ToolBar.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "qt/controls/Icons.h"
#include "qt/values/QtText.h"

#include <QLayout>

#include <algorithm>
#include <utility>

namespace portico::qt {
namespace {

constexpr int IconPixels = 16;

} // namespace

ToolButton::ToolButton(ToolBar& bar, const ToolButtonDesign& design, QAction& action)
    : m_key(design.Key), m_action(action) {
  action.setObjectName(ToQt(design.Key));
  if (design.Style == ToolButtonStyle::Separator) {
    action.setSeparator(true);
  } else {
    action.setIcon(IconOf(design.Image));
    action.setCheckable(design.Style == ToolButtonStyle::Check);
  }
  ToolButton::ToolTipText(String(design.ToolTipText));
  QObject::connect(&action, &QAction::triggered, &action, [this, &bar] { bar.EnterAndFire(bar.m_buttonClick, *this); });
}

void ToolButton::Enabled(bool newValue) {
  m_enabled = newValue;
  m_action.setEnabled(newValue);
}

void ToolButton::Visible(bool newValue) {
  m_visible = newValue;
  m_action.setVisible(newValue);
}

std::int32_t ToolButton::Value() const { return m_action.isCheckable() ? (m_action.isChecked() ? 1 : 0) : m_value; }

void ToolButton::Value(std::int32_t newValue) {
  if (newValue != 0 && newValue != 1) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
  m_value = newValue;
  m_action.setChecked(newValue == 1);
}

void ToolButton::ToolTipText(const String& newValue) {
  m_toolTipText = newValue;
  m_action.setToolTip(ToQt(newValue));
  // What a screen reader says; a button with an icon shows no text.
  m_action.setText(ToQt(newValue.empty() ? String(m_key) : newValue));
}

ToolBar::ToolBar(std::span<const ToolButtonDesign> buttons, std::shared_ptr<FormLife> life, QToolBar& bar)
    : PlacedControl({.Kind = ControlKind::Toolbar, .Name = ToolBarName}, std::move(life), bar), m_bar(bar) {
  bar.setAccessibleName(QStringLiteral("Toolbar"));
  bar.setMovable(false);
  bar.setFloatable(false);
  bar.setIconSize({IconPixels, IconPixels});
  bar.setToolButtonStyle(Qt::ToolButtonIconOnly);
  bar.setContextMenuPolicy(Qt::PreventContextMenu);
  bar.layout()->setContentsMargins(1, 1, 1, 1);
  bar.layout()->setSpacing(0);
  for (const ToolButtonDesign& design : buttons) {
    auto* action = new QAction(&bar);
    m_buttons.push_back(std::make_unique<ToolButton>(*this, design, *action));
    bar.addAction(action);
    if (QWidget* widget = bar.widgetForAction(action)) widget->setObjectName(ToQt(design.Key));
  }
  bar.resize(bar.sizeHint());
}

std::vector<IToolButton*> ToolBar::Buttons() {
  std::vector<IToolButton*> buttons;
  for (const auto& button : m_buttons) buttons.push_back(button.get());
  return buttons;
}

ToolButton& ToolBar::Buttons(StringView Key) {
  const auto found =
      std::find_if(m_buttons.begin(), m_buttons.end(), [Key](const auto& button) { return button->Key() == Key; });
  if (found == m_buttons.end()) HuntERR::RaiseStandard(ErrorNumber::ElementNotFound);
  return **found;
}

int ToolBar::ButtonsEnd() const { return m_bar.x() + m_bar.sizeHint().width(); }

} // namespace portico::qt

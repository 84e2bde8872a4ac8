#include "qt/forms/ToolBar.h"

#include "platform/shared/Owned.h"
#include "qt/controls/Icons.h"
#include "qt/values/QtText.h"

#include <QLayout>

#include <utility>

namespace portico::qt {
namespace {

constexpr int IconPixels = 16;

} // namespace

ToolButton::ToolButton(ToolBar& bar, const ToolButtonDesign& design, QAction& action)
    : ToolButtonState(design), m_action(action) {
  action.setObjectName(ToQt(design.Key));
  if (design.Style == ToolButtonStyle::Separator) {
    action.setSeparator(true);
  } else {
    action.setIcon(IconOf(design.Image));
    action.setCheckable(design.Style == ToolButtonStyle::Check);
  }
  ToolButton::ShowToolTipText();
  QObject::connect(&action, &QAction::toggled, &action, [this](bool isChecked) { Turned(isChecked); });
  QObject::connect(&action, &QAction::triggered, &action, [this, &bar] { bar.EnterAndFire(bar.m_buttonClick, *this); });
}

void ToolButton::ShowToolTipText() {
  m_action.setToolTip(ToQt(ToolTipText()));
  // What a screen reader says; a button with an icon shows no text.
  m_action.setText(ToQt(ToolTipText().empty() ? String(Key()) : ToolTipText()));
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

std::vector<IToolButton*> ToolBar::Buttons() { return PointersTo<IToolButton>(m_buttons); }

ToolButton& ToolBar::Buttons(StringView Key) { return WithKey(m_buttons, Key); }

int ToolBar::ButtonsEnd() const { return m_bar.x() + m_bar.sizeHint().width(); }

} // namespace portico::qt

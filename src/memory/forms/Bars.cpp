#include "memory/forms/Bars.h"

#include "platform/shared/Owned.h"

#include <span>
#include <vector>

namespace portico::memory {
namespace {

constexpr double BarHeight = 42 * FormUnitsPerPixel;
constexpr double StatusHeight = 25 * FormUnitsPerPixel;

} // namespace

MenuItem::MenuItem(ControlOwner& form, const MenuDesign& design, MenuItem* menu)
    : Control(form, AsControl(design), menu),
      m_menu(menu),
      m_shortcut(design.Shortcut),
      m_isPopup(design.IsPopup),
      m_isTitle(menu == nullptr),
      m_checked(design.Checked) {
  if (menu != nullptr) menu->m_isTitle = true;
}

bool MenuItem::IsInSight() const {
  if (Owner().OpenPopup() == this) return true;
  return Visible() && (m_menu != nullptr ? m_menu->IsInSight() : !m_isPopup);
}

bool MenuItem::Choose() {
  const Turn turn(Life());
  if (m_menu != nullptr && !m_menu->DropDown()) return false;
  if (Design().Caption == BarCaption || !IsUsable()) return false;
  if (!m_isTitle) Owner().ClosePopup();
  Fire(m_click);
  return true;
}

bool MenuItem::PressShortcut() {
  if (!Visible() || !Enabled() || !Owner().TakesInput()) return false;
  Fire(m_click);
  return true;
}

bool MenuItem::DropDown() {
  if (Owner().OpenPopup() == this) return true;
  if (m_menu != nullptr && !m_menu->DropDown()) return false;
  if (!IsUsable()) return false;
  Fire(m_click);
  return true;
}

bool ToolButton::Press() {
  if (Design().Style == ToolButtonStyle::Separator || !Enabled() || !Visible() || !m_bar.IsUsable()) return false;
  if (Design().Style == ToolButtonStyle::Check) Turned(Value() == 0);
  m_bar.Fire(m_bar.m_buttonClick, *this);
  return true;
}

ToolBar::ToolBar(ControlOwner& form, std::span<const ToolButtonDesign> buttons, double width)
    : Control(form, {.Kind = ControlKind::Toolbar, .Name = ToolBarName}), Placement({0, 0, width, BarHeight}) {
  for (const ToolButtonDesign& design : buttons) m_buttons.push_back(std::make_unique<ToolButton>(*this, design));
}

std::vector<IToolButton*> ToolBar::Buttons() { return PointersTo<IToolButton>(m_buttons); }

ToolButton& ToolBar::Buttons(StringView Key) { return WithKey(m_buttons, Key); }

StatusBar::StatusBar(ControlOwner& form, std::span<const StatusPanelDesign> panels)
    : Control(form, {.Kind = ControlKind::StatusBar, .Name = StatusBarName}), Placement({0, 0, 0, StatusHeight}) {
  for (const StatusPanelDesign& design : panels) m_panels.push_back(std::make_unique<StatusPanel>(design));
}

StatusPanel& StatusBar::Panels(std::int32_t Index) { return AtPosition(m_panels, Index); }

} // namespace portico::memory

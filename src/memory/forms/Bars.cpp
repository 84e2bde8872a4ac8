#include "memory/forms/Bars.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "memory/forms/Form.h"

#include <stdexcept>

namespace portico::memory {
namespace {

constexpr double BarHeight = 42 * FormUnitsPerPixel;
constexpr double StatusHeight = 25 * FormUnitsPerPixel;

constexpr StringView Separator = u"-";

ControlDesign AsControl(const MenuDesign& design) {
  return {.Kind = ControlKind::Menu,
          .Name = design.Name,
          .Caption = design.Caption,
          .Parent = design.Parent,
          .Visible = design.Visible};
}

} // namespace

MenuItem::MenuItem(Form& form, const MenuDesign& design, MenuItem* menu)
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
  if (Design().Caption == Separator || !IsUsable()) return false;
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

void ToolButton::Value(std::int32_t newValue) {
  if (newValue != 0 && newValue != 1) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
  m_value = newValue;
}

bool ToolButton::Press() {
  if (m_design.Style == ToolButtonStyle::Separator || !m_enabled || !m_visible || !m_bar.IsUsable()) return false;
  if (m_design.Style == ToolButtonStyle::Check) m_value = 1 - m_value;
  m_bar.Fire(m_bar.m_buttonClick, *this);
  return true;
}

ToolBar::ToolBar(Form& form, std::span<const ToolButtonDesign> buttons)
    : Control(form, {.Kind = ControlKind::Toolbar, .Name = ToolBarName}), Placement({0, 0, form.Width(), BarHeight}) {
  for (const ToolButtonDesign& design : buttons) m_buttons.push_back(std::make_unique<ToolButton>(*this, design));
}

std::vector<IToolButton*> ToolBar::Buttons() {
  std::vector<IToolButton*> buttons;
  for (const auto& button : m_buttons) buttons.push_back(button.get());
  return buttons;
}

ToolButton& ToolBar::Buttons(StringView Key) {
  for (const auto& button : m_buttons) {
    if (EqualNoCase(button->Key(), Key)) return *button;
  }
  HuntERR::RaiseStandard(ErrorNumber::ElementNotFound);
}

StatusBar::StatusBar(Form& form, std::span<const StatusPanelDesign> panels)
    : Control(form, {.Kind = ControlKind::StatusBar, .Name = StatusBarName}), Placement({0, 0, 0, StatusHeight}) {
  for (const StatusPanelDesign& design : panels) m_panels.push_back(std::make_unique<StatusPanel>(design));
}

StatusPanel& StatusBar::Panels(std::int32_t Index) {
  if (Index < 1 || Index > std::ssize(m_panels)) HuntERR::RaiseStandard(ErrorNumber::IndexOutOfBounds);
  return *m_panels[static_cast<std::size_t>(Index - 1)];
}

} // namespace portico::memory

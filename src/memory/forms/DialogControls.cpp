#include "memory/forms/DialogControls.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "platform/shared/Checks.h"
#include "platform/shared/Owned.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace portico::memory {

std::int32_t DialogControl::TabIndex() const { return Owner().Focus().Order().IndexOf(*this); }

void DialogControl::TabIndex(std::int32_t newValue) { Owner().Focus().Order().Move(*this, newValue); }

bool DialogControl::Enter() {
  if (!IsUsable()) return false;
  TakeFocus();
  return IsUsable(); // a handler of the focus may think otherwise
}

bool CommandButton::Press() {
  const Turn turn(Life());
  if (!Enter()) return false;
  Fire(m_click);
  return true;
}

void CheckBox::Value(std::int32_t newValue) {
  CheckValue(newValue, Unchecked, Grayed);
  if (std::exchange(m_value, newValue) != newValue) Fire(m_click);
}

bool CheckBox::Press() {
  const Turn turn(Life());
  if (!Enter()) return false;
  Value(m_value == Unchecked ? Checked : Unchecked);
  return true;
}

TextBox::TextBox(ControlOwner& form, const ControlDesign& design, Control* container)
    : DialogControl(form, design, container), m_text(design.Caption) {}

void TextBox::Text(const String& newValue) {
  if (std::exchange(m_text, newValue) != newValue) Fire(m_change);
}

bool TextBox::Type(const String& text) {
  const Turn turn(Life());
  if (!Enter()) return false;
  Text(text);
  return true;
}

void ComboBox::Text(const String& newValue) {
  const std::int32_t index = IndexOf(newValue);
  if (index < 0 && !IsTyped() && !newValue.empty()) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
  Select(index, newValue);
}

String ComboBox::List(std::int32_t index) const {
  if (index < 0 || index >= ListCount()) HuntERR::RaiseStandard(ErrorNumber::BadIndex);
  return m_items[static_cast<std::size_t>(index)];
}

void ComboBox::ListIndex(std::int32_t newValue) {
  CheckValue(newValue, -1, ListCount() - 1);
  Select(newValue, newValue < 0 ? String() : List(newValue));
}

bool ComboBox::Type(const String& text) {
  const Turn turn(Life());
  if (!IsTyped() || !Enter()) return false;
  Text(text);
  return true;
}

bool ComboBox::Choose(const String& item) {
  const Turn turn(Life());
  const std::int32_t index = IndexOf(item);
  if (index < 0 || !Enter()) return false;
  ListIndex(index);
  return true;
}

std::int32_t ComboBox::IndexOf(const String& item) const {
  const auto found = std::find(m_items.begin(), m_items.end(), item);
  return found == m_items.end() ? -1 : static_cast<std::int32_t>(found - m_items.begin());
}

void ComboBox::Select(std::int32_t index, const String& text) {
  const Turn turn(Life());
  const bool isChange = std::exchange(m_text, text) != text;
  const bool isClick = std::exchange(m_index, index) != index && index >= 0;
  if (isChange) Fire(m_change);
  if (isClick) Fire(m_click);
}

void TabStrip::AddTab(const String& Caption, const String& ToolTipText, const String& Tag) {
  m_tabs.push_back(std::make_unique<Tab>(Caption, ToolTipText, Tag));
  if (m_selected == 0) m_selected = 1;
}

std::vector<ITab*> TabStrip::Tabs() { return PointersTo<ITab>(m_tabs); }

void TabStrip::SelectedItem(std::int32_t Index) {
  CheckPosition(Index, std::ssize(m_tabs));
  if (std::exchange(m_selected, Index) != Index) Fire(m_click);
}

bool TabStrip::Choose(std::int32_t index) {
  const Turn turn(Life());
  if (index < 1 || index > std::ssize(m_tabs) || !Enter()) return false;
  SelectedItem(index);
  return true;
}

} // namespace portico::memory

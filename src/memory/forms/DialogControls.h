#pragma once

#include "memory/forms/FocusControl.h"
#include "platform/IDialogControls.h"

#include <memory>
#include <utility>
#include <vector>

namespace portico::memory {

/// A control of a dialog that can have the focus.
class DialogControl : public FocusControl, public virtual ITabOrder {
public:
  using FocusControl::FocusControl;

  bool TabStop() const override { return IsTabStop(); }
  void TabStop(bool newValue) override { IsTabStop(newValue); }
  std::int32_t TabIndex() const override;
  /// A position behind the last means the last; a position below 0 raises `BadPropertyValue`.
  void TabIndex(std::int32_t newValue) override;

protected:
  /// What the user does begins with the focus. False if the user cannot use the control.
  bool Enter();
};

// What the user does (`Press`, `Type`, `Choose`) answers false if the user cannot use the control, or there is no such
// entry.

class CommandButton final : public DialogControl, public virtual ICommandButton {
public:
  using DialogControl::DialogControl;
  Event<>& Click() override { return m_click; }
  bool Press();

private:
  Event<> m_click;
};

class CheckBox final : public DialogControl, public virtual ICheckBox {
public:
  using DialogControl::DialogControl;
  std::int32_t Value() const override { return m_value; }
  void Value(std::int32_t newValue) override;
  Event<>& Click() override { return m_click; }
  /// Checks a box that is not checked; clears one that is checked or grayed.
  bool Press();

private:
  std::int32_t m_value = Unchecked;
  Event<> m_click;
};

class TextBox final : public DialogControl, public virtual ITextBox {
public:
  /// The caption of the design is the text.
  TextBox(ControlOwner& form, const ControlDesign& design, Control* container);
  String Text() const override { return m_text; }
  void Text(const String& newValue) override;
  Event<>& Change() override { return m_change; }
  /// Replaces the text, as typing does when all of it is selected.
  bool Type(const String& text);

private:
  String m_text;
  Event<> m_change;
};

/// The text of a box that cannot be typed in is that of the selected entry: a text that no entry has raises
/// `BadPropertyValue`.
class ComboBox final : public DialogControl, public virtual IComboBox {
public:
  using DialogControl::DialogControl;
  String Text() const override { return m_text; }
  /// Selects the entry of that text; without one, no entry.
  void Text(const String& newValue) override;
  Event<>& Change() override { return m_change; }

  void AddItem(const String& item) override { m_items.push_back(item); }
  std::int32_t ListCount() const override { return static_cast<std::int32_t>(m_items.size()); }
  /// An index that no entry has raises `BadIndex`.
  String List(std::int32_t index) const override;
  std::int32_t ListIndex() const override { return m_index; }
  void ListIndex(std::int32_t newValue) override;
  Event<>& Click() override { return m_click; }

  bool IsTyped() const { return Design().Tag == TypedTag; }
  bool Type(const String& text);
  bool Choose(const String& item);

private:
  std::int32_t IndexOf(const String& item) const;
  void Select(std::int32_t index, const String& text);

  std::vector<String> m_items;
  std::int32_t m_index = -1;
  String m_text;
  Event<> m_change;
  Event<> m_click;
};

class Tab final : public ITab {
public:
  Tab(String caption, String toolTipText, String tag)
      : m_tag(std::move(tag)), m_caption(std::move(caption)), m_toolTipText(std::move(toolTipText)) {}
  String Tag() const override { return m_tag; }
  String Caption() const override { return m_caption; }
  void Caption(const String& newValue) override { m_caption = newValue; }
  String ToolTipText() const override { return m_toolTipText; }
  void ToolTipText(const String& newValue) override { m_toolTipText = newValue; }

private:
  String m_tag;
  String m_caption;
  String m_toolTipText;
};

/// The first tab that is added is selected, which fires nothing.
class TabStrip final : public DialogControl, public virtual ITabStrip {
public:
  using DialogControl::DialogControl;
  void AddTab(const String& Caption, const String& ToolTipText, const String& Tag = {}) override;
  std::vector<ITab*> Tabs() override;
  /// 0 while there is no tab.
  std::int32_t SelectedItem() const override { return m_selected; }
  /// An index that no tab has raises `IndexOutOfBounds`.
  void SelectedItem(std::int32_t Index) override;
  Event<>& Click() override { return m_click; }
  bool Choose(std::int32_t index);

private:
  std::vector<std::unique_ptr<Tab>> m_tabs;
  std::int32_t m_selected = 0;
  Event<> m_click;
};

/// Out of sight while its left edge is to the left of the form.
class Page final : public Control, public virtual IPage {
public:
  using Control::Control;
  double Left() const override { return m_left; }
  void Left(double newValue) override { m_left = newValue; }
  bool IsInSight() const override { return m_left >= 0 && Control::IsInSight(); }

private:
  double m_left = 0;
};

} // namespace portico::memory

#pragma once

#include "framework/objects/Event.h"
#include "platform/IControl.h"
#include "platform/IPlaced.h"

#include <vector>

namespace portico {

class ICommandButton : public virtual IControl, public virtual ITabOrder {
public:
  virtual Event<>& Click() = 0;
};

inline constexpr std::int32_t Unchecked = 0;
inline constexpr std::int32_t Checked = 1;
inline constexpr std::int32_t Grayed = 2; ///< nothing in the program makes a box so

class ICheckBox : public virtual IControl, public virtual ITabOrder {
public:
  virtual std::int32_t Value() const = 0;
  /// A value other than these three raises `BadPropertyValue`.
  virtual void Value(std::int32_t newValue) = 0;
  /// Fires whenever the value changes, whoever changes it.
  virtual Event<>& Click() = 0;
};

class ITextBox : public virtual IControl, public virtual ITabOrder {
public:
  virtual String Text() const = 0;
  virtual void Text(const String& newValue) = 0;
  /// Fires whenever the text changes, whoever changes it.
  virtual Event<>& Change() = 0;
};

inline constexpr StringView TypedTag = u"typed";

/// A list from which one entry is chosen; with a text that can be typed as well, if it was designed with `TypedTag`.
class IComboBox : public virtual ITextBox {
public:
  virtual void AddItem(const String& item) = 0;
  virtual std::int32_t ListCount() const = 0;
  virtual String List(std::int32_t index) const = 0;
  /// Counted from 0; -1 if nothing is selected. An index that no entry has raises `BadPropertyValue`.
  virtual std::int32_t ListIndex() const = 0;
  virtual void ListIndex(std::int32_t newValue) = 0;
  /// Fires whenever another entry is selected, whoever selects it.
  virtual Event<>& Click() = 0;
};

/// A tab of a strip, which owns it.
class ITab {
public:
  virtual ~ITab() = default;
  virtual String Tag() const = 0;
  virtual String Caption() const = 0;
  virtual void Caption(const String& newValue) = 0;
  virtual String ToolTipText() const = 0;
  virtual void ToolTipText(const String& newValue) = 0;
};

/// Tabs without pages: what shows for a tab is up to the form.
class ITabStrip : public virtual IControl, public virtual ITabOrder {
public:
  virtual void AddTab(const String& Caption, const String& ToolTipText, const String& Tag = {}) = 0;
  virtual std::vector<ITab*> Tabs() = 0;
  /// Counted from 1.
  virtual std::int32_t SelectedItem() const = 0;
  virtual void SelectedItem(std::int32_t Index) = 0;
  /// Fires whenever another tab is selected, whoever selects it.
  virtual Event<>& Click() = 0;
};

/// A page of a form. Placed by its left edge only; with one to the left of the form it is out of sight.
class IPage : public virtual IControl {
public:
  virtual double Left() const = 0;
  virtual void Left(double newValue) = 0;
};

} // namespace portico

#pragma once

#include "platform/FormDesign.h"

namespace portico {

/// What the controls of a form have in common. A control belongs to its form and goes with it. A property that a kind
/// does not have reads as empty and raises `PropertyNotFound` when it is set.
class IControl {
public:
  virtual ~IControl() = default;

  virtual StringView Name() const = 0;
  virtual ControlKind Kind() const = 0;
  virtual String Tag() const = 0;

  virtual String Caption() const = 0;
  virtual void Caption(const String& newValue) = 0;
  virtual String ToolTipText() const = 0;
  virtual void ToolTipText(const String& newValue) = 0;
  virtual bool Enabled() const = 0;
  virtual void Enabled(bool newValue) = 0;
  virtual bool Visible() const = 0;
  virtual void Visible(bool newValue) = 0;
};

/// A place in the Tab key's order. Positions count from 0; a control that is no tab stop is passed over.
class ITabOrder {
public:
  virtual ~ITabOrder() = default;

  virtual bool TabStop() const = 0;
  virtual void TabStop(bool newValue) = 0;
  virtual std::int32_t TabIndex() const = 0;
  virtual void TabIndex(std::int32_t newValue) = 0;
};

} // namespace portico

#pragma once

#include "framework/errors/Ref.h"

#include <cstdint>

namespace portico {

/// What the system below it needs of the main window.
class IMainWindow : public virtual IObject {
public:
  /// One of the pointer shapes.
  virtual std::int32_t MousePointer() const = 0;
  virtual void MousePointer(std::int32_t shape) = 0;

  /// True while a run takes lines from the command window.
  virtual bool Executing() const = 0;
  virtual void Executing(bool newValue) = 0;

  /// Set by Stop, read by the line runners after each line, cleared at the start and the end of each run.
  virtual bool StopRequested() const = 0;
  virtual void StopRequested(bool newValue) = 0;

  /// Recomputes every enabled, checked and visible state; `Name` and `Value` tell the item that has changed, or are
  /// empty.
  virtual void UpdateUI(const String& Name, const String& Value) = 0;
};

/// The one main window. Set by `Main`; unset where there is none.
extern Ref<IMainWindow> gMainForm;

} // namespace portico

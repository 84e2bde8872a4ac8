#pragma once

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/IMainWindow.h"
#include "ui/base/IMainFormParts.h"

#include <memory>

namespace portico {

/// A part of the platform; one that is not there raises 91.
template <class Seam>
Seam& Wired(const std::shared_ptr<Seam>& seam) {
  if (!seam) RaiseUnsetReference();
  return *seam;
}

/// The main window as commands see it; nothing without one.
inline Ref<IMainFormParts> MainFormParts() { return Cast<IMainFormParts>(gMainForm); }

} // namespace portico

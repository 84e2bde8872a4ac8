#pragma once

#include "platform/IForm.h"
#include "views/RunGuard.h"

namespace portico {

/// The menus View and Data of the main window. Needs the factory.
class ViewAndData {
public:
  /// Connects the items of the main window's form, which must outlive this, and subscribes what hears of each report;
  /// so it comes behind the displayer. The driver gets the time-out that the user has set.
  explicit ViewAndData(IForm& form);

  /// Sets the states of the items, behind each update of the window.
  void Update() const;

private:
  Ref<RunGuard> m_guard;
  IMenuItem& mnuStopAtErrors;
  IMenuItem& mnuClearDevice;
  IMenuItem& mnuGoToLocal;
};

} // namespace portico

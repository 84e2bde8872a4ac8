#pragma once

#include "framework/objects/IPublisher.h"
#include "platform/IForm.h"
#include "platform/IRichTextControl.h"

namespace portico {

/// What commands and dialogs need of the main window.
class IMainFormParts : public virtual IObject {
public:
  /// The owner of modal dialogs.
  virtual IForm& Form() = 0;
  virtual Ref<IRichTextControl> txtFuture() const = 0;
  virtual Ref<IRichTextControl> txtPast() const = 0;
  /// The report logger; null while no log is open. Setting one subscribes it; setting null unsubscribes the present
  /// one.
  virtual Ref<ISubscriber> Logger() const = 0;
  virtual void Logger(const Ref<ISubscriber>& newValue) = 0;
};

/// Set with the main window; unset where there is none that the user sees.
extern Ref<IMainFormParts> gMainFormParts;

} // namespace portico

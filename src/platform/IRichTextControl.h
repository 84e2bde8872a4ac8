#pragma once

#include "platform/IControl.h"
#include "platform/ILineMarks.h"
#include "platform/IOfferList.h"
#include "platform/IPlaced.h"
#include "platform/IReadingAids.h"
#include "platform/IRichTextBox.h"
#include "platform/MouseEvent.h"

#include <functional>

namespace portico {

/// Where a print dialog lets the text go.
class IDeviceContext : public virtual IObject {};

/// A text that can be printed.
class IPrintable : public virtual IObject {
public:
  /// Prints the selection if the context was asked for it and there is one, else the whole text.
  virtual void SelPrint(const Ref<IDeviceContext>& hDC) = 0;
};

/// A rich text box that stands in a form. The user edits it unless it is `Locked`; what the program changes is no step
/// of the user's undo, and ends what could be undone before it, unless it does so in the user's stead.
class IRichTextControl : public virtual IRichTextBox,
                         public virtual IPrintable,
                         public virtual IControl,
                         public virtual IPlaced,
                         public virtual IReadingAids,
                         public virtual ILineMarks,
                         public virtual IOfferList {
public:
  /// True to begin with. While it is false the Tab key passes over the box.
  virtual bool TabStop() const = 0;
  virtual void TabStop(bool newValue) = 0;
  /// The user can select and copy, and cannot change. False to begin with.
  virtual void Locked(bool newValue) = 0;

  /// What `edit` changes in the box, the user can undo in one step. `Change` fires once, behind it all. It must not
  /// give the event loop a turn.
  virtual void AsUser(const std::function<void()>& edit) = 0;

  /// Also fires when the window gets the focus back.
  virtual Event<>& GotFocus() = 0;
  virtual Event<>& LostFocus() = 0;
  virtual Event<const MouseEvent&>& MouseDown() = 0;
  virtual Event<const MouseEvent&>& MouseUp() = 0;
};

} // namespace portico

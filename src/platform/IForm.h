#pragma once

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/errors/Ref.h"
#include "framework/objects/Event.h"
#include "framework/shared/PointerShapes.h"
#include "platform/IControl.h"
#include "platform/IMenuItem.h"
#include "platform/IPlaced.h"
#include "platform/KeyCodes.h"

#include <memory>
#include <vector>

namespace portico {

enum class WindowState : std::int32_t { Normal = 0, Minimized = 1, Maximized = 2 };

/// What a form tells of itself. All fire synchronously.
struct FormEvents {
  Event<> Resize;
  /// The form gets the focus.
  Event<> Activate;
  /// The user or the program wants the form closed; its handler does what that means. Without a handler the form
  /// unloads. Fired once more if it stays.
  Event<> QueryUnload;
  /// The form has gone from the screen for good, and is about to be forgotten.
  Event<> Unload;
  /// A key code and the sum of the states, before the control with the focus sees it.
  Event<std::int32_t, std::int32_t> KeyDown;
};

/// A window with its controls, as a table describes it. Kept by `IForms` from `Load` on until it is unloaded, and by
/// whoever else holds it.
class IForm : public virtual IObject, public virtual IPlaced {
public:
  virtual StringView Name() const = 0;
  virtual String Tag() const = 0;
  virtual String Caption() const = 0;
  virtual void Caption(const String& newValue) = 0;
  virtual portico::WindowState WindowState() const = 0;
  virtual void WindowState(portico::WindowState newValue) = 0;
  /// One of the pointer shapes, set by value: nothing else restores one.
  virtual std::int32_t MousePointer() const = 0;
  virtual void MousePointer(std::int32_t shape) = 0;

  /// The area within frame and menu bar, in form units.
  virtual double ScaleLeft() const = 0;
  virtual double ScaleTop() const = 0;
  virtual double ScaleWidth() const = 0;
  virtual double ScaleHeight() const = 0;

  /// Menus first, then toolbar and status bar, then the others, in the order of the tables.
  virtual std::vector<IControl*> Controls() = 0;
  virtual FormEvents& Events() = 0;
  /// Shows a menu at the mouse, and returns when it has closed and the item chosen has been handled.
  virtual void PopupMenu(IMenuItem& Menu) = 0;

  /// Where it was put, but moved inside the screen, and made smaller, as far as it has to be.
  virtual void Show() = 0;
  /// To be set before `Show`: the form stays in front of its owner.
  virtual void Owner(IForm* newValue) = 0;
  /// Returns when the form is hidden or unloaded. Throws `Quit` when the program has been told to end meanwhile, which
  /// closes it.
  virtual void ShowModal(IForm* Owner) = 0;
  virtual void Hide() = 0;
  /// Asks `QueryUnload`, as the close box does.
  virtual void Close() = 0;
  /// Takes the form off the screen for good. What keeps it is let go of when no handler of it is running any more.
  virtual void Unload() = 0;
  /// Keeps an object alive until the form has been unloaded.
  virtual void Keep(const Ref<IObject>& object) = 0;
};

/// The control of a name and kind. A form that has no such control raises `ControlNotFound`.
template <class Control>
Control& FindControl(IForm& form, StringView name) {
  for (IControl* control : form.Controls()) {
    if (control->Name() != name) continue;
    if (auto* found = dynamic_cast<Control*>(control)) return *found;
  }
  HuntERR::RaiseStandard(ErrorNumber::ControlNotFound);
}

/// The same for those who hold references: the form lives with its control.
template <class Control>
Ref<Control> ShareControl(const Ref<IForm>& form, StringView name) {
  return Ref<Control>(std::shared_ptr<Control>(form.Shared(), &FindControl<Control>(*form, name)));
}

/// Makes forms, and knows those that are loaded.
class IForms {
public:
  virtual ~IForms() = default;

  virtual Ref<IForm> Load(const FormDesign& design) = 0;
  /// In the order of their loading.
  virtual std::vector<Ref<IForm>> Forms() const = 0;
  /// The last control that had the focus in the form that is in front, menus excepted; null if none had.
  virtual IControl* ActiveControl() const = 0;
};

extern std::shared_ptr<IForms> gForms;

} // namespace portico

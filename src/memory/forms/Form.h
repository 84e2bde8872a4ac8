#pragma once

#include "memory/forms/ControlOwner.h"
#include "memory/forms/FocusChain.h"
#include "memory/forms/Placement.h"
#include "platform/IForm.h"

#include <memory>
#include <vector>

namespace portico::memory {

class CommandButton;
class Control;
class FormScreen;
class MenuItem;
class Screen;
class StatusBar;

/// What surrounds the inner area of a form, in form units.
inline constexpr double FrameWidth = 8 * FormUnitsPerPixel;
inline constexpr double FrameHeight = 32 * FormUnitsPerPixel;
inline constexpr double MenuBarHeight = 20 * FormUnitsPerPixel;
/// A maximized form fills the screen.
inline constexpr double ScreenWidth = 1920 * FormUnitsPerPixel;
inline constexpr double ScreenHeight = 1080 * FormUnitsPerPixel;

/// A form without a window. Made by `Screen::Load`. Not on the screen until it is shown; until then it fires no
/// `Resize`, but one when it is shown first.
class Form final : public IForm, public Placement, public ControlOwner {
public:
  /// The screen lets go of the form before it goes.
  Form(FormScreen& screen, const FormDesign& design);
  ~Form() override;
  StringView ClassName() const override { return u"Form"; }

  StringView Name() const override { return m_design.Name; }
  String Tag() const override { return String(m_design.Tag); }
  String Caption() const override { return m_caption; }
  void Caption(const String& newValue) override { m_caption = newValue; }
  portico::WindowState WindowState() const override { return m_windowState; }
  void WindowState(portico::WindowState newValue) override;
  std::int32_t MousePointer() const override { return m_mousePointer; }
  void MousePointer(std::int32_t shape) override { m_mousePointer = shape; }
  double ScaleLeft() const override { return 0; }
  double ScaleTop() const override { return 0; }
  double ScaleWidth() const override;
  double ScaleHeight() const override;

  std::vector<IControl*> Controls() override;
  FormEvents& Events() override { return m_events; }
  /// What the user does meanwhile is up to `Screen::OnPopup`; without that nothing is chosen.
  void PopupMenu(IMenuItem& Menu) override;
  void Show() override;
  void Owner(IForm* newValue) override { m_owner = newValue; }
  /// What the user does meanwhile is up to `Screen::OnShowModal`.
  void ShowModal(IForm* Owner) override;
  void Hide() override;
  void Close() override;
  void Unload() override;
  void Keep(const Ref<IObject>& object) override { m_life.Keep(object); }

  const FormDesign& Design() const { return m_design; }
  bool IsShown() const;
  /// The owner that it was given last; null if none was.
  const IForm* Owner() const { return m_owner; }
  bool IsLoaded() const { return m_screen != nullptr; }
  bool TakesInput() const override;
  FocusChain& Focus() override { return m_focus; }
  const IControl* OpenPopup() const override { return m_popup; }
  void ClosePopup() override { m_popup = nullptr; }
  Keeper& Life() override { return m_life; }

  // What the user does. False if the form takes no input.
  bool PressCloseBox();
  /// A key: the shortcut of a menu item; else `KeyDown` and what the key does by itself, if that is to move the focus
  /// or to press a button.
  bool PressKey(std::int32_t code, std::int32_t shift = 0);
  /// Drags the frame. False for a dialog, too.
  bool Resize(double width, double height);

private:
  friend class Screen;

  Place Shown() const override;
  void Resized() override;
  void Build(const FormDesign& design);
  void KeepOnScreen();
  Control* Container(StringView name) const;
  MenuItem* ItemOfShortcut(std::int32_t code, std::int32_t shift) const;
  CommandButton* Button(bool ControlDesign::*role) const;
  void Fire(const Event<>& event);
  void Activate();
  void Deactivate() { m_focus.GoDark(); }

  FormScreen* m_screen;
  const IForm* m_owner = nullptr;
  FormDesign m_design;
  FormEvents m_events;
  String m_caption;
  portico::WindowState m_windowState = portico::WindowState::Normal;
  std::int32_t m_mousePointer = 0;
  bool m_resizeIsDue = true;
  bool m_isUnloading = false;
  const IControl* m_popup = nullptr;
  StatusBar* m_statusBar = nullptr;
  Keeper m_life;
  FocusChain m_focus{m_life};
  std::vector<std::unique_ptr<Control>> m_controls;
};

} // namespace portico::memory

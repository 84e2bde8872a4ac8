#include "memory/forms/Form.h"

#include "memory/forms/Bars.h"
#include "memory/forms/DialogControls.h"
#include "memory/forms/FormScreen.h"
#include "memory/forms/ListView.h"
#include "memory/forms/MakeControl.h"
#include "memory/forms/RichTextControl.h"
#include "platform/shared/Owned.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace portico::memory {
namespace {

constexpr Place FirstPlace = {0, 0, 480 * FormUnitsPerPixel, 360 * FormUnitsPerPixel};
constexpr Place WholeScreen = {0, 0, ScreenWidth, ScreenHeight};

String NameOfShortcut(std::int32_t code, std::int32_t shift) {
  String name;
  if ((shift & CtrlState) != 0) name += u"Ctrl+";
  if ((shift & AltState) != 0) name += u"Alt+";
  if ((shift & ShiftState) != 0) name += u"Shift+";
  if (code >= F1Key && code < F1Key + FunctionKeyCount) return name + u"F" + ToText(std::int64_t{code} - F1Key + 1);
  return name + static_cast<char16_t>(code);
}

} // namespace

Form::Form(FormScreen& screen, const FormDesign& design)
    : Placement(FirstPlace), m_screen(&screen), m_design(design), m_caption(design.Caption) {
  Build(design);
}

Form::~Form() = default;

void Form::Build(const FormDesign& design) {
  for (const MenuDesign& item : design.Menus) {
    m_controls.push_back(std::make_unique<MenuItem>(*this, item, dynamic_cast<MenuItem*>(Container(item.Parent))));
  }
  if (!design.ToolButtons.empty()) m_controls.push_back(std::make_unique<ToolBar>(*this, design.ToolButtons, Width()));
  if (!design.StatusPanels.empty()) {
    auto bar = std::make_unique<StatusBar>(*this, design.StatusPanels);
    m_statusBar = bar.get();
    m_controls.push_back(std::move(bar));
  }
  for (const ControlDesign& control : design.Controls) {
    m_controls.push_back(MakeControl(*this, control, Container(control.Parent)));
  }
  Resized();
}

Control* Form::Container(StringView name) const {
  if (name.empty()) return nullptr;
  const auto found =
      std::find_if(m_controls.begin(), m_controls.end(), [&](const auto& control) { return control->Name() == name; });
  if (found == m_controls.end()) throw std::logic_error("no control before it is called " + ToUtf8(name));
  return found->get();
}

void Form::WindowState(portico::WindowState newValue) {
  if (newValue == m_windowState) return;
  m_windowState = newValue;
  Resized();
}

double Form::ScaleWidth() const { return std::max(Width() - FrameWidth, 0.0); }

double Form::ScaleHeight() const {
  const bool hasMenuBar =
      std::any_of(m_design.Menus.begin(), m_design.Menus.end(), [](const MenuDesign& item) { return !item.IsPopup; });
  return std::max(Height() - FrameHeight - (hasMenuBar ? MenuBarHeight : 0), 0.0);
}

std::vector<IControl*> Form::Controls() { return PointersTo<IControl>(m_controls); }

void Form::PopupMenu(IMenuItem& Menu) {
  struct Closing {
    Form& Shown;
    ~Closing() { Shown.ClosePopup(); }
  };
  const Keeper::Turn turn(m_life);
  const Closing closing{*this};
  auto& menu = dynamic_cast<MenuItem&>(Menu);
  Fire(menu.Click());
  m_popup = &menu;
  if (m_screen != nullptr) m_screen->PlayPopup(menu);
}

void Form::Show() {
  if (m_screen == nullptr) throw std::logic_error("a form that was unloaded is shown: " + ToUtf8(Name()));
  const Keeper::Turn turn(m_life);
  m_screen->Show(*this);
}

void Form::ShowModal(IForm* Owner) {
  if (m_screen == nullptr) throw std::logic_error("a form that was unloaded is shown: " + ToUtf8(Name()));
  const Keeper::Turn turn(m_life);
  m_owner = Owner;
  m_screen->ShowModal(*this);
}

void Form::Hide() {
  const Keeper::Turn turn(m_life);
  if (m_screen != nullptr) m_screen->Hide(*this);
}

void Form::Close() {
  const Keeper::Turn turn(m_life);
  if (m_events.QueryUnload.IsConnected()) {
    Fire(m_events.QueryUnload);
  } else {
    Unload();
  }
}

void Form::Unload() {
  struct Forgetting {
    Form& Open;
    ~Forgetting() {
      if (Open.m_screen != nullptr) Open.m_screen->Forget(Open);
    }
  };
  if (m_isUnloading) return;
  const Keeper::Turn turn(m_life);
  m_isUnloading = true;
  const Forgetting forgetting{*this};
  Hide();
  Fire(m_events.Unload);
}

bool Form::IsShown() const { return m_screen != nullptr && m_screen->IsShown(*this); }

bool Form::TakesInput() const {
  return m_screen != nullptr && m_screen->TakesInput(*this) && m_windowState != portico::WindowState::Minimized;
}

bool Form::PressCloseBox() {
  if (!TakesInput()) return false;
  Close();
  return true;
}

bool Form::PressKey(std::int32_t code, std::int32_t shift) {
  if (!TakesInput()) return false;
  const Keeper::Turn turn(m_life);
  MenuItem* const item = ItemOfShortcut(code, shift);
  if (item != nullptr && item->PressShortcut()) return true;
  m_events.KeyDown(code, shift);
  if (!TakesInput()) return true;
  auto* offering = shift == 0 ? dynamic_cast<RichTextControl*>(m_focus.Active()) : nullptr;
  if (offering != nullptr && offering->PressOfferKey(code)) return true;
  if ((shift & (CtrlState | AltState)) != 0) return true;
  if (code == TabKey) m_focus.MoveOn((shift & ShiftState) != 0);
  if (code != ReturnKey && code != EscapeKey) return true;
  if (auto* box = dynamic_cast<RichTextControl*>(m_focus.Active()); code == ReturnKey && box != nullptr) {
    box->Type(NewLine);
    return true;
  }
  if (auto* list = dynamic_cast<ListView*>(m_focus.Active()); code == ReturnKey && list != nullptr) {
    if (list->PressReturn()) return true;
  }
  auto* button = code == ReturnKey ? dynamic_cast<CommandButton*>(m_focus.Active()) : nullptr;
  if (button == nullptr) button = Button(code == ReturnKey ? &ControlDesign::IsDefault : &ControlDesign::IsCancel);
  if (button != nullptr) {
    button->Press();
  } else if (code == EscapeKey && m_design.Style == FormStyle::Dialog) {
    Close();
  }
  return true;
}

bool Form::Resize(double width, double height) {
  const bool isSizable = m_design.Style == FormStyle::Window && m_windowState == portico::WindowState::Normal;
  if (!isSizable || !TakesInput()) return false;
  Move(Left(), Top(), width, height);
  return true;
}

Place Form::Shown() const { return m_windowState == portico::WindowState::Maximized ? WholeScreen : Chosen(); }

void Form::Resized() {
  if (m_statusBar != nullptr) {
    const double height = m_statusBar->Height();
    m_statusBar->Move(0, ScaleHeight() - height, ScaleWidth(), height);
  }
  m_resizeIsDue = !IsShown();
  if (!m_resizeIsDue) Fire(m_events.Resize);
}

void Form::KeepOnScreen() {
  const Place place = Chosen();
  const double width = std::min(place.Width, ScreenWidth);
  const double height = std::min(place.Height, ScreenHeight);
  Move(std::clamp(place.Left, 0.0, ScreenWidth - width), std::clamp(place.Top, 0.0, ScreenHeight - height), width,
       height);
}

MenuItem* Form::ItemOfShortcut(std::int32_t code, std::int32_t shift) const {
  const String name = NameOfShortcut(code, shift);
  for (const auto& control : m_controls) {
    auto* item = dynamic_cast<MenuItem*>(control.get());
    if (item != nullptr && item->Shortcut() == name) return item;
  }
  return nullptr;
}

CommandButton* Form::Button(bool ControlDesign::*role) const {
  for (const auto& control : m_controls) {
    if (control->Design().*role) return dynamic_cast<CommandButton*>(control.get());
  }
  return nullptr;
}

void Form::Fire(const Event<>& event) {
  const Keeper::Turn turn(m_life);
  event();
}

void Form::Activate() {
  Fire(m_events.Activate);
  if (m_screen != nullptr && m_screen->HasFocus(*this)) m_focus.LightUp();
}

} // namespace portico::memory

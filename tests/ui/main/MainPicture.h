#pragma once

#include "framework/text/text.h"
#include "platform/IForm.h"

#include <string>
#include <vector>

namespace portico::test {

struct MenuState {
  bool Enabled = true;
  bool Visible = true;
  bool Checked = false;
  String Caption;
  bool operator==(const MenuState&) const = default;
};

struct ButtonState {
  bool Enabled = true;
  bool Visible = true;
  std::int32_t Value = 0;
  String ToolTip;
  bool operator==(const ButtonState&) const = default;
};

/// All that can be seen of the main window.
struct Picture {
  std::vector<MenuState> Menus;
  std::vector<ButtonState> Buttons;
  String Caption;
  String StatusText;
  String StatusTip;
  String ProtocolText;
  String ProtocolTip;
  String CommandText;
  bool TabStop = true;
  bool operator==(const Picture&) const = default;

  MenuState& Menu(StringView name);
  ButtonState& Button(StringView key);
};

/// The order is that of the expected tables.
Picture TakePicture(IForm& form);
/// A line for each difference.
std::string Differences(const Picture& expected, const Picture& actual);

/// All that an update may depend on.
struct UpdateInputs {
  enum class Control { None, Other, CommandWindow, HistoryWindow };

  bool Opened = false;
  StringView Protocol = u"SCPI";
  StringView LogFile;
  bool Logging = true;
  bool ModeOff = true;
  bool Executing = false;
  StringView CommandText;
  StringView HistoryText;
  bool CommandHadFocus = false;
  Control Active = Control::None;
  bool HasSelection = false; ///< in whatever text the active control has
  bool HasClipboard = false;
  bool WasSCPI = true;
  bool TabStop = true;
};

/// The name that goes with an open instrument.
inline constexpr StringView OpenName = u"DMM";
/// What the window shows after an update, out of what it showed before.
Picture AfterUpdate(const UpdateInputs& inputs, Picture before);
std::string Described(const UpdateInputs& inputs);

} // namespace portico::test

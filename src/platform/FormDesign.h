#pragma once

#include "framework/text/text.h"

#include <cstdint>
#include <span>

namespace portico {

/// The kinds of control that a form is built from.
enum class ControlKind : std::uint8_t {
  // Of the form as a whole; made from tables of their own.
  Menu,
  Toolbar,
  StatusBar,
  // Placed among the others.
  Label,
  TextBox,
  ComboBox,
  ListView,
  CheckBox,
  CommandButton,
  TabStrip,
  PictureView,
  PictureBox,
  Canvas,
  RichTextBox,
  SplitPanel,
  // Hold others. A platform lays out what they hold in the order of the table.
  Frame, ///< one below the other, in a box with a caption
  Row,   ///< side by side
  Page,  ///< one below the other, and moved as one
  // Fill.
  Line,
  Space, ///< takes what is left over
};

/// What a kind of control has; one that has it not refuses to have it set.
bool HasCaption(ControlKind kind);
bool HasToolTip(ControlKind kind);

/// A menu title, an item, or a bar. A caption is the id of a resource string until the form's strings are loaded; '&'
/// stands in front of its mnemonic. Items follow their menu in the order of the table.
struct MenuDesign {
  StringView Name;
  StringView Caption; ///< `BarCaption` makes a bar
  StringView Parent = {};
  StringView Shortcut = {}; ///< such as u"Ctrl+N"; without effect while the item is hidden or disabled
  bool Visible = true;
  bool Checked = false;
  bool IsPopup = false; ///< a title that stands in no menu bar
};

inline constexpr StringView BarCaption = u"-";

enum class ToolButtonStyle : std::uint8_t { Default, Check, Separator };

struct ToolButtonDesign {
  StringView Key;
  StringView ToolTipText = {}; ///< the id of a resource string
  StringView Image = {};       ///< a key of the form's image list
  ToolButtonStyle Style = ToolButtonStyle::Default;
};

enum class StatusPanelStyle : std::uint8_t { Text, Date, Time };

struct StatusPanelDesign {
  StringView Key;
  StatusPanelStyle Style = StatusPanelStyle::Text;
};

/// A control. What cannot be said of its kind is left out.
struct ControlDesign {
  ControlKind Kind;
  StringView Name;
  StringView Caption = {}; ///< or the text that it begins with
  StringView Parent = {};  ///< the frame, row, page or panel that holds it; none for the form itself
  StringView ToolTipText = {};
  StringView Tag = {};
  bool Visible = true;
  bool IsDefault = false; ///< a button that Return presses
  bool IsCancel = false;  ///< a button that Escape presses
  StringView Image = {};  ///< of a picture box
};

/// What an item of a menu is as a control.
ControlDesign AsControl(const MenuDesign& design);

enum class FormStyle : std::uint8_t {
  Window, ///< sizable; its controls are placed by `IPlaced`
  Dialog, ///< fixed; its controls are laid out by the platform
};

/// All that a platform has to know to build a form. The tables are constants of those who design it.
struct FormDesign {
  StringView Name;
  StringView Caption;
  FormStyle Style = FormStyle::Window;
  std::span<const MenuDesign> Menus = {};
  std::span<const ToolButtonDesign> ToolButtons = {};
  std::span<const StatusPanelDesign> StatusPanels = {};
  std::span<const ControlDesign> Controls = {};
  StringView Tag = {};
  bool IsCentred = false; ///< a dialog: on the screen, not over its owner
};

/// The names under which a form's toolbar and status bar are found.
inline constexpr StringView ToolBarName = u"tbToolBar";
inline constexpr StringView StatusBarName = u"sbStatusBar";

} // namespace portico

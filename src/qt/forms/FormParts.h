#pragma once

#include "platform/FormDesign.h"
#include "platform/IRichTextControl.h"
#include "qt/controls/Control.h"

#include <QDialog>
#include <QMainWindow>
#include <QPushButton>

#include <functional>
#include <memory>
#include <vector>

namespace portico::qt {

class PictureBox;
class StatusBar;
class ToolBar;

/// Makes a rich text box whose widget, a child of the parent, bears the design's name. The widget belongs to its
/// parent and outlives the control.
using RichTextFactory = std::function<std::shared_ptr<IRichTextControl>(const ControlDesign&, QWidget& parent)>;

/// A control that can have the focus, and its widget.
struct FocusPlace {
  QWidget* Widget;
  IControl* Control;
};

/// What a form consists of.
struct FormParts {
  QWidget* Window = nullptr; ///< a `QMainWindow` or a `QDialog`
  QWidget* Area = nullptr;   ///< what is left of it beside the menu bar
  std::shared_ptr<FormLife> Life = std::make_shared<FormLife>();
  std::vector<std::shared_ptr<IControl>> Controls; ///< in the order that `IForm::Controls` promises
  std::vector<FocusPlace> FocusPlaces;
  std::vector<PictureBox*> Pictures; ///< those that stand on the area itself
  qt::ToolBar* ToolBar = nullptr;
  qt::StatusBar* StatusBar = nullptr;
  QPushButton* CancelButton = nullptr;
};

/// Builds what the tables say. The window is not shown.
FormParts BuildForm(const FormDesign& design, const RichTextFactory& makeRichText);

/// Adds the menus to a main window.
void BuildMenus(const FormDesign& design, QMainWindow& window, FormParts& parts);

} // namespace portico::qt

#pragma once

#include "qt/controls/Control.h"

#include <QPushButton>
#include <QWidget>

#include <memory>
#include <vector>

namespace portico::qt {

class PictureBox;
class StatusBar;
class ToolBar;

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

} // namespace portico::qt

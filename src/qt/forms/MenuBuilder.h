#pragma once

#include "qt/forms/FormParts.h"

#include <QMainWindow>

namespace portico::qt {

/// Adds the menus to a main window.
void BuildMenus(const FormDesign& design, QMainWindow& window, FormParts& parts);

} // namespace portico::qt

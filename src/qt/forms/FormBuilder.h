#pragma once

#include "platform/IRichTextControl.h"
#include "qt/forms/FormParts.h"

#include <functional>
#include <memory>

namespace portico::qt {

/// Makes a rich text box whose widget, a child of the parent, bears the design's name. The widget belongs to its
/// parent and outlives the control.
using RichTextFactory = std::function<std::shared_ptr<IRichTextControl>(const ControlDesign&, QWidget& parent)>;

/// Builds what the tables say. The window is not shown.
FormParts BuildForm(const FormDesign& design, const RichTextFactory& makeRichText);

} // namespace portico::qt

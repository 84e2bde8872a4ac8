#include "memory/forms/MakeControl.h"

#include "memory/forms/Areas.h"
#include "memory/forms/Canvas.h"
#include "memory/forms/DialogControls.h"
#include "memory/forms/ListView.h"
#include "memory/forms/PictureView.h"
#include "memory/forms/RichTextControl.h"

#include <stdexcept>

namespace portico::memory {

std::unique_ptr<Control> MakeControl(ControlOwner& form, const ControlDesign& design, Control* container) {
  switch (design.Kind) {
  case ControlKind::TextBox:
    return std::make_unique<TextBox>(form, design, container);
  case ControlKind::ComboBox:
    return std::make_unique<ComboBox>(form, design, container);
  case ControlKind::ListView:
    return std::make_unique<ListView>(form, design, container);
  case ControlKind::CheckBox:
    return std::make_unique<CheckBox>(form, design, container);
  case ControlKind::CommandButton:
    return std::make_unique<CommandButton>(form, design, container);
  case ControlKind::TabStrip:
    return std::make_unique<TabStrip>(form, design, container);
  case ControlKind::PictureView:
    return std::make_unique<PictureView>(form, design, container);
  case ControlKind::PictureBox:
    return std::make_unique<PictureBox>(form, design, container);
  case ControlKind::Canvas:
    return std::make_unique<Canvas>(form, design, container);
  case ControlKind::RichTextBox:
    return std::make_unique<RichTextControl>(form, design, container);
  case ControlKind::SplitPanel:
    return std::make_unique<SplitArea>(form, design, container);
  case ControlKind::Page:
    return std::make_unique<Page>(form, design, container);
  case ControlKind::Label:
  case ControlKind::Frame:
  case ControlKind::Row:
  case ControlKind::Line:
  case ControlKind::Space:
    return std::make_unique<Control>(form, design, container);
  case ControlKind::Menu:
  case ControlKind::Toolbar:
  case ControlKind::StatusBar:
    break;
  }
  throw std::logic_error("no control among the others: " + ToUtf8(design.Name));
}

} // namespace portico::memory

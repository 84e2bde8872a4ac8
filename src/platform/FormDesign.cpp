#include "platform/FormDesign.h"

namespace portico {

bool HasCaption(ControlKind kind) {
  switch (kind) {
  case ControlKind::Menu:
  case ControlKind::Label:
  case ControlKind::CheckBox:
  case ControlKind::CommandButton:
  case ControlKind::Frame:
    return true;
  default:
    return false;
  }
}

bool HasToolTip(ControlKind kind) {
  switch (kind) {
  case ControlKind::Menu:
  case ControlKind::Row:
  case ControlKind::Page:
  case ControlKind::Line:
  case ControlKind::Space:
    return false;
  default:
    return true;
  }
}

ControlDesign AsControl(const MenuDesign& design) {
  return {.Kind = ControlKind::Menu,
          .Name = design.Name,
          .Caption = design.Caption,
          .Parent = design.Parent,
          .Visible = design.Visible};
}

} // namespace portico

#pragma once

#include "memory/FormBench.h"
#include "memory/forms/Form.h"

namespace portico::memory {

inline constexpr MenuDesign Menus[] = {
    {.Name = u"mnuFile", .Caption = u"1000"},
    {.Name = u"mnuOpen", .Caption = u"1001", .Parent = u"mnuFile", .Shortcut = u"Ctrl+N"},
    {.Name = u"mnuBar", .Caption = u"-", .Parent = u"mnuFile"},
    {.Name = u"mnuPopup", .Caption = u"6000", .Visible = false, .IsPopup = true},
    {.Name = u"mnuPopupCut", .Caption = u"6010", .Parent = u"mnuPopup"},
};
inline constexpr ToolButtonDesign Buttons[] = {
    {.Key = u"Open", .ToolTipText = u"8010", .Image = u"Instrument", .Style = ToolButtonStyle::Check},
    {.Key = u"Sep", .Style = ToolButtonStyle::Separator},
    {.Key = u"Cut"},
};
inline constexpr StatusPanelDesign Panels[] = {{.Key = u"Status"}, {.Key = u"Date", .Style = StatusPanelStyle::Date}};
inline constexpr ControlDesign Parts[] = {
    {.Kind = ControlKind::SplitPanel, .Name = u"splitter"},
    {.Kind = ControlKind::RichTextBox, .Name = u"txtPast", .Parent = u"splitter", .ToolTipText = u"past"},
    {.Kind = ControlKind::RichTextBox, .Name = u"txtFuture", .Parent = u"splitter"},
};
/// A small main window.
inline constexpr FormDesign Window = {
    .Name = u"frmMain",
    .Caption = u"A Window",
    .Menus = Menus,
    .ToolButtons = Buttons,
    .StatusPanels = Panels,
    .Controls = Parts,
    .Tag = u"17",
};

/// That window, loaded and not shown.
class FormTest : public FormBench {
protected:
  Form& Main() { return dynamic_cast<Form&>(*Loaded); }
  Ref<IForm> OtherForm(StringView name) { return gForms->Load({.Name = name, .Caption = u""}); }
  static std::vector<std::string> NamesOf(const std::vector<Ref<IForm>>& forms) {
    std::vector<std::string> names;
    for (const auto& form : forms) names.push_back(ToUtf8(form->Name()));
    return names;
  }

  Ref<IForm> Loaded = gForms->Load(Window);
};

} // namespace portico::memory

#pragma once

#include "platform/IMenuItem.h"
#include "platform/IToolBar.h"
#include "qt/desktop/Screen.h"
#include "qt/loop/EventLoop.h"
#include "qt/text/PlainTextControl.h"
#include "qt/values/QtText.h"
#include "support/ErrorReports.h"

#include <QAction>
#include <QTest>
#include <QTimer>

#include <functional>

namespace portico::test {

inline constexpr std::array SampleMenus{
    MenuDesign{.Name = u"mnuFile", .Caption = u"&File"},
    MenuDesign{.Name = u"mnuOpen", .Caption = u"&Open...", .Parent = u"mnuFile", .Shortcut = u"Ctrl+N"},
    MenuDesign{.Name = u"mnuBar", .Caption = u"-", .Parent = u"mnuFile"},
    MenuDesign{.Name = u"mnuMode", .Caption = u"&Protocol", .Parent = u"mnuFile"},
    MenuDesign{.Name = u"mnuSCPI", .Caption = u"&SCPI", .Parent = u"mnuMode", .Shortcut = u"F11", .Checked = true},
    MenuDesign{.Name = u"mnuOther", .Caption = u"&Other", .Parent = u"mnuMode"},
    MenuDesign{.Name = u"mnuHidden", .Caption = u"Hidden", .Parent = u"mnuFile", .Shortcut = u"F6", .Visible = false},
    MenuDesign{.Name = u"mnuPopup", .Caption = u"Popup", .IsPopup = true},
    MenuDesign{.Name = u"mnuPopupCut", .Caption = u"Cu&t      Ctrl+X", .Parent = u"mnuPopup"},
};

inline constexpr std::array SampleButtons{
    ToolButtonDesign{
        .Key = u"Open", .ToolTipText = u"Open it", .Image = u"Instrument", .Style = ToolButtonStyle::Check},
    ToolButtonDesign{.Key = u"Sep0", .Style = ToolButtonStyle::Separator},
    ToolButtonDesign{.Key = u"Print", .Image = u"Print"},
};

inline constexpr std::array SamplePanels{
    StatusPanelDesign{.Key = u"Status"},
    StatusPanelDesign{.Key = u"SCPI"},
    StatusPanelDesign{.Key = u"Date", .Style = StatusPanelStyle::Date},
    StatusPanelDesign{.Key = u"Time", .Style = StatusPanelStyle::Time},
};

inline constexpr std::array SampleControls{
    ControlDesign{.Kind = ControlKind::PictureBox, .Name = u"picLogo", .Image = u"TolvaneLogo"},
    ControlDesign{.Kind = ControlKind::SplitPanel, .Name = u"splitter"},
    ControlDesign{
        .Kind = ControlKind::RichTextBox, .Name = u"txtUpper", .Parent = u"splitter", .ToolTipText = u"Above"},
    ControlDesign{
        .Kind = ControlKind::RichTextBox, .Name = u"txtLower", .Parent = u"splitter", .ToolTipText = u"Below"},
};

inline constexpr FormDesign SampleWindow{.Name = u"frmSample",
                                         .Caption = u"Sample",
                                         .Menus = SampleMenus,
                                         .ToolButtons = SampleButtons,
                                         .StatusPanels = SamplePanels,
                                         .Controls = SampleControls,
                                         .Tag = u"7"};

/// A screen with an event loop.
class ScreenTest : public testing::Test {
protected:
  ~ScreenTest() override { HuntERR::Reset(); }

  /// Calls from within whatever loop is running then.
  static void Later(std::function<void()> call) { QTimer::singleShot(0, qApp, std::move(call)); }

  static qt::Form& AsForm(const Ref<IForm>& form) { return dynamic_cast<qt::Form&>(*form); }
  template <class Widget>
  static Widget* Find(const Ref<IForm>& form, const char* name) {
    return AsForm(form).Window().findChild<Widget*>(QString::fromLatin1(name));
  }
  Ref<IForm> Shown(const FormDesign& design) {
    Ref<IForm> form = screen.Load(design);
    form->Show();
    loop.DoEvents();
    return form;
  }

  qt::EventLoop loop;
  qt::Screen screen{loop, PlainTextControl::Make};
};

} // namespace portico::test

#include "ui/dialogs/DialogDesigns.h"

#include <array>

namespace portico {
namespace {

using enum ControlKind;

constexpr ControlDesign Titled(ControlKind kind, StringView name, StringView caption, StringView parent = {}) {
  return {.Kind = kind, .Name = name, .Caption = caption, .Parent = parent};
}
constexpr ControlDesign Plain(ControlKind kind, StringView name, StringView parent = {}) {
  return {.Kind = kind, .Name = name, .Parent = parent};
}
constexpr ControlDesign DefaultButton(StringView name, StringView caption, StringView parent) {
  return {.Kind = CommandButton, .Name = name, .Caption = caption, .Parent = parent, .IsDefault = true};
}
constexpr ControlDesign CancellingButton(StringView name, StringView caption, StringView parent) {
  return {.Kind = CommandButton, .Name = name, .Caption = caption, .Parent = parent, .IsCancel = true};
}

constexpr ControlDesign ClosingButton(StringView name, StringView caption, StringView parent) {
  return {
      .Kind = CommandButton, .Name = name, .Caption = caption, .Parent = parent, .IsDefault = true, .IsCancel = true};
}

constexpr std::array InstrumentControls = {
    Plain(Row, u"rowInstrument"),
    Titled(Label, u"lblInstrument", u"Instrument:", u"rowInstrument"),
    ControlDesign{.Kind = ComboBox, .Name = u"txtInstrument", .Parent = u"rowInstrument", .Tag = u"typed"},
    Plain(Row, u"rowButtons"),
    Plain(Space, u"spcButtons", u"rowButtons"),
    DefaultButton(u"OKButton", u"&OK", u"rowButtons"),
    CancellingButton(u"CancelButton", u"Cancel", u"rowButtons"),
    Titled(CommandButton, u"cmdHelp", u"&Help", u"rowButtons"),
};

constexpr StringView Page1 = u"picOptions(0)";
constexpr StringView Page2 = u"picOptions(1)";

constexpr std::array OptionsControls = {
    Plain(TabStrip, u"tbsOptions"),

    Plain(Page, Page1),
    Titled(Frame, u"fraSCPIPacing", u"Transmit Pacing Mode", Page1),
    Titled(CheckBox, u"chkSCPIOPC", u"Wait for OPC", u"fraSCPIPacing"),
    Plain(Row, u"rowSCPITimed", u"fraSCPIPacing"),
    Titled(CheckBox, u"chkSCPITimed", u"Timed Interval:", u"rowSCPITimed"),
    Titled(TextBox, u"txtSCPIInterval", u"100", u"rowSCPITimed"),
    Titled(Label, u"lblUnit", u"ms", u"rowSCPITimed"),
    Titled(Frame, u"fraSCPITransmit", u"Transmit Options", Page1),
    Titled(CheckBox, u"chkSCPIAutoRead", u"Automatically read after query", u"fraSCPITransmit"),
    Titled(CheckBox, u"chkSCPIGetStatus", u"Get instrument status after every command", u"fraSCPITransmit"),
    Plain(Row, u"rowErrQueryCmd", u"fraSCPITransmit"),
    Titled(Label, u"lblErrQueryCmd", u"Command for get instrument status:", u"rowErrQueryCmd"),
    Titled(TextBox, u"txtErrQueryCmd", u":SYST:ERR?", u"rowErrQueryCmd"),
    Plain(Row, u"rowSCPITermChar", u"fraSCPITransmit"),
    Titled(Label, u"lblSCPITermChar", u"Termination character:", u"rowSCPITermChar"),
    Plain(ComboBox, u"cboSCPITermChar", u"rowSCPITermChar"),

    Plain(Page, Page2),
    Titled(Frame, u"fraOtherPacing", u"Transmit Pacing Mode", Page2),
    Plain(Row, u"rowOtherTimed", u"fraOtherPacing"),
    Titled(CheckBox, u"chkOtherTimed", u"Timed Interval:", u"rowOtherTimed"),
    Plain(TextBox, u"txtOtherInterval", u"rowOtherTimed"),
    Titled(Label, u"lblOtherUnit", u"ms", u"rowOtherTimed"),
    Titled(Frame, u"fraOtherTransmit", u"Transmit Options", Page2),
    Plain(Row, u"rowOtherTermChar", u"fraOtherTransmit"),
    Titled(Label, u"lblOtherTermChar", u"Termination character:", u"rowOtherTermChar"),
    Plain(ComboBox, u"cboOtherTermChar", u"rowOtherTermChar"),

    Plain(Row, u"rowButtons"),
    Plain(Space, u"spcButtons", u"rowButtons"),
    DefaultButton(u"cmdOK", u"&OK", u"rowButtons"),
    CancellingButton(u"cmdCancel", u"Cancel", u"rowButtons"),
    Titled(CommandButton, u"cmdHelp", u"&Help", u"rowButtons"),
};

constexpr std::array AboutControls = {
    ControlDesign{.Kind = PictureBox, .Name = u"picLogo", .Image = u"TolvaneLogo"},
    Plain(Row, u"rowTitle"),
    ControlDesign{.Kind = PictureBox, .Name = u"picIcon", .Parent = u"rowTitle", .Image = u"Instrument"},
    Plain(Label, u"lblTitle", u"rowTitle"),
    Plain(Space, u"spcTitle", u"rowTitle"),
    Plain(Label, u"lblVersion"),
    Plain(Line, u"Line1(0)"),
    Plain(Label, u"lblDisclaimer"),
    Plain(Line, u"Line1(1)"),
    Plain(Row, u"rowButtons"),
    Plain(Space, u"spcButtons", u"rowButtons"),
    ClosingButton(u"cmdOK", u"OK", u"rowButtons"),
};

constexpr std::array TimeoutControls = {
    Plain(Row, u"rowTimeout"),
    Titled(Label, u"lblTimeout", u"Time-out of each write and read:", u"rowTimeout"),
    Plain(TextBox, u"txtTimeout", u"rowTimeout"),
    Titled(Label, u"lblUnit", u"ms", u"rowTimeout"),
    Plain(Row, u"rowButtons"),
    Plain(Space, u"spcButtons", u"rowButtons"),
    DefaultButton(u"cmdOK", u"&OK", u"rowButtons"),
    CancellingButton(u"cmdCancel", u"Cancel", u"rowButtons"),
};

constexpr std::array RepeatControls = {
    Plain(Label, u"lblLines"),
    Plain(Row, u"rowTurns"),
    Titled(Label, u"lblTurns", u"&Turns:", u"rowTurns"),
    Plain(TextBox, u"txtTurns", u"rowTurns"),
    Titled(CheckBox, u"chkForever", u"&Until stopped", u"rowTurns"),
    Plain(Row, u"rowSeconds"),
    Titled(Label, u"lblSeconds", u"&Seconds from start to start:", u"rowSeconds"),
    Plain(TextBox, u"txtSeconds", u"rowSeconds"),
    Plain(Row, u"rowButtons"),
    Plain(Space, u"spcButtons", u"rowButtons"),
    DefaultButton(u"cmdOK", u"&Repeat", u"rowButtons"),
    CancellingButton(u"cmdCancel", u"Cancel", u"rowButtons"),
};

constexpr std::array QueryControls = {
    Plain(Row, u"rowQuery"),
    Titled(Label, u"lblQuery", u"Query:", u"rowQuery"),
    Plain(TextBox, u"txtQuery", u"rowQuery"),
    Plain(Row, u"rowButtons"),
    Plain(Space, u"spcButtons", u"rowButtons"),
    DefaultButton(u"cmdOK", u"&OK", u"rowButtons"),
    CancellingButton(u"cmdCancel", u"Cancel", u"rowButtons"),
};

constexpr std::array ErrorsControls = {
    Titled(Label, u"lblErrors", u"&Errors of the conversation:"),
    Plain(ListView, u"lstErrors"),
    Plain(Row, u"rowButtons"),
    Plain(Space, u"spcButtons", u"rowButtons"),
    DefaultButton(u"OKButton", u"&Go To", u"rowButtons"),
    CancellingButton(u"CancelButton", u"Cancel", u"rowButtons"),
};

constexpr std::array SearchControls = {
    Plain(Row, u"rowText"),
    Titled(Label, u"lblText", u"&Text:", u"rowText"),
    Plain(TextBox, u"txtText", u"rowText"),
    Titled(Label, u"lblLines", u"&Lines that were sent, the newest first:"),
    Plain(ListView, u"lstLines"),
    Plain(Row, u"rowButtons"),
    Plain(Space, u"spcButtons", u"rowButtons"),
    DefaultButton(u"cmdOK", u"&Bring", u"rowButtons"),
    CancellingButton(u"cmdCancel", u"Cancel", u"rowButtons"),
};

constexpr std::array TimingControls = {
    Plain(Label, u"lblLast"),
    Titled(Label, u"lblTimes", u"&Times of all queries:"),
    Plain(ListView, u"lstTimes"),
    Plain(Row, u"rowButtons"),
    Titled(CommandButton, u"cmdForget", u"&Begin Anew", u"rowButtons"),
    Plain(Space, u"spcButtons", u"rowButtons"),
    ClosingButton(u"cmdClose", u"Close", u"rowButtons"),
};

} // namespace

constinit const FormDesign InstrumentDialogDesign = {.Name = u"frmInstrumentDialog",
                                                     .Caption = u"Open an Instrument",
                                                     .Style = FormStyle::Dialog,
                                                     .Controls = InstrumentControls};

constinit const FormDesign OptionsDesign = {.Name = u"frmTVSCPIOptions",
                                            .Caption = u"Tolvane Portico Options",
                                            .Style = FormStyle::Dialog,
                                            .Controls = OptionsControls,
                                            .IsCentred = true};

constinit const FormDesign AboutDesign = {
    .Name = u"frmAbout", .Caption = u"About Tolvane Portico", .Style = FormStyle::Dialog, .Controls = AboutControls};

constinit const FormDesign TimeoutDialogDesign = {
    .Name = u"TimeoutDialog", .Caption = u"Time-out", .Style = FormStyle::Dialog, .Controls = TimeoutControls};

constinit const FormDesign RepeatDialogDesign = {
    .Name = u"RepeatDialog", .Caption = u"Repeat", .Style = FormStyle::Dialog, .Controls = RepeatControls};
constinit const FormDesign QueryDialogDesign = {
    .Name = u"QueryDialog", .Caption = u"Fetch Answer", .Style = FormStyle::Dialog, .Controls = QueryControls};

constinit const FormDesign ErrorsDesign = {
    .Name = u"ErrorsDialog", .Caption = u"Errors", .Style = FormStyle::Dialog, .Controls = ErrorsControls};

constinit const FormDesign SearchDesign = {
    .Name = u"SearchDialog", .Caption = u"Search Sent Lines", .Style = FormStyle::Dialog, .Controls = SearchControls};

constinit const FormDesign TimingDesign = {
    .Name = u"TimingWindow", .Caption = u"Timing", .Style = FormStyle::Dialog, .Controls = TimingControls};

} // namespace portico

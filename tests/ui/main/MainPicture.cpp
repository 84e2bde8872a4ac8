#include "ui/main/MainPicture.h"

#include "platform/IRichTextControl.h"
#include "platform/IStatusBar.h"
#include "platform/IToolBar.h"
#include "ui/main/MainButtons.h"
#include "ui/main/MainTables.h"

#include <initializer_list>
#include <map>
#include <sstream>
#include <stdexcept>

namespace portico::test {
namespace {

std::size_t IndexOf(StringView name) {
  static const std::map<StringView, std::size_t> indices = [] {
    std::map<StringView, std::size_t> made;
    for (std::size_t i = 0; i < std::size(ExpectedMenus); ++i) made[ExpectedMenus[i].Name] = i;
    for (std::size_t i = 0; i < std::size(ExpectedButtons); ++i) made[ExpectedButtons[i].Key] = i;
    return made;
  }();
  return indices.at(name);
}

/// The text that stands in the command window after an update; nothing if it stays.
StringView Placeholder(const UpdateInputs& inputs) {
  if (inputs.CommandText == u"OPEN AN INSTRUMENT!" && !inputs.TabStop && inputs.Opened) {
    return u"REM Enter commands here.\r\n";
  }
  if (inputs.TabStop && !inputs.Opened) return u"OPEN AN INSTRUMENT!";
  return {};
}

void ExpectInstrument(const UpdateInputs& in, Picture& picture) {
  picture.StatusTip = in.Opened ? String(OpenName) + u" is the open instrument." : u"Please open an instrument.";
  picture.StatusText = in.Opened ? String(OpenName) + u" " : u"Open an instrument. ";
  picture.Menu(u"mnuFileOpenInstrument").Enabled = !in.Opened;
  picture.Menu(u"mnuFileCloseInstrument").Enabled = in.Opened;
  picture.Button(u"OpenInstrument").Value = in.Opened ? 1 : 0;
  picture.Button(u"OpenInstrument").ToolTip = in.Opened ? u"Close Instrument" : u"Open Instrument";
  ButtonState& read = picture.Button(u"Read");
  read.Visible = read.Enabled = in.Opened && in.Protocol == u"Other";
  if (read.Visible) read.ToolTip = u"Read Data";
}

void ExpectProtocol(const UpdateInputs& in, Picture& picture) {
  // A text that is put into the window updates it on the way, check marks included.
  const StringView placeholder = Placeholder(in);
  const bool isChanged = !placeholder.empty() && placeholder != in.CommandText;
  const bool wasSCPI = isChanged ? in.Protocol == u"SCPI" : in.WasSCPI;
  picture.Menu(u"mnuRead").Enabled = !wasSCPI && in.Opened;
  picture.Menu(u"mnuOPC").Enabled = wasSCPI && in.Opened;
  picture.Menu(u"mnuGetStatus").Enabled = wasSCPI && in.Opened;
  picture.ProtocolText = in.Protocol;
  picture.Menu(u"mnuSCPI").Checked = in.Protocol == u"SCPI";
  picture.Menu(u"mnuDDC").Checked = in.Protocol == u"Other";
}

void ExpectLog(const UpdateInputs& in, Picture& picture) {
  picture.Menu(u"mnuFilePause").Caption = in.Logging ? u"Pau&se Logging" : u"Re&sume Logging";
  picture.Button(u"Pause").Value = in.Logging ? 0 : 1;
  picture.Button(u"Pause").ToolTip = in.Logging ? u"Pause Logging" : u"Resume Logging";
  const bool hasLog = !in.LogFile.empty();
  picture.Caption = hasLog ? String(in.LogFile) + u" - Tolvane Portico" : u"Tolvane Portico";
  picture.Menu(u"mnuCloseLog").Enabled = hasLog;
  picture.Menu(u"mnuFileNewLog").Enabled = !hasLog;
  picture.Button(u"Logger").Value = hasLog ? 1 : 0;
  picture.Button(u"Logger").ToolTip = hasLog ? u"Close Log" : u"New Log File...";
  picture.Menu(u"mnuFilePause").Enabled = hasLog;
  picture.Button(u"Pause").Enabled = hasLog;
}

void ExpectEditing(const UpdateInputs& in, Picture& picture) {
  using Control = UpdateInputs::Control;
  const bool isBox = in.Active == Control::CommandWindow || in.Active == Control::HistoryWindow;
  // A new text leaves nothing selected.
  const bool isFresh = in.Active == Control::CommandWindow && !Placeholder(in).empty();
  const StringView text = in.Active == Control::CommandWindow ? in.CommandText : in.HistoryText;
  const bool hasSel = isBox && in.HasSelection && !text.empty() && !isFresh;
  const bool cmdFocus = isBox && in.CommandHadFocus;
  const bool canPaste = in.HasClipboard && cmdFocus;
  for (const StringView name : {u"mnuEditCut", u"mnuPopupCmdCut", u"mnuPopupHistoryCut"}) {
    picture.Menu(name).Enabled = hasSel && cmdFocus;
  }
  for (const StringView name : {u"mnuEditCopy", u"mnuPopupCmdCopy", u"mnuPopupHistoryCopy", u"mnuCopyTo"}) {
    picture.Menu(name).Enabled = hasSel;
  }
  for (const StringView name : {u"mnuEditPaste", u"mnuPopupCmdPaste", u"mnuPopupHistoryPaste"}) {
    picture.Menu(name).Enabled = canPaste;
  }
  picture.Menu(u"mnuPasteFrom").Enabled = cmdFocus;
  picture.Button(u"Cut").Enabled = hasSel && cmdFocus;
  picture.Button(u"Copy").Enabled = hasSel;
  picture.Button(u"Paste").Enabled = canPaste;
  picture.Button(u"Paste from").Enabled = cmdFocus;
}

void ExpectRunning(const UpdateInputs& in, Picture& picture) {
  using Control = UpdateInputs::Control;
  const bool canRun = !in.Executing && in.ModeOff && in.Opened && !in.CommandText.empty();
  const bool cmdFocus =
      in.CommandHadFocus && (in.Active == Control::CommandWindow || in.Active == Control::HistoryWindow);
  const auto expect = [&](StringView item, StringView popup, StringView button, bool enabled) {
    picture.Menu(item).Enabled = enabled;
    picture.Menu(popup).Enabled = enabled;
    picture.Button(button).Enabled = enabled;
  };
  expect(u"mnuStep", u"mnuPopupCMDStep", u"Step", canRun);
  expect(u"mnuRun", u"mnuPopupCMDRun", u"Run", canRun);
  picture.Menu(u"mnuRepeat").Enabled = canRun;
  expect(u"mnuRunToCursor", u"mnuPopupCMDRun2Cursor", u"Run to Cursor", canRun && cmdFocus);
  expect(u"mnuStop", u"mnuPopupCMDStop", u"Stop", in.Executing && in.Opened);
  for (const StringView name : {u"mnuFetchAnswer", u"mnuClearDevice", u"mnuGoToLocal"}) {
    picture.Menu(name).Enabled = in.Opened && !in.Executing;
  }
}

void ExpectRecall(const UpdateInputs& in, Picture& picture) {
  const bool isPlaceholder = !in.Opened && (in.TabStop || in.CommandText == u"OPEN AN INSTRUMENT!");
  picture.Menu(u"mnuAskForCommands").Enabled = in.Opened && !in.Executing && in.Protocol == u"SCPI";
  picture.Menu(u"mnuComplete").Enabled = !in.Executing && !isPlaceholder;
  picture.Menu(u"mnuEarlierLine").Enabled = !in.Executing && !isPlaceholder;
  picture.Menu(u"mnuLaterLine").Enabled = !in.Executing && !isPlaceholder;
  picture.Menu(u"mnuSearchSentLines").Enabled = !in.Executing && !isPlaceholder;
  picture.Menu(u"mnuPutBackLastRun").Enabled = false; // there has been no run
  picture.Menu(u"mnuKeepSentLines").Checked = true;
  picture.Menu(u"mnuSaveAnswer").Enabled = false; // nor an answer
}

} // namespace

MenuState& Picture::Menu(StringView name) { return Menus[IndexOf(name)]; }
ButtonState& Picture::Button(StringView key) { return Buttons[IndexOf(key)]; }

Picture TakePicture(IForm& form) {
  Picture picture;
  picture.Menus.resize(std::size(ExpectedMenus));
  std::size_t found = 0;
  for (IControl* control : form.Controls()) {
    if (const auto* item = dynamic_cast<IMenuItem*>(control)) {
      picture.Menu(item->Name()) = {item->Enabled(), item->Visible(), item->Checked(), item->Caption()};
      ++found;
    } else if (auto* bar = dynamic_cast<IToolBar*>(control)) {
      for (const IToolButton* button : bar->Buttons()) {
        picture.Buttons.push_back({button->Enabled(), button->Visible(), button->Value(), button->ToolTipText()});
      }
    } else if (auto* status = dynamic_cast<IStatusBar*>(control)) {
      picture.StatusText = status->Panels(1).Text();
      picture.StatusTip = status->Panels(1).ToolTipText();
      picture.ProtocolText = status->Panels(2).Text();
      picture.ProtocolTip = status->Panels(2).ToolTipText();
    } else if (const auto* box = dynamic_cast<IRichTextControl*>(control);
               box != nullptr && box->Name() == u"txtFuture") {
      picture.CommandText = box->Text();
      picture.TabStop = box->TabStop();
    }
  }
  if (found != picture.Menus.size()) throw std::logic_error("menu items are missing");
  picture.Caption = form.Caption();
  return picture;
}

Picture AfterUpdate(const UpdateInputs& inputs, Picture before) {
  Picture& picture = before;
  ExpectInstrument(inputs, picture);
  if (const StringView placeholder = Placeholder(inputs); !placeholder.empty()) picture.CommandText = placeholder;
  picture.TabStop = inputs.Opened;
  ExpectProtocol(inputs, picture);
  ExpectLog(inputs, picture);
  ExpectEditing(inputs, picture);
  ExpectRunning(inputs, picture);
  ExpectRecall(inputs, picture);
  picture.Menu(u"mnuFilePrint").Enabled = !inputs.HistoryText.empty();
  return picture;
}

std::string Differences(const Picture& expected, const Picture& actual) {
  std::ostringstream out;
  const auto tell = [&](const std::string& what, const auto& wanted, const auto& found) {
    if (wanted != found) out << what << " is " << found << " instead of " << wanted << "\n";
  };
  for (std::size_t i = 0; i < expected.Menus.size(); ++i) {
    const std::string name = ToUtf8(ExpectedMenus[i].Name);
    tell(name + ".Enabled", expected.Menus[i].Enabled, actual.Menus[i].Enabled);
    tell(name + ".Visible", expected.Menus[i].Visible, actual.Menus[i].Visible);
    tell(name + ".Checked", expected.Menus[i].Checked, actual.Menus[i].Checked);
    tell(name + ".Caption", ToUtf8(expected.Menus[i].Caption), ToUtf8(actual.Menus[i].Caption));
  }
  for (std::size_t i = 0; i < expected.Buttons.size(); ++i) {
    const std::string key = "button " + ToUtf8(ExpectedButtons[i].Key);
    tell(key + ".Enabled", expected.Buttons[i].Enabled, actual.Buttons[i].Enabled);
    tell(key + ".Visible", expected.Buttons[i].Visible, actual.Buttons[i].Visible);
    tell(key + ".Value", expected.Buttons[i].Value, actual.Buttons[i].Value);
    tell(key + ".ToolTipText", ToUtf8(expected.Buttons[i].ToolTip), ToUtf8(actual.Buttons[i].ToolTip));
  }
  tell("Caption", ToUtf8(expected.Caption), ToUtf8(actual.Caption));
  tell("panel 1", ToUtf8(expected.StatusText), ToUtf8(actual.StatusText));
  tell("panel 1 tip", ToUtf8(expected.StatusTip), ToUtf8(actual.StatusTip));
  tell("panel 2", ToUtf8(expected.ProtocolText), ToUtf8(actual.ProtocolText));
  tell("panel 2 tip", ToUtf8(expected.ProtocolTip), ToUtf8(actual.ProtocolTip));
  tell("text", ToUtf8(expected.CommandText), ToUtf8(actual.CommandText));
  tell("TabStop", expected.TabStop, actual.TabStop);
  return out.str();
}

std::string Described(const UpdateInputs& in) {
  std::ostringstream out;
  out << "Opened " << in.Opened << ", Protocol " << ToUtf8(in.Protocol) << ", LogFile '" << ToUtf8(in.LogFile)
      << "', Logging " << in.Logging << ", ModeOff " << in.ModeOff << ", Executing " << in.Executing << ", text '"
      << ToUtf8(in.CommandText) << "', history '" << ToUtf8(in.HistoryText) << "', focus in commands "
      << in.CommandHadFocus << ", active " << static_cast<int>(in.Active) << ", selection " << in.HasSelection
      << ", clipboard " << in.HasClipboard << ", was SCPI " << in.WasSCPI << ", TabStop " << in.TabStop;
  return out.str();
}

} // namespace portico::test

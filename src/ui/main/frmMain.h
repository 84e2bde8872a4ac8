#pragma once

#include "platform/IEventLoop.h"
#include "platform/IScratchArea.h"
#include "ui/base/IMainForm.h"
#include "ui/base/IMainFormParts.h"
#include "ui/base/ProgramConstants.h"
#include "ui/base/WindowSettings.h"
#include "ui/main/DeferredRun.h"
#include "ui/main/MainHelp.h"
#include "ui/main/MainUpdate.h"
#include "ui/main/SplitPanel.h"
#include "ui/main/ViewAndData.h"
#include "views/CSCPIView.h"
#include "views/CSCPIViewHistory.h"
#include "views/RunFrame.h"

#include <optional>
#include <span>

namespace portico {

/// The one top-level window, without its toolkit. Almost all of it is thin: an item or a button names a command, which
/// `ExecutionEventHandler` runs. What the window decides itself stands in `MainUpdate`. It stores its place itself.
///
/// A failure of a handler is shown in a message box and never closes the window. A close asks the event loop to quit;
/// what runs comes down to the bottom of the stack, where the program calls `Form_Unload` and `Form_Terminate`.
class frmMain final : public IMainForm, public IMainFormParts, public IScratchArea {
public:
  /// Runs `Form_Initialize`. If that fails the failure is shown and `Quit` thrown. No help file: an empty name.
  explicit frmMain(const std::function<void()>& CreateObjectFactory, StringView HelpFile = ApplicationHelpFile);
  StringView ClassName() const override { return u"frmMain"; }

  bool StopRequested() const override { return m_stopRequested; }
  void StopRequested(bool newValue) override { m_stopRequested = newValue; }
  /// Forwarded to the command view: before `Form_Load` it raises `MissingObject`.
  bool Executing() const override { return m_commandView->Executing(); }
  void Executing(bool newValue) override { m_commandView->Executing(newValue); }
  Ref<ISubscriber> Logger() const override { return m_logger; }
  /// Subscribes a new logger; setting none unsubscribes the present one. One that is replaced stays subscribed.
  void Logger(const Ref<ISubscriber>& newValue) override;
  /// Recomputes everything, whatever has changed.
  void UpdateUI(const String& ItemName, const String& ItemValue) override;
  void aCmdCursorRunner_Add2History(const String& Line) { m_runs->Add2History(Line); }
  void aCmdRunner_Add2History(const String& Line) { m_runs->Add2History(Line); }
  void aCmdStepper_Add2History(const String& Line) { m_runs->Add2History(Line); }

  void Show() override;
  void Form_Resize();
  /// Closes the instrument whether or not one is open, lets go of everything, saves the window's place. Each step runs
  /// whatever the one before did.
  void Form_Unload();
  /// Lets the configuration go, then the factory.
  void Form_Terminate();

  void mnuFileOpenInstrument_Click() override { Click(u"mnuFileOpenInstrument"); }
  void mnuFileCloseInstrument_Click() { Click(u"mnuFileCloseInstrument"); }
  void mnuFilePrint_Click() { Click(u"mnuFilePrint"); }
  void mnuStep_Click() { Click(u"mnuStep"); }
  void mnuRun_Click() { Click(u"mnuRun"); }
  void mnuRunToCursor_Click() { Click(u"mnuRunToCursor"); }
  void mnuStop_Click() { Click(u"mnuStop"); }
  // Part of the contract; no menu item leads to these two.
  void mnuHelpSearchForHelpOn_Click();
  void mnuFileOpen_Click();

  IForm& Form() override { return *m_form; }
  Ref<IRichTextControl> txtFuture() const override { return m_txtFuture; }
  Ref<IRichTextControl> txtPast() const override { return m_txtPast; }

  std::int32_t MousePointer() const override { return m_form->MousePointer(); }
  void MousePointer(std::int32_t shape) override { m_form->MousePointer(shape); }
  Ref<IRichTextBox> rtfScratchArea() const override { return m_scratchArea; }
  String FontName() const override;
  double FontSize() const override;

private:
  static constexpr StringView FocusFailure = u"An error occured while changing focus.";
  /// What a menu item does: a command without parameters, or an action of the window's.
  struct MenuRow;
  static std::span<const MenuRow> MenuRows();
  /// What a button does, likewise.
  struct ButtonRow;
  static std::span<const ButtonRow> ButtonRows();
  void Connect();
  void ConnectMenus();
  void ConnectTextBoxes();
  void Click(StringView item);
  void Click(const MenuRow& row);
  void tbToolBar_ButtonClick(IToolButton& Button);
  void Form_Load();
  void RestorePlace();
  void HideWhatIsNotOffered();
  void SetUpSplitter();
  void SavePlace(const std::function<void(const std::function<void()>&)>& step);

  void Print();
  void PrintSetup();
  void PasteIntoCommands();
  void ClearHistory();
  void ClearCommands();
  void ResetTypingFormat();
  void tmrSelection_Timer();
  void OpenInstrument();
  void CloseInstrument();
  void Exit();
  void UseProtocol(StringView protocol, bool canRead);
  void UseSCPI();
  void UseOther();
  void Update() { UpdateUI({}, {}); }
  void RunAll() { m_runs->Run(); }
  void RunToCursor() { m_runs->RunToCursor(); }
  void Step() { m_runs->Step(); }
  void Stop() { m_stopRequested = true; }
  void DeferStep() { m_deferred->RequestStep(); }
  void DeferRun() { m_deferred->RequestRun(); }
  void DeferRunToCursor() { m_deferred->RequestRunToCursor(); }
  void ShowHelpTopics() { m_help.ShowTopics(); }
  void ShowAbout();

  void txtFuture_Change();
  void TextGotFocus(bool isCommandWindow, StringView label);
  void txtFuture_MouseDown(const MouseEvent& mouse);
  void txtPast_MouseDown(const MouseEvent& mouse);
  void QueryUnload();

  const WindowSettings m_settings{u"frmMain"};
  Ref<IForm> m_form;
  const MainHelp m_help;
  Ref<IRichTextControl> m_txtFuture;
  Ref<IRichTextControl> m_txtPast;
  Ref<IRichTextControl> m_scratchArea;
  std::unique_ptr<ITimer> tmrSelection;
  std::optional<SplitPanel> splitterNow;
  std::optional<MainUpdate> m_update;
  std::optional<ViewAndData> m_viewAndData;
  std::optional<RunFrame> m_runs;
  std::optional<DeferredRun> m_deferred;

  bool m_CommandHasFocus = false;
  bool m_stopRequested = false;
  bool m_gotFocus = false;
  Ref<CSCPIView> m_commandView;
  Ref<CSCPIViewHistory> m_historyView;
  Ref<ISubscriber> m_displayer;
  Ref<ISubscriber> m_runner;
  Ref<ISubscriber> m_logger;
};

} // namespace portico

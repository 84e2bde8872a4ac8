#include "ui/main/frmMain.h"

#include "configuration/CConfigurationClient.h"
#include "document/reports/ReportSubscribers.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/errors/Quit.h"
#include "framework/objects/modGlobals.h"
#include "framework/shared/modAppGlobals.h"
#include "platform/StandardFont.h"
#include "ui/base/ResourceStrings.h"
#include "ui/base/ShowFailure.h"
#include "ui/base/Tolerate.h"
#include "ui/base/UserCommands.h"
#include "ui/main/MainDesign.h"
#include "views/CInstructionRunner.h"

namespace portico {
namespace {

constexpr auto BarWidth = static_cast<std::uint8_t>(3 * FormUnitsPerPixel);
constexpr std::uint8_t DefaultPercent = 75;

WindowState ToWindowState(std::int32_t number) {
  if (number < 0 || number > 2) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
  return static_cast<WindowState>(number);
}

} // namespace

frmMain::frmMain(const std::function<void()>& CreateObjectFactory, StringView HelpFile)
    : m_form(gForms->Load(MainDesign)), m_help(*m_form, HelpFile) {
  m_txtFuture = ShareControl<IRichTextControl>(m_form, u"txtFuture");
  m_txtPast = ShareControl<IRichTextControl>(m_form, u"txtPast");
  m_scratchArea = ShareControl<IRichTextControl>(m_form, u"rtfScratchArea");
  m_txtFuture->UnderlinesUnsendable(true);
  m_txtPast->Locked(true);
  m_update.emplace(*m_form, m_txtFuture, m_txtPast,
                   MainUpdate::Circumstances{.CommandHasFocus = [this] { return m_CommandHasFocus; },
                                             .Executing = [this] { return Executing(); }});
  splitterNow.emplace(FindControl<ISplitArea>(*m_form, u"splitterNow"));
  splitterNow->SplitPercent(DefaultPercent);
  const bool made = RunHandler(u"frmMain.Form_Initialize", u"An error occured while initializing.", [&] {
    CreateObjectFactory();
    m_runs.emplace(m_txtFuture, m_txtPast);
    m_runs->aCmdRunner.Add2History.Connect([this](const String& Line) { aCmdRunner_Add2History(Line); });
    m_runs->aCmdStepper.Add2History.Connect([this](const String& Line) { aCmdStepper_Add2History(Line); });
    m_runs->aCmdCursorRunner.Add2History.Connect([this](const String& Line) { aCmdCursorRunner_Add2History(Line); });
  });
  if (made) return;
  gEventLoop->RequestQuit();
  throw Quit{};
}

void frmMain::Show() {
  if (!RunHandler(u"frmMain.Form_Load", u"An error occured while loading.", [this] { Form_Load(); })) {
    m_form->Close();
    throw Quit{};
  }
  m_form->Show();
}

void frmMain::Form_Load() {
  m_commandView = Create(Class::SCPIView, m_txtFuture);
  m_runner = Create(Class::InstructionRunner, m_commandView);
  gConfiguration = New<CConfigurationClient>();
  Connect();
  Executing(true); // so that the strings, or a font that comes with them, do not count as typing
  modAppGlobals::LoadResStrings(*m_form);
  FindControl<IStatusBar>(*m_form, StatusBarName).Panels(2).ToolTipText(u"Instrument Protocol");
  Executing(false);
  RestorePlace();
  HideWhatIsNotOffered();
  m_historyView = Create(Class::SCPIViewHistory, m_txtPast);
  m_displayer = Create(Class::ReportDisplayer, m_historyView);
  m_viewAndData.emplace(m_form, *m_runs, m_historyView);
  SetUpSplitter();
  UpdateUI({}, {});
}

void frmMain::Connect() {
  m_deferred.emplace(DeferredRun::Handlers{[this] { mnuStep_Click(); }, [this] { mnuRun_Click(); },
                                           [this] { mnuRunToCursor_Click(); }});
  ConnectTextBoxes();
  ConnectMenus();
  m_form->Events().Resize.Connect([this] { Form_Resize(); });
  m_form->Events().QueryUnload.Connect([this] { QueryUnload(); });
}

void frmMain::RestorePlace() {
  m_form->Left(m_settings.Left());
  m_form->Top(m_settings.Top());
  m_form->Width(m_settings.Width());
  m_form->Height(m_settings.Height());
  const Value state = m_settings.Read(u"MainWindowState", u"0");
  m_form->WindowState(ToWindowState(state.ToLong()));
}

void frmMain::HideWhatIsNotOffered() {
  auto& toolBar = FindControl<IToolBar>(*m_form, ToolBarName);
  // Built, and out of sight.
  for (const StringView item : {u"mnuCopyTo", u"mnuPasteFrom", u"mnuEditBar1"}) {
    FindControl<IMenuItem>(*m_form, item).Visible(false);
  }
  for (const StringView key : {u"Copy to", u"Paste from"}) toolBar.Buttons(key).Visible(false);
  // Without a parser there is no log.
  for (const StringView item : {u"mnuFileBar0", u"mnuFileNewLog", u"mnuFilePause", u"mnuFileViewLog", u"mnuCloseLog"}) {
    FindControl<IMenuItem>(*m_form, item).Visible(gXMLParserAvailable);
  }
  for (const StringView key : {u"Logger", u"Pause", u"View Log", u"Sep1"}) {
    toolBar.Buttons(key).Visible(gXMLParserAvailable);
  }
}

void frmMain::SetUpSplitter() {
  auto& area = FindControl<ISplitArea>(*m_form, u"splitterNow");
  Form_Resize(); // the bar is never wider than the panel, which has no size so far
  splitterNow->HorizontalSplit(true);
  area.Top(FindControl<IToolBar>(*m_form, ToolBarName).Height() + m_form->ScaleTop());
  area.Left(m_form->ScaleLeft());
  splitterNow->Control1(m_txtPast.Get());
  splitterNow->Control2(m_txtFuture.Get());
  splitterNow->SplitPercent(ToPercent(m_settings.Read(u"SplitPercent", ToText(std::int64_t{DefaultPercent}))));
  splitterNow->SplitWidth(BarWidth);
}

void frmMain::Form_Resize() {
  if (m_form->WindowState() == WindowState::Minimized) return;
  auto& toolBar = FindControl<IToolBar>(*m_form, ToolBarName);
  auto& statusBar = FindControl<IStatusBar>(*m_form, StatusBarName);
  auto& splitter = FindControl<ISplitArea>(*m_form, u"splitterNow");
  auto& picLogo = FindControl<IPictureBox>(*m_form, u"picLogo");
  Tolerate([&] { splitter.Top(toolBar.Height() + m_form->ScaleTop()); });
  Tolerate([&] { splitter.Height(m_form->ScaleHeight() - toolBar.Height() - statusBar.Height()); });
  Tolerate([&] { splitter.Width(m_form->ScaleWidth()); });
  Tolerate([&] { picLogo.Top(toolBar.Top()); });
  Tolerate([&] { picLogo.Left(m_form->ScaleWidth() - picLogo.Width()); });
  Tolerate([&] { toolBar.Width(m_form->ScaleWidth()); });
}

void frmMain::QueryUnload() {
  m_stopRequested = true;
  gEventLoop->RequestQuit();
  m_form->Hide();
}

void frmMain::Form_Unload() {
  const auto step = [](auto&& body) {
    // Not this routine's own name; reports have always borne it.
    RunHandler(u"frmMain.mnuFileOpenInstrument_Click", u"An error occured while exitting.", body);
  };
  step([] { modAppGlobals::EventHandler(Class::CloseInstrument); });
  for (const Ref<IForm>& form : gForms->Forms()) {
    if (!IsSameObject(form, m_form)) step([&] { form->Unload(); });
  }
  Ref<IPublisher> agent;
  step([&] { agent = Create(Class::CmdSubscriptionAgent); });
  step([&] {
    if (m_displayer) agent->Unsubscribe(m_displayer);
  });
  step([&] {
    if (m_runner) agent->Unsubscribe(m_runner);
  });
  m_displayer = nullptr;
  m_runner = nullptr;
  step([&] { Logger(nullptr); });
  m_commandView = nullptr;
  m_historyView = nullptr;
  SavePlace(step);
}

void frmMain::SavePlace(const std::function<void(const std::function<void()>&)>& step) {
  const WindowState state = m_form->WindowState();
  if (state != WindowState::Minimized) {
    step([&] { m_settings.Save(u"MainWindowState", ToText(static_cast<std::int64_t>(state))); });
  }
  if (state == WindowState::Normal) {
    step([&] { m_settings.Left(m_form->Left()); });
    step([&] { m_settings.Top(m_form->Top()); });
    step([&] { m_settings.Width(m_form->Width()); });
    step([&] { m_settings.Height(m_form->Height()); });
  }
  step([&] { m_settings.Save(u"SplitPercent", ToText(std::int64_t{splitterNow->SplitPercent()})); });
}

void frmMain::Form_Terminate() {
  m_form->Unload();
  gConfiguration = nullptr;
  gObjectFactory = nullptr;
}

void frmMain::Logger(const Ref<ISubscriber>& newValue) {
  const Ref<IPublisher> agent = Create(Class::CmdSubscriptionAgent);
  if (newValue) {
    agent->Subscribe(newValue);
  } else if (m_logger) {
    agent->Unsubscribe(m_logger);
  }
  m_logger = newValue;
}

void frmMain::UpdateUI(const String&, const String&) try {
  m_update->Run();
  if (m_viewAndData) m_viewAndData->Update();
} catch (...) {
  PassOn(u"frmMain.UpdateUI()");
}

String frmMain::FontName() const { return String(StandardFontName); }

double frmMain::FontSize() const { return StandardFontSize; }

} // namespace portico

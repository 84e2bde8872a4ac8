#include "ui/viewer/frmViewLog.h"

#include "framework/shared/Guards.h"
#include "framework/shared/ICommand.h"
#include "framework/shared/modAppGlobals.h"
#include "platform/ICommonDialog.h"
#include "platform/IPictureBox.h"
#include "platform/IStatusBar.h"
#include "ui/base/ResourceStrings.h"
#include "ui/base/ShowFailure.h"
#include "ui/base/Tolerate.h"
#include "ui/base/UserCommands.h"
#include "ui/base/ViewMenu.h"
#include "ui/base/WindowSettings.h"
#include "ui/dialogs/frmAbout.h"
#include "ui/viewer/LogLoading.h"
#include "ui/viewer/ViewLogDesign.h"

#include <algorithm>
#include <utility>

namespace portico {
namespace {

StringView SentenceOf(StringView handler) {
  const auto handlers = ViewLogHandlers();
  return std::find_if(handlers.begin(), handlers.end(),
                      [handler](const ViewLogHandler& each) { return each.Name == handler; })
      ->Sentence;
}

} // namespace

template <class... Args>
void frmViewLog::On(Event<Args...>& event, void (frmViewLog::*handler)()) {
  event.Connect([weak = weak_from_this(), handler](Args...) {
    if (const auto self = weak.lock()) (self.get()->*handler)();
  });
}

void frmViewLog::OnMenu(StringView name, void (frmViewLog::*handler)()) { On(Menu(name).Click(), handler); }

template <class Body>
bool frmViewLog::Run(StringView handler, Body&& body) {
  return RunHandler(String(ClassName()).append(u".").append(handler), SentenceOf(handler), std::forward<Body>(body));
}

template <class Body>
bool frmViewLog::RunUnlessGivenUp(Body&& body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const Error& error) {
    if (error.Record().Number != ErrorNumber::WorkGivenUp) throw;
    return false;
  }
}

Ref<frmViewLog> frmViewLog::Make() {
  if (!gForms) return {};
  return New<frmViewLog>();
}

void frmViewLog::Show(IForm* Owner) {
  m_form = gForms->Load(ViewLogDesign());
  m_form->Keep(Ref<IObject>(shared_from_this()));
  Connect();
  if (!Form_Load()) {
    m_form->Unload();
    return;
  }
  m_form->Owner(Owner);
  m_form->Show();
  GoOn();
}

void frmViewLog::Connect() {
  FormEvents& form = m_form->Events();
  On(form.Resize, &frmViewLog::Form_Resize);
  On(form.Activate, &frmViewLog::Form_Activate);
  On(form.KeyDown, &frmViewLog::Form_KeyDown);
  On(form.Unload, &frmViewLog::Form_Unload);
  On(txtPast().LostFocus(), &frmViewLog::txtPast_LostFocus);
  On(txtPast().MouseUp(), &frmViewLog::txtPast_MouseUp);
  OnMenu(u"mnuEdit", &frmViewLog::mnuEdit_Click);
  OnMenu(u"mnuCopy", &frmViewLog::mnuCopy_Click);
  OnMenu(u"mnuFilePrint", &frmViewLog::mnuFilePrint_Click);
  OnMenu(u"mnuFilePageSetup", &frmViewLog::mnuFilePageSetup_Click);
  OnMenu(u"mnuFileClose", &frmViewLog::mnuFileClose_Click);
  OnMenu(u"mnuHelpAbout", &frmViewLog::mnuHelpAbout_Click);
  ConnectCommands(*m_form, ViewItems);
  ConnectCommands(*m_form, ErrorItems, [weak = weak_from_this()] {
    const auto self = weak.lock();
    return self && self->m_errors ? modGlobals::VarArray(self->m_errors->Marks(), self->m_form) : Params();
  });
  EnableItems(*m_form, ErrorItems, false); // until there is one
  EnableItems(*m_form, PictureItems, false);
  ConnectNotes();
  ConnectCommands(*m_form, PlotItems, [weak = weak_from_this()] {
    const auto self = weak.lock();
    return self ? modGlobals::VarArray(self->m_numbers, self->m_form) : Params();
  });
  EnableItems(*m_form, PlotItems, false); // until a log is there
  ConnectCommands(*m_form, PictureItems, [weak = weak_from_this()] {
    const auto self = weak.lock();
    return self ? modGlobals::VarArray(self->m_answers, self->m_form) : Params();
  });
  tbToolBar().ButtonClick().Connect([weak = weak_from_this()](IToolButton& button) {
    if (const auto self = weak.lock()) self->tbToolBar_ButtonClick(button);
  });
  m_tmrKey = gEventLoop->MakeTimer();
  m_tmrKey->Interval(1);
  On(m_tmrKey->Timer(), &frmViewLog::tmrKey_Timer);
  m_tmrLoad = gEventLoop->MakeTimer();
  m_tmrLoad->Interval(1);
  On(m_tmrLoad->Timer(), &frmViewLog::tmrLoad_Timer);
}

void frmViewLog::ConnectNotes() {
  m_notes = New<LogNotes>();
  On(m_notes->Changed, &frmViewLog::ShowNotes);
  ConnectCommands(*m_form, NoteItems, [notes = m_notes] { return modGlobals::VarArray(notes); });
}

void frmViewLog::ShowNotes() {
  Menu(u"mnuSessionMarks").Checked(m_notes->ShowsSessions());
  Menu(u"mnuTimeStamps").Checked(m_notes->ShowsStamps());
  txtPast().ShowNotes(m_notes);
}

bool frmViewLog::Form_Load() {
  bool givenUp = false;
  Run(u"Form_Load", [&] {
    txtPast().Locked(true);
    HideWhatIsNotOffered(); // its table cannot say so, and a load may fail
    modAppGlobals::LoadResStrings(*m_form);
    PlaceForm();
    txtPast().Text({});
    givenUp = !RunUnlessGivenUp([this] { LoadLog(); });
    if (!givenUp) HideWhatIsNotOffered();
    ShowNotes();
  });
  return !givenUp;
}

void frmViewLog::PlaceForm() {
  const WindowSettings settings(ClassName());
  const double left = settings.Left(); // one after the other: the first that is no number is told
  const double top = settings.Top();
  const double width = settings.Width();
  m_form->Move(left, top, width, settings.Height());
}

void frmViewLog::LoadLog() try {
  CheckFactory(ErrorNumber::CannotCreate);
  const auto iterator = Create(Class::SelectionIterator, u"IterateAll");
  m_view = Create(Class::SCPIView, SharedText());
  const auto queue = m_view->Instructions();
  MarkErrors(queue);
  m_answers = New<AnswerAtCaret>(m_view, SharedText());
  m_shownNotes = std::make_unique<ShownNotes>(SharedText(), queue, m_notes);
  LogLoading loading(m_fileName, *m_notes);
  DrawNumbers(queue);
  m_showing = std::make_unique<LogShowing>(SharedText(), queue, m_fileName, iterator);
  m_warning = loading.Warning();
  loading.Follow(queue);
  ShowPortion();
} catch (...) {
  StopLoading();
  PassOn(u"frmViewLog.LoadLog");
}

void frmViewLog::MarkErrors(const Ref<CDataFIFO>& queue) {
  m_errors = std::make_unique<ShownErrors>(SharedText(), queue);
  m_errors->Marks()->Changed.Connect([weak = weak_from_this()] {
    const auto self = weak.lock();
    if (self && self->m_errors) EnableItems(*self->m_form, ErrorItems, !self->m_errors->Marks()->All().empty());
  });
}

void frmViewLog::DrawNumbers(const Ref<CDataFIFO>& queue) {
  const auto clock = [weak = weak_from_this(), last = 0.0]() mutable {
    const auto self = weak.lock();
    if (self && self->m_showing) last = SecondsOfStamp(self->m_showing->Stamp()).value_or(last);
    return last;
  };
  m_numbers = New<PlotSource>(queue, clock, true);
  EnableItems(*m_form, PlotItems, true);
}

void frmViewLog::ShowMore() try { ShowPortion(); } catch (...) {
  StopLoading();
  m_form->Caption(String(ViewLogDesign().Caption));
  PassOn(u"frmViewLog.LoadLog");
}

void frmViewLog::ShowPortion() {
  m_showing->ShowPortion();
  const String caption = u"Log Viewer - " + m_fileName;
  if (m_showing->IsDone()) {
    m_view->Refresh();
    m_showing = nullptr;
    m_form->Caption(caption);
  } else {
    m_form->Caption(caption + u" (" + ToText(static_cast<std::int64_t>(100 * m_showing->Share())) + u" %)");
  }
}

bool frmViewLog::ShowRest() {
  if (!m_showing) return true;
  return RunUnlessGivenUp([this] {
    const LogProgress progress(m_fileName);
    while (m_showing) {
      ShowMore();
      if (m_showing) LogProgress::Tell(m_showing->Share());
    }
  });
}

void frmViewLog::GoOn() {
  m_tmrLoad->Enabled(bool(m_showing));
  if (!m_showing && !m_warning.empty()) gMessageBox->Show(std::exchange(m_warning, {}), ApplicationTitle);
}

void frmViewLog::tmrLoad_Timer() {
  if (m_showing) Run(u"Form_Load", [this] { ShowMore(); });
  GoOn();
}

void frmViewLog::StopLoading() {
  m_showing = nullptr;
  m_warning.clear();
}

void frmViewLog::HideWhatIsNotOffered() {
  for (const StringView name : {u"mnuCopyto", u"mnuFileBar0", u"mnuFileProperty"}) Menu(name).Visible(false);
  tbToolBar().Buttons(u"Copy to").Visible(false);
  Menu(u"mnuHelpTopics").Visible(false);
  auto& sbStatusBar = Find<IStatusBar>(StatusBarName);
  sbStatusBar.Visible(false);
  sbStatusBar.Panels(1).Text({});
}

/// A window that is too small for its controls disturbs nobody.
void frmViewLog::Form_Resize() {
  if (m_form->WindowState() == WindowState::Minimized) return;
  Tolerate([&] { txtPast().Left(0); });
  Tolerate([&] { txtPast().Top(tbToolBar().Top() + tbToolBar().Height()); });
  Tolerate([&] { txtPast().Width(m_form->ScaleWidth()); });
  Tolerate([&] { txtPast().Height(m_form->ScaleHeight() - txtPast().Top()); });
  auto& picLogo = Find<IPictureBox>(u"picLogo");
  Tolerate([&] { picLogo.Top(tbToolBar().Top()); });
  Tolerate([&] { picLogo.Left(m_form->ScaleWidth() - picLogo.Width()); });
}

void frmViewLog::Form_Unload() {
  Run(u"Form_Unload", [this] {
    m_tmrKey->Enabled(false);
    m_tmrLoad->Enabled(false);
    StopLoading();
    m_answers = nullptr;
    m_view = nullptr;
    m_errors = nullptr;
    m_shownNotes = nullptr;
    m_numbers = nullptr;
  });
}

void frmViewLog::UpdateUI(const String&, const String&) try {
  auto* const active = dynamic_cast<IRichTextControl*>(gForms->ActiveControl());
  const bool selected = active != nullptr && active->SelTextLength() > 0;
  Menu(u"mnuCopy").Enabled(selected);
  Menu(u"mnuCopyto").Enabled(selected);
  tbToolBar().Buttons(u"Copy").Enabled(selected);
  Menu(u"mnuFilePrint").Enabled(txtPast().TextLength() > 0);
  EnableItems(*m_form, PictureItems, m_answers && m_answers->IsThere());
  gEventLoop->DoEvents();
} catch (...) {
  PassOn(u"frmViewLog.UpdateUI()");
}

void frmViewLog::Form_Activate() {
  Run(u"Form_Activate", [this] { UpdateUI({}, {}); });
}

/// The key reaches the selection only after this.
void frmViewLog::Form_KeyDown() { m_tmrKey->Enabled(true); }

void frmViewLog::tmrKey_Timer() {
  m_tmrKey->Enabled(false);
  Run(u"Form_KeyDown", [this] { UpdateUI({}, {}); });
}

void frmViewLog::txtPast_LostFocus() {
  Run(u"txtPast_LostFocus", [this] { UpdateUI({}, {}); });
}

void frmViewLog::txtPast_MouseUp() {
  Run(u"txtPast_MouseUp", [this] { UpdateUI({}, {}); });
}

void frmViewLog::mnuEdit_Click() {
  Run(u"mnuEdit_Click", [this] { UpdateUI({}, {}); });
}

void frmViewLog::mnuCopy_Click() {
  Run(u"mnuCopy_Click", [] { modAppGlobals::ExecutionEventHandler(Class::Copy); });
}

void frmViewLog::mnuFilePrint_Click() {
  Run(u"mnuFilePrint_Click", [this] {
    if (ShowRest()) modAppGlobals::ExecutionEventHandler(Class::Print, gCommonDialog, SharedText());
  });
}

void frmViewLog::mnuFilePageSetup_Click() {
  Run(u"mnuFilePageSetup_Click", [] { modAppGlobals::ExecutionEventHandler(Class::PrintSetup, gCommonDialog); });
}

void frmViewLog::mnuFileClose_Click() {
  Run(u"mnuFileClose_Click", [this] { m_form->Unload(); });
}

void frmViewLog::mnuHelpAbout_Click() {
  Run(u"mnuHelpAbout_Click", [this] { ShowAbout(m_form.Get()); });
}

void frmViewLog::tbToolBar_ButtonClick(IToolButton& Button) {
  const String key(Button.Key());
  RunHandler(String(ClassName()).append(u".tbToolBar_ButtonClick"), u"Can't perform " + key + u" operation.", [&] {
    if (key == u"Copy") mnuCopy_Click();
  });
}

} // namespace portico

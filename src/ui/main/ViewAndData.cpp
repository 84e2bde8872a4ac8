#include "ui/main/ViewAndData.h"

#include "framework/objects/modGlobals.h"
#include "framework/shared/IConfiguration.h"
#include "framework/shared/IMainWindow.h"
#include "instructions/InstrumentAccess.h"
#include "ui/base/CommandWindow.h"
#include "ui/base/KeptTimeout.h"
#include "ui/base/ViewMenu.h"
#include "ui/main/DataMenu.h"
#include "ui/main/MainViewMenu.h"
#include "views/completion/AcceptedLines.h"
#include "views/faults/FaultMarks.h"

#include <chrono>

namespace portico {
namespace {

/// Of the clock that no change of the date moves.
double Seconds() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

} // namespace

ViewAndData::ViewAndData(const Ref<IForm>& form, RunFrame& runs, const Ref<CSCPIViewHistory>& history)
    : m_form(form),
      m_guard(Create(Class::RunGuard)),
      m_errors(New<ErrorMarks>(ShareControl<IRichTextControl>(form, u"txtPast"))),
      m_errorsChanged(m_errors->Changed.Connect([this] { Update(); })),
      m_numbers(New<PlotSource>(history->Instructions(), Seconds)),
      m_answers(New<AnswerAtCaret>(history, history->InstructionDisplay())),
      m_sent(Create(Class::SentLines)),
      m_taken(Create(Class::TakenLines)),
      m_repeated(New<RepeatedRun>(runs)),
      m_offers(New<CommandOffers>(ShareControl<IRichTextControl>(form, u"txtFuture"), Create(Class::KnownCommands))),
      mnuStopAtErrors(FindControl<IMenuItem>(*form, u"mnuStopAtErrors")),
      mnuComplete(FindControl<IMenuItem>(*form, u"mnuComplete")),
      mnuAskForCommands(FindControl<IMenuItem>(*form, u"mnuAskForCommands")),
      mnuEarlierLine(FindControl<IMenuItem>(*form, u"mnuEarlierLine")),
      mnuLaterLine(FindControl<IMenuItem>(*form, u"mnuLaterLine")),
      mnuSearchSentLines(FindControl<IMenuItem>(*form, u"mnuSearchSentLines")),
      mnuPutBackLastRun(FindControl<IMenuItem>(*form, u"mnuPutBackLastRun")),
      mnuKeepSentLines(FindControl<IMenuItem>(*form, u"mnuKeepSentLines")),
      mnuFetchAnswer(FindControl<IMenuItem>(*form, u"mnuFetchAnswer")),
      mnuClearDevice(FindControl<IMenuItem>(*form, u"mnuClearDevice")),
      mnuGoToLocal(FindControl<IMenuItem>(*form, u"mnuGoToLocal")),
      mnuRepeat(FindControl<IMenuItem>(*form, u"mnuRepeat")),
      mnuRun(FindControl<IMenuItem>(*form, u"mnuRun")) {
  ConnectCommands(*form, ViewItems);
  ConnectCommands(*form, MainViewItems);
  ConnectCommands(*form, DataItems);
  ConnectCommands(*form, ErrorItems, [this] { return modGlobals::VarArray(m_errors, m_form); });
  ConnectCommands(*form, RepeatItems, [this] { return modGlobals::VarArray(m_repeated); });
  ConnectCommands(*form, CompletionItems, [this] { return modGlobals::VarArray(m_offers); });
  ConnectCommands(*form, PlotItems, [this] { return modGlobals::VarArray(m_numbers, m_form); });
  ConnectCommands(*form, PictureItems, [this] { return modGlobals::VarArray(m_answers, m_form); });
  ConnectCommands(*form, AnswerItems, [this] { return modGlobals::VarArray(m_answers); });
  const auto reports = Create(Class::CmdSubscriptionAgent);
  reports->Subscribe(m_guard);
  reports->Subscribe(New<FaultMarks>(m_errors));
  reports->Subscribe(New<AcceptedLines>(Create(Class::KnownCommands)));
  runs.Account(m_taken);
  const auto keep = [sent = m_sent](const String& line) { sent->Add(line); };
  for (LineRunner* runner : runs.Runners()) runner->Sending.Connect(keep);
  m_repeated->Sending.Connect(keep);
  // A driver that takes none has refused it in words when it was set.
  if (const auto timeout = KeptTimeout::Read()) InstrumentAccess::SetTimeout(*timeout);
}

ViewAndData::~ViewAndData() { m_errors->Changed.Disconnect(m_errorsChanged); }

void ViewAndData::Update() const {
  mnuStopAtErrors.Checked(m_guard->IsOn());
  mnuComplete.Enabled(CommandWindow::TakesText());
  mnuAskForCommands.Enabled(CommandWindow::TakesQuestions());
  if (gMainForm->Executing()) m_offers->Close();
  mnuEarlierLine.Enabled(CommandWindow::TakesText());
  mnuLaterLine.Enabled(CommandWindow::TakesText());
  mnuSearchSentLines.Enabled(CommandWindow::TakesText());
  mnuPutBackLastRun.Enabled(CommandWindow::TakesLines() && !m_taken->IsEmpty());
  mnuKeepSentLines.Checked(m_sent->IsKept());
  mnuRepeat.Enabled(mnuRun.Enabled());
  const bool isOpened = gConfiguration->IsTrue(Item::InstrumentOpened);
  if (!isOpened && m_repeated->GoesOn()) gMainForm->StopRequested(true);
  const bool isIdle = isOpened && !gMainForm->Executing();
  EnableItems(*m_form, AnswerItems, m_answers->IsThere());
  mnuFetchAnswer.Enabled(isIdle);
  mnuClearDevice.Enabled(isIdle);
  mnuGoToLocal.Enabled(isIdle);
  EnableItems(*m_form, PictureItems, m_answers->IsThere());
  EnableItems(*m_form, ErrorItems, !m_errors->All().empty());
}

} // namespace portico

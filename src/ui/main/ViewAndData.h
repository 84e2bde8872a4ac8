#pragma once

#include "platform/IForm.h"
#include "ui/plot/PlotSource.h"
#include "views/AnswerAtCaret.h"
#include "views/CSCPIViewHistory.h"
#include "views/RunFrame.h"
#include "views/completion/CommandOffers.h"
#include "views/faults/ErrorMarks.h"
#include "views/faults/RunGuard.h"
#include "views/recall/SentLines.h"
#include "views/repeat/RepeatedRun.h"

namespace portico {

/// The menus View and Data of the main window. Needs the factory.
class ViewAndData {
public:
  /// Connects the items of the main window's form, whose handlers must not be called once this is gone, and what
  /// hears of its runs, which must outlive this. Subscribes what hears of each report; so it comes behind the
  /// displayer. The driver gets the time-out that the user has set.
  ViewAndData(const Ref<IForm>& form, RunFrame& runs, const Ref<CSCPIViewHistory>& history);
  ViewAndData(const ViewAndData&) = delete;
  ViewAndData& operator=(const ViewAndData&) = delete;
  ~ViewAndData();

  /// Sets the states of the items, behind each update of the window. An instrument that has been closed ends a repeated
  /// run, which takes its lines from elsewhere than the command window and would not notice.
  void Update() const;

private:
  Ref<IForm> m_form;
  Ref<RunGuard> m_guard;
  Ref<ErrorMarks> m_errors;
  Event<>::Connection m_errorsChanged;
  Ref<PlotSource> m_numbers;
  Ref<AnswerAtCaret> m_answers;
  Ref<SentLines> m_sent;
  Ref<TakenLines> m_taken;
  Ref<RepeatedRun> m_repeated;
  Ref<CommandOffers> m_offers;
  IMenuItem& mnuStopAtErrors;
  IMenuItem& mnuComplete;
  IMenuItem& mnuAskForCommands;
  IMenuItem& mnuEarlierLine;
  IMenuItem& mnuLaterLine;
  IMenuItem& mnuSearchSentLines;
  IMenuItem& mnuPutBackLastRun;
  IMenuItem& mnuKeepSentLines;
  IMenuItem& mnuFetchAnswer;
  IMenuItem& mnuClearDevice;
  IMenuItem& mnuGoToLocal;
  IMenuItem& mnuRepeat;
  IMenuItem& mnuRun;
};

} // namespace portico

#include "terminal/TerminalWindow.h"

#include "document/reports/ReportSubscribers.h"
#include "framework/objects/IObjectFactory.h"

namespace portico::terminal {

TerminalWindow::TerminalWindow(const Ref<IRichTextBox>& txtFuture, const Ref<IRichTextBox>& txtPast,
                               const Ref<IRichTextBox>& rtfScratchArea, std::function<bool()> interrupted)
    : m_txtFuture(txtFuture),
      m_txtPast(txtPast),
      m_scratch(rtfScratchArea),
      m_interrupted(std::move(interrupted)),
      m_frame(txtFuture, txtPast) {
  for (LineRunner* runner : m_frame.Runners()) {
    runner->Add2History.Connect([this](const String& line) {
      m_frame.Add2History(line);
      Remarked(line);
    });
  }
}

void TerminalWindow::Load() {
  m_view = Create(Class::SCPIView, m_txtFuture);
  m_history = Create(Class::SCPIViewHistory, m_txtPast);
  m_history->Instructions()->OnAdd.Connect([this](const Ref<IDataEntity>& entity, std::int64_t) { Shown(*entity); });
  m_runner = CreateAs<CInstructionRunner>(Class::InstructionRunner, m_view);
  m_displayer = Create(Class::ReportDisplayer, m_history);
}

void TerminalWindow::Unload() {
  Shown = {};
  Remarked = {};
  if (m_displayer) Create(Class::CmdSubscriptionAgent)->Unsubscribe(m_displayer);
  if (m_runner) Create(Class::CmdSubscriptionAgent)->Unsubscribe(m_runner);
  m_displayer = nullptr;
  m_runner = nullptr;
  m_history = nullptr;
  m_view = nullptr;
}

void TerminalWindow::RunLines(const std::vector<String>& lines) {
  String text;
  for (const String& line : lines) text.append(line).append(NewLine);
  m_txtFuture->Text(text);
  m_frame.Run();
}

std::size_t TerminalWindow::LinesLeft() const {
  return static_cast<std::size_t>(m_txtFuture->GetLineFromChar(m_txtFuture->TextLength()));
}

void TerminalWindow::ForgetHistory() {
  m_history->Clear();
  m_history->Instructions()->Clear();
}

} // namespace portico::terminal

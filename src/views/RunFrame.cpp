#include "views/RunFrame.h"

#include "document/encoders/CSimpleRTFEncoder.h"
#include "framework/shared/IMainWindow.h"
#include "views/CSCPIViewHistory.h"

namespace portico {

RunFrame::RunFrame(const Ref<IRichTextBox>& txtFuture, const Ref<IRichTextBox>& txtPast)
    : m_txtFuture(txtFuture), m_txtPast(txtPast) {}

void RunFrame::Run() { RunLines(aCmdRunner); }
void RunFrame::RunToCursor() { RunLines(aCmdCursorRunner); }

void RunFrame::RunLines(LineRunner& runner) {
  Prepare(runner);
  Begin();
  TakeLines(runner);
  End();
}

void RunFrame::Surround(LineRunner& runner) {
  Begin();
  runner.Execute();
  End();
}

void RunFrame::Begin() {
  gMainForm->Executing(true);
  gMainForm->StopRequested(false);
  gMainForm->UpdateUI({}, {});
}

// The order differs: the window is brought up to date before the run counts as one.
void RunFrame::Step() {
  Prepare(aCmdStepper);
  gMainForm->StopRequested(false);
  gMainForm->UpdateUI({}, {});
  gMainForm->Executing(true);
  TakeLines(aCmdStepper);
  End();
}

void RunFrame::Prepare(LineRunner& runner) const {
  const auto policy = New<CSCPICmdPolicy>();
  policy->CharComment(u"|");
  runner.CommandQueue(m_txtFuture);
  runner.Policy(policy);
}

void RunFrame::Account(const Ref<TakenLines>& newValue) {
  m_account = newValue;
  for (LineRunner* runner : Runners()) runner->Account(newValue);
}

void RunFrame::TakeLines(LineRunner& runner) {
  const TakenLines::Run run(m_account);
  runner.Execute();
}

void RunFrame::End() {
  gMainForm->Executing(false);
  gMainForm->StopRequested(false);
  gMainForm->UpdateUI({}, {});
  m_txtFuture->SetFocus();
}

void RunFrame::Add2History(const String& Line) {
  FocusAtEnd(*m_txtPast);
  CSimpleRTFEncoder encoder;
  encoder.Initialize(m_txtPast);
  m_txtPast->SelFragment(encoder.Compose(String(Line).append(NewLine), DataTypeName::Remark));
}

} // namespace portico

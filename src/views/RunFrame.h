#pragma once

#include "views/LineRunners.h"

#include <array>

namespace portico {

/// The three ways to run the command window, with all that stands around a run. Needs what the runners need. An error
/// leaves the window as a run has it: executing, so that no other run can be started. Made by the window, which
/// connects each runner's `Add2History` to its handler of remarks and blank lines; the handler calls `Add2History`.
class RunFrame {
public:
  /// The command window and the history window.
  RunFrame(const Ref<IRichTextBox>& txtFuture, const Ref<IRichTextBox>& txtPast);

  void Run();
  void RunToCursor();
  /// While it lasts, the window still shows the idle state.
  void Step();
  /// The frame around a runner that takes nothing off the command window.
  void Surround(LineRunner& runner);
  /// Who keeps account of what the runs take off the command window; null, as at first, for nobody.
  void Account(const Ref<TakenLines>& newValue);
  /// Writes a remark or a blank line into the history.
  void Add2History(const String& Line);

  CCommandRunner aCmdRunner;
  CCommandStepper aCmdStepper;
  CCommandCursorRunner aCmdCursorRunner;
  std::array<LineRunner*, 3> Runners() { return {&aCmdRunner, &aCmdStepper, &aCmdCursorRunner}; }

private:
  void Prepare(LineRunner& runner) const;
  void RunLines(LineRunner& runner);
  static void Begin();
  void TakeLines(LineRunner& runner);
  void End();

  Ref<IRichTextBox> m_txtFuture;
  Ref<IRichTextBox> m_txtPast;
  Ref<TakenLines> m_account;
};

} // namespace portico

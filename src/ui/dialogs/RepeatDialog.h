#pragma once

#include "ui/dialogs/DialogForm.h"
#include "views/repeat/RepeatedRun.h"

#include <optional>

namespace portico {

/// Asks how often lines are run, and how long it is from start to start, and tells which lines. What is no such number
/// is refused in a message box, and the dialog stays.
class RepeatDialog final : public DialogForm {
public:
  RepeatDialog();
  StringView ClassName() const override { return u"RepeatDialog"; }

  void Form_Initialize() override;
  // To be set before the dialog is shown.

  void Lines(const Ref<RepeatedLines>& newValue) { m_lines = newValue; }
  /// What it begins with.
  void Plan(const RepeatPlan& newValue) { m_plan = newValue; }

  /// None if the user has cancelled, by whatever road.
  const std::optional<RepeatPlan>& Chosen() const { return m_chosen; }

private:
  void Form_Load() override;
  void Accept();

  Ref<RepeatedLines> m_lines;
  RepeatPlan m_plan;
  std::optional<RepeatPlan> m_chosen;
};

} // namespace portico

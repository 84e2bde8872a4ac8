#pragma once

#include "ui/dialogs/DialogForm.h"
#include "views/faults/ErrorMarks.h"

#include <optional>

namespace portico {

/// Lists the errors of a conversation, for the user to choose one.
class ErrorsDialog final : public DialogForm {
public:
  ErrorsDialog();
  StringView ClassName() const override { return u"ErrorsDialog"; }

  void Form_Initialize() override;
  /// To be set before the dialog is shown.
  void Errors(const Ref<ErrorMarks>& newValue) { m_errors = newValue; }
  /// None if the user has cancelled.
  std::optional<std::size_t> Chosen() const { return m_chosen; }

private:
  void Form_Load() override;
  void Choose();

  Ref<ErrorMarks> m_errors;
  std::optional<std::size_t> m_chosen;
};

} // namespace portico

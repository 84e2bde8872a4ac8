#pragma once

#include "framework/objects/Creator.h"
#include "framework/shared/ICommand.h"
#include "platform/ICommonDialog.h"

namespace portico {

// Without a dialog `Initialize` raises 5. `Execute` raises 0x80041460 before it.

/// Asks for a printer and prints a text on it. A user who cancels is an error, 32755, and nothing is printed. Whether
/// a selection is offered depends on the main window's history, whatever is printed.
class CPrint final : public ICommand {
public:
  StringView ClassName() const override { return u"CPrint"; }
  void Initialize(const Ref<ICommonDialog>& Dialog, const Ref<IPrintable>& Target);
  void Execute() override;

private:
  Ref<ICommonDialog> m_dialog;
  Ref<IPrintable> m_target;
  bool m_initialized = false;
};

/// Lets the user set up the page.
class CPrintSetup final : public ICommand {
public:
  StringView ClassName() const override { return u"CPrintSetup"; }
  void Initialize(const Ref<ICommonDialog>& Dialog);
  void Execute() override;

private:
  Ref<ICommonDialog> m_dialog;
  bool m_initialized = false;
};

/// "Print": the common dialog and the text.
extern const CreatorRow CtorPrint;
/// "PrintSetup": the common dialog.
extern const CreatorRow CtorPrintSetup;

} // namespace portico

#pragma once

#include "framework/objects/Creator.h"
#include "framework/shared/UserCommand.h"
#include "platform/ICommonDialog.h"

namespace portico {

// A null dialog raises `InvalidArgument` in `Initialize`.

/// Asks for a printer and prints a text on it. A user who cancels raises `DialogCancelled`, and nothing is printed.
/// Whether a selection is offered depends on the main window's history, whatever is printed.
class CPrint final : public UserCommand {
public:
  StringView ClassName() const override { return u"CPrint"; }
  void Initialize(const Ref<ICommonDialog>& Dialog, const Ref<IPrintable>& Target);

private:
  void Act() override;

  Ref<ICommonDialog> m_dialog;
  Ref<IPrintable> m_target;
};

/// Lets the user set up the page.
class CPrintSetup final : public UserCommand {
public:
  StringView ClassName() const override { return u"CPrintSetup"; }
  void Initialize(const Ref<ICommonDialog>& Dialog);

private:
  void Act() override;

  Ref<ICommonDialog> m_dialog;
};

/// "Print": the common dialog and the text.
extern const CreatorRow CtorPrint;
/// "PrintSetup": the common dialog.
extern const CreatorRow CtorPrintSetup;

} // namespace portico

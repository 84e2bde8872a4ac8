#include "ui/commands/PrintCommands.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "platform/IDesktop.h"
#include "ui/base/IMainFormParts.h"
#include "ui/base/UserCommands.h"
#include "ui/base/Wired.h"

namespace portico {
namespace {

constexpr StringView DialogTitle = u"Print Setup";

void CheckDialog(const Ref<ICommonDialog>& dialog) {
  HuntERR::Check(bool(dialog), ErrorNumber::InvalidArgument, u"Command dialog control cannot be nothing.");
}

} // namespace

void CPrint::Initialize(const Ref<ICommonDialog>& Dialog, const Ref<IPrintable>& Target) try {
  CheckDialog(Dialog);
  m_dialog = Dialog;
  m_target = Target;
  SetInitialized();
} catch (...) {
  PassOn(u"CPrint.Initialize()");
}

void CPrint::Act() {
  const bool hasSelection = gMainFormParts->txtPast()->SelLength() != 0;
  PrinterDialogSettings settings;
  settings.Flags = (hasSelection ? PrintSelectionPreset : PrintNoSelection) + PrintReturnsContext + PrintNoPageNumbers;
  settings.DialogTitle = DialogTitle;
  settings.CancelError = true;
  const auto context = m_dialog->ShowPrinter(settings);
  Wired(gPrinter).Print({});
  m_target->SelPrint(context);
}

void CPrintSetup::Initialize(const Ref<ICommonDialog>& Dialog) try {
  CheckDialog(Dialog);
  m_dialog = Dialog;
  SetInitialized();
} catch (...) {
  PassOn(u"CPrintSetup.Initialize()");
}

void CPrintSetup::Act() {
  PrinterDialogSettings settings;
  settings.DialogTitle = DialogTitle;
  settings.Flags = PrintSetupForm;
  settings.CancelError = false;
  m_dialog->ShowPrinter(settings);
}

const CreatorRow CtorPrint = {
    .Name = u"CtorPrint",
    .Specification = Class::Print,
    .ParamCount = Class::Print.ParamCount,
    .Make =
        [](const Params& Parameters) {
          auto print = New<CPrint>();
          print->Initialize(Parameters[0].ToObject<ICommonDialog>(), Parameters[1].ToObject<IPrintable>());
          return Ref<IObject>(print);
        },
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a Print command.",
};

const CreatorRow CtorPrintSetup = {
    .Name = u"CtorPrintSetup",
    .Specification = Class::PrintSetup,
    .ParamCount = Class::PrintSetup.ParamCount,
    .Make =
        [](const Params& Parameters) {
          auto setup = New<CPrintSetup>();
          setup->Initialize(Parameters[0].ToObject<ICommonDialog>());
          return Ref<IObject>(setup);
        },
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a PrintSetup command.",
};

} // namespace portico

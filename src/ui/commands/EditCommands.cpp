#include "ui/commands/EditCommands.h"

#include "document/entities/IDataStore.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/modGlobals.h"
#include "framework/shared/IConfiguration.h"
#include "platform/IDesktop.h"
#include "ui/base/UserCommands.h"
#include "ui/base/Wired.h"
#include "ui/dialogs/FileQuestions.h"

namespace portico {
namespace {

void Press(StringView keys) { Wired(gKeyboard).SendKeys(String(keys)); }

void Refuse() { HuntERR::Check(false, ErrorNumber::CannotCarryOut, u"Operation is not implemented yet."); }

Ref<IDataStore> OpenStore(const String& name) {
  auto store = Create(Class::DataStore, name, false);
  HuntERR::Check(bool(store), ErrorNumber::CannotCreate, u"Cannot create a paste-from file reader.");
  return store;
}

} // namespace

void CCut::Act() { Press(u"^X"); }

void CCopy::Act() { Press(u"^C"); }

void CPaste::Act() { Press(u"^V"); }

bool CCopyTo::OpenCopyToFile() try {
  const String name = AskForFile(u"Copy to file...", CopyToFilters);
  if (name.empty()) return false;
  if (modGlobals::FileExists(name)) AskToErase(name); // whatever the answer is, the file is kept
  const auto store = OpenStore(name);
  gConfiguration->ItemValue(Item::CopyToFileName, name);
  return bool(store);
} catch (...) {
  PassOn(u"CCopyTo.OpenCopyToFile");
}

void CCopyTo::Act() {
  if (OpenCopyToFile()) Refuse();
}

bool CPasteFrom::OpenPasteFromFile() try {
  const String name = AskForFile(u"Paste from file...", PasteFromFilters);
  if (name.empty()) return false;
  HuntERR::Check(modGlobals::FileExists(name), ErrorNumber::FileNotFound, u"Paste-from file does not exist.");
  const auto store = OpenStore(name);
  gConfiguration->ItemValue(Item::PasteFromFileName, name);
  return bool(store);
} catch (...) {
  PassOn(u"CPasteFrom.OpenPasteFromFile");
}

void CPasteFrom::Act() {
  if (OpenPasteFromFile()) Refuse();
}

void CClearHistory::Act() { Refuse(); }

const CreatorRow CtorCut = {
    .Name = u"CtorCut",
    .Specification = Class::Cut,
    .ParamCount = Class::Cut.ParamCount,
    .Make = MakePlainCommand<CCut>,
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a cut command.",
};

const CreatorRow CtorCopy = {
    .Name = u"CtorCopy",
    .Specification = Class::Copy,
    .ParamCount = Class::Copy.ParamCount,
    .Make = MakePlainCommand<CCopy>,
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a copy command.",
};

const CreatorRow CtorPaste = {
    .Name = u"CtorPaste",
    .Specification = Class::Paste,
    .ParamCount = Class::Paste.ParamCount,
    .Make = MakePlainCommand<CPaste>,
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a paste command.",
};

const CreatorRow CtorCopyTo = {
    .Name = u"CtorCopyTo",
    .Specification = Class::Copyto,
    .ParamCount = Class::Copyto.ParamCount,
    .Make = MakePlainCommand<CCopyTo>,
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a paste from command.", // the other one's text
};

const CreatorRow CtorPasteFrom = {
    .Name = u"CtorPasteFrom",
    .Specification = Class::Pastefrom,
    .ParamCount = Class::Pastefrom.ParamCount,
    .Make = MakePlainCommand<CPasteFrom>,
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a paste from command.",
};

const CreatorRow CtorClearHistory = {
    .Name = u"CtorClearHistory",
    .Specification = Class::ClearHistory,
    .ParamCount = Class::ClearHistory.ParamCount,
    .Make = MakePlainCommand<CClearHistory>,
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a clearHistory command.",
};

} // namespace portico

#include "ui/commands/EditCommands.h"

#include "document/entities/IDataStore.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/modGlobals.h"
#include "framework/shared/Application.h"
#include "framework/shared/IConfiguration.h"
#include "platform/IDesktop.h"
#include "ui/base/Wired.h"
#include "ui/dialogs/frmSelectFile.h"

namespace portico {
namespace {

void Press(StringView keys) { Wired(gKeyboard).SendKeys(String(keys)); }

void Refuse() { HuntERR::Check(false, ErrorNumber::CannotCarryOut, u"Operation is not implemented yet."); }

/// Empty if the user has cancelled.
String AskForFile(const String& title, std::int32_t filters) {
  const auto dialog = frmSelectFile::Make();
  HuntERR::Check(bool(dialog), ErrorNumber::CannotCreate, u"Cannot create a select-file dialog.");
  return dialog->SelectedFileName(SelectToOpen, title, filters);
}

Ref<IDataStore> OpenStore(const String& name) {
  const auto store = Create<IDataStore>(u"DataStore", modGlobals::VarArray(name, false));
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
  if (modGlobals::FileExists(name)) { // whatever the answer is, the file is kept
    Wired(gMessageBox).Show(u"Do you want to erase " + name + u"?", ApplicationTitle, MessageBoxButtons::YesNo);
  }
  const auto store = OpenStore(name);
  gConfiguration->ItemValue(u"CopyToFileName", name);
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
  gConfiguration->ItemValue(u"PasteFromFileName", name);
  return bool(store);
} catch (...) {
  PassOn(u"CPasteFrom.OpenPasteFromFile");
}

void CPasteFrom::Act() {
  if (OpenPasteFromFile()) Refuse();
}

void CClearHistory::Act() { Refuse(); }

constexpr std::int32_t CannotCreate = ErrorNumber::CannotCreate;

const CreatorRow CtorCut = {
    u"CtorCut", u"Cut", 0, MakePlainCommand<CCut>, CannotCreate, u"Cannot create a cut command."};
const CreatorRow CtorCopy = {
    u"CtorCopy", u"Copy", 0, MakePlainCommand<CCopy>, CannotCreate, u"Cannot create a copy command."};
const CreatorRow CtorPaste = {
    u"CtorPaste", u"Paste", 0, MakePlainCommand<CPaste>, CannotCreate, u"Cannot create a paste command."};
const CreatorRow CtorCopyTo = {u"CtorCopyTo",
                               u"Copyto",
                               0,
                               MakePlainCommand<CCopyTo>,
                               CannotCreate,
                               u"Cannot create a paste from command."}; // the other one's text
const CreatorRow CtorPasteFrom = {u"CtorPasteFrom",
                                  u"Pastefrom",
                                  0,
                                  MakePlainCommand<CPasteFrom>,
                                  CannotCreate,
                                  u"Cannot create a paste from command."};
const CreatorRow CtorClearHistory = {u"CtorClearHistory",
                                     u"ClearHistory",
                                     0,
                                     MakePlainCommand<CClearHistory>,
                                     CannotCreate,
                                     u"Cannot create a clearHistory command."};

} // namespace portico

#include "memory/desktop/CommonDialog.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/errors/Quit.h"

#include <stdexcept>

namespace portico::memory {
namespace {

/// With an extension, if the name itself has none.
String Extended(const String& name, const String& extension) {
  const auto separator = name.find_last_of(u"/\\");
  const auto dot = name.rfind(u'.');
  const bool hasOne = dot != String::npos && (separator == String::npos || dot > separator);
  return hasOne ? name : name + extension;
}

void CancelWith(bool cancelError) {
  if (cancelError) HuntERR::RaiseStandard(ErrorNumber::DialogCancelled);
}

} // namespace

void CommonDialog::ShowOpen(FileDialogSettings& settings) { ShowFile(Kind::Open, settings); }

void CommonDialog::ShowSave(FileDialogSettings& settings) { ShowFile(Kind::Save, settings); }

void CommonDialog::ShowFile(Kind kind, FileDialogSettings& settings) {
  ThrowIfQuitting();
  m_files.push_back({kind, settings});
  const Answer answer = Take(kind);
  if (answer.Selection) Fail(kind, "a file dialog is answered like a print dialog");
  ThrowIfQuitting();
  if (!answer.FileName) return CancelWith(settings.CancelError);
  const String& name = answer.FileName->empty() ? settings.FileName : *answer.FileName;
  if (name.empty()) Fail(kind, "a file dialog cannot be accepted without a name");
  settings.FileName = Extended(name, settings.DefaultExt);
}

Ref<IDeviceContext> CommonDialog::ShowPrinter(const PrinterDialogSettings& settings) {
  ThrowIfQuitting();
  m_printers.push_back(settings);
  const Answer answer = Take(Kind::Printer);
  if (answer.FileName) Fail(Kind::Printer, "a print dialog is answered like a file dialog");
  if (answer.Selection.value_or(false) && (settings.Flags & PrintNoSelection) != 0) {
    Fail(Kind::Printer, "the dialog does not offer to print the selection");
  }
  ThrowIfQuitting();
  if (!answer.Selection) {
    CancelWith(settings.CancelError);
    return {};
  }
  if ((settings.Flags & PrintReturnsContext) == 0) return {};
  m_contexts.push_back(New<DeviceContext>(*answer.Selection));
  return m_contexts.back();
}

void CommonDialog::ShowHelp(const HelpSettings& settings) {
  ThrowIfQuitting();
  m_helps.push_back(settings);
}

CommonDialog::Answer CommonDialog::Take(Kind kind) {
  if (m_answers.empty()) Fail(kind, "nobody expects the dialog");
  Answer answer = m_answers.front();
  m_answers.pop_front();
  return answer;
}

void CommonDialog::Fail(Kind kind, const char* message) {
  m_unexpected.push_back(kind);
  throw std::logic_error(message);
}

void CommonDialog::ThrowIfQuitting() const {
  if (m_isQuitting && m_isQuitting()) throw Quit{};
}

} // namespace portico::memory

#pragma once

#include "memory/forms/DeviceContext.h"
#include "platform/ICommonDialog.h"

#include <deque>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace portico::memory {

/// The common dialogs, answered from a queue. A file or print dialog that nobody has answered beforehand throws
/// `std::logic_error`.
class CommonDialog final : public ICommonDialog {
public:
  enum class Kind { Open, Save, Printer };

  /// `isQuitting`: the program has been told to end, and every dialog throws `Quit`.
  explicit CommonDialog(std::function<bool()> isQuitting = {}) : m_isQuitting(std::move(isQuitting)) {}
  StringView ClassName() const override { return u"CommonDialog"; }

  void ShowOpen(FileDialogSettings& settings) override;
  void ShowSave(FileDialogSettings& settings) override;
  Ref<IDeviceContext> ShowPrinter(const PrinterDialogSettings& settings) override;
  void ShowHelp(const HelpSettings& settings) override;

  // What the user does with the next dialog that has no answer yet.
  /// Accepts a file dialog, with a name; an empty one stands for the name that is proposed.
  void Accept(const String& FileName) { m_answers.push_back({FileName, {}}); }
  /// Accepts a print dialog, with the selection or with all.
  void AcceptPrint(bool selection = false) { m_answers.push_back({{}, selection}); }
  void Cancel() { m_answers.push_back({}); }

  /// A file dialog as it was shown.
  struct FileCall {
    Kind Dialog = Kind::Open;
    FileDialogSettings Settings;
  };
  const std::vector<FileCall>& Files() const { return m_files; }
  const std::vector<PrinterDialogSettings>& Printers() const { return m_printers; }
  const std::vector<HelpSettings>& Helps() const { return m_helps; }
  /// The contexts that print dialogs have answered with.
  const std::vector<Ref<DeviceContext>>& Contexts() const { return m_contexts; }
  /// The dialogs that threw `std::logic_error`.
  const std::vector<Kind>& Unexpected() const { return m_unexpected; }
  std::size_t AnswersLeft() const { return m_answers.size(); }

private:
  /// Neither of the two means that the dialog is cancelled.
  struct Answer {
    std::optional<String> FileName = {};
    std::optional<bool> Selection = {};
  };

  void ShowFile(Kind kind, FileDialogSettings& settings);
  Answer Take(Kind kind);
  [[noreturn]] void Fail(Kind kind, const char* message);
  void ThrowIfQuitting() const;

  std::function<bool()> m_isQuitting;
  std::deque<Answer> m_answers;
  std::vector<FileCall> m_files;
  std::vector<PrinterDialogSettings> m_printers;
  std::vector<HelpSettings> m_helps;
  std::vector<Ref<DeviceContext>> m_contexts;
  std::vector<Kind> m_unexpected;
};

} // namespace portico::memory

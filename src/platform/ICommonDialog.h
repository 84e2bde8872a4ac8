#pragma once

#include "platform/IRichTextControl.h"

namespace portico {

/// What a file dialog is shown with.
struct FileDialogSettings {
  String FileName = {}; ///< the one proposed; when the dialog has been accepted, the one chosen
  String DialogTitle = {};
  String Filter = {}; ///< pairs of a name and a pattern, all separated by '|'
  std::int32_t FilterIndex = 1;
  String DefaultExt = {}; ///< with its dot; added to a name that has none
  std::int32_t Flags = 0;
  bool CancelError = false; ///< a dialog that is cancelled raises `DialogCancelled`
};

/// A flag of the dialog that saves.
inline constexpr std::int32_t AskBeforeOverwriting = 2;

// Flags of the print dialog.
inline constexpr std::int32_t PrintSelectionPreset = 1;
inline constexpr std::int32_t PrintNoSelection = 4;
inline constexpr std::int32_t PrintNoPageNumbers = 8;
inline constexpr std::int32_t PrintSetupForm = 64;
inline constexpr std::int32_t PrintReturnsContext = 256;

struct PrinterDialogSettings {
  String DialogTitle = {};
  std::int32_t Flags = 0;
  bool CancelError = false;
};

// Help commands.
inline constexpr std::int32_t HelpFinder = 11;
inline constexpr std::int32_t HelpMacro = 258;
inline constexpr std::int32_t HelpPartialKey = 261;

struct HelpSettings {
  std::int32_t HelpCommand = 0;
  String HelpKey = {};
  String HelpFile = {};
};

/// The dialogs that every program has. Modal; they throw `Quit` as a modal form does.
class ICommonDialog : public virtual IObject {
public:
  /// Any name is accepted, that of a new file too.
  virtual void ShowOpen(FileDialogSettings& settings) = 0;
  virtual void ShowSave(FileDialogSettings& settings) = 0;
  /// The context to print to, if it was asked for and the dialog was accepted.
  virtual Ref<IDeviceContext> ShowPrinter(const PrinterDialogSettings& settings) = 0;
  virtual void ShowHelp(const HelpSettings& settings) = 0;
};

/// The one common dialog of the platform; forms share it.
extern Ref<ICommonDialog> gCommonDialog;

} // namespace portico
